// SPDX-License-Identifier: Apache-2.0
// Optics of an OLT. The settings of each rate are stored as they are set; a module brings its own.
#include "host/sdk_sim/optics.h"

#include <cstring>

#include "host/sdk_sim/gate.h"

namespace sdk_sim {

namespace {

constexpr std::int16_t NOT_SUPPORTED = -1005; // "not supported in current HW version"
constexpr std::int32_t TIME_LIMIT = 4095;
constexpr std::int32_t SHORT_TIME_LIMIT = 255;
constexpr std::int32_t NOT_CHANGED = -1;

enum Rates { BOTH, ONLY_1G, ONLY_10G };

struct Setting {
    std::int32_t OLT_optics::*member;
    std::int32_t max; // the lowest value is 0
    std::int32_t usual;
    Rates rates;
};

constexpr Setting settings[] = {
    {&OLT_optics::discovery_mode_sync_time, TIME_LIMIT, 64, BOTH},
    {&OLT_optics::normal_mode_sync_time, TIME_LIMIT, 50, BOTH},
    {&OLT_optics::xcvr_reset_gate_offset, TIME_LIMIT, 0, BOTH},
    {&OLT_optics::xcvr_reset_duration, TIME_LIMIT, 4, BOTH},
    {&OLT_optics::xcvr_use_reset, 1, 1, BOTH},
    {&OLT_optics::cdr_reset_gate_offset, TIME_LIMIT, 0, BOTH},
    {&OLT_optics::mac_window_left_shoulder, SHORT_TIME_LIMIT, 8, BOTH},
    {&OLT_optics::mac_window_right_shoulder, SHORT_TIME_LIMIT, 8, BOTH},
    {&OLT_optics::cdr_lock_left_shoulder, SHORT_TIME_LIMIT, 6, BOTH},
    {&OLT_optics::cdr_lock_right_shoulder, SHORT_TIME_LIMIT, 6, BOTH},
    {&OLT_optics::xcvr_reset_scheme, 3, 0, BOTH},
    {&OLT_optics::cdr_reset_scheme, 2, 0, BOTH},
    {&OLT_optics::ecdr_lock_disc_mode, 2, 0, BOTH},
    {&OLT_optics::ecdr_reset_gate_offset, TIME_LIMIT, 0, BOTH},
    {&OLT_optics::ecdr_reset_duration, TIME_LIMIT, 4, BOTH},
    {&OLT_optics::ecdr_use_reset, 1, 1, BOTH},
    {&OLT_optics::ecdr_reset_scheme, 2, 0, BOTH},
    {&OLT_optics::ecdr_use_lock_window, 1, 1, BOTH},
    {&OLT_optics::ecdr_discovery_left_shoulder, SHORT_TIME_LIMIT, 10, BOTH},
    {&OLT_optics::ecdr_discovery_right_shoulder, SHORT_TIME_LIMIT, 10, BOTH},
    {&OLT_optics::ecdr_use_disc_envelop, 1, 0, BOTH},
    {&OLT_optics::ecdr_reset_polarity, 1, 1, BOTH},
    {&OLT_optics::ecdr_disc_win_polarity, 1, 1, BOTH},
    {&OLT_optics::allocation_offset, TIME_LIMIT, 24, ONLY_1G},
    {&OLT_optics::laser_on_time, SHORT_TIME_LIMIT, 32, ONLY_1G},
    {&OLT_optics::laser_off_time, SHORT_TIME_LIMIT, 32, ONLY_1G},
    {&OLT_optics::xcvr_reset_polarity, 1, 1, ONLY_1G},
    {&OLT_optics::xcvr_sd_rx_polarity, 1, 1, ONLY_1G},
    {&OLT_optics::pon_tx_disable_line_polarity, 1, 1, ONLY_1G},
    {&OLT_optics::optics_dead_zone, TIME_LIMIT, 16, ONLY_1G},
    {&OLT_optics::sd_per_rate, 1, 1, ONLY_1G},
    {&OLT_optics::rx_rst_per_rate, 1, 1, ONLY_10G},
    {&OLT_optics::rx_xsbi_mode, 1, 0, ONLY_10G},
    {&OLT_optics::xcvr_user_rate_select, 1, 0, ONLY_10G},
    {&OLT_optics::pon_opt_rate_sel_left_shoulder, SHORT_TIME_LIMIT, 12, ONLY_10G},
    {&OLT_optics::pon_opt_rate_sel_right_shoulder, SHORT_TIME_LIMIT, 12, ONLY_10G},
    {&OLT_optics::dead_zone_1g_to_10g, TIME_LIMIT, 24, ONLY_10G},
    {&OLT_optics::dead_zone_1g_to_1g, TIME_LIMIT, 16, ONLY_10G},
    {&OLT_optics::dead_zone_10g_to_1g, TIME_LIMIT, 24, ONLY_10G},
    {&OLT_optics::dead_zone_10g_to_10g, TIME_LIMIT, 16, ONLY_10G},
    {&OLT_optics::dead_zone_pre_1g, TIME_LIMIT, 32, ONLY_10G},
    {&OLT_optics::dead_zone_pre_10g, TIME_LIMIT, 32, ONLY_10G},
    {&OLT_optics::cdr_rate_sel_left_shoulder, SHORT_TIME_LIMIT, 12, ONLY_10G},
    {&OLT_optics::cdr_rate_sel_right_shoulder, SHORT_TIME_LIMIT, 12, ONLY_10G},
    {&OLT_optics::rx_lane_per_rate, 1, 1, ONLY_10G},
};

constexpr std::int32_t single_limits[] = {OPTICS_RX_TERM_NOT_RELEVANT, 256, 1}; // by enum OpticsParameter
constexpr std::int32_t OLT_device_optics::*single_members[] = {&OLT_device_optics::rx_term_mode,
                                                               &OLT_device_optics::predate_xcvr_reset,
                                                               &OLT_device_optics::start_hunt_on_cdr_lock};

bool has(std::int32_t rate, const Setting& setting)
{
    return setting.rates == BOTH || setting.rates == (rate == OPTICS_10G ? ONLY_10G : ONLY_1G);
}

// What a module needs: the usual settings, but for the times of its own receiver.
struct Module {
    std::int32_t sync_time;
    std::int32_t reset_duration;
    std::int32_t dead_zone;
};
constexpr Module modules[OPTICS_MODULE_COUNT] = {{50, 4, 16}, {50, 4, 16}, {44, 3, 14},
                                                 {38, 2, 12}, {62, 6, 20}, {56, 5, 18}};

OLT_device_optics optics_of(std::int32_t rate, const Module& module)
{
    OLT_device_optics optics{};
    std::memset(&optics.settings, 0xFF, sizeof(optics.settings));
    for (const Setting& setting : settings)
        if (has(rate, setting)) optics.settings.*setting.member = setting.usual;
    optics.settings.normal_mode_sync_time = module.sync_time;
    optics.settings.xcvr_reset_duration = module.reset_duration;
    if (rate == OPTICS_1G) optics.settings.optics_dead_zone = module.dead_zone;
    return optics;
}

// All settings or none.
std::int16_t update(std::int32_t rate, const OLT_optics& changes, OLT_optics* optics)
{
    OLT_optics updated = *optics;
    for (const Setting& setting : settings) {
        const std::int32_t value = changes.*setting.member;
        if (value == NOT_CHANGED) continue;
        if (value < 0 || value > setting.max || !has(rate, setting)) return PARAMETER_ERROR;
        updated.*setting.member = value;
    }
    *optics = updated;
    return SUCCESS;
}

// The code of a rate that the OLT does not have, or of no rate at all.
std::int16_t check_rate(const Olt& olt, std::int32_t rate)
{
    if (rate != OPTICS_1G && rate != OPTICS_10G) return PARAMETER_ERROR;
    const bool is_1g_only = olt.configuration.optics.connectivity == OPTICS_DUAL_1G;
    return rate == OPTICS_10G && is_1g_only ? NOT_SUPPORTED : SUCCESS;
}

const Operation is_olt_support_dual("Is_olt_support_dual", GENERAL);
const Operation set_olt_device_optics("NEP_set_olt_device_optics", GENERAL);
const Operation get_olt_device_optics("NEP_get_olt_device_optics", GENERAL);
const Operation set_optics_single_param("NEP_set_optics_single_param", GENERAL);
const Operation set_by_module_and_connectivity("NEP_set_olt_device_optics_by_module_and_connectivity", GENERAL);

} // namespace

Optics::Optics()
    : rates{optics_of(OPTICS_1G, modules[OPTICS_MODULE_AUTO]), optics_of(OPTICS_10G, modules[OPTICS_MODULE_AUTO])}
{
}

} // namespace sdk_sim

using namespace sdk_sim;

// Receivers of their own for each rate can do without the settings of mixed rates.
int32_t Is_olt_support_dual(int16_t olt_id)
{
    return ask(is_olt_support_dual, in(olt_id), out(), [&](Network& network) {
        const Olt* olt = present_olt(network, olt_id);
        return olt != nullptr && olt->configuration.optics.connectivity <= OPTICS_SEPARATED_1G_10G;
    });
}

int16_t NEP_set_olt_device_optics(int16_t olt_id, int32_t rate, const OLT_optics* optics)
{
    return on_olt(set_olt_device_optics, olt_id, in(olt_id, rate, optics), out(), [&](Olt& olt) {
        const std::int16_t code = check_rate(olt, rate);
        return code != SUCCESS ? code : update(rate, *optics, &olt.configuration.optics.rates[rate].settings);
    });
}

int16_t NEP_get_olt_device_optics(int16_t olt_id, int32_t rate, OLT_device_optics* optics)
{
    return on_olt(get_olt_device_optics, olt_id, in(olt_id, rate), out(optics), [&](Olt& olt) {
        const std::int16_t code = check_rate(olt, rate);
        if (code == SUCCESS) *optics = olt.configuration.optics.rates[rate];
        return code;
    });
}

int16_t NEP_set_optics_single_param(int16_t olt_id, int32_t rate, int32_t parameter, int32_t value)
{
    return on_olt(set_optics_single_param, olt_id, in(olt_id, rate, parameter, value), out(), [&](Olt& olt) {
        if (parameter < OPTICS_RX_TERM_MODE || parameter > OPTICS_START_HUNT_ON_CDR_LOCK || value < 0 ||
            value > single_limits[parameter])
            return PARAMETER_ERROR;
        const std::int16_t code = check_rate(olt, rate);
        if (code == SUCCESS) olt.configuration.optics.rates[rate].*single_members[parameter] = value;
        return code;
    });
}

int16_t NEP_set_olt_device_optics_by_module_and_connectivity(int16_t olt_id, int32_t connectivity, int32_t module)
{
    return on_olt(set_by_module_and_connectivity, olt_id, in(olt_id, connectivity, module), out(), [&](Olt& olt) {
        if (connectivity < 0 || connectivity >= OPTICS_CONNECTIVITY_COUNT || module < 0 ||
            module >= OPTICS_MODULE_COUNT)
            return PARAMETER_ERROR;
        Optics& optics = olt.configuration.optics;
        optics.connectivity = connectivity;
        for (const std::int32_t rate : {OPTICS_1G, OPTICS_10G})
            optics.rates[rate] = optics_of(rate, modules[module]);
        return SUCCESS;
    });
}
