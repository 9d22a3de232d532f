// SPDX-License-Identifier: Apache-2.0
// The grants that are set by hand on an OLT.
#pragma once

#include <cstdint>
#include <vector>

#include <epon/sdk/grants.h>

namespace sdk_sim {

struct Grants {
    std::vector<OLT_grant> records;
    std::uint32_t cycle_size = 0; // time quanta; 0: none are set
};

} // namespace sdk_sim
