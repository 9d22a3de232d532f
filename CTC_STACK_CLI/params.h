// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler set_params;
EPON_CLI_API cmd_handler show_ctc_parameters;
}

namespace epon {

void install_ctc_params();

} // namespace epon
