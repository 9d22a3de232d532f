// SPDX-License-Identifier: Apache-2.0
// What an ONU keeps of its reports and its aggregated links.
#pragma once

#include <array>
#include <cstdint>

#include <epon/sdk/remote_frame_processing.h>

namespace sdk_sim {

class ScenarioReader;

struct LagHashKey {
    std::uint32_t vlan_id = 0;
    std::uint32_t vlan_priority = 0;
    std::uint32_t mac_sa = 1;
    std::uint32_t mac_da = 1;
};

struct FrameProcessing {
    std::uint8_t reports_thresholds = 1;
    std::uint8_t queue_sets = 2;
    std::array<std::uint16_t, REMOTE_REPORTED_QUEUES> thresholds{500, 500, 500, 500, 500, 500, 500, 500};
    LagHashKey lag_hash_key;
};

// The table "reports" of an ONU.
void read_reports(ScenarioReader& reader, FrameProcessing* frame_processing);

} // namespace sdk_sim
