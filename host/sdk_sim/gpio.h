// SPDX-License-Identifier: Apache-2.0
// What an OLT keeps of its general purpose lines.
#pragma once

#include <array>
#include <cstdint>

#include <epon/sdk/gpio.h>

namespace sdk_sim {

struct GpioLine {
    std::int32_t direction = GPIO_DIRECTION_INPUT;
    std::int32_t value = GPIO_VALUE_OFF;
};

using Gpio = std::array<GpioLine, GPIO_LINE_LIMIT>;

} // namespace sdk_sim
