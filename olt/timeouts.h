// SPDX-License-Identifier: Apache-2.0
// How long an OLT keeps a silent ONU, and how it watches and limits OAM.
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler set_olt_mpcp_timeout;
EPON_CLI_API cmd_handler show_olt_mpcp_timeout;
EPON_CLI_API cmd_handler set_olt_standard_oam_timeout;
EPON_CLI_API cmd_handler show_olt_standard_oam_timeout;
EPON_CLI_API cmd_handler set_olt_standard_oam_keepalive_state;
EPON_CLI_API cmd_handler show_olt_standard_oam_keepalive_state;
EPON_CLI_API cmd_handler limited_oam;
EPON_CLI_API cmd_handler no_limited_oam;
}

namespace epon {

void install_timeouts();

} // namespace epon
