// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler config_802_1x;
EPON_CLI_API cmd_handler no_config_802_1x;
}

namespace epon {

void install_dot1x();

} // namespace epon
