// SPDX-License-Identifier: Apache-2.0
// The command line of the ONU itself: in its node every line that is typed goes to the ONU.
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"
#include "olt/link.h"
#include "olt/onu.h"

using namespace epon;

namespace {

constinit cmd_node onu_cli_node = {ONU_CLI_NODE, "%s(OLT%d ONU", 0, nullptr, nullptr};

} // namespace

int connect_cli(cmd_element*, vty* session, int, char**)
{
    int16_t onu_id;
    int result;
    if (!read_session_onu(session, &onu_id, &result)) return result;
    // What the ONU says arrives like an event; leaving the node restores the operator's own choice.
    const uint8_t event_notify = session->event_notify;
    __atomic_store_n(&session->event_notify, 1, __ATOMIC_RELAXED);
    const int16_t code = NEP_send_onu_cli_command(session->olt_id, onu_id, 1, "\n"); // the ONU prints its own prompt
    if (code != 0) {
        __atomic_store_n(&session->event_notify, event_notify, __ATOMIC_RELAXED);
        return report(session, code);
    }
    session->event_notify_saved = event_notify;
    session->onu_id = onu_id; // the one that the address belongs to now
    session->node = ONU_CLI_NODE;
    return 0;
}

static constinit cmd_element connect_cli_cmd = command(
    "connect_cli", connect_cli, "Talk to this ONU's own command line: every line typed is sent to it, until exit\n");

namespace epon {

void install_connect_cli()
{
    RBX_install_node(&onu_cli_node, nullptr);
    RBX_install_default(ONU_CLI_NODE);
    install({{&connect_cli_cmd, in(ONU_NODE)}});
}

} // namespace epon
