// SPDX-License-Identifier: Apache-2.0
// Commands of remote SXG encryption. Not part of this build yet: it installs nothing.
#include <epon/cli.h>

void REMOTE_MANAGEMENT_CLI_sxg_cmd_init()
{
    static constinit bool is_installed = false;
    if (is_installed) return;
    is_installed = true;
}

int16_t CLI_remote_management_sxg_init()
{
    REMOTE_MANAGEMENT_CLI_sxg_cmd_init();
    return 0;
}
