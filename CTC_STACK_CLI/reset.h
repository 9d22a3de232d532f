// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler onu_reset;
EPON_CLI_API cmd_handler card_reset;
}

namespace epon {

void install_ctc_reset();

} // namespace epon
