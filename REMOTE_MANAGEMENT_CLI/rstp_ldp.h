// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler show_remote_rstp_ldp_mode;
EPON_CLI_API cmd_handler remote_rstp_ldp_mode;
EPON_CLI_API cmd_handler remote_rstp_ldp_resolve_loop;
}

namespace epon {

void install_rstp_ldp();

} // namespace epon
