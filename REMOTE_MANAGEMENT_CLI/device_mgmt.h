// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler remote_led_configuration;
EPON_CLI_API cmd_handler remote_reset_device;
EPON_CLI_API cmd_handler remote_diagnostic_test;
EPON_CLI_API cmd_handler remote_extend_mtu_size;
EPON_CLI_API cmd_handler show_remote_extend_mtu_size;
EPON_CLI_API cmd_handler remote_reboot_counter;
EPON_CLI_API cmd_handler show_remote_reboot_counter;
}

namespace epon {

void install_device_mgmt();

} // namespace epon
