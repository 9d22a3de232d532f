// SPDX-License-Identifier: Apache-2.0
// Time-of-day commands. Not part of this build yet: it installs nothing.
#include <epon/cli.h>

void CLI_ToD_cmd_init() {}
