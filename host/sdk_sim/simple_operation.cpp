// SPDX-License-Identifier: Apache-2.0
// Simple operations: a few that the SDK knows, and those of the firmware, which keep what they are given.
#include "host/sdk_sim/simple_operation.h"

#include <utility>

#include "host/sdk_sim/gate.h"

namespace sdk_sim {

namespace {

const Operation simple_operation("NEP_simple_operation", GENERAL);
const Operation pre_init_add("NEP_pre_init_simple_operation_add", GENERAL);
const Operation pre_init_reset("NEP_pre_init_simple_operation_reset", GENERAL);

bool is_of_firmware(int32_t operation)
{
    return operation >= OPERATION_OF_FIRMWARE_MIN && operation <= OPERATION_OF_FIRMWARE_MAX;
}

// Whether an operation sets something, and can set it to this value.
bool can_set(int32_t operation, uint32_t value)
{
    switch (operation) {
    case OPERATION_SET_ENABLE_RULE_FOR_DEREG_LLIDS:
        return value <= 1;
    case OPERATION_SET_CNI_INTERFACE:
        return value <= CNI_INTERFACE_SGMII;
    default:
        return is_of_firmware(operation);
    }
}

int16_t carry_out(OltConfiguration& configuration, int32_t operation, uint32_t value, uint32_t* answer)
{
    SimpleOperations& operations = configuration.simple_operations;
    switch (operation) {
    case OPERATION_GET_ENABLE_RULE_FOR_DEREG_LLIDS:
        *answer = static_cast<uint32_t>(configuration.settings.rules_for_dereg_llids);
        return SUCCESS;
    case OPERATION_GET_CNI_INTERFACE:
        *answer = operations.cni_interface;
        return SUCCESS;
    default:
        break;
    }
    if (!can_set(operation, value)) return PARAMETER_ERROR;
    *answer = value;
    if (operation == OPERATION_SET_ENABLE_RULE_FOR_DEREG_LLIDS)
        configuration.settings.rules_for_dereg_llids = static_cast<int32_t>(value);
    else if (operation == OPERATION_SET_CNI_INTERFACE)
        operations.cni_interface = value;
    else
        *answer = std::exchange(operations.of_firmware[operation], value);
    return SUCCESS;
}

Olt* olt_with_index(Network& network, int16_t olt_id)
{
    return olt_id >= 0 && olt_id < OLT_INDEX_LIMIT ? &network.olts[olt_id] : nullptr;
}

} // namespace

void carry_out_pre_init_operations(Olt& olt)
{
    uint32_t answer;
    for (const PreInitOperation& waiting : olt.pre_init_operations)
        carry_out(olt.configuration, waiting.operation, waiting.value, &answer);
}

} // namespace sdk_sim

using namespace sdk_sim;

int16_t NEP_simple_operation(int16_t olt_id, int32_t operation, uint32_t value, uint32_t* answer)
{
    return on_olt(simple_operation, olt_id, in(olt_id, operation, value), out(answer),
                  [&](Olt& olt) { return carry_out(olt.configuration, operation, value, answer); });
}

int16_t NEP_pre_init_simple_operation_add(int16_t olt_id, int32_t operation, uint32_t value)
{
    return on_network(pre_init_add, in(olt_id, operation, value), out(), [&](Network& network) {
        Olt* olt = olt_with_index(network, olt_id);
        if (olt == nullptr) return GENERAL.no_olt;
        if (!can_set(operation, value)) return PARAMETER_ERROR;
        if (olt->pre_init_operations.size() >= PRE_INIT_OPERATION_LIMIT) return NO_RESOURCES;
        olt->pre_init_operations.push_back({operation, value});
        return SUCCESS;
    });
}

int16_t NEP_pre_init_simple_operation_reset(int16_t olt_id)
{
    return on_network(pre_init_reset, in(olt_id), out(), [&](Network& network) {
        Olt* olt = olt_with_index(network, olt_id);
        if (olt == nullptr) return GENERAL.no_olt;
        olt->pre_init_operations.clear();
        return SUCCESS;
    });
}
