// SPDX-License-Identifier: Apache-2.0
// The general module's own commands, then those of the modules that belong to it.
#include "CLI_GENERAL/general.h"

void General_cmd_init()
{
    static constinit bool is_installed = false;
    if (is_installed) return;
    is_installed = true;
    epon::install_nodes();
    epon::install_event_notify();
    epon::install_olt_add();
    CLI_CNI_cmd_init();
    CLI_DEBUG_cmd_init();
    CLI_logging_cmd_init();
    CLI_OLT_cmd_init();
    CLI_ONU_cmd_init();
    CLI_PS_cmd_init();
    CLI_statistic_cmd_init();
    CLI_syncE_cmd_init();
    CLI_ToD_cmd_init();
    CLI_OLT_virtual_scope_cmd_init();
    CLI_dos_protection_cmd_init();
    CLI_mc_cmd_init();
}
