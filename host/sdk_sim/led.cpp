// SPDX-License-Identifier: Apache-2.0
// LEDs of an OLT.
#include "host/sdk_sim/gate.h"

namespace sdk_sim {

namespace {

constexpr int VALUE_LEDS = 32; // bits of NEP_set_led_by_value
constexpr std::int16_t LEDS_NOT_CONTROLLED = -1015;

bool is_led(int32_t led)
{
    return led >= 0 && led < LED_COUNT;
}

const Operation set_led_mode("NEP_set_led_mode", GENERAL);
const Operation get_led_mode("NEP_get_led_mode", GENERAL);
const Operation set_led_by_value("NEP_set_led_by_value", GENERAL);

} // namespace

} // namespace sdk_sim

using namespace sdk_sim;

int16_t NEP_set_led_mode(int16_t olt_id, int32_t led, int32_t mode)
{
    return on_olt(set_led_mode, olt_id, in(olt_id, led, mode), out(), [&](Olt& olt) {
        if (!is_led(led) || mode < 0 || mode >= LED_MODE_COUNT) return PARAMETER_ERROR;
        olt.configuration.leds[led] = mode;
        return SUCCESS;
    });
}

int16_t NEP_get_led_mode(int16_t olt_id, int32_t led, int32_t* mode)
{
    return on_olt(get_led_mode, olt_id, in(olt_id, led), out(mode), [&](Olt& olt) {
        if (!is_led(led)) return PARAMETER_ERROR;
        *mode = olt.configuration.leds[led];
        return SUCCESS;
    });
}

int16_t NEP_set_led_by_value(int16_t olt_id, uint32_t value)
{
    return on_olt(set_led_by_value, olt_id, in(olt_id, value), out(), [&](Olt& olt) {
        std::int16_t code = LEDS_NOT_CONTROLLED;
        for (int led = 0; led < VALUE_LEDS; ++led) {
            std::int32_t& mode = olt.configuration.leds[led];
            if (mode == LED_MODE_HW) continue;
            mode = (value >> led & 1) != 0 ? LED_MODE_ON : LED_MODE_OFF;
            code = SUCCESS;
        }
        return code;
    });
}
