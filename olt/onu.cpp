// SPDX-License-Identifier: Apache-2.0
#include "olt/onu.h"

#include <initializer_list>

void CLI_ONU_cmd_init()
{
    static constinit bool is_installed = false;
    if (is_installed) return;
    is_installed = true;
    epon::install_onu_node();
    epon::install_connect_cli();
    epon::install_onu_loopback();
    epon::install_load_rbx_onu_firmware();
    epon::install_fec();
    epon::install_show_llid();
    for (const int node : {ONU_NODE, ONU_PON_NODE, UNI_NODE})
        RBX_install_default(node);
}
