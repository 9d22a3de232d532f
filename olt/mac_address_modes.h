// SPDX-License-Identifier: Apache-2.0
// How an OLT treats MAC addresses that turn up twice, move, or are not the sender's own.
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler set_duplicate_mac_handle_mode;
EPON_CLI_API cmd_handler show_duplicate_mac_handle_mode;
EPON_CLI_API cmd_handler set_mac_migration_event_report_mode;
EPON_CLI_API cmd_handler show_mac_migration_event_report_mode;
EPON_CLI_API cmd_handler set_olt_anti_spoofing_mode;
EPON_CLI_API cmd_handler show_olt_anti_spoofing_mode;
}

namespace epon {

void install_mac_address_modes();

} // namespace epon
