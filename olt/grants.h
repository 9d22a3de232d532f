// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler set_grants_clear;
EPON_CLI_API cmd_handler set_grants_add;
EPON_CLI_API cmd_handler set_grants_apply;
}

namespace epon {

void install_grants();

} // namespace epon
