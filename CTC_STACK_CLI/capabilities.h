// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler show_onu_capabilities;
EPON_CLI_API cmd_handler show_onu_capabilities_2;
EPON_CLI_API cmd_handler show_onu_capabilities_3;
}

namespace epon {

void install_ctc_capabilities();

} // namespace epon
