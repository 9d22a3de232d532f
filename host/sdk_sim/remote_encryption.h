// SPDX-License-Identifier: Apache-2.0
// What an ONU keeps of the encryption of its link.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include <epon/sdk/remote_encryption.h>

namespace sdk_sim {

using RemoteKey = std::array<std::uint8_t, REMOTE_ENCRYPTION_KEY_SIZE>;

struct RemoteEncryption {
    std::uint8_t mirror = 0;
    std::uint8_t bypass = 0;
    std::int32_t mode = REMOTE_ENCRYPTION_AES;
    std::int32_t state = REMOTE_ENCRYPTION_OFF;
    std::array<std::optional<RemoteKey>, REMOTE_ENCRYPTION_KEYS> keys;
    std::uint8_t active_key = 0;
};

} // namespace sdk_sim
