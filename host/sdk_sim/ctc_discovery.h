// SPDX-License-Identifier: Apache-2.0
// ONUs as the CTC stack sees them: which of them it has discovered, and what it set on them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/sdk_sim/ctc_dba_report.h"
#include "host/sdk_sim/ctc_encryption.h"
#include "host/sdk_sim/ctc_stack.h"

namespace sdk_sim {

class ScenarioReader;
struct Network;
struct Olt;
struct Onu;

// What the device is.
struct CtcDevice {
    std::vector<CTC_oui_version> versions = {oui_version(CTC_OUI, 0x20), oui_version(CTC_OUI, CTC_VERSION)};
    bool gives_keys = true;     // when it is asked for one
    std::string update_request; // what it asks the host for once it was discovered, as it tells it; empty: nothing
};

// What is set on the ONU, and given to it again.
struct CtcOnuSettings {
    CtcKeyTiming key_timing;
    CtcReportThresholds report_thresholds;
};

enum class CtcDiscovery { Idle, Running, Failed, Complete };

struct CtcOnu {
    CtcDiscovery discovery = CtcDiscovery::Idle;
    std::uint64_t discovery_ends_at = 0; // virtual milliseconds
    CtcOnuSettings settings;
    CtcEncryption encryption;
};

void read_ctc_device(ScenarioReader& reader, CtcDevice* device);

// The ONU's OAM came up or went down.
void follow_oam_link(Network& network, const Olt& olt, Onu& onu);
// The ONUs that are there from the beginning were discovered before.
void settle_ctc_discoveries(Network& network);
// True for an ONU that speaks extended OAM, but nothing that the stack speaks.
bool is_foreign(const Onu& onu);
// Keeps what was set on an ONU that leaves.
void remember_ctc_settings(Onu& onu);

// An ONU that was discovered tells the stack of an alarm, if it is one of those that extended OAM knows.
void notify_of_alarm(std::int16_t olt_id, const Onu& onu, std::int32_t alarm, bool raised, std::uint32_t value);

} // namespace sdk_sim
