// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler holdover_state_config;
EPON_CLI_API cmd_handler show_holdover_state_config;
EPON_CLI_API cmd_handler active_pon_if_state_config;
EPON_CLI_API cmd_handler show_active_pon_if_state_config;
EPON_CLI_API cmd_handler protection_parameter;
EPON_CLI_API cmd_handler show_onu_protection_parameter;
}

namespace epon {

void install_ctc_protection();

} // namespace epon
