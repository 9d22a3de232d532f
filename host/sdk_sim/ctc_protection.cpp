// SPDX-License-Identifier: Apache-2.0
// Holdover, the working PON interface, and the times after which a line is lost.
#include "host/sdk_sim/ctc_protection.h"

#include <utility>

#include "host/sdk_sim/ctc_operation.h"

namespace sdk_sim {

namespace {

const Operation set_holdover_state("CTC_STACK_set_holdover_state", CTC_STACK);
const Operation get_holdover_state("CTC_STACK_get_holdover_state", CTC_STACK);
const Operation set_active_pon_if_state("CTC_STACK_set_active_pon_if_state", CTC_STACK);
const Operation get_active_pon_if_state("CTC_STACK_get_active_pon_if_state", CTC_STACK);
const Operation set_protection_parameters("CTC_STACK_set_onu_protection_parameters", CTC_STACK);
const Operation get_protection_parameters("CTC_STACK_get_onu_protection_parameters", CTC_STACK);

bool is_holdover(std::int32_t state, std::uint32_t time)
{
    if (state == CTC_HOLDOVER_DISACTIVATED && time == 0) return true;
    return (state == CTC_HOLDOVER_DISACTIVATED || state == CTC_HOLDOVER_ACTIVATED) && time >= CTC_HOLDOVER_TIME_MIN &&
           time <= CTC_HOLDOVER_TIME_MAX;
}

// The interfaces change their roles, so what was the standby transmitter is the active one.
std::int16_t activate(Onu& onu, std::uint8_t active_pon_if)
{
    LineProtection& protection = onu.configuration.line_protection;
    if (active_pon_if >= onu.capabilities.pon_interfaces) return ONU_BAD_PARAMETER;
    if (active_pon_if == protection.active_pon_if) return SUCCESS;
    auto& off_until = onu.transmitters.off_until;
    if (off_until[CTC_OPTICAL_STANDBY] != 0) return ONU_BAD_PARAMETER;
    std::swap(off_until[CTC_OPTICAL_ACTIVE], off_until[CTC_OPTICAL_STANDBY]);
    protection.active_pon_if = active_pon_if;
    return SUCCESS;
}

} // namespace

} // namespace sdk_sim

using namespace sdk_sim;

int16_t CTC_STACK_set_holdover_state(int16_t olt_id, int16_t onu_id, int32_t state, uint32_t time)
{
    return set_ctc(set_holdover_state, olt_id, onu_id, in(olt_id, onu_id, state, time), [&](Network&, Olt&, Onu& onu) {
        if (!is_holdover(state, time)) return ONU_BAD_PARAMETER;
        onu.configuration.line_protection.holdover_state = state;
        onu.configuration.line_protection.holdover_time = time;
        return SUCCESS;
    });
}

int16_t CTC_STACK_get_holdover_state(int16_t olt_id, int16_t onu_id, int32_t* state, uint32_t* time)
{
    const auto read = [](const Onu& onu, int32_t& state_of_onu, uint32_t& time_of_onu) {
        state_of_onu = onu.configuration.line_protection.holdover_state;
        time_of_onu = onu.configuration.line_protection.holdover_time;
    };
    return get_ctc(get_holdover_state, olt_id, onu_id, read, state, time);
}

int16_t CTC_STACK_set_active_pon_if_state(int16_t olt_id, int16_t onu_id, uint8_t active_pon_if)
{
    return set_ctc(set_active_pon_if_state, olt_id, onu_id, in(olt_id, onu_id, active_pon_if),
                   [&](Network&, Olt&, Onu& onu) { return activate(onu, active_pon_if); });
}

int16_t CTC_STACK_get_active_pon_if_state(int16_t olt_id, int16_t onu_id, uint8_t* active_pon_if)
{
    const auto read = [](const Onu& onu, uint8_t& active) { active = onu.configuration.line_protection.active_pon_if; };
    return get_ctc(get_active_pon_if_state, olt_id, onu_id, read, active_pon_if);
}

int16_t CTC_STACK_set_onu_protection_parameters(int16_t olt_id, int16_t onu_id, uint16_t los_optic_time,
                                                uint16_t los_mac_time)
{
    return set_ctc(set_protection_parameters, olt_id, onu_id, in(olt_id, onu_id, los_optic_time, los_mac_time),
                   [&](Network&, Olt&, Onu& onu) {
                       onu.configuration.line_protection.los_optic_time = los_optic_time;
                       onu.configuration.line_protection.los_mac_time = los_mac_time;
                       return SUCCESS;
                   });
}

int16_t CTC_STACK_get_onu_protection_parameters(int16_t olt_id, int16_t onu_id, uint16_t* los_optic_time,
                                                uint16_t* los_mac_time)
{
    const auto read = [](const Onu& onu, uint16_t& optic, uint16_t& mac) {
        optic = onu.configuration.line_protection.los_optic_time;
        mac = onu.configuration.line_protection.los_mac_time;
    };
    return get_ctc(get_protection_parameters, olt_id, onu_id, read, los_optic_time, los_mac_time);
}
