// SPDX-License-Identifier: Apache-2.0
// What an ONU keeps of its protected lines.
#pragma once

#include <cstdint>

#include <epon/sdk/ctc_protection.h>

namespace sdk_sim {

struct LineProtection {
    std::int32_t holdover_state = CTC_HOLDOVER_DISACTIVATED;
    std::uint32_t holdover_time = 0; // ms
    std::uint8_t active_pon_if = 0;
    std::uint16_t los_optic_time = 2; // ms
    std::uint16_t los_mac_time = 50;  // ms
};

} // namespace sdk_sim
