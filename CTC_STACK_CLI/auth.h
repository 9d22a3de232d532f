// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler auth_loid_data_add;
EPON_CLI_API cmd_handler auth_loid_data_remove;
EPON_CLI_API cmd_handler show_auth_loid_data_table;
EPON_CLI_API cmd_handler auth_mode;
EPON_CLI_API cmd_handler show_auth_mode;
EPON_CLI_API cmd_handler auth_loid_llid_config;
EPON_CLI_API cmd_handler no_auth_loid_llid_config;
EPON_CLI_API cmd_handler show_auth_loid_llid_config;
}

namespace epon {

void install_ctc_auth();

} // namespace epon
