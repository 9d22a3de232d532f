// SPDX-License-Identifier: Apache-2.0
// What is set of an ONU's own OAM.
#pragma once

#include <cstdint>

namespace sdk_sim {

struct RemoteOam {
    std::uint32_t vendor_information = 0;
    std::uint8_t slow_protocol_limit = 1;
    std::uint32_t dying_gasp_times = 3;
};

} // namespace sdk_sim
