// SPDX-License-Identifier: Apache-2.0
// Encryption of single links.
#include "host/sdk_sim/llid_encryption.h"

#include <algorithm>

#include "host/sdk_sim/events.h"
#include "host/sdk_sim/link_operation.h"

namespace sdk_sim {

namespace {

const Operation start_encryption("NEP_start_encryption", GENERAL);
const Operation update_encryption_key("NEP_update_encryption_key", GENERAL);
const Operation stop_encryption("NEP_stop_encryption", GENERAL);
const Operation get_encryption_key("NEP_get_encryption_key", GENERAL);

void change_direction(const Olt& olt, Onu& onu, std::int32_t direction)
{
    if (onu.configuration.encryption.direction == direction) return;
    onu.configuration.encryption.direction = direction;
    raise(EVENT_ENCRYPTION_CHANGED, olt.id, EncryptionChangedEvent{onu.id, direction});
}

void use_key(const Olt& olt, const Onu& onu, LinkEncryption& encryption, std::uint8_t index)
{
    encryption.key_index = index;
    raise(EVENT_ENCRYPTION_KEY_UPDATED, olt.id, EncryptionKeyUpdatedEvent{onu.id, index});
}

void make_key(Network& network, LinkEncryption& encryption)
{
    for (std::uint8_t& octet : encryption.key)
        octet = static_cast<std::uint8_t>(random_below(network, 256));
}

} // namespace

void encrypt_with_new_key(Network& network, const Olt& olt, Onu& onu)
{
    LinkEncryption& encryption = onu.configuration.encryption;
    const bool is_new = encryption.direction == LLID_ENCRYPTION_OFF;
    if (is_new) change_direction(olt, onu, LLID_ENCRYPTION_DOWNLINK);
    make_key(network, encryption);
    use_key(olt, onu, encryption, is_new ? 0 : 1 - encryption.key_index);
}

void end_link_encryption(const Olt& olt, Onu& onu)
{
    change_direction(olt, onu, LLID_ENCRYPTION_OFF);
    onu.configuration.encryption = {};
}

} // namespace sdk_sim

using namespace sdk_sim;

int16_t NEP_start_encryption(int16_t olt_id, int16_t llid, int32_t direction)
{
    return on_link(start_encryption, olt_id, llid, in(olt_id, llid, direction), out(),
                   [&](Network& network, Olt& olt, Onu& onu) {
                       if (direction != LLID_ENCRYPTION_DOWNLINK && direction != LLID_ENCRYPTION_UPLINK_DOWNLINK)
                           return PARAMETER_ERROR;
                       LinkEncryption& encryption = onu.configuration.encryption;
                       const bool is_new = encryption.direction == LLID_ENCRYPTION_OFF;
                       change_direction(olt, onu, direction);
                       if (!is_new) return SUCCESS;
                       make_key(network, encryption);
                       use_key(olt, onu, encryption, 0);
                       return SUCCESS;
                   });
}

int16_t NEP_update_encryption_key(int16_t olt_id, int16_t llid, const uint8_t key[LLID_ENCRYPTION_KEY_SIZE])
{
    const auto arguments = in(olt_id, llid, as_octets(key, LLID_ENCRYPTION_KEY_SIZE));
    return on_onu(update_encryption_key, olt_id, llid, arguments, out(), [&](Olt& olt, Onu& onu) {
        LinkEncryption& encryption = onu.configuration.encryption;
        if (encryption.direction == LLID_ENCRYPTION_OFF) return EXIT_ERROR;
        std::copy(key, key + encryption.key.size(), encryption.key.begin());
        use_key(olt, onu, encryption, 1 - encryption.key_index);
        return SUCCESS;
    });
}

int16_t NEP_stop_encryption(int16_t olt_id, int16_t llid)
{
    return on_onu(stop_encryption, olt_id, llid, in(olt_id, llid), out(), [](Olt& olt, Onu& onu) {
        if (onu.configuration.encryption.direction == LLID_ENCRYPTION_OFF) return EXIT_ERROR;
        onu.configuration.ctc.encryption = {}; // the CTC stack asks for no more keys
        end_link_encryption(olt, onu);
        return SUCCESS;
    });
}

int16_t NEP_get_encryption_key(int16_t olt_id, int16_t llid, uint8_t key[LLID_ENCRYPTION_KEY_SIZE])
{
    const auto results = out(as_octets(key, LLID_ENCRYPTION_KEY_SIZE));
    return on_onu(get_encryption_key, olt_id, llid, in(olt_id, llid), results, [&](Olt&, Onu& onu) {
        const LinkEncryption& encryption = onu.configuration.encryption;
        if (encryption.direction == LLID_ENCRYPTION_OFF) return EXIT_ERROR;
        std::copy(encryption.key.begin(), encryption.key.end(), key);
        return SUCCESS;
    });
}
