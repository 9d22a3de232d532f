// SPDX-License-Identifier: Apache-2.0
// What an ONU keeps of how it speaks MPCP.
#pragma once

#include <cstdint>

#include <epon/sdk/remote_mpcp.h>

namespace sdk_sim {

struct RemoteMpcp {
    std::int32_t report_format = REMOTE_REPORT_NORMAL;
    std::int32_t standard_mode = REMOTE_MPCP_STANDARD;
};

} // namespace sdk_sim
