// SPDX-License-Identifier: Apache-2.0
// What a link keeps of its authorization and its error correction.
#pragma once

#include <cstdint>

#include <epon/sdk/llid.h>

namespace sdk_sim {

struct Network;
struct Olt;
struct Onu;

struct LinkState {
    std::int32_t fec = LLID_FEC_OFF; // of a 1G link
    std::uint64_t renewed_at = 0;    // when a running reauthentication ends; 0: none runs
};

// OAM discovery comes to its end on authorized links only.
bool oam_is_up(const Onu& onu);

// A direction that runs at 10G is always corrected.
std::int32_t fec_mode(const Onu& onu);

// With the events that tell of it.
void apply_authorization(Network& network, const Olt& olt, Onu& onu, bool authorized);

} // namespace sdk_sim
