// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler show_remote_ADC_config;
EPON_CLI_API cmd_handler remote_ADC_config;
EPON_CLI_API cmd_handler show_remote_ADC_sample;
}

namespace epon {

void install_periph();

} // namespace epon
