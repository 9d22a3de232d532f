// SPDX-License-Identifier: Apache-2.0
// Core network interface commands. Not part of this build yet: it installs nothing.
#include <epon/cli.h>

void CLI_CNI_cmd_init() {}
