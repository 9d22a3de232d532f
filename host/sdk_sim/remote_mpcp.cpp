// SPDX-License-Identifier: Apache-2.0
// How ONUs speak MPCP.
#include "host/sdk_sim/remote_mpcp.h"

#include "host/sdk_sim/remote_operation.h"

namespace sdk_sim {

namespace {

const Operation set_report_format("REMOTE_NEPONU_MPCP_set_report_format", REMOTE_MANAGEMENT);
const Operation get_report_format("REMOTE_NEPONU_MPCP_get_report_format", REMOTE_MANAGEMENT);
const Operation set_standard_mode("REMOTE_NEPONU_MPCP_set_standard_mode", REMOTE_MANAGEMENT);
const Operation get_standard_mode("REMOTE_NEPONU_MPCP_get_standard_mode", REMOTE_MANAGEMENT);

} // namespace

} // namespace sdk_sim

using namespace sdk_sim;

int16_t REMOTE_NEPONU_MPCP_set_report_format(int16_t olt_id, int16_t onu_id, int32_t format)
{
    const auto arguments = in(olt_id, onu_id, format);
    return set_remote(set_report_format, olt_id, onu_id, arguments, [&](Network&, Olt&, Onu& onu) {
        if (format != REMOTE_REPORT_NORMAL && format != REMOTE_REPORT_CTC) return PARAMETER_ERROR;
        if (format == REMOTE_REPORT_CTC && onu.extended_oam == OamAnswer::None) return BAD_CONFIGURATION;
        onu.configuration.remote_mpcp.report_format = format;
        return SUCCESS;
    });
}

int16_t REMOTE_NEPONU_MPCP_get_report_format(int16_t olt_id, int16_t onu_id, int32_t* format)
{
    return get_remote(get_report_format, olt_id, onu_id, format,
                      [](Network&, Onu& onu) { return onu.configuration.remote_mpcp.report_format; });
}

int16_t REMOTE_NEPONU_MPCP_set_standard_mode(int16_t olt_id, int16_t onu_id, int32_t mode)
{
    return set_remote(set_standard_mode, olt_id, onu_id, in(olt_id, onu_id, mode), [&](Network&, Olt&, Onu& onu) {
        if (mode != REMOTE_MPCP_LEGACY && mode != REMOTE_MPCP_STANDARD) return PARAMETER_ERROR;
        if (mode == REMOTE_MPCP_LEGACY && onu.rate != OnuRate::Rate1G) return BAD_CONFIGURATION;
        onu.configuration.remote_mpcp.standard_mode = mode;
        return SUCCESS;
    });
}

int16_t REMOTE_NEPONU_MPCP_get_standard_mode(int16_t olt_id, int16_t onu_id, int32_t* mode)
{
    return get_remote(get_standard_mode, olt_id, onu_id, mode,
                      [](Network&, Onu& onu) { return onu.configuration.remote_mpcp.standard_mode; });
}
