// SPDX-License-Identifier: Apache-2.0
// Commands of the SDK log. Not part of this build yet: it installs nothing.
#include <epon/cli.h>

void CLI_logging_cmd_init() {}
