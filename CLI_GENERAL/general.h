// SPDX-License-Identifier: Apache-2.0
// The general module: nodes, event notification, adding an OLT.
#pragma once

#include <epon/cli.h>

extern "C" {

EPON_CLI_API cmd_handler event_notify;
EPON_CLI_API cmd_handler no_event_notify;
EPON_CLI_API cmd_handler olt_add;
}

namespace epon {

void install_nodes();
void install_event_notify();
void install_olt_add();

} // namespace epon
