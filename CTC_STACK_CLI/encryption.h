// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler encryption_timing;
EPON_CLI_API cmd_handler show_encryption_timing;
EPON_CLI_API cmd_handler encryption_timing_threshold;
EPON_CLI_API cmd_handler show_encryption_timing_threshold;
EPON_CLI_API cmd_handler encryption_key_update_time_set;
EPON_CLI_API cmd_handler show_encryption_key_update_time;
EPON_CLI_API cmd_handler ctc_start_encryption;
EPON_CLI_API cmd_handler ctc_stop_encryption;
}

namespace epon {

void install_ctc_encryption();

} // namespace epon
