// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler show_remote_fec_configuration;
EPON_CLI_API cmd_handler remote_fec_configuration;
}

namespace epon {

void install_remote_fec();

} // namespace epon
