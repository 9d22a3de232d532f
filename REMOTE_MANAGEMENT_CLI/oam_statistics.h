// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler show_remote_oam_all_stats;
EPON_CLI_API cmd_handler show_remote_oam_stat_by_leaf;
EPON_CLI_API cmd_handler show_remote_oam_standard_stat_all;
EPON_CLI_API cmd_handler remote_clear_all_statistics;
}

namespace epon {

void install_oam_statistics();

} // namespace epon
