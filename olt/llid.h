// SPDX-License-Identifier: Apache-2.0
// Links in the OLT module: their contexts, and what is done to one link from there.
#pragma once

#include <epon/cli.h>

extern "C" {

// llid_node.cpp
EPON_CLI_API cmd_handler llid_node_config;
EPON_CLI_API cmd_handler llid_node_mac_config;
}

namespace epon {

void install_llid_node();

} // namespace epon
