// SPDX-License-Identifier: Apache-2.0
// Commands of the address table. Not part of this build yet: it installs nothing.
#include <epon/cli.h>

void AT_CLI_cmd_init()
{
    static constinit bool is_installed = false;
    if (is_installed) return;
    is_installed = true;
}
