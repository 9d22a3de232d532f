// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler multi_llid_admin_control;
}

namespace epon {

void install_ctc_multi_llid();

} // namespace epon
