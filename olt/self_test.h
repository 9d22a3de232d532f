// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler self_test;
}

namespace epon {

void install_self_test();

} // namespace epon
