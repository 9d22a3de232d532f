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

struct Network;
struct Olt;
struct Onu;

// A key of the ONU's making: begins the encryption of a link's downlink, or goes on with the next key.
void encrypt_with_new_key(Network& network, const Olt& olt, Onu& onu);
// Ends it, with the event; a link that is not encrypted stays so.
void end_link_encryption(const Olt& olt, Onu& onu);

} // namespace sdk_sim
