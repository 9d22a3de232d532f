// SPDX-License-Identifier: Apache-2.0
// Grants set by hand.
#include "host/sdk_sim/grants.h"

#include <span>

#include "host/sdk_sim/gate.h"

namespace sdk_sim {

namespace {

const Operation set_grants("NEP_set_grants", GENERAL);

constexpr int16_t DBA_ALREADY_RUNNING = -1009;

// The grants show as "[3:100,4:65535]".
struct GrantsValue {
    const OLT_grant* grants;
    uint32_t count;
};

bool is_null(const GrantsValue& value)
{
    return value.grants == nullptr && value.count != 0;
}

void append_value(std::string* line, const GrantsValue& value)
{
    *line += '[';
    for (uint32_t i = 0; value.grants != nullptr && i < value.count; ++i) {
        if (i != 0) *line += ',';
        *line += std::to_string(value.grants[i].llid) + ':' + std::to_string(value.grants[i].length);
    }
    *line += ']';
}

int16_t set(Olt& olt, std::span<const OLT_grant> grants, uint32_t cycle_size)
{
    if (olt.configuration.dba_control.algorithm != DBA_NONE) return DBA_ALREADY_RUNNING;
    if (grants.empty() || grants.size() > GRANT_TABLE_SIZE) return PARAMETER_ERROR;
    uint64_t total = 0;
    for (const OLT_grant& grant : grants) {
        if (grant.length == 0) return PARAMETER_ERROR;
        if (registered_onu(olt, grant.llid) == nullptr) return GENERAL.no_onu;
        total += grant.length;
    }
    if (total > cycle_size) return PARAMETER_ERROR;
    olt.configuration.grants = {{grants.begin(), grants.end()}, cycle_size};
    return SUCCESS;
}

} // namespace

} // namespace sdk_sim

using namespace sdk_sim;

int16_t NEP_set_grants(int16_t olt_id, const OLT_grant* grants, uint32_t count, uint32_t cycle_size)
{
    return on_olt(set_grants, olt_id, in(olt_id, GrantsValue{grants, count}, cycle_size), out(),
                  [&](Olt& olt) { return set(olt, std::span(grants, count), cycle_size); });
}
