// SPDX-License-Identifier: Apache-2.0
// Operations on an OLT that also need the network: its clock, its timers, its random numbers.
#pragma once

#include "host/sdk_sim/gate.h"

namespace sdk_sim {

// The same as on_olt, with body(Network&, Olt&).
template <class In, class Out, class Body>
std::int16_t on_olt_and_network(const Operation& operation, std::int16_t olt_id, const In& arguments,
                                const Out& results, Body&& body)
{
    return on_network(operation, arguments, results, [&](Network& network) -> std::int16_t {
        Olt* olt = present_olt(network, olt_id);
        return olt == nullptr ? operation.family.no_olt : body(network, *olt);
    });
}

} // namespace sdk_sim
