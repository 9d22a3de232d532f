// SPDX-License-Identifier: Apache-2.0
// Management VLANs: values by item.
#include "host/sdk_sim/mng_vlan.h"

#include "host/sdk_sim/gate.h"

namespace sdk_sim {

namespace {

const Operation set_mng_vlan("NEP_set_olt_management_vlan_configuration", GENERAL);
const Operation get_mng_vlan("NEP_get_olt_management_vlan_configuration", GENERAL);

constexpr int32_t VLAN_LIMIT = 4095;
constexpr int32_t PRIORITY_LIMIT = 7;
constexpr std::array<int32_t, MNG_VLAN_ITEM_LIMIT> highest_values = {
    1, 1, VLAN_LIMIT, VLAN_LIMIT, PRIORITY_LIMIT, PRIORITY_LIMIT, PRIORITY_LIMIT, PRIORITY_LIMIT, PRIORITY_LIMIT};

bool is_item(int32_t item)
{
    return item >= 0 && item < MNG_VLAN_ITEM_LIMIT;
}

} // namespace

} // namespace sdk_sim

using namespace sdk_sim;

int16_t NEP_set_olt_management_vlan_configuration(int16_t olt_id, int32_t item, int32_t value)
{
    return on_olt(set_mng_vlan, olt_id, in(olt_id, item, value), out(), [&](Olt& olt) {
        if (!is_item(item) || value < 0 || value > highest_values[item]) return PARAMETER_ERROR;
        auto& values = olt.configuration.mng_vlan.values;
        values[item] = value;
        if (item == MNG_VLAN_OLT_TO_HOST_PROTOCOL_PRIO) values[MNG_VLAN_OLT_TO_HOST_IGMP_PRIO] = value;
        return SUCCESS;
    });
}

int16_t NEP_get_olt_management_vlan_configuration(int16_t olt_id, int32_t item, int32_t* value)
{
    return on_olt(get_mng_vlan, olt_id, in(olt_id, item), out(value), [&](Olt& olt) {
        if (!is_item(item)) return PARAMETER_ERROR;
        *value = olt.configuration.mng_vlan.values[item];
        return SUCCESS;
    });
}
