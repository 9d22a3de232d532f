// SPDX-License-Identifier: Apache-2.0
// Counters of ONUs.
#include "host/sdk_sim/remote_oam_statistics.h"

#include <algorithm>

#include "host/sdk_sim/link_operation.h"
#include "host/sdk_sim/remote_operation.h"

namespace sdk_sim {

template <>
inline constexpr auto record_fields<REMOTE_oam_statistics> = std::tuple(
    record_field("frames_transmitted_ok", &REMOTE_oam_statistics::frames_transmitted_ok),
    record_field("frames_received_ok", &REMOTE_oam_statistics::frames_received_ok),
    record_field("frame_check_sequence_errors", &REMOTE_oam_statistics::frame_check_sequence_errors),
    record_field("octets_transmitted_ok", &REMOTE_oam_statistics::octets_transmitted_ok),
    record_field("octets_received_ok", &REMOTE_oam_statistics::octets_received_ok),
    record_field("multicast_frames_transmitted_ok", &REMOTE_oam_statistics::multicast_frames_transmitted_ok),
    record_field("broadcast_frames_transmitted_ok", &REMOTE_oam_statistics::broadcast_frames_transmitted_ok),
    record_field("multicast_frames_received_ok", &REMOTE_oam_statistics::multicast_frames_received_ok),
    record_field("broadcast_frames_received_ok", &REMOTE_oam_statistics::broadcast_frames_received_ok),
    record_field("frame_too_long_errors", &REMOTE_oam_statistics::frame_too_long_errors),
    record_field("information_transmitted", &REMOTE_oam_statistics::information_transmitted),
    record_field("information_received", &REMOTE_oam_statistics::information_received),
    record_field("event_notification_transmitted", &REMOTE_oam_statistics::event_notification_transmitted),
    record_field("loopback_control_received", &REMOTE_oam_statistics::loopback_control_received),
    record_field("variable_request_received", &REMOTE_oam_statistics::variable_request_received),
    record_field("variable_response_transmitted", &REMOTE_oam_statistics::variable_response_transmitted),
    record_field("organization_specific_transmitted", &REMOTE_oam_statistics::organization_specific_transmitted),
    record_field("organization_specific_received", &REMOTE_oam_statistics::organization_specific_received));

namespace {

const Operation get_all_stats("REMOTE_NEPONU_get_all_stats", REMOTE_MANAGEMENT);
const Operation get_stat_by_leaf("REMOTE_NEPONU_get_stat_by_leaf", REMOTE_MANAGEMENT);
const Operation get_stat_by_leaf_standard("REMOTE_NEPONU_get_stat_by_leaf_standard", REMOTE_MANAGEMENT);
const Operation clear_all_statistics("REMOTE_NEPONU_clear_all_statistics", REMOTE_MANAGEMENT);

constexpr std::uint64_t MILLION = 1000000;
constexpr std::uint64_t BILLION = 1000000000;
constexpr std::uint64_t OCTETS_OF_A_FRAME = 512; // on average
constexpr std::uint64_t LONG_FRAMES = 1000;      // frames of more than 1518 octets, in a million

// Parts of the traffic, in millionths of the frames that the ONU receives.
struct Share {
    OnuCounter counter;
    std::uint64_t millionths;
};

constexpr Share shares[] = {
    {ONU_MULTICAST_TRANSMITTED, 1000},
    {ONU_BROADCAST_TRANSMITTED, 500},
    {ONU_MULTICAST_RECEIVED, 10000},
    {ONU_BROADCAST_RECEIVED, 5000},
};
constexpr std::uint64_t SENT_FRAMES = 250000;

struct LeafRow {
    std::uint16_t leaf;
    OnuCounter counter;
};

constexpr LeafRow leaves[] = {
    {OAM_LEAF_FRAMES_TRANSMITTED_OK, ONU_FRAMES_TRANSMITTED},
    {OAM_LEAF_FRAMES_RECEIVED_OK, ONU_FRAMES_RECEIVED},
    {OAM_LEAF_FRAME_CHECK_SEQUENCE_ERRORS, ONU_CHECK_SEQUENCE_ERRORS},
    {OAM_LEAF_OCTETS_TRANSMITTED_OK, ONU_OCTETS_TRANSMITTED},
    {OAM_LEAF_OCTETS_RECEIVED_OK, ONU_OCTETS_RECEIVED},
    {OAM_LEAF_MULTICAST_FRAMES_XMITTED_OK, ONU_MULTICAST_TRANSMITTED},
    {OAM_LEAF_BROADCAST_FRAMES_XMITTED_OK, ONU_BROADCAST_TRANSMITTED},
    {OAM_LEAF_MULTICAST_FRAMES_RECEIVED_OK, ONU_MULTICAST_RECEIVED},
    {OAM_LEAF_BROADCAST_FRAMES_RECEIVED_OK, ONU_BROADCAST_RECEIVED},
    {OAM_LEAF_FRAME_TOO_LONG_ERRORS, ONU_FRAMES_TOO_LONG},
};

// Null when an ONU has no such counter.
const LeafRow* find_leaf(std::uint8_t branch, std::uint16_t leaf)
{
    if (branch != OAM_BRANCH_ATTRIBUTE) return nullptr;
    const auto* found = std::find_if(std::begin(leaves), std::end(leaves), [&](auto& row) { return row.leaf == leaf; });
    return found == std::end(leaves) ? nullptr : found;
}

// Counts what comes at a rate, in billionths a millisecond.
void add(OnuStatistics::Count& count, std::uint64_t rate, Milliseconds duration)
{
    count.billionths += rate % BILLION * duration;
    count.whole += rate / BILLION * duration + count.billionths / BILLION;
    count.billionths %= BILLION;
}

void clear(OnuStatistics& statistics)
{
    for (int i = 0; i < ONU_COUNTER_COUNT; ++i)
        statistics.cleared[i] = statistics.counts[i].whole;
}

REMOTE_oam_statistics since_cleared(const OnuStatistics& statistics)
{
    const auto count = [&](OnuCounter counter) {
        return statistics.counts[counter].whole - statistics.cleared[counter];
    };
    REMOTE_oam_statistics record{};
    record.frames_transmitted_ok = count(ONU_FRAMES_TRANSMITTED);
    record.frames_received_ok = count(ONU_FRAMES_RECEIVED);
    record.frame_check_sequence_errors = count(ONU_CHECK_SEQUENCE_ERRORS);
    record.octets_transmitted_ok = count(ONU_OCTETS_TRANSMITTED);
    record.octets_received_ok = count(ONU_OCTETS_RECEIVED);
    record.multicast_frames_transmitted_ok = count(ONU_MULTICAST_TRANSMITTED);
    record.broadcast_frames_transmitted_ok = count(ONU_BROADCAST_TRANSMITTED);
    record.multicast_frames_received_ok = count(ONU_MULTICAST_RECEIVED);
    record.broadcast_frames_received_ok = count(ONU_BROADCAST_RECEIVED);
    record.frame_too_long_errors = count(ONU_FRAMES_TOO_LONG);
    record.information_transmitted = count(ONU_INFORMATION_TRANSMITTED);
    record.information_received = count(ONU_INFORMATION_RECEIVED);
    record.event_notification_transmitted = count(ONU_EVENT_NOTIFICATIONS);
    record.loopback_control_received = count(ONU_LOOPBACK_CONTROLS);
    record.variable_request_received = count(ONU_VARIABLE_REQUESTS);
    record.variable_response_transmitted = count(ONU_VARIABLE_REQUESTS);
    record.organization_specific_transmitted = count(ONU_ORGANIZATION_REQUESTS);
    record.organization_specific_received = count(ONU_ORGANIZATION_REQUESTS);
    return record;
}

} // namespace

std::uint32_t frames_per_second(const Network& network, const Onu& onu)
{
    if (onu.device.frames_per_second >= 0) return static_cast<std::uint32_t>(onu.device.frames_per_second);
    std::uint64_t state = network.life.seed;
    for (const std::uint8_t octet : onu.mac)
        state = (state ^ octet) * 0x100000001B3U;
    return static_cast<std::uint32_t>(1000 + (state >> 24) % 4000);
}

void count_traffic(const Network& network, Onu& onu)
{
    OnuStatistics& statistics = onu.configuration.statistics;
    const Milliseconds since = std::max(statistics.counted_until, onu.registered_at);
    const Milliseconds duration = network.now - since;
    const std::uint64_t frames = frames_per_second(network, onu);
    const auto add_share = [&](OnuCounter counter, std::uint64_t millionths) {
        add(statistics.counts[counter], frames * millionths, duration);
    };
    const OnuManagement& management = onu.configuration.management;
    const std::uint64_t too_long = management.downstream_extend != 0 ? 0 : LONG_FRAMES;
    const std::uint64_t wrong = std::min<std::uint64_t>(onu.frame_error_rate + too_long, MILLION);
    add_share(ONU_FRAMES_TRANSMITTED, SENT_FRAMES + (management.upstream_extend != 0 ? LONG_FRAMES / 4 : 0));
    add_share(ONU_FRAMES_RECEIVED, MILLION - wrong);
    add_share(ONU_CHECK_SEQUENCE_ERRORS, onu.frame_error_rate);
    add_share(ONU_FRAMES_TOO_LONG, too_long);
    for (const Share& share : shares)
        add_share(share.counter, share.millionths);
    statistics.counts[ONU_OCTETS_TRANSMITTED].whole =
        statistics.counts[ONU_FRAMES_TRANSMITTED].whole * OCTETS_OF_A_FRAME;
    statistics.counts[ONU_OCTETS_RECEIVED].whole = statistics.counts[ONU_FRAMES_RECEIVED].whole * OCTETS_OF_A_FRAME;
    // One frame of discovery a second keeps OAM up.
    add(statistics.counts[ONU_INFORMATION_TRANSMITTED], MILLION, duration);
    add(statistics.counts[ONU_INFORMATION_RECEIVED], MILLION, duration);
    statistics.counted_until = network.now;
}

std::uint64_t current_count(const Network& network, Onu& onu, OnuCounter counter)
{
    count_traffic(network, onu);
    return onu.configuration.statistics.counts[counter].whole;
}

} // namespace sdk_sim

using namespace sdk_sim;

int16_t REMOTE_NEPONU_get_all_stats(int16_t olt_id, int16_t onu_id, REMOTE_oam_statistics* statistics)
{
    return get_remote(get_all_stats, olt_id, onu_id, statistics, [](const Network& network, Onu& onu) {
        count_traffic(network, onu);
        return since_cleared(onu.configuration.statistics);
    });
}

int16_t REMOTE_NEPONU_get_stat_by_leaf(int16_t olt_id, int16_t onu_id, uint8_t branch, uint16_t leaf, uint64_t* value)
{
    const auto arguments = in(olt_id, onu_id, branch, leaf);
    return ask_remote(get_stat_by_leaf, olt_id, onu_id, arguments, out(value), [&](Network& network, Olt&, Onu& onu) {
        const LeafRow* row = find_leaf(branch, leaf);
        if (row == nullptr) return QUERY_FAILED;
        *value = current_count(network, onu, row->counter) - onu.configuration.statistics.cleared[row->counter];
        return SUCCESS;
    });
}

int16_t REMOTE_NEPONU_get_stat_by_leaf_standard(int16_t olt_id, int16_t onu_id, uint8_t branch, uint16_t leaf,
                                                uint64_t* value)
{
    const auto arguments = in(olt_id, onu_id, branch, leaf);
    const Operation& operation = get_stat_by_leaf_standard;
    return on_link(operation, olt_id, onu_id, arguments, out(value), [&](Network& network, Olt&, Onu& onu) {
        if (!oam_is_up(onu)) return TIME_OUT;
        ++onu.configuration.statistics.counts[ONU_VARIABLE_REQUESTS].whole;
        const LeafRow* row = find_leaf(branch, leaf);
        if (row == nullptr) return QUERY_FAILED;
        *value = current_count(network, onu, row->counter);
        return SUCCESS;
    });
}

int16_t REMOTE_NEPONU_clear_all_statistics(int16_t olt_id, int16_t onu_id)
{
    return set_remote(clear_all_statistics, olt_id, onu_id, in(olt_id, onu_id), [](Network& network, Olt&, Onu& onu) {
        count_traffic(network, onu);
        clear(onu.configuration.statistics);
        return SUCCESS;
    });
}
