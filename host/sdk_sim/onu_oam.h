// SPDX-License-Identifier: Apache-2.0
// ONUs that are managed by OAM of an organization (IEEE 802.3 clause 57): which of them answer, and the operations that
// ask them.
#pragma once

#include <cstdint>

#include "host/sdk_sim/gate.h"
#include "host/sdk_sim/llid.h"

namespace sdk_sim {

// An ONU that is asked; the broadcast index names none. body(Network&, Olt&, Onu&) returns a code.
template <class In, class Out, class Body>
std::int16_t on_managed_onu(const Operation& operation, OamAnswer Onu::*answer, std::int16_t olt_id,
                            std::int16_t onu_id, const In& arguments, const Out& results, Body&& body)
{
    return on_network(operation, arguments, results, [&](Network& network) -> std::int16_t {
        Olt* olt = present_olt(network, olt_id);
        if (olt == nullptr) return operation.family.no_olt;
        Onu* onu = registered_onu(*olt, onu_id);
        if (onu == nullptr || onu->*answer == OamAnswer::None) return operation.family.no_onu;
        if (onu->*answer == OamAnswer::Silent || !oam_is_up(*onu)) return TIME_OUT;
        if (&operation.family == &CTC_STACK && is_foreign(*onu)) return operation.family.no_onu;
        ++onu->configuration.statistics.counts[ONU_ORGANIZATION_REQUESTS].whole;
        return body(network, *olt, *onu);
    });
}

// The same for an operation that also takes the broadcast index: the body runs for every ONU of the OLT that answers.
// Nobody acknowledges a broadcast, so the ONUs that do not answer are not missed; the first code that is not 0 ends it.
template <class In, class Out, class Body>
std::int16_t on_managed_onus(const Operation& operation, OamAnswer Onu::*answer, std::int16_t olt_id,
                             std::int16_t onu_id, const In& arguments, const Out& results, Body&& body)
{
    if (onu_id != BROADCAST_ONU) return on_managed_onu(operation, answer, olt_id, onu_id, arguments, results, body);
    return on_network(operation, arguments, results, [&](Network& network) -> std::int16_t {
        Olt* olt = present_olt(network, olt_id);
        if (olt == nullptr) return operation.family.no_olt;
        for (auto& [id, onu] : olt->onus) {
            if (!counts_as_registered(onu) || onu.*answer != OamAnswer::Answers || !oam_is_up(onu)) continue;
            if (&operation.family == &CTC_STACK && is_foreign(onu)) continue;
            ++onu.configuration.statistics.counts[ONU_ORGANIZATION_REQUESTS].whole;
            if (const std::int16_t code = body(network, *olt, onu); code != SUCCESS) return code;
        }
        return SUCCESS;
    });
}

} // namespace sdk_sim
