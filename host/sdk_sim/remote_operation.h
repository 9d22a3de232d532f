// SPDX-License-Identifier: Apache-2.0
// The operations of remote management, as short as they can be written.
#pragma once

#include "host/sdk_sim/onu_oam.h"

namespace sdk_sim {

// Codes of remote management alone.
inline constexpr std::int16_t ILLEGAL_SIZE = -13001;
inline constexpr std::int16_t NO_ONU_RESOURCES = -13006;
inline constexpr std::int16_t BAD_CONFIGURATION = -13008;
inline constexpr std::int16_t ALREADY_EXISTS = -13010;
inline constexpr std::int16_t MISMATCH = -13012;
inline constexpr std::int16_t QUERY_FAILED = -13014;

// An operation that asks one ONU. body(Network&, Olt&, Onu&) returns a code.
template <class In, class Out, class Body>
std::int16_t ask_remote(const Operation& operation, std::int16_t olt_id, std::int16_t onu_id, const In& arguments,
                        const Out& results, Body&& body)
{
    return on_managed_onu(operation, &Onu::remote_management, olt_id, onu_id, arguments, results, body);
}

// One whose answer is a single value or record: read(Network&, Onu&) returns it.
template <class Value, class Read>
std::int16_t get_remote(const Operation& operation, std::int16_t olt_id, std::int16_t onu_id, Value* value, Read&& read)
{
    return ask_remote(operation, olt_id, onu_id, in(olt_id, onu_id), out(value), [&](Network& network, Olt&, Onu& onu) {
        *value = read(network, onu);
        return SUCCESS;
    });
}

// An operation that sets something, on all ONUs of an OLT at once if it is told so. body(Network&, Olt&, Onu&) returns
// a code.
template <class In, class Body>
std::int16_t set_remote(const Operation& operation, std::int16_t olt_id, std::int16_t onu_id, const In& arguments,
                        Body&& body)
{
    return on_managed_onus(operation, &Onu::remote_management, olt_id, onu_id, arguments, out(), body);
}

} // namespace sdk_sim
