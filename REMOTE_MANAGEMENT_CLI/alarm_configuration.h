// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler show_remote_alarm_configuration;
EPON_CLI_API cmd_handler remote_alarm_configuration;
EPON_CLI_API cmd_handler remote_event_configuration;
}

namespace epon {

void install_alarm_configuration();

} // namespace epon
