// SPDX-License-Identifier: Apache-2.0
// Debug commands. Not part of this build yet: it installs nothing.
#include <epon/cli.h>

void CLI_DEBUG_cmd_init() {}
