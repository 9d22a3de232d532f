// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler show_onu_powersave_capabilities;
EPON_CLI_API cmd_handler show_onu_powersave_config;
EPON_CLI_API cmd_handler power_save_config;
EPON_CLI_API cmd_handler sleep_control;
}

namespace epon {

void install_ctc_power_save();

} // namespace epon
