// SPDX-License-Identifier: Apache-2.0
// What an ONU's analogue-to-digital converter is set to.
#pragma once

#include <cstdint>

namespace sdk_sim {

struct OnuAdc {
    std::uint32_t channel = 0;
    std::uint32_t reference = 0;
};

} // namespace sdk_sim
