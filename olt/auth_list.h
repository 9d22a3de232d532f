// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler set_auth_list_operation_mode;
EPON_CLI_API cmd_handler set_active_auth_list_type;
EPON_CLI_API cmd_handler show_active_auth_list_type;
EPON_CLI_API cmd_handler set_auth_list_mac;
EPON_CLI_API cmd_handler no_auth_list_mac;
EPON_CLI_API cmd_handler clear_auth_list_mac_table;
EPON_CLI_API cmd_handler show_auth_list_configuration;
}

namespace epon {

void install_auth_list();

} // namespace epon
