// SPDX-License-Identifier: Apache-2.0
// The PON's optics: ONUs that hear nothing leave, and come back when they are heard again.
#include "host/sdk_sim/pon_transmission.h"

#include <algorithm>

#include "host/sdk_sim/events.h"
#include "host/sdk_sim/life.h"
#include "host/sdk_sim/olt_operation.h"
#include "host/sdk_sim/scenario_reader.h"

namespace sdk_sim {

namespace {

const Operation set_olt_pon_transmission("NEP_set_olt_pon_transmission", GENERAL);
const Operation get_olt_pon_transmission("NEP_get_olt_pon_transmission", GENERAL);
const Operation get_olt_pon_module_exist("NEP_get_olt_pon_module_exist", GENERAL);
const Operation set_use_pon_redundant("NEP_set_use_pon_redundant", GENERAL);

void raise_signal(Olt& olt, bool is_present)
{
    olt.configuration.pon_transmission.is_dark = !is_present;
    raise(EVENT_PON_SIGNAL_CHANGED, olt.id, PonSignalChangedEvent{is_present});
}

void lose_deaf_onus(Olt& olt)
{
    const bool had_onus = count_registered(olt) != 0;
    for (auto& [id, onu] : olt.onus)
        if (counts_as_registered(onu) && !hears_olt(olt, onu))
            deregister_onu(olt, onu, DeregistrationReason::MpcpTimeout);
    if (had_onus && count_registered(olt) == 0) raise_signal(olt, false);
}

void hear_again(Olt& olt)
{
    const auto hears = [&olt](const auto& entry) { return hears_olt(olt, entry.second); };
    if (olt.configuration.pon_transmission.is_dark && std::any_of(olt.onus.begin(), olt.onus.end(), hears))
        raise_signal(olt, true);
}

bool is_rate(int32_t pon_type)
{
    return pon_type == PON_TYPE_1G || pon_type == PON_TYPE_10G;
}

} // namespace

bool hears_olt(const Olt& olt, const Onu& onu)
{
    return olt.configuration.pon_transmission.enabled[onu.rate == OnuRate::Rate1G ? PON_TYPE_1G : PON_TYPE_10G] != 0;
}

void read_pon_modules(ScenarioReader& reader, PonTransmission* transmission)
{
    reader.flag("primary", &transmission->modules[PON_MODULE_PRIMARY]);
    reader.flag("secondary", &transmission->modules[PON_MODULE_SECONDARY]);
}

} // namespace sdk_sim

using namespace sdk_sim;

int16_t NEP_set_olt_pon_transmission(int16_t olt_id, int32_t pon_type, int32_t enable)
{
    const auto arguments = in(olt_id, pon_type, enable);
    return on_olt_and_network(set_olt_pon_transmission, olt_id, arguments, out(), [&](Network& network, Olt& olt) {
        if (!is_rate(pon_type) && pon_type != PON_TYPE_1G_10G) return PARAMETER_ERROR;
        if (enable != 0 && enable != 1) return PARAMETER_ERROR;
        PonTransmission& transmission = olt.configuration.pon_transmission;
        const auto before = transmission.enabled;
        if (pon_type != PON_TYPE_10G) transmission.enabled[PON_TYPE_1G] = enable;
        if (pon_type != PON_TYPE_1G) transmission.enabled[PON_TYPE_10G] = enable;
        if (transmission.enabled == before) return SUCCESS;
        if (enable == 0) {
            const auto timeout = static_cast<Milliseconds>(olt.configuration.settings.mpcp_timeout);
            after(network, olt, timeout, [](Network&, Olt& later) { lose_deaf_onus(later); });
        } else {
            after(network, olt, network.life.registration_time, [](Network&, Olt& later) { hear_again(later); });
            register_onus(network, olt);
        }
        return SUCCESS;
    });
}

int16_t NEP_get_olt_pon_transmission(int16_t olt_id, int32_t pon_type, int32_t* enable)
{
    return on_olt(get_olt_pon_transmission, olt_id, in(olt_id, pon_type), out(enable), [&](Olt& olt) {
        if (!is_rate(pon_type)) return PARAMETER_ERROR;
        *enable = olt.configuration.pon_transmission.enabled[pon_type];
        return SUCCESS;
    });
}

int16_t NEP_get_olt_pon_module_exist(int16_t olt_id, int32_t module, int32_t* exists)
{
    return on_olt(get_olt_pon_module_exist, olt_id, in(olt_id, module), out(exists), [&](Olt& olt) {
        if (module != PON_MODULE_PRIMARY && module != PON_MODULE_SECONDARY) return PARAMETER_ERROR;
        *exists = olt.configuration.pon_transmission.modules[module];
        return SUCCESS;
    });
}

int16_t NEP_set_use_pon_redundant(int16_t olt_id, int32_t enable)
{
    return on_olt(set_use_pon_redundant, olt_id, in(olt_id, enable), out(), [&](Olt& olt) {
        if (enable != 0 && enable != 1) return PARAMETER_ERROR;
        PonTransmission& transmission = olt.configuration.pon_transmission;
        if (enable == 1 && transmission.modules[PON_MODULE_SECONDARY] == 0) return HARDWARE_ERROR;
        transmission.use_redundant = enable;
        return SUCCESS;
    });
}
