// SPDX-License-Identifier: Apache-2.0
// The settings of optics as an operator types and sees them, for the tests.
#pragma once

#include <span>

#include <epon/sdk.h>

struct OpticsSetting {
    const char* keyword;
    const char* words; // of an alternative, in the order of their codes; null: a number
    const char* parameter;
    const char* label;
    const char* field; // in the journal
    int max;
};

// The first 19 are those of the dual form.
inline constexpr OpticsSetting settings_1g[] = {
    {"discovery-mode-sync-time", nullptr, "DISCOVERY_MODE_SYNC_TIME", "discovery mode sync time",
     "discovery_mode_sync_time", 4095},
    {"normal-mode-sync-time", nullptr, "NORMAL_MODE_SYNC_TIME", "normal mode sync time", "normal_mode_sync_time", 4095},
    {"allocation-offset", nullptr, "ALLOCATION_OFFSET", "allocation offset", "allocation_offset", 4095},
    {"laser-on-time", nullptr, "LASER_ON_TIME", "laser on time", "laser_on_time", 255},
    {"laser-off-time", nullptr, "LASER_OFF_TIME", "laser off time", "laser_off_time", 255},
    {"xcvr-reset-gate-offset", nullptr, "XCVR_RESET_OFFSET", "xcvr reset gate offset", "xcvr_reset_gate_offset", 4095},
    {"xcvr-reset-duration", nullptr, "XCVR_RESET_DURATION", "xcvr reset duration", "xcvr_reset_duration", 4095},
    {"xcvr-reset-polarity", "low|high", "xcvr_reset_polarity", "xcvr reset polarity", "xcvr_reset_polarity", 1},
    {"xcvr-sd-rx-polarity", "low|high", "xcvr_sd_rx_polarity", "xcvr sd rx polarity", "xcvr_sd_rx_polarity", 1},
    {"xcvr-use-reset", "true|false", "xcvr_use_reset", "xcvr use reset", "xcvr_use_reset", 1},
    {"pon-tx-disable-line-polarity", "low|high", "pon_tx_disable_line_polarity", "pon tx disable line polarity",
     "pon_tx_disable_line_polarity", 1},
    {"cdr-reset-gate-offset", nullptr, "CDR_RESET_GATE_OFFSET", "cdr reset gate offset", "cdr_reset_gate_offset", 4095},
    {"optics-dead-zone", nullptr, "OPTIC_DEAD_ZONE", "optics dead zone", "optics_dead_zone", 4095},
    {"mac-window-left-shoulder", nullptr, "MAC_LEFT_SHOULDER", "mac window left shoulder", "mac_window_left_shoulder",
     255},
    {"mac-window-right-shoulder", nullptr, "MAC_RIGHT_SHOULDER", "mac window right shoulder",
     "mac_window_right_shoulder", 255},
    {"cdr-lock-left-shoulder", nullptr, "CDR_LOCK_LEFT_SHOULDER", "cdr lock left shoulder", "cdr_lock_left_shoulder",
     255},
    {"cdr-lock-right-shoulder", nullptr, "CDR_LOCK_RIGHT_SHOULDER", "cdr lock right shoulder",
     "cdr_lock_right_shoulder", 255},
    {"xcvr-reset-scheme", "sd-based|non-sd-based|single|sd-based-type-2", "xcvr_reset_scheme", "xcvr reset scheme",
     "xcvr_reset_scheme", 3},
    {"cdr-reset-scheme", "sd-based|non-sd-based|single", "cdr_reset_scheme", "cdr reset scheme", "cdr_reset_scheme", 2},
    {"sd-per-rate", "unified|separate", "sd_per_rate", "sd per rate", "sd_per_rate", 1},
    {"ecdr-lock-disc-mode", "stuck-at-0|stuck-at-1|stuck-at-2", "ecdr_lock_disc_mode", "ecdr lock disc mode",
     "ecdr_lock_disc_mode", 2},
    {"ecdr-reset-gate-offset", nullptr, "ECDR_RESET_GATE_OFFSET", "ecdr reset gate offset", "ecdr_reset_gate_offset",
     4095},
    {"ecdr-reset-duration", nullptr, "ECDR_RESET_DURATION", "ecdr reset duration", "ecdr_reset_duration", 4095},
    {"ecdr-use-reset", "true|false", "ecdr_use_reset", "ecdr use reset", "ecdr_use_reset", 1},
    {"ecdr-reset-scheme", "sd-based|non-sd-based|single", "ecdr_reset_scheme", "ecdr reset scheme", "ecdr_reset_scheme",
     2},
    {"ecdr-use-lock-window", "true|false", "ecdr_use_lock_window", "ecdr use lock window", "ecdr_use_lock_window", 1},
    {"ecdr-discovery-left-shoulder", nullptr, "ECDR_DISCOVERY_LEFT_SHOULDER", "ecdr discovery left shoulder",
     "ecdr_discovery_left_shoulder", 255},
    {"ecdr-discovery-right-shoulder", nullptr, "ECDR_DISCOVERY_RIGHT_SHOULDER", "ecdr discovery right shoulder",
     "ecdr_discovery_right_shoulder", 255},
    {"ecdr-use-disc-envelop", "true|false", "ecdr_use_disc_envelop", "ecdr use disc envelop", "ecdr_use_disc_envelop",
     1},
    {"ecdr-reset-polarity", "low|high", "ecdr_reset_polarity", "ecdr reset polarity", "ecdr_reset_polarity", 1},
    {"ecdr-disc-win-polarity", "low|high", "ecdr_disc_win_polarity", "ecdr disc win polarity", "ecdr_disc_win_polarity",
     1},
};
inline constexpr OpticsSetting settings_10g[] = {
    {"cdr-reset-gate-offset", nullptr, "CDR_RESET_GATE_OFFSET", "cdr reset gate offset", "cdr_reset_gate_offset", 4095},
    {"ecdr-reset-gate-offset", nullptr, "ECDR_RESET_GATE_OFFSET", "ecdr reset gate offset", "ecdr_reset_gate_offset",
     4095},
    {"ecdr-reset-duration", nullptr, "ECDR_RESET_DURATION", "ecdr reset duration", "ecdr_reset_duration", 4095},
    {"xcvr-reset-gate-offset", nullptr, "XCVR_RESET_GATE_OFFSET", "xcvr reset gate offset", "xcvr_reset_gate_offset",
     4095},
    {"xcvr-reset-duration", nullptr, "XCVR_RESET_DURATION", "xcvr reset duration", "xcvr_reset_duration", 4095},
    {"xcvr-use-reset", "true|false", "xcvr_use_reset", "xcvr use reset", "xcvr_use_reset", 1},
    {"ecdr-use-reset", "true|false", "ecdr_use_reset", "ecdr use reset", "ecdr_use_reset", 1},
    {"cdr-reset-scheme", "sd-based|non-sd-based|single", "cdr_reset_scheme", "cdr reset scheme", "cdr_reset_scheme", 2},
    {"ecdr-reset-scheme", "sd-based|non-sd-based|single", "ecdr_reset_scheme", "ecdr reset scheme", "ecdr_reset_scheme",
     2},
    {"xcvr-reset-scheme", "sd-based|non-sd-based|single|sd-based-type-2", "xcvr_reset_scheme", "xcvr reset scheme",
     "xcvr_reset_scheme", 3},
    {"cdr-lock-window-left-shoulder", nullptr, "CDR_LOCK_WINDOW_LEFT_SHOULDER", "cdr lock window left shoulder",
     "cdr_lock_left_shoulder", 255},
    {"cdr-lock-window-right-shoulder", nullptr, "CDR_LOCK_WINDOW_RIGHT_SHOULDER", "cdr lock window right shoulder",
     "cdr_lock_right_shoulder", 255},
    {"rx-rst-per-rate", "unified|separate", "rx_rst_per_rate", "rx rst per rate", "rx_rst_per_rate", 1},
    {"rx-xsbi-mode", "apply|dont-apply", "rx_xsbi_mode", "rx xsbi mode", "rx_xsbi_mode", 1},
    {"ecdr-use-lock-window", "true|false", "ecdr_use_lock_window", "ecdr use lock window", "ecdr_use_lock_window", 1},
    {"ecdr-lock-disc-mode", "stuck-at-0|stuck-at-1|stuck-at-2", "ecdr_lock_disc_mode", "ecdr lock disc mode",
     "ecdr_lock_disc_mode", 2},
    {"ecdr-discovery-left-shoulder", nullptr, "ECDR_DISCOVERY_LEFT_SHOULDER", "ecdr discovery left shoulder",
     "ecdr_discovery_left_shoulder", 255},
    {"ecdr-discovery-right-shoulder", nullptr, "ECDR_DISCOVERY_RIGHT_SHOULDER", "ecdr discovery right shoulder",
     "ecdr_discovery_right_shoulder", 255},
    {"ecdr-use-disc-envelop", "true|false", "ecdr_use_disc_envelop", "ecdr use disc envelop", "ecdr_use_disc_envelop",
     1},
    {"ecdr-reset-polarity", "low|high", "ecdr_reset_polarity", "ecdr reset polarity", "ecdr_reset_polarity", 1},
    {"ecdr-disc-win-polarity", "low|high", "ecdr_disc_win_polarity", "ecdr disc win polarity", "ecdr_disc_win_polarity",
     1},
    {"normal-mode-sync-time", nullptr, "NORMAL_MODE_SYNC_TIME", "normal mode sync time", "normal_mode_sync_time", 4095},
    {"disc-mode-sync-time", nullptr, "DISC_MODE_SYNC_TIME", "disc mode sync time", "discovery_mode_sync_time", 4095},
    {"mac-active-window-left-shoulder", nullptr, "MAC_ACTIVE_WINDOW_LEFT_SHOULDER", "mac active window left shoulder",
     "mac_window_left_shoulder", 255},
    {"mac-active-window-right-shoulder", nullptr, "MAC_ACTIVE_WINDOW_RIGHT_SHOULDER",
     "mac active window right shoulder", "mac_window_right_shoulder", 255},
    {"xcvr-user-rate-select", nullptr, "XCVR_USER_RATE_SELECT", "xcvr user rate select", "xcvr_user_rate_select", 1},
    {"pon-opt-rate-sel-left-soulder", nullptr, "PON_OPT_RATE_SEL_LEFT_SHOULDER", "pon opt rate sel left soulder",
     "pon_opt_rate_sel_left_shoulder", 255},
    {"pon-opt-rate-sel-right-soulder", nullptr, "PON_OPT_RATE_SEL_RIGHT_SHOULDER", "pon opt rate sel right soulder",
     "pon_opt_rate_sel_right_shoulder", 255},
    {"dead-zone-1G-to-10G", nullptr, "DEAD_ZONE_1G_TO_10G", "dead zone 1g to 10g", "dead_zone_1g_to_10g", 4095},
    {"dead-zone-1G-to-1G", nullptr, "DEAD_ZONE_1G_TO_1G", "dead zone 1g to 1g", "dead_zone_1g_to_1g", 4095},
    {"dead-zone-10G-to-1G", nullptr, "DEAD_ZONE_10G_TO_10G", "dead zone 10g to 1g", "dead_zone_10g_to_1g", 4095},
    {"dead-zone-10G-to-1G", nullptr, "DEAD_ZONE_10G_TO_10G", "dead zone 10g to 10g", "dead_zone_10g_to_10g", 4095},
    {"dead-zone-pre-1G", nullptr, "DEAD_ZONE_PRE_1G", "dead zone pre 1g", "dead_zone_pre_1g", 4095},
    {"dead-zone-pre-10G", nullptr, "DEAD_ZONE_PRE_10G", "dead zone pre 10g", "dead_zone_pre_10g", 4095},
    {"cdr-rate-sel-left-shoulder", nullptr, "CDR_RATE_SEL_LEFT_SHOULDER", "cdr rate sel left shoulder",
     "cdr_rate_sel_left_shoulder", 255},
    {"cdr-rate-sel-right-shoulder", nullptr, "CDR_RATE_SEL_RIGHT_SHOULDER", "cdr rate sel right shoulder",
     "cdr_rate_sel_right_shoulder", 255},
    {"rx-lane-per-rate", "unified|separate", "rx_lane_per_rate", "rx lane per rate", "rx_lane_per_rate", 1},
};

struct OpticsForm {
    const char* name;
    std::span<const OpticsSetting> settings;
    int rate;
};
inline const OpticsForm forms[] = {{"dual-1g", std::span(settings_1g).first(19), OPTICS_1G},
                                   {"mixed-1g", settings_1g, OPTICS_1G},
                                   {"mixed-10g", settings_10g, OPTICS_10G}};
inline constexpr const char* rate_words[] = {"1g", "10g"};
