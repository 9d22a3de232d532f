// SPDX-License-Identifier: Apache-2.0
// What an ONU keeps of the loops on its user ports.
#pragma once

#include <cstdint>
#include <set>

#include <epon/sdk/remote_rstp_ldp.h>

namespace sdk_sim {

struct RstpLdp {
    std::uint8_t is_enabled = 0;
    std::set<std::uint8_t> closed_ports; // on which it has found a loop
};

} // namespace sdk_sim
