// SPDX-License-Identifier: Apache-2.0
// Firmware images of an ONU.
#pragma once

#include <cstdint>

namespace sdk_sim {

// An image that was loaded; it outlives the ONU's registration.
struct OnuImage {
    std::uint32_t size = 0;     // octets; 0: none was loaded
    std::uint32_t checksum = 0; // CRC-32 (IEEE 802.3 clause 3.2.9)
};

// A download that runs.
struct OnuDownload {
    OnuImage image;
    std::uint32_t done = 0;    // octets
    std::uint64_t next_at = 0; // virtual milliseconds of the next step; 0: none runs
};

} // namespace sdk_sim
