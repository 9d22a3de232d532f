// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler show_remote_threshold_reporter_configuration;
EPON_CLI_API cmd_handler show_remote_lag_hash_key;
EPON_CLI_API cmd_handler remote_lag_hash_key;
}

namespace epon {

void install_remote_frame_processing();

} // namespace epon
