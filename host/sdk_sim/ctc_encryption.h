// SPDX-License-Identifier: Apache-2.0
// What the CTC stack keeps of the encryption of an ONU's downlink.
#pragma once

#include <cstdint>
#include <optional>

#include <epon/sdk/ctc_encryption.h>

namespace sdk_sim {

struct Network;
struct Olt;
struct Onu;

// An ONU's own; without it the stack's counts.
struct CtcKeyTiming {
    std::optional<std::uint32_t> update_key_timeout, re_transmit_timeout; // ms
};

struct CtcEncryption {
    enum State { Off, Starting, On, Failed };
    State state = Off;
    std::uint32_t run = 0;        // its timers know it by
    std::uint32_t unanswered = 0; // requests for a key, one after the other
};

void stop_ctc_encryption(const Olt& olt, Onu& onu);
void stop_all_ctc_encryption(Network& network);

} // namespace sdk_sim
