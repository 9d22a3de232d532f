// SPDX-License-Identifier: Apache-2.0
// What a link keeps of its OAM frames.
#pragma once

#include <cstdint>

#include <epon/sdk/oam_frames.h>

namespace sdk_sim {

struct OamFrames {
    std::int32_t rate = OAM_FRAME_RATE_UNLIMITED; // frames in a second
    std::uint32_t sent = 0;
};

} // namespace sdk_sim
