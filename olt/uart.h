// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler write_uart;
EPON_CLI_API cmd_handler read_uart;
}

namespace epon {

void install_uart();

} // namespace epon
