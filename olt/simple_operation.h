// SPDX-License-Identifier: Apache-2.0
// Operations of an OLT's firmware that take and answer one number.
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler set_simple_operation;
EPON_CLI_API cmd_handler set_pre_init_simple_operation;
EPON_CLI_API cmd_handler no_pre_init_simple_operation;
}

namespace epon {

void install_simple_operation();

} // namespace epon
