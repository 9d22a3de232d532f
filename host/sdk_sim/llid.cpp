// SPDX-License-Identifier: Apache-2.0
// Links: mode, authorization, forward error correction.
#include "host/sdk_sim/llid.h"

#include <algorithm>

#include "host/sdk_sim/ctc_discovery.h"
#include "host/sdk_sim/events.h"
#include "host/sdk_sim/link_operation.h"
#include "host/sdk_sim/onu_loopback.h"

namespace sdk_sim {

template <>
inline constexpr auto record_fields<LLID_parameters> =
    std::tuple(record_field("mode", &LLID_parameters::mode), record_field("rate", &LLID_parameters::rate),
               record_field("authorized", &LLID_parameters::authorized),
               record_field("encryption", &LLID_parameters::encryption), record_field("fec", &LLID_parameters::fec),
               record_field("rtt", &LLID_parameters::rtt), record_field("mac", &LLID_parameters::mac));

namespace {

const Operation get_onu_mode("NEP_get_onu_mode", GENERAL);
const Operation get_llid_parameters("NEP_get_llid_parameters", GENERAL);
const Operation set_llid_fec_mode("NEP_set_llid_fec_mode", GENERAL);
const Operation get_llid_fec_mode("NEP_get_llid_fec_mode", GENERAL);
const Operation authorize_onu("NEP_authorize_onu", GENERAL);
const Operation reauthenticate_onu("NEP_reauthenticate_onu", GENERAL);

constexpr Milliseconds REAUTHENTICATION_TIME_MS = 500;

// What is sent to all is corrected when all can make use of it.
std::int32_t broadcast_fec_mode(const Olt& olt)
{
    if (count_registered(olt) == 0) return LLID_FEC_OFF;
    const bool all = std::all_of(olt.onus.begin(), olt.onus.end(), [](const auto& row) {
        return !counts_as_registered(row.second) || fec_mode(row.second) != LLID_FEC_OFF;
    });
    return all ? LLID_FEC_DOWNLINK : LLID_FEC_OFF;
}

std::int16_t fec_mode_of_link(Olt& olt, std::int16_t llid, std::int32_t* mode)
{
    if (llid == BROADCAST_ONU) {
        *mode = broadcast_fec_mode(olt);
        return SUCCESS;
    }
    const Onu* onu = registered_onu(olt, llid);
    if (onu == nullptr) return GENERAL.no_onu;
    *mode = fec_mode(*onu);
    return SUCCESS;
}

} // namespace

bool oam_is_up(const Onu& onu)
{
    return onu.mode == ONU_MODE_REGISTERED;
}

std::int32_t fec_mode(const Onu& onu)
{
    switch (onu.rate) {
    case OnuRate::Rate10G1G:
        return LLID_FEC_DOWNLINK;
    case OnuRate::Rate10G:
        return LLID_FEC_UPLINK_DOWNLINK;
    default:
        return onu.configuration.link.fec;
    }
}

void apply_authorization(Network& network, const Olt& olt, Onu& onu, bool authorized)
{
    onu.mode = authorized ? ONU_MODE_REGISTERED : ONU_MODE_REGISTERED_UNAUTHORIZED;
    OnuAuthorizationChangedEvent event{};
    event.llid = onu.id;
    std::copy(onu.mac.begin(), onu.mac.end(), event.mac);
    event.authorized = authorized ? 1 : 0;
    raise(EVENT_ONU_AUTHORIZATION_CHANGED, olt.id, event);
    if (!authorized) open_standard_loopback(olt, onu); // it is held by OAM
    raise(EVENT_OAM_LINK_CHANGED, olt.id, OamLinkChangedEvent{onu.id, authorized ? 1 : 0});
    follow_oam_link(network, olt, onu);
}

} // namespace sdk_sim

using namespace sdk_sim;

int16_t NEP_get_onu_mode(int16_t olt_id, int16_t llid, int32_t* mode)
{
    return on_olt(get_onu_mode, olt_id, in(olt_id, llid), out(mode), [&](Olt& olt) {
        if (llid < 0 || llid >= ONU_INDEX_LIMIT) return PARAMETER_ERROR;
        const auto found = olt.onus.find(llid);
        *mode = found == olt.onus.end() ? ONU_MODE_UNREGISTERED : found->second.mode;
        return SUCCESS;
    });
}

int16_t NEP_get_llid_parameters(int16_t olt_id, int16_t llid, LLID_parameters* parameters)
{
    return on_onu(get_llid_parameters, olt_id, llid, in(olt_id, llid), out(parameters), [&](Olt&, Onu& onu) {
        parameters->mode = onu.mode;
        parameters->rate = static_cast<int32_t>(onu.rate);
        parameters->authorized = onu.mode == ONU_MODE_REGISTERED;
        parameters->encryption = onu.configuration.encryption.direction;
        parameters->fec = fec_mode(onu);
        parameters->rtt = onu.rtt;
        std::copy(onu.mac.begin(), onu.mac.end(), parameters->mac);
        return SUCCESS;
    });
}

int16_t NEP_set_llid_fec_mode(int16_t olt_id, int16_t llid, int32_t mode)
{
    return on_onu(set_llid_fec_mode, olt_id, llid, in(olt_id, llid, mode), out(), [&](Olt&, Onu& onu) {
        if (mode < LLID_FEC_OFF || mode > LLID_FEC_UPLINK_DOWNLINK) return PARAMETER_ERROR;
        if (onu.rate != OnuRate::Rate1G) return NOT_SUPPORTED;
        onu.configuration.link.fec = mode;
        return SUCCESS;
    });
}

int16_t NEP_get_llid_fec_mode(int16_t olt_id, int16_t llid, int32_t* mode)
{
    return on_olt(get_llid_fec_mode, olt_id, in(olt_id, llid), out(mode),
                  [&](Olt& olt) { return fec_mode_of_link(olt, llid, mode); });
}

int16_t NEP_authorize_onu(int16_t olt_id, int16_t llid, int32_t authorized)
{
    const auto arguments = in(olt_id, llid, authorized);
    return on_link(authorize_onu, olt_id, llid, arguments, out(), [&](Network& network, Olt& olt, Onu& onu) {
        if (authorized < 0 || authorized > 1) return PARAMETER_ERROR;
        onu.configuration.link.renewed_at = 0; // the operator's word goes before a proof that still runs
        if (authorized != (onu.mode == ONU_MODE_REGISTERED)) apply_authorization(network, olt, onu, authorized == 1);
        return SUCCESS;
    });
}

int16_t NEP_reauthenticate_onu(int16_t olt_id, int16_t llid)
{
    const auto end = [](Network& network, Olt& olt, Onu& onu) {
        if (onu.configuration.link.renewed_at != network.now || onu.mode != ONU_MODE_REGISTERED_UNAUTHORIZED) return;
        onu.configuration.link.renewed_at = 0;
        apply_authorization(network, olt, onu, true);
    };
    return on_link(reauthenticate_onu, olt_id, llid, in(olt_id, llid), out(),
                   [&](Network& network, Olt& olt, Onu& onu) {
                       if (onu.mode != ONU_MODE_REGISTERED) return EXIT_ERROR;
                       apply_authorization(network, olt, onu, false);
                       onu.configuration.link.renewed_at = network.now + REAUTHENTICATION_TIME_MS;
                       after_on_link(network, olt, llid, REAUTHENTICATION_TIME_MS, end);
                       return SUCCESS;
                   });
}
