// SPDX-License-Identifier: Apache-2.0
// Links in the OLT module: their contexts, and what is done to one link from there.
#pragma once

#include <epon/cli.h>

extern "C" {

// llid_node.cpp
EPON_CLI_API cmd_handler llid_node_config;
EPON_CLI_API cmd_handler llid_node_mac_config;

// authorize.cpp
EPON_CLI_API cmd_handler authorize;
EPON_CLI_API cmd_handler no_authorize;
EPON_CLI_API cmd_handler reauthenticate;

// encryption.cpp
EPON_CLI_API cmd_handler start_encryption;
EPON_CLI_API cmd_handler update_encryption;
EPON_CLI_API cmd_handler stop_encryption;
EPON_CLI_API cmd_handler get_encryption_key;

// link_test.cpp
EPON_CLI_API cmd_handler link_test_num_of_frames;
EPON_CLI_API cmd_handler link_test_cont;
EPON_CLI_API cmd_handler no_link_test;

// oam_frame_rate.cpp
EPON_CLI_API cmd_handler set_oam_frame_rate;
EPON_CLI_API cmd_handler no_oam_frame_rate;
EPON_CLI_API cmd_handler show_oam_frame_rate;

// send_oam.cpp
EPON_CLI_API cmd_handler send_oam_file;
}

namespace epon {

void install_llid_node();
void install_authorize();
void install_encryption();
void install_link_test();
void install_oam_frame_rate();
void install_send_oam();

} // namespace epon
