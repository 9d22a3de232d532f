// SPDX-License-Identifier: Apache-2.0
// The OLT module: contexts, parameters, versions, reset and recovery of one OLT.
#pragma once

#include <epon/cli.h>

extern "C" {

// nodes.cpp
EPON_CLI_API cmd_handler olt_node_config;
EPON_CLI_API cmd_handler olt_pon_node_config;
EPON_CLI_API cmd_handler cni_node_config;
EPON_CLI_API cmd_handler fw_craft_node_config;

// parameters.cpp
EPON_CLI_API cmd_handler set_max_rtt;
EPON_CLI_API cmd_handler set_min_rtt;
EPON_CLI_API cmd_handler set_baud_rate;
EPON_CLI_API cmd_handler set_llid_assignment;
EPON_CLI_API cmd_handler set_sled_strobe;
EPON_CLI_API cmd_handler set_sled_mute;
EPON_CLI_API cmd_handler set_i2c_speed;
EPON_CLI_API cmd_handler set_grant_filtering;
EPON_CLI_API cmd_handler no_grant_filtering;
EPON_CLI_API cmd_handler set_oui_parameter;
EPON_CLI_API cmd_handler set_vsi_parameter_per_type;
EPON_CLI_API cmd_handler show_olt_parameters;
EPON_CLI_API cmd_handler show_olt_grant_filtering;

// version.cpp
EPON_CLI_API cmd_handler show_olt_version;

// reset.cpp
EPON_CLI_API cmd_handler olt_reset;
EPON_CLI_API cmd_handler olt_recovery;
}

namespace epon {

void install_olt_nodes();
void install_olt_parameters();
void install_olt_version();
void install_olt_reset();

} // namespace epon
