// SPDX-License-Identifier: Apache-2.0
// What an OLT keeps of its optics, and how they show in the journal.
#pragma once

#include <array>
#include <cstdint>

#include <epon/sdk/optics.h>

#include "host/sdk_sim/values.h"

namespace sdk_sim {

struct Optics {
    std::int32_t connectivity = OPTICS_SEPARATED_1G_10G;
    std::array<OLT_device_optics, OPTICS_RATE_COUNT> rates; // by enum OpticsRate

    Optics();
};

template <>
inline constexpr bool hides_unchanged_fields<OLT_optics> = true;

template <>
inline constexpr auto record_fields<OLT_optics> =
    std::tuple(record_field("discovery_mode_sync_time", &OLT_optics::discovery_mode_sync_time),
               record_field("normal_mode_sync_time", &OLT_optics::normal_mode_sync_time),
               record_field("xcvr_reset_gate_offset", &OLT_optics::xcvr_reset_gate_offset),
               record_field("xcvr_reset_duration", &OLT_optics::xcvr_reset_duration),
               record_field("xcvr_use_reset", &OLT_optics::xcvr_use_reset),
               record_field("cdr_reset_gate_offset", &OLT_optics::cdr_reset_gate_offset),
               record_field("mac_window_left_shoulder", &OLT_optics::mac_window_left_shoulder),
               record_field("mac_window_right_shoulder", &OLT_optics::mac_window_right_shoulder),
               record_field("cdr_lock_left_shoulder", &OLT_optics::cdr_lock_left_shoulder),
               record_field("cdr_lock_right_shoulder", &OLT_optics::cdr_lock_right_shoulder),
               record_field("xcvr_reset_scheme", &OLT_optics::xcvr_reset_scheme),
               record_field("cdr_reset_scheme", &OLT_optics::cdr_reset_scheme),
               record_field("ecdr_lock_disc_mode", &OLT_optics::ecdr_lock_disc_mode),
               record_field("ecdr_reset_gate_offset", &OLT_optics::ecdr_reset_gate_offset),
               record_field("ecdr_reset_duration", &OLT_optics::ecdr_reset_duration),
               record_field("ecdr_use_reset", &OLT_optics::ecdr_use_reset),
               record_field("ecdr_reset_scheme", &OLT_optics::ecdr_reset_scheme),
               record_field("ecdr_use_lock_window", &OLT_optics::ecdr_use_lock_window),
               record_field("ecdr_discovery_left_shoulder", &OLT_optics::ecdr_discovery_left_shoulder),
               record_field("ecdr_discovery_right_shoulder", &OLT_optics::ecdr_discovery_right_shoulder),
               record_field("ecdr_use_disc_envelop", &OLT_optics::ecdr_use_disc_envelop),
               record_field("ecdr_reset_polarity", &OLT_optics::ecdr_reset_polarity),
               record_field("ecdr_disc_win_polarity", &OLT_optics::ecdr_disc_win_polarity),
               record_field("allocation_offset", &OLT_optics::allocation_offset),
               record_field("laser_on_time", &OLT_optics::laser_on_time),
               record_field("laser_off_time", &OLT_optics::laser_off_time),
               record_field("xcvr_reset_polarity", &OLT_optics::xcvr_reset_polarity),
               record_field("xcvr_sd_rx_polarity", &OLT_optics::xcvr_sd_rx_polarity),
               record_field("pon_tx_disable_line_polarity", &OLT_optics::pon_tx_disable_line_polarity),
               record_field("optics_dead_zone", &OLT_optics::optics_dead_zone),
               record_field("sd_per_rate", &OLT_optics::sd_per_rate),
               record_field("rx_rst_per_rate", &OLT_optics::rx_rst_per_rate),
               record_field("rx_xsbi_mode", &OLT_optics::rx_xsbi_mode),
               record_field("xcvr_user_rate_select", &OLT_optics::xcvr_user_rate_select),
               record_field("pon_opt_rate_sel_left_shoulder", &OLT_optics::pon_opt_rate_sel_left_shoulder),
               record_field("pon_opt_rate_sel_right_shoulder", &OLT_optics::pon_opt_rate_sel_right_shoulder),
               record_field("dead_zone_1g_to_10g", &OLT_optics::dead_zone_1g_to_10g),
               record_field("dead_zone_1g_to_1g", &OLT_optics::dead_zone_1g_to_1g),
               record_field("dead_zone_10g_to_1g", &OLT_optics::dead_zone_10g_to_1g),
               record_field("dead_zone_10g_to_10g", &OLT_optics::dead_zone_10g_to_10g),
               record_field("dead_zone_pre_1g", &OLT_optics::dead_zone_pre_1g),
               record_field("dead_zone_pre_10g", &OLT_optics::dead_zone_pre_10g),
               record_field("cdr_rate_sel_left_shoulder", &OLT_optics::cdr_rate_sel_left_shoulder),
               record_field("cdr_rate_sel_right_shoulder", &OLT_optics::cdr_rate_sel_right_shoulder),
               record_field("rx_lane_per_rate", &OLT_optics::rx_lane_per_rate));

template <>
inline constexpr auto record_fields<OLT_device_optics> =
    std::tuple(record_field("settings", &OLT_device_optics::settings),
               record_field("rx_term_mode", &OLT_device_optics::rx_term_mode),
               record_field("predate_xcvr_reset", &OLT_device_optics::predate_xcvr_reset),
               record_field("start_hunt_on_cdr_lock", &OLT_device_optics::start_hunt_on_cdr_lock));

} // namespace sdk_sim
