// SPDX-License-Identifier: Apache-2.0
// Tests of links: frames that the ONU sends back, one a millisecond.
#include "host/sdk_sim/link_test.h"

#include <algorithm>
#include <limits>

#include <epon/sdk/link_test.h>

#include "host/sdk_sim/events.h"
#include "host/sdk_sim/link_operation.h"

namespace sdk_sim {

namespace {

const Operation link_test("NEP_link_test", GENERAL);

constexpr std::uint64_t MILLION = 1000000;

struct Frames {
    std::int32_t number, size, delay_measurement, vlan, vlan_priority, vlan_tag;
};

bool is_switch(std::int32_t value)
{
    return value == 0 || value == 1;
}

bool is_in_range(const Frames& frames)
{
    if (frames.number < LINK_TEST_STOP || frames.number > LINK_TEST_CONTINUOUS) return false;
    if (!is_switch(frames.delay_measurement) || !is_switch(frames.vlan)) return false;
    const std::int32_t min_size = frames.number == LINK_TEST_CONTINUOUS ? 60 : 56;
    if (frames.number == LINK_TEST_STOP ? frames.size != 0 : frames.size < min_size || frames.size > 1514) return false;
    if (frames.vlan == 0) return frames.vlan_priority == 0 && frames.vlan_tag == 0;
    return frames.vlan_priority >= 0 && frames.vlan_priority <= 7 && frames.vlan_tag >= 0 && frames.vlan_tag <= 4094;
}

std::uint32_t as_count(std::uint64_t number)
{
    return static_cast<std::uint32_t>(std::min<std::uint64_t>(number, std::numeric_limits<std::uint32_t>::max()));
}

// The link's share of lost frames, its fraction at random.
std::uint64_t lost_frames(Network& network, const Onu& onu, std::uint64_t sent)
{
    const std::uint64_t millionths = sent * onu.frame_error_rate;
    return millionths / MILLION + (random_below(network, MILLION) < millionths % MILLION ? 1 : 0);
}

// Time quanta that a frame is under way: the round trip, and its own length once in each direction.
std::uint32_t frame_delay(const Onu& onu, std::int32_t size)
{
    const std::int32_t bits = size * 8;
    const std::int32_t down = onu.rate == OnuRate::Rate1G ? bits / 16 : bits / 160;
    const std::int32_t up = onu.rate == OnuRate::Rate10G ? bits / 160 : bits / 16;
    return onu.rtt + static_cast<std::uint32_t>(down + up);
}

void end_test(Network& network, const Olt& olt, Onu& onu, bool with_delays)
{
    LinkTest& test = onu.configuration.link_test;
    const std::uint64_t sent = network.now - test.started_at;
    const std::uint64_t lost = lost_frames(network, onu, sent);
    LinkTestCompletedEvent event{};
    event.llid = onu.id;
    event.frames_sent = as_count(sent);
    event.frames_received = as_count(sent - lost);
    event.frame_errors = as_count(lost);
    if (with_delays && sent > lost) {
        event.min_delay = frame_delay(onu, test.size);
        const auto jitter = static_cast<std::uint32_t>(random_below(network, 16)); // of the grants
        event.max_delay = event.min_delay + jitter;
        event.average_delay = event.min_delay + jitter / 2;
    }
    test = {};
    raise(EVENT_LINK_TEST_COMPLETED, olt.id, event);
}

void begin_test(Network& network, const Olt& olt, Onu& onu, const Frames& frames)
{
    LinkTest& test = onu.configuration.link_test;
    test = {true, frames.size, frames.delay_measurement == 1, network.now, 0};
    if (frames.number == LINK_TEST_CONTINUOUS) return;
    const auto duration = static_cast<Milliseconds>(frames.number);
    test.ends_at = network.now + duration;
    after_on_link(network, olt, onu.id, duration, [](Network& later, const Olt& of_test, Onu& tested) {
        const LinkTest& running = tested.configuration.link_test;
        if (running.is_running && running.ends_at == later.now)
            end_test(later, of_test, tested, running.measures_delays);
    });
}

} // namespace

} // namespace sdk_sim

using namespace sdk_sim;

int16_t NEP_link_test(int16_t olt_id, int16_t llid, int32_t number_of_frames, int32_t size, int32_t delay_measurement,
                      int32_t vlan, int32_t vlan_priority, int32_t vlan_tag)
{
    const Frames frames = {number_of_frames, size, delay_measurement, vlan, vlan_priority, vlan_tag};
    const auto arguments = in(olt_id, llid, number_of_frames, size, delay_measurement, vlan, vlan_priority, vlan_tag);
    return on_link(link_test, olt_id, llid, arguments, out(), [&](Network& network, Olt& olt, Onu& onu) {
        if (!is_in_range(frames)) return PARAMETER_ERROR;
        const bool stops = number_of_frames == LINK_TEST_STOP;
        if (onu.configuration.link_test.is_running != stops) return EXIT_ERROR;
        if (stops)
            end_test(network, olt, onu, delay_measurement == 1);
        else
            begin_test(network, olt, onu, frames);
        return SUCCESS;
    });
}
