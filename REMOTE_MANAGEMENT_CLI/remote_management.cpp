// SPDX-License-Identifier: Apache-2.0
// Commands of remote ONU management. Not part of this build yet: it installs nothing.
#include <epon/cli.h>

void REMOTE_MANAGEMENT_CLI_cmd_init() {}
