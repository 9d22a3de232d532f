// SPDX-License-Identifier: Apache-2.0
// Commands of mode-1 rules. Not part of this build yet: it installs nothing.
#include <epon/cli.h>

void CLI_mode1_cmd_init() {}
