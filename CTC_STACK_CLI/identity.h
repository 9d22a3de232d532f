// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler show_onu_serial_number;
EPON_CLI_API cmd_handler show_firmware_version;
EPON_CLI_API cmd_handler show_chipset_id;
}

namespace epon {

void install_ctc_identity();

} // namespace epon
