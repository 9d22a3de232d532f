// SPDX-License-Identifier: Apache-2.0
// Which of an ONU's optical transmitters have power.
#pragma once

#include <array>
#include <cstdint>

#include <epon/sdk/ctc_tx_power.h>

namespace sdk_sim {

struct Onu;

// Outlives registrations and resets: an ONU that was silenced stays so.
struct OnuTransmitters {
    static constexpr std::uint64_t PERMANENTLY = UINT64_MAX;
    // Of the active and of the standby one: virtual milliseconds until which it is off; 0: it is on.
    std::array<std::uint64_t, 2> off_until{};
};

// Whether the OLT can hear anything of the ONU.
bool transmits(const Onu& onu);

} // namespace sdk_sim
