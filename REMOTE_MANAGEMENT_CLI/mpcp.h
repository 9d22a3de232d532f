// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler show_remote_MPCP_report_format;
EPON_CLI_API cmd_handler remote_MPCP_report_format;
EPON_CLI_API cmd_handler show_remote_MPCP_standard_mode;
EPON_CLI_API cmd_handler remote_MPCP_standard_mode;
}

namespace epon {

void install_remote_mpcp();

} // namespace epon
