// SPDX-License-Identifier: Apache-2.0
// Commands of the CTC stack.
#include <epon/cli.h>

#include "CTC_STACK_CLI/auth.h"
#include "CTC_STACK_CLI/capabilities.h"
#include "CTC_STACK_CLI/identity.h"

void CTC_STACK_CLI_cmd_init()
{
    static constinit bool is_installed = false;
    if (is_installed) return;
    is_installed = true;
    epon::install_ctc_identity();
    epon::install_ctc_capabilities();
    epon::install_ctc_auth();
}
