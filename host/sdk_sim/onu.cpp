// SPDX-License-Identifier: Apache-2.0
// Questions about the ONUs and links of an OLT.
#include <cstring>

#include "host/sdk_sim/gate.h"

namespace sdk_sim {

namespace {

const Operation onu_record_static_mode("Get_onu_record_static_mode", GENERAL);
const Operation onu_mode_extended("NEP_get_onu_mode_extended", GENERAL);
const Operation mac_address_exist("Mac_address_exist", GENERAL);

// Null for an absent OLT and an index without an ONU.
const Onu* find_onu(Network& network, int16_t olt_id, int16_t onu_id)
{
    const Olt* olt = present_olt(network, olt_id);
    if (olt == nullptr) return nullptr;
    const auto found = olt->onus.find(onu_id);
    return found == olt->onus.end() ? nullptr : &found->second;
}

} // namespace

} // namespace sdk_sim

using namespace sdk_sim;

int32_t Get_onu_record_static_mode(int16_t olt_id, int16_t onu_id)
{
    return ask(onu_record_static_mode, in(olt_id, onu_id), out(), [&](Network& network) {
        const Onu* onu = find_onu(network, olt_id, onu_id);
        return onu != nullptr && onu->is_static;
    });
}

int32_t NEP_get_onu_mode_extended(int16_t olt_id, int16_t onu_id, uint8_t* warned)
{
    return ask(onu_mode_extended, in(olt_id, onu_id), out(warned), [&](Network& network) -> int32_t {
        const Onu* onu = find_onu(network, olt_id, onu_id);
        if (warned != nullptr) *warned = onu != nullptr && onu->is_warned;
        return onu == nullptr ? ONU_MODE_UNREGISTERED : onu->mode;
    });
}

// A link is known by its address from its discovery on, and always when its record is static.
int32_t Mac_address_exist(int16_t olt_id, const uint8_t mac[6], int16_t* onu_id)
{
    return ask(mac_address_exist, in(olt_id, as_mac(mac)), out(onu_id), [&](Network& network) -> int32_t {
        const Olt* olt = present_olt(network, olt_id);
        if (olt == nullptr || mac == nullptr || onu_id == nullptr) return 0;
        for (const auto& [id, onu] : olt->onus) {
            if (std::memcmp(onu.mac.data(), mac, onu.mac.size()) != 0) continue;
            if (onu.mode == ONU_MODE_UNREGISTERED && !onu.is_static) return 0;
            *onu_id = id;
            return 1;
        }
        return 0;
    });
}
