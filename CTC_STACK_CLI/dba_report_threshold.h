// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler dba_report_thresholds;
EPON_CLI_API cmd_handler show_dba_report_thresholds;
}

namespace epon {

void install_dba_report_threshold();

} // namespace epon
