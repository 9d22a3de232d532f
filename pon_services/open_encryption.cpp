// SPDX-License-Identifier: Apache-2.0
// Commands of open encryption. Not part of this build yet: it installs nothing.
#include <epon/cli.h>

void OPEN_ENCRYPTION_CLI_cmd_init() {}
