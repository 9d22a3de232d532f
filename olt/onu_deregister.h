// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler onu_closing;
EPON_CLI_API cmd_handler onu_closing_wait;
}

namespace epon {

void install_onu_deregister();

} // namespace epon
