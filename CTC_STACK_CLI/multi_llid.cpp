// SPDX-License-Identifier: Apache-2.0
// ONUs with several logical links.
#include "CTC_STACK_CLI/multi_llid.h"

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CTC_STACK_CLI/onu_report.h"

using namespace epon;

int multi_llid_admin_control(cmd_element*, vty* session, int, char** argv)
{
    OnuTarget onu;
    int result;
    uint8_t activated;
    if (!read_session_target(session, &onu, &result)) return result;
    if (!read_number(session, argv[0], unsigned_range("num_of_llid_activated", 0, UINT8_MAX), &activated)) return -1;
    return report_ctc(session, CTC_STACK_set_multi_llid_admin_control(onu.olt_id, onu.onu_id, activated));
}

static constinit cmd_element multi_llid_admin_control_cmd =
    command("ctc multi-llid-admin-control num-of-llid-activated <0-8>", multi_llid_admin_control,
            "Management of ONUs by the CTC extension of OAM\n"
            "Several logical links of the ONU\n"
            "How many links it has\n"
            "Number of links, 0-8; 0: its first alone\n");

namespace epon {

void install_ctc_multi_llid()
{
    install({{&multi_llid_admin_control_cmd, in(ONU_NODE)}});
}

} // namespace epon
