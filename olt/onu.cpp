// SPDX-License-Identifier: Apache-2.0
// The ONU module. Its own commands are not part of this build yet; its nodes have the engine's.
#include <initializer_list>

#include <epon/cli.h>

void CLI_ONU_cmd_init()
{
    static constinit bool is_installed = false;
    if (is_installed) return;
    is_installed = true;
    for (const int node : {ONU_NODE, ONU_PON_NODE, UNI_NODE})
        RBX_install_default(node);
}
