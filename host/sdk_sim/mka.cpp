// SPDX-License-Identifier: Apache-2.0
// Key agreement. Links that are authorized answer; the keys are mixed, not derived by a cipher.
#include "host/sdk_sim/mka.h"

#include <algorithm>
#include <iterator>

#include "host/sdk_sim/events.h"
#include "host/sdk_sim/link_operation.h"

namespace sdk_sim {

namespace {

const Operation start_exchange_key("NEP_mka_start_exchange_key", GENERAL);
const Operation set_llid_parameter("NEP_mka_set_llid_parameter", GENERAL);
const Operation get_llid_parameter("NEP_mka_get_llid_parameter", GENERAL);
const Operation set_global_parameter("NEP_mka_set_global_parameter", GENERAL);
const Operation get_global_parameter("NEP_mka_get_global_parameter", GENERAL);

constexpr int16_t NOT_INITIALIZED = -1016;
constexpr std::size_t ACTOR_MEM_ID_SIZE = 12;
constexpr std::size_t KEY_SEED_SIZE = 16;
constexpr uint8_t ASSOCIATIONS = 4;

// A value shows as its octets when it has some, else as its number.
struct MkaShown {
    const MKA_value* value;
};

bool is_null(const MkaShown& shown)
{
    return shown.value == nullptr;
}

void append_value(std::string* line, const MkaShown& shown)
{
    if (shown.value == nullptr)
        *line += "null";
    else if (shown.value->length == 0)
        *line += std::to_string(shown.value->number);
    else
        append_octets(line, shown.value->octets, std::min<uint32_t>(shown.value->length, MKA_OCTETS_MAX));
}

struct MkaResult {
    MKA_value* value;
};

bool is_null(const MkaResult& result)
{
    return result.value == nullptr;
}

void clear_result(const MkaResult& result)
{
    if (result.value != nullptr) *result.value = {};
}

void append_value(std::string* line, const MkaResult& result)
{
    append_value(line, MkaShown{result.value});
}

// --- Keys --------------------------------------------------------------------------------------------------------

MkaOctets random_octets(Network& network, std::size_t count)
{
    MkaOctets octets(count);
    for (uint8_t& octet : octets)
        octet = static_cast<uint8_t>(random_below(network, 256));
    return octets;
}

// As many octets as the key has, which depend on every octet of key and seed.
MkaOctets mix(const MkaOctets& key, const MkaOctets& seed, uint8_t purpose)
{
    uint64_t state = 0xCBF29CE484222325U ^ purpose;
    const auto absorb = [&state](uint8_t octet) { state = (state ^ octet) * 0x100000001B3U; };
    std::for_each(key.begin(), key.end(), absorb);
    std::for_each(seed.begin(), seed.end(), absorb);
    MkaOctets mixed;
    while (mixed.size() < key.size()) {
        absorb(static_cast<uint8_t>(mixed.size()));
        mixed.push_back(static_cast<uint8_t>(state >> 32));
    }
    return mixed;
}

void derive_keys(MkaLink& mka)
{
    mka.kek = mix(mka.cak, mka.cak_name, 1);
    mka.ick = mix(mka.cak, mka.cak_name, 2);
}

// --- The exchange ------------------------------------------------------------------------------------------------

void change_state(const Olt& olt, Onu& onu, MkaState state)
{
    if (onu.configuration.mka.state == state) return;
    onu.configuration.mka.state = state;
    raise(EVENT_MKA_STATE_CHANGED, olt.id, MkaStateChangedEvent{onu.id, state});
}

void end_exchange(const Olt& olt, Onu& onu, MkaState state)
{
    onu.configuration.mka.exchange = 0;
    change_state(olt, onu, state);
}

void install_key(Network& network, const Olt& olt, Onu& onu)
{
    MkaLink& mka = onu.configuration.mka;
    mka.key_seed = random_octets(network, KEY_SEED_SIZE);
    mka.sak = mix(mka.cak, mka.key_seed, 3);
    mka.association = static_cast<uint8_t>(mka.key_number % ASSOCIATIONS);
    ++mka.key_number;
    raise(EVENT_MKA_KEY_INSTALLED, olt.id, MkaKeyInstalledEvent{onu.id, mka.association, mka.key_number});
    end_exchange(olt, onu, MKA_SECURED);
}

// One message to the link, which answers until the next one is due, or does not.
void attempt(Network& network, Olt& olt, Onu& onu, uint32_t attempts_left)
{
    ++onu.configuration.mka.message_number;
    const auto act = [exchange = onu.configuration.mka.exchange, attempts_left](Network& later, Olt& of_link,
                                                                                Onu& link) {
        if (link.configuration.mka.exchange != exchange) return;
        if (link.mode == ONU_MODE_REGISTERED)
            install_key(later, of_link, link);
        else if (attempts_left > 1)
            attempt(later, of_link, link, attempts_left - 1);
        else
            end_exchange(of_link, link, MKA_FAILED);
    };
    after_on_link(network, olt, onu.id, olt.configuration.mka.parameters[MKA_RETRANSMIT_INTERVAL], act);
}

uint64_t default_sci(const Olt& olt, int16_t llid)
{
    uint64_t sci = 0;
    for (const uint8_t octet : olt.mac)
        sci = sci << 8 | octet;
    return sci << 16 | static_cast<uint16_t>(llid + 1);
}

int16_t start_exchange(Network& network, Olt& olt, Onu& onu)
{
    MkaLink& mka = onu.configuration.mka;
    if (!mka.is_enabled || mka.cak.empty() || mka.cak_name.empty()) return NOT_INITIALIZED;
    if (mka.actor_mem_id.empty()) mka.actor_mem_id = random_octets(network, ACTOR_MEM_ID_SIZE);
    if (mka.sci == 0) mka.sci = default_sci(olt, onu.id);
    mka.exchange = ++olt.configuration.mka.last_exchange;
    change_state(olt, onu, MKA_NEGOTIATING);
    attempt(network, olt, onu, olt.configuration.mka.parameters[MKA_RETRANSMIT_NUM]);
    return SUCCESS;
}

// --- Parameters --------------------------------------------------------------------------------------------------

void enable(const Olt& olt, Onu& onu, bool is_enabled)
{
    MkaLink& mka = onu.configuration.mka;
    mka.is_enabled = is_enabled;
    if (is_enabled) return;
    mka.key_seed.clear();
    mka.sak.clear();
    end_exchange(olt, onu, MKA_OFF);
}

void change_association_key(const Olt& olt, Onu& onu, MkaOctets MkaLink::*member, MkaOctets octets)
{
    MkaLink& mka = onu.configuration.mka;
    mka.*member = std::move(octets);
    derive_keys(mka);
    if (mka.exchange != 0) end_exchange(olt, onu, MKA_FAILED);
}

int16_t set_of_link(const Olt& olt, Onu& onu, int32_t parameter, const MKA_value& value)
{
    if (value.length > MKA_OCTETS_MAX) return PARAMETER_ERROR;
    MkaOctets octets(value.octets, value.octets + value.length);
    const std::size_t length = octets.size();
    switch (parameter) {
    case MKA_ENABLE:
        if (length != 0 || value.number > 1) return PARAMETER_ERROR;
        enable(olt, onu, value.number == 1);
        return SUCCESS;
    case MKA_ACTOR_MEM_ID:
        if (length != ACTOR_MEM_ID_SIZE) return PARAMETER_ERROR;
        onu.configuration.mka.actor_mem_id = std::move(octets);
        return SUCCESS;
    case MKA_CAK_NAME:
        if (length == 0) return PARAMETER_ERROR;
        change_association_key(olt, onu, &MkaLink::cak_name, std::move(octets));
        return SUCCESS;
    case MKA_CAK:
        if (length != 16 && length != 32) return PARAMETER_ERROR;
        change_association_key(olt, onu, &MkaLink::cak, std::move(octets));
        return SUCCESS;
    case MKA_SCI:
        if (length != 0) return PARAMETER_ERROR;
        onu.configuration.mka.sci = value.number;
        return SUCCESS;
    default:
        return PARAMETER_ERROR;
    }
}

// What a link has as octets.
struct OctetParameter {
    int32_t parameter;
    MkaOctets MkaLink::*octets;
};

constexpr OctetParameter octet_parameters[] = {
    {MKA_ACTOR_MEM_ID, &MkaLink::actor_mem_id},
    {MKA_CAK_NAME, &MkaLink::cak_name},
    {MKA_CAK, &MkaLink::cak},
    {MKA_KEK, &MkaLink::kek},
    {MKA_ICK, &MkaLink::ick},
    {MKA_KEY_SEED, &MkaLink::key_seed},
    {MKA_SAK, &MkaLink::sak},
};

int16_t get_of_link(const MkaLink& mka, int32_t parameter, MKA_value* value)
{
    *value = {};
    switch (parameter) {
    case MKA_ENABLE:
        value->number = mka.is_enabled;
        return SUCCESS;
    case MKA_SCI:
        value->number = mka.sci;
        return SUCCESS;
    case MKA_MN:
        value->number = mka.message_number;
        return SUCCESS;
    default:
        break;
    }
    for (const OctetParameter& row : octet_parameters) {
        if (row.parameter != parameter) continue;
        const MkaOctets& octets = mka.*row.octets;
        value->length = static_cast<uint32_t>(octets.size());
        std::copy(octets.begin(), octets.end(), value->octets);
        return SUCCESS;
    }
    return PARAMETER_ERROR;
}

struct Range {
    uint32_t min;
    uint32_t max;
};

// By enum MkaGlobalParameter.
constexpr Range global_ranges[] = {{100, 60000}, {100, 60000}, {100, 60000}, {1, 10}, {0, 50}, {1, UINT32_MAX}};

bool is_global_parameter(int32_t parameter)
{
    return parameter >= MKA_KEEP_ALIVE_INTERVAL && parameter <= MKA_PN_THR;
}

bool fits(const MkaGlobal& mka, int32_t parameter, uint32_t value)
{
    if (value < global_ranges[parameter].min || value > global_ranges[parameter].max) return false;
    switch (parameter) {
    case MKA_KEEP_ALIVE_INTERVAL:
        return value <= mka.parameters[MKA_KEEP_ALIVE_TIMEOUT];
    case MKA_KEEP_ALIVE_TIMEOUT:
        return value >= mka.parameters[MKA_KEEP_ALIVE_INTERVAL];
    case MKA_CONFIDENTIAL_OFFSET:
        return value == 0 || value == 30 || value == 50;
    default:
        return true;
    }
}

} // namespace

static_assert(std::size(global_ranges) == std::tuple_size_v<decltype(MkaGlobal::parameters)>);

} // namespace sdk_sim

using namespace sdk_sim;

int16_t NEP_mka_start_exchange_key(int16_t olt_id, int16_t llid)
{
    return on_link(start_exchange_key, olt_id, llid, in(olt_id, llid), out(), start_exchange);
}

int16_t NEP_mka_set_llid_parameter(int16_t olt_id, int16_t llid, int32_t parameter, const MKA_value* value)
{
    return on_onu(set_llid_parameter, olt_id, llid, in(olt_id, llid, parameter, MkaShown{value}), out(),
                  [&](Olt& olt, Onu& onu) { return set_of_link(olt, onu, parameter, *value); });
}

int16_t NEP_mka_get_llid_parameter(int16_t olt_id, int16_t llid, int32_t parameter, MKA_value* value)
{
    return on_onu(get_llid_parameter, olt_id, llid, in(olt_id, llid, parameter), out(MkaResult{value}),
                  [&](Olt&, Onu& onu) { return get_of_link(onu.configuration.mka, parameter, value); });
}

int16_t NEP_mka_set_global_parameter(int16_t olt_id, int32_t parameter, uint32_t value)
{
    return on_olt(set_global_parameter, olt_id, in(olt_id, parameter, value), out(), [&](Olt& olt) {
        MkaGlobal& mka = olt.configuration.mka;
        if (!is_global_parameter(parameter) || !fits(mka, parameter, value)) return PARAMETER_ERROR;
        mka.parameters[static_cast<std::size_t>(parameter)] = value;
        return SUCCESS;
    });
}

int16_t NEP_mka_get_global_parameter(int16_t olt_id, int32_t parameter, uint32_t* value)
{
    return on_olt(get_global_parameter, olt_id, in(olt_id, parameter), out(value), [&](Olt& olt) {
        if (!is_global_parameter(parameter)) return PARAMETER_ERROR;
        *value = olt.configuration.mka.parameters[static_cast<std::size_t>(parameter)];
        return SUCCESS;
    });
}
