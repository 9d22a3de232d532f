// SPDX-License-Identifier: Apache-2.0
// What an OLT keeps of the frames that its host sends.
#pragma once

#include <cstdint>

namespace sdk_sim {

struct SentFrames {
    std::uint64_t frames = 0;
    std::uint64_t octets = 0;
};

} // namespace sdk_sim
