// SPDX-License-Identifier: Apache-2.0
// Taking ONUs off the PON by command.
#include "host/sdk_sim/life.h"
#include "host/sdk_sim/link_operation.h"

namespace sdk_sim {

namespace {

const Operation deregister("NEP_deregister_onu", GENERAL);

constexpr Milliseconds DEREGISTRATION_TIME = 20; // until the ONU has acknowledged

void leave(Network& network, Olt& olt, Onu& onu)
{
    if (!counts_as_registered(onu)) return;
    deregister_onu(olt, onu, DeregistrationReason::Command);
    return_onu(network, olt, onu.id);
}

} // namespace

} // namespace sdk_sim

using namespace sdk_sim;

// The time that a caller waits passes at once.
int16_t NEP_deregister_onu(int16_t olt_id, int16_t onu_id, int32_t wait)
{
    return on_link(deregister, olt_id, onu_id, in(olt_id, onu_id, wait), out(),
                   [&](Network& network, Olt& olt, Onu& onu) {
                       if (wait != 0 && wait != 1) return PARAMETER_ERROR;
                       if (wait == 1) {
                           leave(network, olt, onu);
                           return SUCCESS;
                       }
                       after(network, olt, DEREGISTRATION_TIME, [onu_id](Network& later, Olt& of_onu) {
                           if (Onu* leaving = registered_onu(of_onu, onu_id)) leave(later, of_onu, *leaving);
                       });
                       return SUCCESS;
                   });
}
