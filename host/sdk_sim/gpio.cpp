// SPDX-License-Identifier: Apache-2.0
// General purpose lines of an OLT.
#include "host/sdk_sim/gate.h"

namespace sdk_sim {

namespace {

const Operation gpio_access("NEP_gpio_access", GENERAL);

} // namespace

} // namespace sdk_sim

using namespace sdk_sim;

int16_t NEP_gpio_access(int16_t olt_id, int32_t line, int32_t direction, int32_t value)
{
    return on_olt(gpio_access, olt_id, in(olt_id, line, direction, value), out(), [&](Olt& olt) {
        if (line < 0 || line >= GPIO_LINE_LIMIT || direction < GPIO_DIRECTION_NOT_CHANGED ||
            direction > GPIO_DIRECTION_INPUT || value < GPIO_VALUE_NOT_CHANGED || value > GPIO_VALUE_ON)
            return PARAMETER_ERROR;
        GpioLine changed = olt.configuration.gpio[line];
        if (direction != GPIO_DIRECTION_NOT_CHANGED) changed.direction = direction;
        if (value != GPIO_VALUE_NOT_CHANGED) {
            // Whoever is connected drives an input.
            if (changed.direction == GPIO_DIRECTION_INPUT) return EXIT_ERROR;
            changed.value = value;
        }
        olt.configuration.gpio[line] = changed;
        return SUCCESS;
    });
}
