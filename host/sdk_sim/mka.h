// SPDX-License-Identifier: Apache-2.0
// What key agreement keeps on an OLT and on each of its links.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include <epon/sdk/mka.h>

namespace sdk_sim {

using MkaOctets = std::vector<std::uint8_t>;

struct MkaGlobal {
    std::array<std::uint32_t, 6> parameters = {2000, 6000, 1000, 3, 0, 0xC0000000}; // by enum MkaGlobalParameter
    std::uint32_t last_exchange = 0;
};

enum MkaState { MKA_OFF = 0, MKA_NEGOTIATING = 1, MKA_SECURED = 2, MKA_FAILED = 3 };

struct MkaLink {
    bool is_enabled = false;
    std::int32_t state = MKA_OFF;
    MkaOctets actor_mem_id, cak_name, cak, kek, ick, key_seed, sak;
    std::uint64_t sci = 0;
    std::uint32_t message_number = 0;
    std::uint32_t exchange = 0; // the one that is under way; 0: none
    std::uint8_t association = 0;
    std::uint32_t key_number = 0;
};

} // namespace sdk_sim
