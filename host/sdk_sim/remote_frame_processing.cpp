// SPDX-License-Identifier: Apache-2.0
// Reports of ONUs, and their aggregated links.
#include "host/sdk_sim/remote_frame_processing.h"

#include <algorithm>

#include "host/sdk_sim/remote_operation.h"
#include "host/sdk_sim/scenario_reader.h"

namespace sdk_sim {

template <>
inline constexpr auto record_fields<REMOTE_threshold_reporter_configuration> =
    std::tuple(record_field("enabled", &REMOTE_threshold_reporter_configuration::enabled),
               record_field("queue_sets", &REMOTE_threshold_reporter_configuration::queue_sets),
               record_field("threshold", &REMOTE_threshold_reporter_configuration::threshold));

namespace {

const Operation get_threshold_reporter("REMOTE_NEPONU_get_threshold_reporter_configuration", REMOTE_MANAGEMENT);
const Operation set_lag_hash_key("REMOTE_NEPONU_ne_set_lag_hash_key", REMOTE_MANAGEMENT);
const Operation get_lag_hash_key("REMOTE_NEPONU_ne_get_lag_hash_key", REMOTE_MANAGEMENT);

} // namespace

void read_reports(ScenarioReader& reader, FrameProcessing* frame_processing)
{
    constexpr int MAX_QUEUE_SETS = 4;
    bool reports_thresholds = frame_processing->reports_thresholds != 0;
    reader.flag("thresholds", &reports_thresholds);
    frame_processing->reports_thresholds = reports_thresholds;
    reader.number("queue_sets", 1, MAX_QUEUE_SETS, &frame_processing->queue_sets);
    std::uint16_t threshold = frame_processing->thresholds[0];
    reader.number("threshold", 0, UINT16_MAX, &threshold);
    frame_processing->thresholds.fill(threshold);
}

} // namespace sdk_sim

using namespace sdk_sim;

int16_t REMOTE_NEPONU_get_threshold_reporter_configuration(int16_t olt_id, int16_t onu_id,
                                                           REMOTE_threshold_reporter_configuration* configuration)
{
    return get_remote(get_threshold_reporter, olt_id, onu_id, configuration, [](Network&, Onu& onu) {
        const FrameProcessing& present = onu.configuration.frame_processing;
        REMOTE_threshold_reporter_configuration record{};
        record.enabled = present.reports_thresholds;
        record.queue_sets = present.queue_sets;
        std::copy(present.thresholds.begin(), present.thresholds.end(), record.threshold);
        return record;
    });
}

int16_t REMOTE_NEPONU_ne_set_lag_hash_key(int16_t olt_id, int16_t onu_id, uint32_t vlan_id, uint32_t vlan_priority,
                                          uint32_t mac_sa, uint32_t mac_da)
{
    const auto arguments = in(olt_id, onu_id, vlan_id, vlan_priority, mac_sa, mac_da);
    return set_remote(set_lag_hash_key, olt_id, onu_id, arguments, [&](Network&, Olt&, Onu& onu) {
        const std::uint32_t parts = vlan_id | vlan_priority | mac_sa | mac_da;
        if (parts > 1) return PARAMETER_ERROR;
        if (parts == 0) return BAD_CONFIGURATION;
        onu.configuration.frame_processing.lag_hash_key = {vlan_id, vlan_priority, mac_sa, mac_da};
        return SUCCESS;
    });
}

int16_t REMOTE_NEPONU_ne_get_lag_hash_key(int16_t olt_id, int16_t onu_id, uint32_t* vlan_id, uint32_t* vlan_priority,
                                          uint32_t* mac_sa, uint32_t* mac_da)
{
    const auto results = out(vlan_id, vlan_priority, mac_sa, mac_da);
    return ask_remote(get_lag_hash_key, olt_id, onu_id, in(olt_id, onu_id), results, [&](Network&, Olt&, Onu& onu) {
        const LagHashKey& key = onu.configuration.frame_processing.lag_hash_key;
        *vlan_id = key.vlan_id;
        *vlan_priority = key.vlan_priority;
        *mac_sa = key.mac_sa;
        *mac_da = key.mac_da;
        return SUCCESS;
    });
}
