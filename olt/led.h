// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler set_led_mode;
EPON_CLI_API cmd_handler show_led_mode;
EPON_CLI_API cmd_handler set_led_by_val;
}

namespace epon {

void install_led();

} // namespace epon
