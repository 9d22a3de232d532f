// SPDX-License-Identifier: Apache-2.0
// The counters of ONUs. They move with a traffic that comes evenly, so that they are right whenever they are looked at.
#pragma once

#include <array>
#include <cstdint>

namespace sdk_sim {

struct Network;
struct Onu;

enum OnuCounter {
    ONU_FRAMES_TRANSMITTED,
    ONU_FRAMES_RECEIVED,
    ONU_CHECK_SEQUENCE_ERRORS,
    ONU_OCTETS_TRANSMITTED,
    ONU_OCTETS_RECEIVED,
    ONU_MULTICAST_TRANSMITTED,
    ONU_BROADCAST_TRANSMITTED,
    ONU_MULTICAST_RECEIVED,
    ONU_BROADCAST_RECEIVED,
    ONU_FRAMES_TOO_LONG,
    ONU_INFORMATION_TRANSMITTED,
    ONU_INFORMATION_RECEIVED,
    ONU_EVENT_NOTIFICATIONS,
    ONU_LOOPBACK_CONTROLS,
    ONU_VARIABLE_REQUESTS, // each has its response
    ONU_ORGANIZATION_REQUESTS,
    ONU_COUNTER_COUNT
};

// Since the ONU registered.
struct OnuStatistics {
    struct Count {
        std::uint64_t whole = 0;
        std::uint64_t billionths = 0;
    };
    std::array<Count, ONU_COUNTER_COUNT> counts;
    std::array<std::uint64_t, ONU_COUNTER_COUNT> cleared{}; // what they were when they were cleared
    std::uint64_t counted_until = 0;                        // virtual milliseconds
};

// Frames that an ONU receives in a second, right and wrong ones.
std::uint32_t frames_per_second(const Network& network, const Onu& onu);

// Brings the counters up to the present. To be called before anything is changed that they depend on.
void count_traffic(const Network& network, Onu& onu);
std::uint64_t current_count(const Network& network, Onu& onu, OnuCounter counter);

} // namespace sdk_sim
