// SPDX-License-Identifier: Apache-2.0
// What an OLT knows of its subscribers' logical identifiers, and whom it admits by them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <epon/sdk/ctc_loid.h>

#include "host/sdk_sim/auth_list.h"

namespace sdk_sim {

struct Olt;
struct Onu;

struct LoidEntry {
    std::string loid, password;
    std::int16_t llid = -1; // the link that is kept for it; -1: any
};

struct LoidTable {
    std::int32_t mode = CTC_AUTH_MAC;
    std::vector<LoidEntry> entries;
};

// What happens to an ONU that asks for registration, by the OLT's lists of addresses and by its LOID.
Admission admission(const Olt& olt, const Onu& onu);

} // namespace sdk_sim
