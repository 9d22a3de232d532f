// SPDX-License-Identifier: Apache-2.0
// What an OLT keeps of its PON's optics.
#pragma once

#include <array>
#include <cstdint>

namespace sdk_sim {

class ScenarioReader;
struct Olt;
struct Onu;

struct PonTransmission {
    std::array<std::int32_t, 2> enabled = {1, 1}; // 1G, 10G
    std::array<std::int32_t, 2> modules = {1, 1}; // plugged in: primary, secondary
    std::int32_t use_redundant = 0;
    bool is_dark = false; // no ONU's light comes in any more
};

// Whether the OLT transmits at the rate that the ONU receives.
bool hears_olt(const Olt& olt, const Onu& onu);
// The table "pon_modules" of an OLT.
void read_pon_modules(ScenarioReader& reader, PonTransmission* transmission);

} // namespace sdk_sim
