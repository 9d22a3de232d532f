// SPDX-License-Identifier: Apache-2.0
#include "olt/optics_fields.h"

#include <cstddef>
#include <iterator>

namespace epon {

namespace {

constexpr Word polarity_words[] = {{"low", OPTICS_ACTIVE_LOW}, {"high", OPTICS_ACTIVE_HIGH}};
constexpr WordTable polarity = {nullptr, polarity_words};

constexpr Word xcvr_reset_scheme_words[] = {{"sd-based", OPTICS_RESET_SD_BASED},
                                            {"non-sd-based", OPTICS_RESET_NON_SD_BASED},
                                            {"single", OPTICS_RESET_SINGLE},
                                            {"sd-based-type-2", OPTICS_RESET_SD_BASED_TYPE_2}};
constexpr WordTable xcvr_reset_scheme = {nullptr, xcvr_reset_scheme_words};
constexpr WordTable reset_scheme = {nullptr, {xcvr_reset_scheme_words, 3}}; // a CDR has no second type

constexpr Word per_rate_words[] = {{"unified", OPTICS_UNIFIED}, {"separate", OPTICS_SEPARATE}};
constexpr WordTable per_rate = {nullptr, per_rate_words};

constexpr Word lock_disc_mode_words[] = {
    {"stuck-at-0", OPTICS_STUCK_AT_0}, {"stuck-at-1", OPTICS_STUCK_AT_1}, {"stuck-at-2", OPTICS_STUCK_AT_2}};
constexpr WordTable lock_disc_mode = {nullptr, lock_disc_mode_words};

constexpr Word rx_xsbi_mode_words[] = {{"apply", OPTICS_XSBI_APPLY}, {"dont-apply", OPTICS_XSBI_DONT_APPLY}};
constexpr WordTable rx_xsbi_mode = {nullptr, rx_xsbi_mode_words};

constexpr OpticsField number(const char* parameter, const char* label, size_t offset)
{
    return {parameter, {label, FieldFormat::Int32, static_cast<uint16_t>(offset)}};
}

constexpr OpticsField word(const char* parameter, const char* label, size_t offset, const WordTable& words)
{
    return {parameter, {label, FieldFormat::Int32Word, static_cast<uint16_t>(offset), &words}};
}

// What both rates call by the same name.
constexpr OpticsField normal_mode_sync_time_field =
    number("NORMAL_MODE_SYNC_TIME", "normal mode sync time", offsetof(OLT_optics, normal_mode_sync_time));
constexpr OpticsField xcvr_reset_duration_field =
    number("XCVR_RESET_DURATION", "xcvr reset duration", offsetof(OLT_optics, xcvr_reset_duration));
constexpr OpticsField xcvr_use_reset_field =
    word("xcvr_use_reset", "xcvr use reset", offsetof(OLT_optics, xcvr_use_reset), true_false);
constexpr OpticsField cdr_reset_gate_offset_field =
    number("CDR_RESET_GATE_OFFSET", "cdr reset gate offset", offsetof(OLT_optics, cdr_reset_gate_offset));
constexpr OpticsField xcvr_reset_scheme_field =
    word("xcvr_reset_scheme", "xcvr reset scheme", offsetof(OLT_optics, xcvr_reset_scheme), xcvr_reset_scheme);
constexpr OpticsField cdr_reset_scheme_field =
    word("cdr_reset_scheme", "cdr reset scheme", offsetof(OLT_optics, cdr_reset_scheme), reset_scheme);
constexpr OpticsField ecdr_lock_disc_mode_field =
    word("ecdr_lock_disc_mode", "ecdr lock disc mode", offsetof(OLT_optics, ecdr_lock_disc_mode), lock_disc_mode);
constexpr OpticsField ecdr_reset_gate_offset_field =
    number("ECDR_RESET_GATE_OFFSET", "ecdr reset gate offset", offsetof(OLT_optics, ecdr_reset_gate_offset));
constexpr OpticsField ecdr_reset_duration_field =
    number("ECDR_RESET_DURATION", "ecdr reset duration", offsetof(OLT_optics, ecdr_reset_duration));
constexpr OpticsField ecdr_use_reset_field =
    word("ecdr_use_reset", "ecdr use reset", offsetof(OLT_optics, ecdr_use_reset), true_false);
constexpr OpticsField ecdr_reset_scheme_field =
    word("ecdr_reset_scheme", "ecdr reset scheme", offsetof(OLT_optics, ecdr_reset_scheme), reset_scheme);
constexpr OpticsField ecdr_use_lock_window_field =
    word("ecdr_use_lock_window", "ecdr use lock window", offsetof(OLT_optics, ecdr_use_lock_window), true_false);
constexpr OpticsField ecdr_discovery_left_shoulder_field = number(
    "ECDR_DISCOVERY_LEFT_SHOULDER", "ecdr discovery left shoulder", offsetof(OLT_optics, ecdr_discovery_left_shoulder));
constexpr OpticsField ecdr_discovery_right_shoulder_field =
    number("ECDR_DISCOVERY_RIGHT_SHOULDER", "ecdr discovery right shoulder",
           offsetof(OLT_optics, ecdr_discovery_right_shoulder));
constexpr OpticsField ecdr_use_disc_envelop_field =
    word("ecdr_use_disc_envelop", "ecdr use disc envelop", offsetof(OLT_optics, ecdr_use_disc_envelop), true_false);
constexpr OpticsField ecdr_reset_polarity_field =
    word("ecdr_reset_polarity", "ecdr reset polarity", offsetof(OLT_optics, ecdr_reset_polarity), polarity);
constexpr OpticsField ecdr_disc_win_polarity_field =
    word("ecdr_disc_win_polarity", "ecdr disc win polarity", offsetof(OLT_optics, ecdr_disc_win_polarity), polarity);

constexpr OpticsField fields_1g[] = {
    number("DISCOVERY_MODE_SYNC_TIME", "discovery mode sync time", offsetof(OLT_optics, discovery_mode_sync_time)),
    normal_mode_sync_time_field,
    number("ALLOCATION_OFFSET", "allocation offset", offsetof(OLT_optics, allocation_offset)),
    number("LASER_ON_TIME", "laser on time", offsetof(OLT_optics, laser_on_time)),
    number("LASER_OFF_TIME", "laser off time", offsetof(OLT_optics, laser_off_time)),
    number("XCVR_RESET_OFFSET", "xcvr reset gate offset", offsetof(OLT_optics, xcvr_reset_gate_offset)),
    xcvr_reset_duration_field,
    word("xcvr_reset_polarity", "xcvr reset polarity", offsetof(OLT_optics, xcvr_reset_polarity), polarity),
    word("xcvr_sd_rx_polarity", "xcvr sd rx polarity", offsetof(OLT_optics, xcvr_sd_rx_polarity), polarity),
    xcvr_use_reset_field,
    word("pon_tx_disable_line_polarity", "pon tx disable line polarity",
         offsetof(OLT_optics, pon_tx_disable_line_polarity), polarity),
    cdr_reset_gate_offset_field,
    number("OPTIC_DEAD_ZONE", "optics dead zone", offsetof(OLT_optics, optics_dead_zone)),
    number("MAC_LEFT_SHOULDER", "mac window left shoulder", offsetof(OLT_optics, mac_window_left_shoulder)),
    number("MAC_RIGHT_SHOULDER", "mac window right shoulder", offsetof(OLT_optics, mac_window_right_shoulder)),
    number("CDR_LOCK_LEFT_SHOULDER", "cdr lock left shoulder", offsetof(OLT_optics, cdr_lock_left_shoulder)),
    number("CDR_LOCK_RIGHT_SHOULDER", "cdr lock right shoulder", offsetof(OLT_optics, cdr_lock_right_shoulder)),
    xcvr_reset_scheme_field,
    cdr_reset_scheme_field,
    word("sd_per_rate", "sd per rate", offsetof(OLT_optics, sd_per_rate), per_rate),
    ecdr_lock_disc_mode_field,
    ecdr_reset_gate_offset_field,
    ecdr_reset_duration_field,
    ecdr_use_reset_field,
    ecdr_reset_scheme_field,
    ecdr_use_lock_window_field,
    ecdr_discovery_left_shoulder_field,
    ecdr_discovery_right_shoulder_field,
    ecdr_use_disc_envelop_field,
    ecdr_reset_polarity_field,
    ecdr_disc_win_polarity_field,
};
static_assert(std::size(fields_1g) == MIXED_1G_FIELD_COUNT);

// "soulder" is spelt so on purpose. The 10G to 10G dead zone has the keyword of the one before it.
constexpr OpticsField fields_10g[] = {
    cdr_reset_gate_offset_field,
    ecdr_reset_gate_offset_field,
    ecdr_reset_duration_field,
    number("XCVR_RESET_GATE_OFFSET", "xcvr reset gate offset", offsetof(OLT_optics, xcvr_reset_gate_offset)),
    xcvr_reset_duration_field,
    xcvr_use_reset_field,
    ecdr_use_reset_field,
    cdr_reset_scheme_field,
    ecdr_reset_scheme_field,
    xcvr_reset_scheme_field,
    number("CDR_LOCK_WINDOW_LEFT_SHOULDER", "cdr lock window left shoulder",
           offsetof(OLT_optics, cdr_lock_left_shoulder)),
    number("CDR_LOCK_WINDOW_RIGHT_SHOULDER", "cdr lock window right shoulder",
           offsetof(OLT_optics, cdr_lock_right_shoulder)),
    word("rx_rst_per_rate", "rx rst per rate", offsetof(OLT_optics, rx_rst_per_rate), per_rate),
    word("rx_xsbi_mode", "rx xsbi mode", offsetof(OLT_optics, rx_xsbi_mode), rx_xsbi_mode),
    ecdr_use_lock_window_field,
    ecdr_lock_disc_mode_field,
    ecdr_discovery_left_shoulder_field,
    ecdr_discovery_right_shoulder_field,
    ecdr_use_disc_envelop_field,
    ecdr_reset_polarity_field,
    ecdr_disc_win_polarity_field,
    normal_mode_sync_time_field,
    number("DISC_MODE_SYNC_TIME", "disc mode sync time", offsetof(OLT_optics, discovery_mode_sync_time)),
    number("MAC_ACTIVE_WINDOW_LEFT_SHOULDER", "mac active window left shoulder",
           offsetof(OLT_optics, mac_window_left_shoulder)),
    number("MAC_ACTIVE_WINDOW_RIGHT_SHOULDER", "mac active window right shoulder",
           offsetof(OLT_optics, mac_window_right_shoulder)),
    number("XCVR_USER_RATE_SELECT", "xcvr user rate select", offsetof(OLT_optics, xcvr_user_rate_select)),
    number("PON_OPT_RATE_SEL_LEFT_SHOULDER", "pon opt rate sel left soulder",
           offsetof(OLT_optics, pon_opt_rate_sel_left_shoulder)),
    number("PON_OPT_RATE_SEL_RIGHT_SHOULDER", "pon opt rate sel right soulder",
           offsetof(OLT_optics, pon_opt_rate_sel_right_shoulder)),
    number("DEAD_ZONE_1G_TO_10G", "dead zone 1g to 10g", offsetof(OLT_optics, dead_zone_1g_to_10g)),
    number("DEAD_ZONE_1G_TO_1G", "dead zone 1g to 1g", offsetof(OLT_optics, dead_zone_1g_to_1g)),
    number("DEAD_ZONE_10G_TO_10G", "dead zone 10g to 1g", offsetof(OLT_optics, dead_zone_10g_to_1g)),
    number("DEAD_ZONE_10G_TO_10G", "dead zone 10g to 10g", offsetof(OLT_optics, dead_zone_10g_to_10g)),
    number("DEAD_ZONE_PRE_1G", "dead zone pre 1g", offsetof(OLT_optics, dead_zone_pre_1g)),
    number("DEAD_ZONE_PRE_10G", "dead zone pre 10g", offsetof(OLT_optics, dead_zone_pre_10g)),
    number("CDR_RATE_SEL_LEFT_SHOULDER", "cdr rate sel left shoulder",
           offsetof(OLT_optics, cdr_rate_sel_left_shoulder)),
    number("CDR_RATE_SEL_RIGHT_SHOULDER", "cdr rate sel right shoulder",
           offsetof(OLT_optics, cdr_rate_sel_right_shoulder)),
    word("rx_lane_per_rate", "rx lane per rate", offsetof(OLT_optics, rx_lane_per_rate), per_rate),
};
static_assert(std::size(fields_10g) == MIXED_10G_FIELD_COUNT);

} // namespace

std::span<const OpticsField> optics_fields_of(int32_t rate)
{
    if (rate == OPTICS_10G) return fields_10g;
    return fields_1g;
}

} // namespace epon
