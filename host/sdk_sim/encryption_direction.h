// SPDX-License-Identifier: Apache-2.0
// What a link keeps of its numbered packets.
#pragma once

#include <cstdint>

#include <epon/sdk/encryption_direction.h>

namespace sdk_sim {

struct EncryptionDirection {
    std::int32_t direction = ENCRYPTION_DIRECTION_NONE;
    std::uint64_t since = 0; // virtual time, in milliseconds; the numbers begin there
};

} // namespace sdk_sim
