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
}

namespace epon {

void install_onu_node();

} // namespace epon
