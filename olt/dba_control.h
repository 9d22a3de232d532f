// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler dba_stop;
EPON_CLI_API cmd_handler dba_stop_external;
EPON_CLI_API cmd_handler set_dba_report_format;
}

namespace epon {

void install_dba_control();

} // namespace epon
