// SPDX-License-Identifier: Apache-2.0
// Commands of the CTC stack.
#include <epon/cli.h>

#include "CTC_STACK_CLI/auth.h"
#include "CTC_STACK_CLI/capabilities.h"
#include "CTC_STACK_CLI/identity.h"
#include "CTC_STACK_CLI/multi_llid.h"
#include "CTC_STACK_CLI/power_save.h"
#include "CTC_STACK_CLI/protection.h"
#include "CTC_STACK_CLI/reset.h"
#include "CTC_STACK_CLI/tx_power.h"

void CTC_STACK_CLI_cmd_init()
{
    static constinit bool is_installed = false;
    if (is_installed) return;
    is_installed = true;
    epon::install_ctc_identity();
    epon::install_ctc_capabilities();
    epon::install_ctc_auth();
    epon::install_ctc_reset();
    epon::install_ctc_tx_power();
    epon::install_ctc_protection();
    epon::install_ctc_power_save();
    epon::install_ctc_multi_llid();
}
