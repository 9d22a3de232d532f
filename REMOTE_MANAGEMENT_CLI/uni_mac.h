// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler show_remote_uni_port;
EPON_CLI_API cmd_handler remote_uni_port;
EPON_CLI_API cmd_handler show_remote_uni_port_configuration;
EPON_CLI_API cmd_handler remote_uni_port_configuration;
EPON_CLI_API cmd_handler show_remote_uni_port_status;
EPON_CLI_API cmd_handler show_remote_uni_extended_configuration;
EPON_CLI_API cmd_handler remote_uni_extended_configuration;
}

namespace epon {

void install_remote_uni_mac();

} // namespace epon
