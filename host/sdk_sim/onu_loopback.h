// SPDX-License-Identifier: Apache-2.0
// What an ONU keeps of its loopbacks.
#pragma once

#include <cstdint>

#include <epon/sdk/onu_loopback.h>

namespace sdk_sim {

struct Olt;
struct Onu;

struct OnuLoopback {
    enum Kind { Open, Standard, PonMac, PonPhy };
    Kind closed = Open;
    std::uint64_t opens_at = 0; // virtual milliseconds; 0: when it is told to
};

// Opens the OAM remote loopback of an ONU, if it is closed.
void open_standard_loopback(const Olt& olt, Onu& onu);

} // namespace sdk_sim
