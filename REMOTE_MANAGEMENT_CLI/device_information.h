// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler show_remote_device_status;
EPON_CLI_API cmd_handler show_remote_device_version;
EPON_CLI_API cmd_handler show_remote_pon_clock;
EPON_CLI_API cmd_handler show_remote_mac_address;
EPON_CLI_API cmd_handler show_remote_up_time;
EPON_CLI_API cmd_handler show_remote_os;
}

namespace epon {

void install_device_information();

} // namespace epon
