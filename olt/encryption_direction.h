// SPDX-License-Identifier: Apache-2.0
// Which directions of a link are encrypted with numbered packets.
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler set_olt_encryption_direction;
EPON_CLI_API cmd_handler no_olt_encryption_direction;
EPON_CLI_API cmd_handler show_olt_encryption_direction;
EPON_CLI_API cmd_handler show_encryption_pn_db;
}

namespace epon {

void install_encryption_direction();

} // namespace epon
