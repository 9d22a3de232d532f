// SPDX-License-Identifier: Apache-2.0
// What an OLT keeps of simple operations.
#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include <epon/sdk/simple_operation.h>

namespace sdk_sim {

struct Olt;

struct SimpleOperations {
    std::uint32_t cni_interface = CNI_INTERFACE_XAUI;
    std::map<std::int32_t, std::uint32_t> of_firmware; // by operation
};

struct PreInitOperation {
    std::int32_t operation;
    std::uint32_t value;
};
using PreInitOperations = std::vector<PreInitOperation>;

// Carries out what waits for an OLT that starts.
void carry_out_pre_init_operations(Olt& olt);

} // namespace sdk_sim
