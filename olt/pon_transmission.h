// SPDX-License-Identifier: Apache-2.0
// The optics of an OLT's PON: transmission, modules, redundancy.
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler set_olt_use_redundant_mode;
EPON_CLI_API cmd_handler no_olt_use_redundant_mode;
EPON_CLI_API cmd_handler set_olt_pon_transmission;
EPON_CLI_API cmd_handler get_olt_pon_transmission;
EPON_CLI_API cmd_handler no_olt_pon_transmission;
EPON_CLI_API cmd_handler get_olt_pon_module_exist;
}

namespace epon {

void install_pon_transmission();

} // namespace epon
