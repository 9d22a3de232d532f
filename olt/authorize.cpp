// SPDX-License-Identifier: Apache-2.0
// Whether a link may carry traffic.
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"
#include "olt/llid.h"

using namespace epon;

int authorize(cmd_element*, vty* session, int, char**)
{
    return report(session, NEP_authorize_onu(session->olt_id, session->llid, 1));
}

int no_authorize(cmd_element*, vty* session, int, char**)
{
    return report(session, NEP_authorize_onu(session->olt_id, session->llid, 0));
}

int reauthenticate(cmd_element*, vty* session, int, char**)
{
    return report(session, NEP_reauthenticate_onu(session->olt_id, session->llid));
}

static constinit cmd_element authorize_cmd = command("authorize", authorize, "Let this link carry traffic\n");

static constinit cmd_element no_authorize_cmd =
    command("no authorize", no_authorize,
            "Turn a setting off, or take an object away\n"
            "The link's authorization: it stays registered, but carries no traffic\n");

static constinit cmd_element reauthenticate_cmd =
    command("reauthenticate", reauthenticate,
            "Have the ONU of this link prove itself anew; until then the link carries no traffic\n");

namespace epon {

void install_authorize()
{
    install(
        {{&authorize_cmd, in(LLID_NODE)}, {&no_authorize_cmd, in(LLID_NODE)}, {&reauthenticate_cmd, in(LLID_NODE)}});
}

} // namespace epon
