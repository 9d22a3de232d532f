// SPDX-License-Identifier: Apache-2.0
// What a link keeps of a test that runs on it.
#pragma once

#include <cstdint>

namespace sdk_sim {

struct LinkTest {
    bool is_running = false;
    std::int32_t size = 0;        // octets of a frame
    bool measures_delays = false; // of a test that ends by itself
    std::uint64_t started_at = 0; // virtual milliseconds
    std::uint64_t ends_at = 0;    // 0: when it is stopped
};

} // namespace sdk_sim
