// SPDX-License-Identifier: Apache-2.0
// Loopbacks of an OLT's own ports.
#include "host/sdk_sim/events.h"
#include "host/sdk_sim/gate.h"

namespace sdk_sim {

namespace {

const Operation set_loopback_mode("NEP_set_loopback_mode", GENERAL);

constexpr int16_t OF_THE_OLT = -1;

} // namespace

} // namespace sdk_sim

using namespace sdk_sim;

int16_t NEP_set_loopback_mode(int16_t olt_id, int32_t mode)
{
    return on_olt(set_loopback_mode, olt_id, in(olt_id, mode), out(), [&](Olt& olt) {
        if (mode < OLT_LOOPBACK_NONE || mode > OLT_LOOPBACK_SNIFF) return PARAMETER_ERROR;
        int32_t& closed = olt.configuration.loopback;
        if (mode == closed) return SUCCESS;
        if (closed != OLT_LOOPBACK_NONE) raise(EVENT_LOOPBACK_CHANGED, olt_id, LoopbackChangedEvent{OF_THE_OLT, 0});
        if (mode != OLT_LOOPBACK_NONE) raise(EVENT_LOOPBACK_CHANGED, olt_id, LoopbackChangedEvent{OF_THE_OLT, 1});
        closed = mode;
        return SUCCESS;
    });
}
