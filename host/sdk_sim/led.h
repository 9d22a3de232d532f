// SPDX-License-Identifier: Apache-2.0
// What an OLT keeps of its LEDs.
#pragma once

#include <array>
#include <cstdint>

#include <epon/sdk/led.h>

namespace sdk_sim {

// The mode of each LED; all are the hardware's at first.
using Leds = std::array<std::int32_t, LED_COUNT>;

} // namespace sdk_sim
