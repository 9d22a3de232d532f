// SPDX-License-Identifier: Apache-2.0
// What an OLT keeps of its redundant XAUI uplink.
#pragma once

#include <array>
#include <cstdint>

namespace sdk_sim {

class ScenarioReader;

struct XauiRedundancy {
    std::int32_t enabled = 0;
    std::array<std::int32_t, 3> parameters{}; // by enum XauiRedundancyParameter
    std::int32_t active_channel = 0;          // 0 primary, 1 secondary
};

// The table "xaui_redundancy" of an OLT.
void read_xaui_redundancy(ScenarioReader& reader, XauiRedundancy* xaui);

} // namespace sdk_sim
