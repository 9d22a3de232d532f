// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler start_mka_exchange_key;
EPON_CLI_API cmd_handler set_mka_parameter_bool;
EPON_CLI_API cmd_handler set_mka_parameter_ulong;
EPON_CLI_API cmd_handler set_mka_parameter_ubuf;
EPON_CLI_API cmd_handler set_mka_parameter_ulong64;
EPON_CLI_API cmd_handler show_mka_global_parameter;
EPON_CLI_API cmd_handler show_mka_parameter;
}

namespace epon {

void install_mka();

} // namespace epon
