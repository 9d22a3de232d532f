// SPDX-License-Identifier: Apache-2.0
// Commands of the network engine. Not part of this build yet: it installs nothing.
#include <epon/cli.h>

void NE_CLI_cmd_init() {}
