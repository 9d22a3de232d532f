// SPDX-License-Identifier: Apache-2.0
// The context of the VIREO4 bandwidth allocation. Its own commands are not part of this
// build yet.
#include <epon/cli.h>

static constinit cmd_node dba_vireo4_node = {DBA_VIREO4_NODE, "%s(OLT%d DBA(Vireo))# ", 0, nullptr, nullptr};

void VIREO_CLI_cmd_init()
{
    static constinit bool is_installed = false;
    if (is_installed) return;
    is_installed = true;
    RBX_install_node(&dba_vireo4_node, nullptr);
    RBX_install_default(dba_vireo4_node.node);
}
