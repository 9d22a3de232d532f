// SPDX-License-Identifier: Apache-2.0
// ONUs with several logical links.
#include <epon/sdk/ctc_multi_llid.h>

#include "host/sdk_sim/ctc_operation.h"

namespace sdk_sim {

namespace {

const Operation set_multi_llid("CTC_STACK_set_multi_llid_admin_control", CTC_STACK);

} // namespace

} // namespace sdk_sim

using namespace sdk_sim;

// The first link of an ONU is always there.
int16_t CTC_STACK_set_multi_llid_admin_control(int16_t olt_id, int16_t onu_id, uint8_t activated)
{
    return set_ctc(set_multi_llid, olt_id, onu_id, in(olt_id, onu_id, activated), [&](Network&, Olt&, Onu& onu) {
        if (activated > CTC_MULTI_LLID_MAX) return PARAMETER_ERROR;
        if (activated > 1 && activated > onu.capabilities.multi_llid) return ONU_NO_RESOURCES;
        onu.configuration.activated_llids = activated;
        return SUCCESS;
    });
}
