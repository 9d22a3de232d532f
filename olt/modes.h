// SPDX-License-Identifier: Apache-2.0
// Modes of an OLT: its reference clock, firmware flavor, network engine and PON.
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler set_olt_ref_clock;
EPON_CLI_API cmd_handler show_olt_ref_clock;
EPON_CLI_API cmd_handler set_olt_flavor_edk;
EPON_CLI_API cmd_handler get_olt_flavor_edk;
EPON_CLI_API cmd_handler set_olt_interface_mtu;
EPON_CLI_API cmd_handler show_olt_interface_mtu;
EPON_CLI_API cmd_handler set_olt_ne_mode;
EPON_CLI_API cmd_handler set_olt_ne_mode_num;
EPON_CLI_API cmd_handler show_olt_ne_mode;
EPON_CLI_API cmd_handler set_enable_rules_for_dereg_llids;
EPON_CLI_API cmd_handler no_enable_rules_for_dereg_llids;
EPON_CLI_API cmd_handler show_enable_rules_for_dereg_llids;
EPON_CLI_API cmd_handler set_nack_control;
EPON_CLI_API cmd_handler get_nack_control;
EPON_CLI_API cmd_handler set_dba_allocation_overhead_mode;
EPON_CLI_API cmd_handler show_dba_allocation_overhead_mode;
}

namespace epon {

void install_olt_modes();

} // namespace epon
