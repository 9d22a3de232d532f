// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler ctc_version;
EPON_CLI_API cmd_handler show_ctc_version;
EPON_CLI_API cmd_handler ctc_oui;
EPON_CLI_API cmd_handler show_ctc_oui;
EPON_CLI_API cmd_handler extended_oam_discovery_timing;
EPON_CLI_API cmd_handler show_extended_oam_discovery_timing;
EPON_CLI_API cmd_handler communication_config;
EPON_CLI_API cmd_handler show_communication_config;
}

namespace epon {

void install_ctc_stack_settings();

} // namespace epon
