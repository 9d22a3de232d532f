// SPDX-License-Identifier: Apache-2.0
// The context of the internal bandwidth allocation. Its own commands are not part of this
// build yet.
#include <epon/cli.h>

static constinit cmd_node dba_internal_node = {DBA_INTERNAL_NODE, "%s(OLT%d DBA(Internal))# ", 0, nullptr, nullptr};

void INTERNAL_DBA_CLI_cmd_init()
{
    static constinit bool is_installed = false;
    if (is_installed) return;
    is_installed = true;
    RBX_install_node(&dba_internal_node, nullptr);
    RBX_install_default(dba_internal_node.node);
}
