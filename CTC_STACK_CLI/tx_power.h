// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler onu_tx_power_supply_control;
}

namespace epon {

void install_ctc_tx_power();

} // namespace epon
