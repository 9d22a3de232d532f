// SPDX-License-Identifier: Apache-2.0
// PON clocks: they run with the network's clock.
#include "host/sdk_sim/pon_clock.h"

#include "host/sdk_sim/olt_operation.h"

namespace sdk_sim {

namespace {

const Operation get_olt_pon_clock("NEP_get_olt_pon_clock", GENERAL);
const Operation set_olt_pon_clock_offset("NEP_set_olt_pon_clock_offset", GENERAL);
const Operation sync_olts_pon_clock("Sync_olts_pon_clock", GENERAL);

constexpr uint64_t QUANTA_PER_MILLISECOND = 62500;

} // namespace

uint32_t pon_clock_of(const Network& network, const Olt& olt)
{
    const PonClock& clock = olt.configuration.pon_clock;
    const auto running = static_cast<uint32_t>((network.now - olt.started_at) * QUANTA_PER_MILLISECOND);
    return running + clock.offset + clock.correction;
}

} // namespace sdk_sim

using namespace sdk_sim;

int16_t NEP_get_olt_pon_clock(int16_t olt_id, uint32_t* clock)
{
    return on_olt_and_network(get_olt_pon_clock, olt_id, in(olt_id), out(clock), [&](Network& network, Olt& olt) {
        *clock = pon_clock_of(network, olt);
        return SUCCESS;
    });
}

int16_t NEP_set_olt_pon_clock_offset(int16_t olt_id, uint32_t offset)
{
    return on_olt(set_olt_pon_clock_offset, olt_id, in(olt_id, offset), out(), [&](Olt& olt) {
        olt.configuration.pon_clock.offset = offset;
        return SUCCESS;
    });
}

int16_t Sync_olts_pon_clock(int16_t master_olt_id, int16_t slave_olt_id)
{
    const auto arguments = in(master_olt_id, slave_olt_id);
    return on_olt_and_network(sync_olts_pon_clock, master_olt_id, arguments, out(), [&](Network& network, Olt& master) {
        Olt* slave = present_olt(network, slave_olt_id);
        if (slave == nullptr) return GENERAL.no_olt;
        if (slave == &master) return PARAMETER_ERROR;
        slave->configuration.pon_clock.correction += pon_clock_of(network, master) - pon_clock_of(network, *slave);
        return SUCCESS;
    });
}
