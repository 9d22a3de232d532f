// SPDX-License-Identifier: Apache-2.0
// The ONU module: contexts of one ONU, and what is shown and tested there.
#pragma once

#include <epon/cli.h>

extern "C" {

// onu_node.cpp
EPON_CLI_API cmd_handler onu_node_config;
EPON_CLI_API cmd_handler onu_node_mac_config;
EPON_CLI_API cmd_handler onu_pon_node_config;
EPON_CLI_API cmd_handler uni_node_config;

// connect_cli.cpp
EPON_CLI_API cmd_handler connect_cli;

// onu_loopback.cpp
EPON_CLI_API cmd_handler onu_test_phy_mode;
EPON_CLI_API cmd_handler onu_test_mac_mode;
EPON_CLI_API cmd_handler no_onu_test_mode;
EPON_CLI_API cmd_handler set_standard_onu_loopback;
EPON_CLI_API cmd_handler no_standard_onu_loopback;
EPON_CLI_API cmd_handler show_standard_onu_loopback_mode;

// load_rbx_onu_firmware.cpp
EPON_CLI_API cmd_handler load_rbx_onu_fw_file;

// fec.cpp
EPON_CLI_API cmd_handler set_fec_mode;
EPON_CLI_API cmd_handler no_fec_mode;
EPON_CLI_API cmd_handler show_llid_fec;

// show_llid.cpp
EPON_CLI_API cmd_handler show_llid_mode;
EPON_CLI_API cmd_handler show_llid_authorize;
EPON_CLI_API cmd_handler show_llid_encryption;
}

namespace epon {

void install_onu_node();
void install_connect_cli();
void install_onu_loopback();
void install_load_rbx_onu_firmware();
void install_fec();
void install_show_llid();

} // namespace epon
