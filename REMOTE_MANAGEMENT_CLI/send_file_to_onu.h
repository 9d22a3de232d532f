// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler remote_send_file_to_onu;
}

namespace epon {

void install_send_file_to_onu();

} // namespace epon
