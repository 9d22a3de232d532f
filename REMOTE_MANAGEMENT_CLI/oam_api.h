// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler show_remote_oam_frame_length_negotiation;
EPON_CLI_API cmd_handler show_remote_oam_vendor_information;
EPON_CLI_API cmd_handler remote_oam_vendor_information;
EPON_CLI_API cmd_handler show_remote_slow_protocol_limit;
EPON_CLI_API cmd_handler remote_slow_protocol_limit;
EPON_CLI_API cmd_handler show_remote_oam_version;
EPON_CLI_API cmd_handler show_remote_oam_dying_gasp_times;
EPON_CLI_API cmd_handler remote_oam_dying_gasp_times;
}

namespace epon {

void install_oam_api();

} // namespace epon
