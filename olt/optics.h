// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler set_olt_optics;
EPON_CLI_API cmd_handler show_olt_optics;
EPON_CLI_API cmd_handler set_olt_optics_by_module_and_connectivity;
EPON_CLI_API cmd_handler set_olt_optics_single_param;
}

namespace epon {

void install_optics();

} // namespace epon
