// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler send_frame;
EPON_CLI_API cmd_handler send_frame_mac;
EPON_CLI_API cmd_handler send_frame_memory;
EPON_CLI_API cmd_handler send_frame_memory_mac;
}

namespace epon {

void install_send_frame();

} // namespace epon
