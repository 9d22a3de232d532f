// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler show_remote_encryption_configuration;
EPON_CLI_API cmd_handler remote_encryption_configuration;
EPON_CLI_API cmd_handler show_remote_encryption_mode;
EPON_CLI_API cmd_handler remote_encryption_mode;
EPON_CLI_API cmd_handler show_remote_encryption_state;
EPON_CLI_API cmd_handler remote_encryption_state;
EPON_CLI_API cmd_handler show_remote_encryption_key;
EPON_CLI_API cmd_handler remote_encryption_key;
EPON_CLI_API cmd_handler show_remote_encryption_active_key;
EPON_CLI_API cmd_handler remote_encryption_active_key;
}

namespace epon {

void install_remote_encryption();

} // namespace epon
