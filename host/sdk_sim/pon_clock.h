// SPDX-License-Identifier: Apache-2.0
// What an OLT's PON clock is ahead of the time since the OLT started.
#pragma once

#include <cstdint>

namespace sdk_sim {

// Time quanta of 16 ns, modulo 2^32 as the clock itself.
struct PonClock {
    std::uint32_t offset = 0;     // as set
    std::uint32_t correction = 0; // by synchronization
};

struct Network;
struct Olt;

// An OLT's clock, offset included.
std::uint32_t pon_clock_of(const Network& network, const Olt& olt);

} // namespace sdk_sim
