// SPDX-License-Identifier: Apache-2.0
// An ONU's own OAM: what it sends of itself, how often, and in which length.
#include "host/sdk_sim/remote_oam_api.h"

#include "host/sdk_sim/remote_operation.h"

namespace sdk_sim {

namespace {

const Operation get_frame_length("REMOTE_NEPONU_get_oam_frame_length_negotiation", REMOTE_MANAGEMENT);
const Operation get_vendor_information("REMOTE_NEPONU_get_oam_vendor_information", REMOTE_MANAGEMENT);
const Operation set_vendor_information("REMOTE_NEPONU_set_oam_vendor_information", REMOTE_MANAGEMENT);
const Operation get_slow_protocol_limit("REMOTE_NEPONU_get_slow_protocol_limit", REMOTE_MANAGEMENT);
const Operation set_slow_protocol_limit("REMOTE_NEPONU_set_slow_protocol_limit", REMOTE_MANAGEMENT);
const Operation get_oam_version("REMOTE_NEPONU_get_oam_version", REMOTE_MANAGEMENT);
const Operation get_dying_gasp_times("REMOTE_NEPONU_get_oam_dying_gasp_times", REMOTE_MANAGEMENT);
const Operation set_dying_gasp_times("REMOTE_NEPONU_set_oam_dying_gasp_times", REMOTE_MANAGEMENT);

} // namespace

} // namespace sdk_sim

using namespace sdk_sim;

int16_t REMOTE_NEPONU_get_oam_frame_length_negotiation(int16_t olt_id, int16_t onu_id, uint16_t* length)
{
    return get_remote(get_frame_length, olt_id, onu_id, length,
                      [](Network&, const Onu& onu) { return onu.device.oam_frame_length; });
}

int16_t REMOTE_NEPONU_get_oam_vendor_information(int16_t olt_id, int16_t onu_id, uint32_t* data)
{
    return get_remote(get_vendor_information, olt_id, onu_id, data,
                      [](Network&, const Onu& onu) { return onu.configuration.remote_oam.vendor_information; });
}

int16_t REMOTE_NEPONU_set_oam_vendor_information(int16_t olt_id, int16_t onu_id, uint32_t data)
{
    return set_remote(set_vendor_information, olt_id, onu_id, in(olt_id, onu_id, data), [&](Network&, Olt&, Onu& onu) {
        onu.configuration.remote_oam.vendor_information = data;
        return SUCCESS;
    });
}

int16_t REMOTE_NEPONU_get_slow_protocol_limit(int16_t olt_id, int16_t onu_id, uint8_t* enable)
{
    return get_remote(get_slow_protocol_limit, olt_id, onu_id, enable,
                      [](Network&, const Onu& onu) { return onu.configuration.remote_oam.slow_protocol_limit; });
}

int16_t REMOTE_NEPONU_set_slow_protocol_limit(int16_t olt_id, int16_t onu_id, uint8_t enable)
{
    const auto arguments = in(olt_id, onu_id, enable);
    return set_remote(set_slow_protocol_limit, olt_id, onu_id, arguments, [&](Network&, Olt&, Onu& onu) {
        if (enable > 1) return PARAMETER_ERROR;
        onu.configuration.remote_oam.slow_protocol_limit = enable;
        return SUCCESS;
    });
}

int16_t REMOTE_NEPONU_get_oam_version(int16_t olt_id, int16_t onu_id, int32_t* version)
{
    return get_remote(get_oam_version, olt_id, onu_id, version,
                      [](Network&, const Onu& onu) { return onu.device.oam_version; });
}

int16_t REMOTE_NEPONU_get_oam_dying_gasp_times(int16_t olt_id, int16_t onu_id, uint32_t* times)
{
    return get_remote(get_dying_gasp_times, olt_id, onu_id, times,
                      [](Network&, const Onu& onu) { return onu.configuration.remote_oam.dying_gasp_times; });
}

int16_t REMOTE_NEPONU_set_oam_dying_gasp_times(int16_t olt_id, int16_t onu_id, uint32_t times)
{
    return set_remote(set_dying_gasp_times, olt_id, onu_id, in(olt_id, onu_id, times), [&](Network&, Olt&, Onu& onu) {
        if (times > REMOTE_DYING_GASP_TIMES_MAX) return PARAMETER_ERROR;
        onu.configuration.remote_oam.dying_gasp_times = times;
        return SUCCESS;
    });
}
