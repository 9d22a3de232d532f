// SPDX-License-Identifier: Apache-2.0
// The clock that an OLT's PON runs by.
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler show_olt_pon_clock;
EPON_CLI_API cmd_handler set_olt_pon_clock_offset;
EPON_CLI_API cmd_handler set_sync_olts_pon_clock;
}

namespace epon {

void install_pon_clock();

} // namespace epon
