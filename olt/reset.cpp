// SPDX-License-Identifier: Apache-2.0
// Taking an OLT away, and finding one again that kept running while the host did not.
#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"
#include "olt/olt.h"

using namespace epon;

int olt_reset(cmd_element*, vty* session, int, char** argv)
{
    int16_t olt_id;
    if (!read_olt_id(session, argv[0], &olt_id)) return -1;
    return report(session, NEP_reset_olt(olt_id));
}

int olt_recovery(cmd_element*, vty* session, int, char** argv)
{
    int16_t olt_id;
    if (!read_olt_id(session, argv[0], &olt_id)) return -1;
    int32_t state = RECOVERY_NOT_STARTED;
    uint32_t elapsed;
    uint16_t onus;
    uint16_t llids;
    uint8_t buffer[OLT_RECOVERY_BUFFER_SIZE];
    const int16_t code = NEP_olt_host_recovery(olt_id, &state, &elapsed, &onus, &llids, buffer);
    // A recovery that did not come to its end is a failure even with code 0.
    if (code != 0 || state != RECOVERY_DONE) print_sdk_failure(session, code);
    return code;
}

static constinit cmd_element olt_reset_cmd =
    command("no olt OLT_INDEX", olt_reset,
            "Turn a setting off, or take an object away\n"
            "Reset an OLT; its ONUs lose their service, and it is absent until it is added again\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n");

static constinit cmd_element olt_recovery_cmd =
    command("olt OLT_INDEX recovery", olt_recovery,
            "Enter the context of one OLT, or add, recover or remove one\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "Rebuild the host's view of an OLT that kept running; its service goes on\n");

namespace epon {

void install_olt_reset()
{
    install({{&olt_reset_cmd, in(CONFIG_NODE)}, {&olt_recovery_cmd, in(CONFIG_NODE)}});
}

} // namespace epon
