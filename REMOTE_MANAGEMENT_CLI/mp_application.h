// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler show_remote_mld_version;
EPON_CLI_API cmd_handler remote_mld_init;
EPON_CLI_API cmd_handler remote_mld_terminate;
}

namespace epon {

void install_mp_application();

} // namespace epon
