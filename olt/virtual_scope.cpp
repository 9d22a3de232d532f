// SPDX-License-Identifier: Apache-2.0
// Commands of the virtual scope. Not part of this build yet: it installs nothing.
#include <epon/cli.h>

void CLI_OLT_virtual_scope_cmd_init()
{
    static constinit bool is_installed = false;
    if (is_installed) return;
    is_installed = true;
}
