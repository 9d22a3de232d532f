// SPDX-License-Identifier: Apache-2.0
// Remote management: its start, the events of its ONUs, and what is installed.
#include <cstdio>

#include <epon/cli.h>

#include "CLI_GENERAL/output.h"
#include "REMOTE_MANAGEMENT_CLI/alarm_configuration.h"
#include "REMOTE_MANAGEMENT_CLI/device_information.h"
#include "REMOTE_MANAGEMENT_CLI/device_mgmt.h"
#include "REMOTE_MANAGEMENT_CLI/encryption.h"
#include "REMOTE_MANAGEMENT_CLI/fec.h"
#include "REMOTE_MANAGEMENT_CLI/frame_processing.h"
#include "REMOTE_MANAGEMENT_CLI/mp_application.h"
#include "REMOTE_MANAGEMENT_CLI/mpcp.h"
#include "REMOTE_MANAGEMENT_CLI/oam_api.h"
#include "REMOTE_MANAGEMENT_CLI/oam_statistics.h"
#include "REMOTE_MANAGEMENT_CLI/periph.h"
#include "REMOTE_MANAGEMENT_CLI/rstp_ldp.h"
#include "REMOTE_MANAGEMENT_CLI/send_file_to_onu.h"
#include "REMOTE_MANAGEMENT_CLI/uni_mac.h"

namespace {

constexpr const char* ENTRY_POINTS = "REMOTE_MANAGEMENT_CLI/REMOTE_MANAGEMENT_CLI "; // with this trailing blank

// Any thread.
void print_rstp_loop(int16_t olt_id, int16_t onu_id, int32_t port, int32_t loop, int32_t link)
{
    char line[160];
    snprintf(line, sizeof line,
             "CLI: Got ONU RSTP loop detect event. OLT: %d, ONU: %d. Port: %d, Loop status: %s, Link status: %s\n",
             olt_id, onu_id, static_cast<int>(port), loop != 0 ? "loop detected" : "loop repaired",
             link != 0 ? "link up" : "link down");
    epon::print_to_notified(line, "");
}

} // namespace

int16_t CLI_remote_management_init()
{
    epon::trace_api_call(ENTRY_POINTS, __func__);
    RemoteRstpLoopDetectedHandler* const printer = print_rstp_loop;
    if (REMOTE_NEPONU_assign_application_handler_function(REMOTE_RSTP_LOOP_DETECTED,
                                                          reinterpret_cast<EventHandler>(printer)) != 0) {
        return -1; // silently: nobody is told why there are no commands
    }
    epon::print_to_notified("CLI: REMOTE_MANAGEMENT Handler functions assignment success\n", "");
    REMOTE_MANAGEMENT_CLI_cmd_init();
    CLI_remote_management_sxg_init();
    return 0;
}

void REMOTE_MANAGEMENT_CLI_cmd_init()
{
    static constinit bool is_installed = false;
    if (is_installed) return;
    is_installed = true;
    epon::install_alarm_configuration();
    epon::install_device_information();
    epon::install_device_mgmt();
    epon::install_mp_application();
    epon::install_oam_api();
    epon::install_oam_statistics();
    epon::install_periph();
    epon::install_remote_encryption();
    epon::install_remote_fec();
    epon::install_remote_mpcp();
    epon::install_remote_uni_mac();
    epon::install_remote_frame_processing();
    epon::install_rstp_ldp();
    epon::install_send_file_to_onu();
}
