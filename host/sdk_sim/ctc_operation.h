// SPDX-License-Identifier: Apache-2.0
// The operations of the CTC stack on ONUs, as short as they can be written.
#pragma once

#include "host/sdk_sim/onu_oam.h"

namespace sdk_sim {

// Codes with which an ONU refuses a value.
inline constexpr std::int16_t ONU_BAD_PARAMETER = -17009;
inline constexpr std::int16_t ONU_NO_RESOURCES = -17010;

// An operation that asks one ONU for values: read(const Onu&, pointers) stores them.
template <class Read, class... Values>
std::int16_t get_ctc(const Operation& operation, std::int16_t olt_id, std::int16_t onu_id, Read&& read,
                     Values*... values)
{
    return on_managed_onu(operation, &Onu::extended_oam, olt_id, onu_id, in(olt_id, onu_id), out(values...),
                          [&](Network&, Olt&, const Onu& onu) {
                              read(onu, *values...);
                              return SUCCESS;
                          });
}

// An operation that sets something, on all ONUs of an OLT at once if it is told so. body(Network&, Olt&, Onu&) returns
// a code.
template <class In, class Body>
std::int16_t set_ctc(const Operation& operation, std::int16_t olt_id, std::int16_t onu_id, const In& arguments,
                     Body&& body)
{
    return on_managed_onus(operation, &Onu::extended_oam, olt_id, onu_id, arguments, out(), body);
}

} // namespace sdk_sim
