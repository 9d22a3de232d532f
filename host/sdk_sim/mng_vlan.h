// SPDX-License-Identifier: Apache-2.0
// What an OLT keeps of its management VLANs.
#pragma once

#include <array>
#include <cstdint>

#include <epon/sdk/mng_vlan.h>

namespace sdk_sim {

struct MngVlan {
    std::array<std::int32_t, MNG_VLAN_ITEM_LIMIT> values = {0, 0, 1, 1, 0, 0, 0, 0, 0}; // by item
};

} // namespace sdk_sim
