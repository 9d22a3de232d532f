// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler get_i2c_register;
EPON_CLI_API cmd_handler set_i2c_register;
EPON_CLI_API cmd_handler write_i2c_register_extended;
EPON_CLI_API cmd_handler read_i2c_register_extended;
}

namespace epon {

void install_i2c_register();

} // namespace epon
