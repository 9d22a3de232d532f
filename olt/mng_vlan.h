// SPDX-License-Identifier: Apache-2.0
// VLAN tags of the management traffic between the host and an OLT.
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler set_olt_mng_vlan_cfg;
EPON_CLI_API cmd_handler set_olt_mng_vlan_id;
EPON_CLI_API cmd_handler set_olt_mng_vlan_prio;
EPON_CLI_API cmd_handler show_olt_mng_vlan_cfg;
EPON_CLI_API cmd_handler show_olt_mng_vlan_id;
EPON_CLI_API cmd_handler show_olt_mng_vlan_prio;
}

namespace epon {

void install_mng_vlan();

} // namespace epon
