// SPDX-License-Identifier: Apache-2.0
// The ONU's end of an encrypted link.
#include "host/sdk_sim/remote_encryption.h"

#include <algorithm>

#include "host/sdk_sim/remote_operation.h"

namespace sdk_sim {

namespace {

const Operation set_configuration("REMOTE_NEPONU_encryption_set_configuration", REMOTE_MANAGEMENT);
const Operation get_configuration("REMOTE_NEPONU_encryption_get_configuration", REMOTE_MANAGEMENT);
const Operation set_mode("REMOTE_NEPONU_ENCRYPTION_set_mode", REMOTE_MANAGEMENT);
const Operation get_mode("REMOTE_NEPONU_ENCRYPTION_get_mode", REMOTE_MANAGEMENT);
const Operation set_state("REMOTE_NEPONU_encryption_set_state", REMOTE_MANAGEMENT);
const Operation get_state("REMOTE_NEPONU_encryption_get_state", REMOTE_MANAGEMENT);
const Operation set_key("REMOTE_NEPONU_encryption_set_key", REMOTE_MANAGEMENT);
const Operation get_key("REMOTE_NEPONU_encryption_get_key", REMOTE_MANAGEMENT);
const Operation set_active_key("REMOTE_NEPONU_encryption_set_active_key", REMOTE_MANAGEMENT);
const Operation get_active_key("REMOTE_NEPONU_encryption_get_active_key", REMOTE_MANAGEMENT);

bool is_on(const RemoteEncryption& encryption)
{
    return encryption.state != REMOTE_ENCRYPTION_OFF;
}

std::int16_t change_mode(RemoteEncryption& encryption, std::int32_t mode)
{
    if (mode != REMOTE_ENCRYPTION_AES && mode != REMOTE_ENCRYPTION_TRIPLE_CHURNING) return PARAMETER_ERROR;
    if (is_on(encryption) && mode != encryption.mode) return BAD_CONFIGURATION;
    encryption.mode = mode;
    return SUCCESS;
}

std::int16_t change_state(RemoteEncryption& encryption, std::int32_t state)
{
    if (state < REMOTE_ENCRYPTION_UPLINK || state > REMOTE_ENCRYPTION_OFF) return PARAMETER_ERROR;
    if (state != REMOTE_ENCRYPTION_OFF) {
        if (!encryption.keys[encryption.active_key]) return BAD_CONFIGURATION;
        if (encryption.mode == REMOTE_ENCRYPTION_TRIPLE_CHURNING && state != REMOTE_ENCRYPTION_DOWNLINK)
            return BAD_CONFIGURATION;
    }
    encryption.state = state;
    return SUCCESS;
}

std::int16_t change_key(RemoteEncryption& encryption, std::uint8_t index, const std::uint8_t* octets)
{
    if (index >= REMOTE_ENCRYPTION_KEYS) return PARAMETER_ERROR;
    if (is_on(encryption) && index == encryption.active_key) return BAD_CONFIGURATION;
    RemoteKey key;
    std::copy_n(octets, key.size(), key.begin());
    encryption.keys[index] = key;
    return SUCCESS;
}

std::int16_t change_active_key(RemoteEncryption& encryption, std::uint8_t index)
{
    if (index >= REMOTE_ENCRYPTION_KEYS) return PARAMETER_ERROR;
    if (is_on(encryption) && !encryption.keys[index]) return BAD_CONFIGURATION;
    encryption.active_key = index;
    return SUCCESS;
}

// What is set of the encryption of an ONU, by change(RemoteEncryption&).
template <class In, class Change>
std::int16_t set_encryption(const Operation& operation, std::int16_t olt_id, std::int16_t onu_id, const In& arguments,
                            Change&& change)
{
    return set_remote(operation, olt_id, onu_id, arguments,
                      [&](Network&, Olt&, Onu& onu) { return change(onu.configuration.remote_encryption); });
}

} // namespace

} // namespace sdk_sim

using namespace sdk_sim;

int16_t REMOTE_NEPONU_encryption_set_configuration(int16_t olt_id, int16_t onu_id, uint8_t mirror, uint8_t bypass)
{
    const auto arguments = in(olt_id, onu_id, mirror, bypass);
    return set_encryption(set_configuration, olt_id, onu_id, arguments, [&](RemoteEncryption& encryption) {
        if (mirror > 1 || bypass > 1) return PARAMETER_ERROR;
        encryption.mirror = mirror;
        encryption.bypass = bypass;
        return SUCCESS;
    });
}

int16_t REMOTE_NEPONU_encryption_get_configuration(int16_t olt_id, int16_t onu_id, uint8_t* mirror, uint8_t* bypass)
{
    const auto results = out(mirror, bypass);
    return ask_remote(get_configuration, olt_id, onu_id, in(olt_id, onu_id), results, [&](Network&, Olt&, Onu& onu) {
        *mirror = onu.configuration.remote_encryption.mirror;
        *bypass = onu.configuration.remote_encryption.bypass;
        return SUCCESS;
    });
}

int16_t REMOTE_NEPONU_ENCRYPTION_set_mode(int16_t olt_id, int16_t onu_id, int32_t mode)
{
    return set_encryption(set_mode, olt_id, onu_id, in(olt_id, onu_id, mode),
                          [&](RemoteEncryption& encryption) { return change_mode(encryption, mode); });
}

int16_t REMOTE_NEPONU_ENCRYPTION_get_mode(int16_t olt_id, int16_t onu_id, int32_t* mode)
{
    return get_remote(get_mode, olt_id, onu_id, mode,
                      [](Network&, Onu& onu) { return onu.configuration.remote_encryption.mode; });
}

int16_t REMOTE_NEPONU_encryption_set_state(int16_t olt_id, int16_t onu_id, int32_t state)
{
    return set_encryption(set_state, olt_id, onu_id, in(olt_id, onu_id, state),
                          [&](RemoteEncryption& encryption) { return change_state(encryption, state); });
}

int16_t REMOTE_NEPONU_encryption_get_state(int16_t olt_id, int16_t onu_id, int32_t* state)
{
    return get_remote(get_state, olt_id, onu_id, state,
                      [](Network&, Onu& onu) { return onu.configuration.remote_encryption.state; });
}

int16_t REMOTE_NEPONU_encryption_set_key(int16_t olt_id, int16_t onu_id, uint8_t index,
                                         const uint8_t key[REMOTE_ENCRYPTION_KEY_SIZE])
{
    const auto arguments = in(olt_id, onu_id, index, as_octets(key, REMOTE_ENCRYPTION_KEY_SIZE));
    return set_encryption(set_key, olt_id, onu_id, arguments,
                          [&](RemoteEncryption& encryption) { return change_key(encryption, index, key); });
}

int16_t REMOTE_NEPONU_encryption_get_key(int16_t olt_id, int16_t onu_id, uint8_t index,
                                         uint8_t key[REMOTE_ENCRYPTION_KEY_SIZE])
{
    const auto arguments = in(olt_id, onu_id, index);
    const auto results = out(as_octets(key, REMOTE_ENCRYPTION_KEY_SIZE));
    return ask_remote(get_key, olt_id, onu_id, arguments, results, [&](Network&, Olt&, Onu& onu) {
        if (index >= REMOTE_ENCRYPTION_KEYS) return PARAMETER_ERROR;
        const RemoteKey octets = onu.configuration.remote_encryption.keys[index].value_or(RemoteKey{});
        std::copy(octets.begin(), octets.end(), key);
        return SUCCESS;
    });
}

int16_t REMOTE_NEPONU_encryption_set_active_key(int16_t olt_id, int16_t onu_id, uint8_t index)
{
    return set_encryption(set_active_key, olt_id, onu_id, in(olt_id, onu_id, index),
                          [&](RemoteEncryption& encryption) { return change_active_key(encryption, index); });
}

int16_t REMOTE_NEPONU_encryption_get_active_key(int16_t olt_id, int16_t onu_id, uint8_t* index)
{
    return get_remote(get_active_key, olt_id, onu_id, index,
                      [](Network&, Onu& onu) { return onu.configuration.remote_encryption.active_key; });
}
