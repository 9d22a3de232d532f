// SPDX-License-Identifier: Apache-2.0
// The MLD application of an ONU.
#pragma once

#include <cstdint>

namespace sdk_sim {

struct MldApplication {
    bool is_running = false;
    bool has_joined = false;
    std::uint64_t joins_at = 0; // virtual milliseconds
};

} // namespace sdk_sim
