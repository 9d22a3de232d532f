// SPDX-License-Identifier: Apache-2.0
// Settings of the CTC stack.
#pragma once

#include <cstdint>
#include <vector>

#include <epon/sdk/ctc_events.h>

namespace sdk_sim {

class ScenarioReader;

inline constexpr std::uint32_t CTC_OUI = 0x111111;
inline constexpr std::uint8_t CTC_VERSION = 0x21;

struct CtcStack {
    bool has_ended = false;
    bool discovers = true;   // ONUs, as soon as their OAM is up
    bool configures = false; // ONUs that return
    std::vector<CTC_oui_version> records;
    std::uint32_t oui = CTC_OUI; // with version: what it speaks while it has no records
    std::uint8_t version = CTC_VERSION;
    std::uint16_t discovery_timeout = 1000; // ms; 0: none
    std::uint8_t update_key_time = 10;      // s; 0: never
    std::uint16_t no_reply_timeout = 300;   // ms
    std::uint8_t start_encryption_threshold = 3;
    std::int16_t timeout_in_100_ms = 10;
    std::int16_t resend_limit = 3;
    std::uint32_t last_run = 0; // tells encryptions of an ONU apart
};

CTC_oui_version oui_version(std::uint32_t oui, std::uint8_t version);
void read_ctc_stack(ScenarioReader& reader, CtcStack* stack);

} // namespace sdk_sim
