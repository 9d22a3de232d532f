// SPDX-License-Identifier: Apache-2.0
// What a link keeps of its encryption.
#pragma once

#include <array>
#include <cstdint>

#include <epon/sdk/llid_encryption.h>

namespace sdk_sim {

struct LinkEncryption {
    std::int32_t direction = LLID_ENCRYPTION_OFF;
    std::array<std::uint8_t, LLID_ENCRYPTION_KEY_SIZE> key{};
    std::uint8_t key_index = 0; // of the key in use; the next one takes the other place
};

} // namespace sdk_sim
