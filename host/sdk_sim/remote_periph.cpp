// SPDX-License-Identifier: Apache-2.0
// The analogue-to-digital converter of an ONU: two voltages that waver a little.
#include "host/sdk_sim/remote_periph.h"

#include <algorithm>

#include "host/sdk_sim/remote_operation.h"

namespace sdk_sim {

namespace {

const Operation get_adc_config("REMOTE_NEPONU_get_ADC_config", REMOTE_MANAGEMENT);
const Operation set_adc_config("REMOTE_NEPONU_set_ADC_config", REMOTE_MANAGEMENT);
const Operation get_adc_sample("REMOTE_NEPONU_get_ADC_sample", REMOTE_MANAGEMENT);

constexpr std::uint32_t reference_millivolts[] = {2500, 3300};
constexpr std::uint32_t RIPPLE_MILLIVOLTS = 8;
constexpr Milliseconds RIPPLE_PERIOD_MS = 16000;

// Null for an item that there is not.
std::uint32_t* find_item(OnuAdc& adc, std::int32_t item)
{
    if (item == REMOTE_ADC_CHANNEL) return &adc.channel;
    if (item == REMOTE_ADC_REFERENCE) return &adc.reference;
    return nullptr;
}

// Rises by the ripple and falls again within a period.
std::uint32_t ripple(Milliseconds now)
{
    const Milliseconds phase = now % RIPPLE_PERIOD_MS;
    const Milliseconds from_start = std::min(phase, RIPPLE_PERIOD_MS - phase);
    return static_cast<std::uint32_t>(from_start * RIPPLE_MILLIVOLTS / (RIPPLE_PERIOD_MS / 2));
}

std::uint32_t sample(const Network& network, const Onu& onu)
{
    const OnuAdc& adc = onu.configuration.adc;
    const std::uint32_t millivolts = onu.device.adc_millivolts[adc.channel] + ripple(network.now);
    const std::uint32_t value = millivolts * REMOTE_ADC_SAMPLE_MAX / reference_millivolts[adc.reference];
    return std::min<std::uint32_t>(value, REMOTE_ADC_SAMPLE_MAX);
}

} // namespace

} // namespace sdk_sim

using namespace sdk_sim;

int16_t REMOTE_NEPONU_get_ADC_config(int16_t olt_id, int16_t onu_id, int32_t item, uint32_t* value)
{
    const auto arguments = in(olt_id, onu_id, item);
    return ask_remote(get_adc_config, olt_id, onu_id, arguments, out(value), [&](Network&, Olt&, Onu& onu) {
        const std::uint32_t* found = find_item(onu.configuration.adc, item);
        if (found == nullptr) return PARAMETER_ERROR;
        *value = *found;
        return SUCCESS;
    });
}

int16_t REMOTE_NEPONU_set_ADC_config(int16_t olt_id, int16_t onu_id, int32_t item, uint32_t value)
{
    return set_remote(set_adc_config, olt_id, onu_id, in(olt_id, onu_id, item, value), [&](Network&, Olt&, Onu& onu) {
        std::uint32_t* found = find_item(onu.configuration.adc, item);
        if (found == nullptr || value > 1) return PARAMETER_ERROR;
        *found = value;
        return SUCCESS;
    });
}

int16_t REMOTE_NEPONU_get_ADC_sample(int16_t olt_id, int16_t onu_id, uint32_t* value)
{
    return get_remote(get_adc_sample, olt_id, onu_id, value, sample);
}
