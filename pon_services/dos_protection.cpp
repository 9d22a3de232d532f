// SPDX-License-Identifier: Apache-2.0
// Commands of the protection against floods. Not part of this build yet: it installs nothing.
#include <epon/cli.h>

void CLI_dos_protection_cmd_init()
{
    static constinit bool is_installed = false;
    if (is_installed) return;
    is_installed = true;
}
