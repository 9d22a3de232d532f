// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler test_loopback_mode;
EPON_CLI_API cmd_handler no_test_loopback_mode;
}

namespace epon {

void install_olt_loopback();

} // namespace epon
