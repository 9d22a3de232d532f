// SPDX-License-Identifier: Apache-2.0
// Debug commands. Not part of this build yet: it installs nothing.
#include <epon/cli.h>

void CLI_DEBUG_cmd_init()
{
    static constinit bool is_installed = false;
    if (is_installed) return;
    is_installed = true;
}
