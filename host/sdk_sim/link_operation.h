// SPDX-License-Identifier: Apache-2.0
// What the operations on links have in common, beyond the gate.
#pragma once

#include "host/sdk_sim/gate.h"

namespace sdk_sim {

inline constexpr std::int16_t NOT_SUPPORTED = -1005;
inline constexpr std::int16_t NO_OAM_LINK = -1006;

// An operation on a registered link whose body needs the network: its clock or its random numbers.
template <class In, class Out, class Body>
std::int16_t on_link(const Operation& operation, std::int16_t olt_id, std::int16_t llid, const In& arguments,
                     const Out& results, Body&& body)
{
    return on_network(operation, arguments, results, [&](Network& network) -> std::int16_t {
        Olt* olt = present_olt(network, olt_id);
        if (olt == nullptr) return operation.family.no_olt;
        Onu* onu = registered_onu(*olt, llid);
        return onu == nullptr ? operation.family.no_onu : body(network, *olt, *onu);
    });
}

// Runs action(Network&, Olt&, Onu&) on a link after a time. The action itself finds out whether what it is to end still
// runs: an ONU that leaves is not told of here.
template <class Action>
void after_on_link(Network& network, const Olt& olt, std::int16_t llid, Milliseconds delay, Action action)
{
    after(network, olt, delay,
          [llid, action](Network& later, Olt& of_link) { action(later, of_link, of_link.onus.at(llid)); });
}

// A long row of octets, of which the journal shows the beginning.
struct FirstOctets {
    const std::uint8_t* octets;
    std::size_t count;
};

inline FirstOctets first_octets(const std::uint8_t* octets, std::size_t count)
{
    return {octets, count};
}

inline bool is_null(const FirstOctets& value)
{
    return value.octets == nullptr;
}

inline void append_value(std::string* line, const FirstOctets& value)
{
    constexpr std::size_t SHOWN = 16;
    if (value.octets == nullptr) {
        *line += "null";
        return;
    }
    append_octets(line, value.octets, value.count < SHOWN ? value.count : SHOWN);
    if (value.count > SHOWN) *line += "..";
}

} // namespace sdk_sim
