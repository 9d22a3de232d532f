// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler show_post_mortem;
}

namespace epon {

void install_post_mortem();

} // namespace epon
