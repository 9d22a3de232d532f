// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler xaui_redundancy_enable;
EPON_CLI_API cmd_handler xaui_redundancy_params_set;
EPON_CLI_API cmd_handler xaui_redundancy_params_show;
EPON_CLI_API cmd_handler xaui_redundancy_switch_over;
}
