// SPDX-License-Identifier: Apache-2.0
// What has been written to the PHYs behind an OLT's management interface.
#pragma once

#include <array>
#include <cstdint>
#include <map>

namespace sdk_sim {

struct Mdio {
    std::map<std::array<std::int32_t, 2>, std::int32_t> registers;   // clause 22, by PHY and register
    std::map<std::array<std::int32_t, 3>, std::int32_t> registers45; // clause 45, by port, device and register
};

} // namespace sdk_sim
