// SPDX-License-Identifier: Apache-2.0
// Lists of MAC addresses that admit ONUs or keep them out.
#include "host/sdk_sim/auth_list.h"

#include <algorithm>

#include "host/sdk_sim/events.h"
#include "host/sdk_sim/gate.h"
#include "host/sdk_sim/life.h"
#include "host/sdk_sim/llid.h"

namespace sdk_sim {

namespace {

const Operation set_authentication_mode("NEP_set_authentication_mode", GENERAL);
const Operation get_authentication_mode("NEP_get_authentication_mode", GENERAL);
const Operation set_active_type("NEP_set_active_authentication_list_type", GENERAL);
const Operation get_active_type("NEP_get_active_authentication_list_type", GENERAL);
const Operation set_mac_address("NEP_set_mac_address_authentication", GENERAL);
const Operation get_mac_addresses("NEP_get_mac_address_authentication", GENERAL);
const Operation clear_mac_addresses("NEP_clear_mac_address_authentication_table", GENERAL);

constexpr int16_t TABLE_FULL = -1013;

auto& active_addresses(AuthList& list)
{
    return list.addresses[static_cast<std::size_t>(list.active_type)];
}

bool is_device_address(const Mac& mac)
{
    return (mac[0] & 1) == 0 && mac != Mac{};
}

void adjust_authorization(Network& network, const Olt& olt, Onu& onu, bool authorized)
{
    if (authorized != (onu.mode == ONU_MODE_REGISTERED)) apply_authorization(network, olt, onu, authorized);
}

// Applies the lists to an ONU that is registered.
void review(Network& network, Olt& olt, Onu& onu)
{
    if (!counts_as_registered(onu)) return;
    switch (admission(olt, onu)) {
    case Admission::Admitted:
        // Without hybrid mode the lists have no say in who is authorized.
        if (olt.configuration.auth_list.mode == AUTHENTICATION_HYBRID) adjust_authorization(network, olt, onu, true);
        break;
    case Admission::Unauthorized:
        adjust_authorization(network, olt, onu, false);
        break;
    case Admission::NotListed:
    case Admission::BlackListed:
        deregister_onu(olt, onu, DeregistrationReason::Refused);
        return_onu(network, olt, onu.id);
        break;
    }
}

void review_address(Network& network, Olt& olt, const Mac& mac)
{
    for (auto& [id, onu] : olt.onus)
        if (onu.mac == mac) review(network, olt, onu);
}

int16_t add(Network& network, Olt& olt, const Mac& mac)
{
    auto& addresses = active_addresses(olt.configuration.auth_list);
    if (std::find(addresses.begin(), addresses.end(), mac) != addresses.end()) return SUCCESS;
    if (addresses.size() == AUTHENTICATION_LIST_SIZE) return TABLE_FULL;
    addresses.push_back(mac);
    review_address(network, olt, mac);
    return SUCCESS;
}

int16_t remove(Network& network, Olt& olt, const Mac& mac)
{
    auto& addresses = active_addresses(olt.configuration.auth_list);
    const auto found = std::find(addresses.begin(), addresses.end(), mac);
    if (found == addresses.end()) return PARAMETER_ERROR;
    addresses.erase(found);
    review_address(network, olt, mac);
    return SUCCESS;
}

// An operation that changes the lists. change(Network&, Olt&) returns a code.
template <class In, class Change>
int16_t on_lists(const Operation& operation, int16_t olt_id, const In& arguments, Change&& change)
{
    return on_network(operation, arguments, out(), [&](Network& network) -> int16_t {
        Olt* olt = present_olt(network, olt_id);
        return olt == nullptr ? GENERAL.no_olt : change(network, *olt);
    });
}

// The list shows as the addresses in it.
struct ListResult {
    OLT_mac_address_list* list;
};

bool is_null(const ListResult& result)
{
    return result.list == nullptr;
}

void clear_result(const ListResult& result)
{
    if (result.list != nullptr) *result.list = {};
}

void append_value(std::string* line, const ListResult& result)
{
    *line += '[';
    for (uint32_t i = 0; i < result.list->count; ++i) {
        if (i != 0) *line += ',';
        append_mac(line, result.list->addresses[i]);
    }
    *line += ']';
}

} // namespace

void review_onus(Network& network, Olt& olt)
{
    for (auto& [id, onu] : olt.onus)
        review(network, olt, onu);
}

Admission admission(const AuthList& list, const Mac& mac)
{
    if (list.mode == AUTHENTICATION_DISABLED) return Admission::Admitted;
    const auto& addresses = list.addresses[static_cast<std::size_t>(list.active_type)];
    const bool is_listed = std::find(addresses.begin(), addresses.end(), mac) != addresses.end();
    if (is_listed == (list.active_type == AUTHENTICATION_WHITE_LIST)) return Admission::Admitted;
    if (list.mode == AUTHENTICATION_HYBRID) return Admission::Unauthorized;
    return is_listed ? Admission::BlackListed : Admission::NotListed;
}

} // namespace sdk_sim

using namespace sdk_sim;

int16_t NEP_set_authentication_mode(int16_t olt_id, int32_t mode)
{
    return on_lists(set_authentication_mode, olt_id, in(olt_id, mode), [&](Network& network, Olt& olt) {
        if (mode < AUTHENTICATION_DISABLED || mode > AUTHENTICATION_HYBRID) return PARAMETER_ERROR;
        olt.configuration.auth_list.mode = mode;
        review_onus(network, olt);
        return SUCCESS;
    });
}

int16_t NEP_get_authentication_mode(int16_t olt_id, int32_t* mode)
{
    return on_olt(get_authentication_mode, olt_id, in(olt_id), out(mode), [&](Olt& olt) {
        *mode = olt.configuration.auth_list.mode;
        return SUCCESS;
    });
}

int16_t NEP_set_active_authentication_list_type(int16_t olt_id, int32_t type)
{
    return on_lists(set_active_type, olt_id, in(olt_id, type), [&](Network& network, Olt& olt) {
        if (type != AUTHENTICATION_WHITE_LIST && type != AUTHENTICATION_BLACK_LIST) return PARAMETER_ERROR;
        olt.configuration.auth_list.active_type = type;
        review_onus(network, olt);
        return SUCCESS;
    });
}

int16_t NEP_get_active_authentication_list_type(int16_t olt_id, int32_t* type)
{
    return on_olt(get_active_type, olt_id, in(olt_id), out(type), [&](Olt& olt) {
        *type = olt.configuration.auth_list.active_type;
        return SUCCESS;
    });
}

int16_t NEP_set_mac_address_authentication(int16_t olt_id, const uint8_t mac[6], int32_t listed)
{
    return on_lists(set_mac_address, olt_id, in(olt_id, as_mac(mac), listed),
                    [&](Network& network, Olt& olt) -> int16_t {
                        Mac address;
                        std::copy(mac, mac + address.size(), address.begin());
                        if (!is_device_address(address) || (listed != 0 && listed != 1)) return PARAMETER_ERROR;
                        return listed == 1 ? add(network, olt, address) : remove(network, olt, address);
                    });
}

int16_t NEP_get_mac_address_authentication(int16_t olt_id, OLT_mac_address_list* list)
{
    return on_olt(get_mac_addresses, olt_id, in(olt_id), out(ListResult{list}), [&](Olt& olt) {
        *list = {};
        for (const Mac& mac : active_addresses(olt.configuration.auth_list))
            std::copy(mac.begin(), mac.end(), list->addresses[list->count++]);
        return SUCCESS;
    });
}

int16_t NEP_clear_mac_address_authentication_table(int16_t olt_id)
{
    return on_lists(clear_mac_addresses, olt_id, in(olt_id), [&](Network& network, Olt& olt) {
        active_addresses(olt.configuration.auth_list).clear();
        review_onus(network, olt);
        return SUCCESS;
    });
}
