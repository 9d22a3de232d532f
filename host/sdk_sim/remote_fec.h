// SPDX-License-Identifier: Apache-2.0
// What an ONU keeps of its forward error correction.
#pragma once

#include <cstdint>

#include <epon/sdk/remote_fec.h>

namespace sdk_sim {

struct RemoteFec {
    std::uint8_t rx_auto = 1;
    std::uint8_t rx_enable = 0;
    std::uint8_t tx_enable = 0;
};

} // namespace sdk_sim
