// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler mdio_reg;
EPON_CLI_API cmd_handler mdio45_reg;
}

namespace epon {

void install_mdio();

} // namespace epon
