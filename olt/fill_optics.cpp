// SPDX-License-Identifier: Apache-2.0
// Filling the settings of optics: a line names them all, and "set olt ... optics" applies them to one OLT after
// another.
#include "olt/fill_optics.h"

#include <cstddef>
#include <cstring>

#include "CLI_GENERAL/command.h"
#include "olt/optics_fields.h"

using namespace epon;

namespace {

constinit FilledOptics filled[OPTICS_RATE_COUNT] = {};

bool read_field(vty* session, const char* text, const OpticsField& field, int32_t* value)
{
    if (field.field.words == nullptr) return read_number(session, text, unsigned_16(field.parameter), value);
    WordTable words = *field.field.words;
    if (words.type_name == nullptr) words.type_name = field.parameter;
    return read_word(session, text, field.parameter, words, value);
}

// All fields or none.
int fill(vty* session, char** argv, std::span<const OpticsField> fields, bool is_dual, FilledOptics* optics)
{
    OLT_optics settings;
    memset(&settings, 0xFF, sizeof settings); // what the line does not name is "not changed"
    for (const OpticsField& field : fields) {
        int32_t value;
        if (!read_field(session, *argv++, field, &value)) return -1;
        memcpy(reinterpret_cast<char*>(&settings) + field.field.offset, &value, sizeof value);
    }
    *optics = {settings, true, is_dual};
    return 0;
}

} // namespace

const FilledOptics& epon::filled_optics(int32_t rate)
{
    return filled[rate];
}

// The forms differ in their number of words.
int fill_olt_optics(cmd_element*, vty* session, int argc, char** argv)
{
    const int32_t rate = argc == MIXED_10G_FIELD_COUNT ? OPTICS_10G : OPTICS_1G;
    const bool is_dual = argc == DUAL_1G_FIELD_COUNT;
    const auto fields = optics_fields_of(rate);
    return fill(session, argv, is_dual ? fields.first(DUAL_1G_FIELD_COUNT) : fields, is_dual, &filled[rate]);
}

namespace {

// Two texts as one, so that what the 1G forms have in common is written once.
template <size_t Size>
struct Text {
    char text[Size];
};

template <size_t HeadSize, size_t TailSize>
consteval Text<HeadSize + TailSize - 1> join(const char (&head)[HeadSize], const char (&tail)[TailSize])
{
    Text<HeadSize + TailSize - 1> joined{};
    for (size_t i = 0; i + 1 < HeadSize; ++i)
        joined.text[i] = head[i];
    for (size_t i = 0; i < TailSize; ++i)
        joined.text[HeadSize - 1 + i] = tail[i];
    return joined;
}

// clang-format off
constexpr char help_of_1g[] =
    "Time for synchronization that discovery grants hold\n"
    "Time, in time quanta of 16 ns, 0-4095, decimal or with 0x hexadecimal\n"
    "Time for synchronization that the grants of registered links hold\n"
    "Time, in time quanta of 16 ns, 0-4095, decimal or with 0x hexadecimal\n"
    "Offset from the start of a grant to the start of its allocation\n"
    "Offset into the grant, in time quanta of 16 ns, 0-4095, decimal or with 0x hexadecimal\n"
    "Time that an ONU's laser takes to turn on\n"
    "Time, in time quanta of 16 ns, 0-255, decimal or with 0x hexadecimal\n"
    "Time that an ONU's laser takes to turn off\n"
    "Time, in time quanta of 16 ns, 0-255, decimal or with 0x hexadecimal\n"
    "When the transceiver is reset\n"
    "Offset into the grant, in time quanta of 16 ns, 0-4095, decimal or with 0x hexadecimal\n"
    "How long the transceiver is reset\n"
    "Time, in time quanta of 16 ns, 0-4095, decimal or with 0x hexadecimal\n"
    "Level at which the reset of the transceiver is active\n"
    "low: active low; high: active high\n"
    "Level at which the transceiver signals that it receives light\n"
    "low: active low; high: active high\n"
    "Reset of the transceiver between bursts\n"
    "true: used; false: not used\n"
    "Level at which the line that turns the laser off is active\n"
    "low: active low; high: active high\n"
    "When the clock and data recovery (CDR) is reset\n"
    "Offset into the grant, in time quanta of 16 ns, 0-4095, decimal or with 0x hexadecimal\n"
    "Time between two bursts that the optics need\n"
    "Time, in time quanta of 16 ns, 0-4095, decimal or with 0x hexadecimal\n"
    "How long before a burst the MAC begins to receive\n"
    "Time, in time quanta of 16 ns, 0-255, decimal or with 0x hexadecimal\n"
    "How long after a burst the MAC still receives\n"
    "Time, in time quanta of 16 ns, 0-255, decimal or with 0x hexadecimal\n"
    "How long before a burst the CDR may lock\n"
    "Time, in time quanta of 16 ns, 0-255, decimal or with 0x hexadecimal\n"
    "How long after a burst the CDR may still lock\n"
    "Time, in time quanta of 16 ns, 0-255, decimal or with 0x hexadecimal\n"
    "What triggers the reset of the transceiver\n"
    "sd-based: the signal detection; non-sd-based: the end of the grant; single: once, at the start of the OLT; "
    "sd-based-type-2: the signal detection, until the next grant\n"
    "What triggers the reset of the CDR\n"
    "sd-based: the signal detection; non-sd-based: the end of the grant; single: once, at the start of the OLT\n";

constexpr char help_of_mixed_rates[] =
    "Signals by which 1G and 10G light is detected\n"
    "unified: one for both rates; separate: one for each rate\n"
    "State of the external CDR's lock during discovery\n"
    "stuck-at-0: low; stuck-at-1: high; stuck-at-2: left to the CDR\n"
    "When the external CDR is reset\n"
    "Offset into the grant, in time quanta of 16 ns, 0-4095, decimal or with 0x hexadecimal\n"
    "How long the external CDR is reset\n"
    "Time, in time quanta of 16 ns, 0-4095, decimal or with 0x hexadecimal\n"
    "Reset of the external CDR between bursts\n"
    "true: used; false: not used\n"
    "What triggers the reset of the external CDR\n"
    "sd-based: the signal detection; non-sd-based: the end of the grant; single: once, at the start of the OLT\n"
    "Window in which the external CDR may lock\n"
    "true: used; false: not used\n"
    "How long before a discovery window the external CDR may lock\n"
    "Time, in time quanta of 16 ns, 0-255, decimal or with 0x hexadecimal\n"
    "How long after a discovery window the external CDR may still lock\n"
    "Time, in time quanta of 16 ns, 0-255, decimal or with 0x hexadecimal\n"
    "Signal to the external CDR that frames a discovery window\n"
    "true: used; false: not used\n"
    "Level at which the reset of the external CDR is active\n"
    "low: active low; high: active high\n"
    "Level at which the discovery window signal is active\n"
    "low: active low; high: active high\n";
// clang-format on

constexpr char help_of_dual_1g_form[] =
    "Fill a record of settings that another command applies\n"
    "Optics of an OLT; \"set olt ... optics\" applies the record filled last for the rate, to any OLT\n"
    "1G settings of an OLT that does not mix rates; only OLTs whose connectivity supports it take them\n";
constexpr char help_of_mixed_1g_form[] =
    "Fill a record of settings that another command applies\n"
    "Optics of an OLT; \"set olt ... optics\" applies the record filled last for the rate, to any OLT\n"
    "1G settings of an OLT that mixes rates\n";

constexpr auto help_of_dual_1g = join(help_of_dual_1g_form, help_of_1g);
constexpr auto help_of_mixed_1g_head = join(help_of_mixed_1g_form, help_of_1g);
constexpr auto help_of_mixed_1g = join(help_of_mixed_1g_head.text, help_of_mixed_rates);

} // namespace

// clang-format off
static constinit cmd_element fill_olt_optics_dual_1g_cmd = command(
    "fill optics dual-1g discovery-mode-sync-time DISCOVERY_MODE_SYNC_TIME normal-mode-sync-time "
    "NORMAL_MODE_SYNC_TIME "
    "\t\tallocation-offset ALLOCATION_OFFSET\tlaser-on-time LASER_ON_TIME laser-off-time LASER_OFF_TIME "
    "\t\txcvr-reset-gate-offset XCVR_RESET_OFFSET xcvr-reset-duration XCVR_RESET_DURATION "
    "xcvr-reset-polarity (low|high) xcvr-sd-rx-polarity (low|high) xcvr-use-reset (true | false) "
    "\t\tpon-tx-disable-line-polarity (low|high) cdr-reset-gate-offset CDR_RESET_GATE_OFFSET "
    "optics-dead-zone OPTIC_DEAD_ZONE "
    "\t\tmac-window-left-shoulder MAC_LEFT_SHOULDER mac-window-right-shoulder MAC_RIGHT_SHOULDER "
    "cdr-lock-left-shoulder CDR_LOCK_LEFT_SHOULDER "
    "\t\tcdr-lock-right-shoulder CDR_LOCK_RIGHT_SHOULDER xcvr-reset-scheme (sd-based | non-sd-based | "
    "single | sd-based-type-2) cdr-reset-scheme (sd-based | non-sd-based | single)",
    fill_olt_optics, help_of_dual_1g.text);

static constinit cmd_element fill_olt_optics_mixed_1g_cmd = command(
    "fill optics mixed-1g discovery-mode-sync-time DISCOVERY_MODE_SYNC_TIME normal-mode-sync-time "
    "NORMAL_MODE_SYNC_TIME "
    "\t\tallocation-offset ALLOCATION_OFFSET\tlaser-on-time LASER_ON_TIME laser-off-time LASER_OFF_TIME "
    "\t\txcvr-reset-gate-offset XCVR_RESET_OFFSET xcvr-reset-duration XCVR_RESET_DURATION "
    "xcvr-reset-polarity (low|high) xcvr-sd-rx-polarity (low|high) xcvr-use-reset (true | false) "
    "\t\tpon-tx-disable-line-polarity (low|high) cdr-reset-gate-offset CDR_RESET_GATE_OFFSET "
    "optics-dead-zone OPTIC_DEAD_ZONE "
    "\t\tmac-window-left-shoulder MAC_LEFT_SHOULDER mac-window-right-shoulder MAC_RIGHT_SHOULDER "
    "cdr-lock-left-shoulder CDR_LOCK_LEFT_SHOULDER "
    "\t\tcdr-lock-right-shoulder CDR_LOCK_RIGHT_SHOULDER xcvr-reset-scheme (sd-based | non-sd-based | "
    "single | sd-based-type-2) cdr-reset-scheme (sd-based | non-sd-based | single) "
    "\t\tsd-per-rate (unified | separate) ecdr-lock-disc-mode (stuck-at-0 | stuck-at-1 | stuck-at-2) "
    "ecdr-reset-gate-offset ECDR_RESET_GATE_OFFSET "
    "\t\tecdr-reset-duration ECDR_RESET_DURATION ecdr-use-reset (true | false) ecdr-reset-scheme "
    "(sd-based | non-sd-based | single) ecdr-use-lock-window (true | false) "
    "\t\tecdr-discovery-left-shoulder ECDR_DISCOVERY_LEFT_SHOULDER ecdr-discovery-right-shoulder "
    "ECDR_DISCOVERY_RIGHT_SHOULDER ecdr-use-disc-envelop (true | false) "
    "\t\tecdr-reset-polarity (low|high) ecdr-disc-win-polarity (low|high)",
    fill_olt_optics, help_of_mixed_1g.text);

// "dead-zone-10G-to-1G" occurs twice: the first is that from 10G to 1G, the second that from 10G to 10G.
static constinit cmd_element fill_olt_optics_mixed_10g_cmd = command(
    "fill optics mixed-10g cdr-reset-gate-offset CDR_RESET_GATE_OFFSET ecdr-reset-gate-offset "
    "ECDR_RESET_GATE_OFFSET ecdr-reset-duration ECDR_RESET_DURATION "
    "\t   xcvr-reset-gate-offset XCVR_RESET_GATE_OFFSET xcvr-reset-duration XCVR_RESET_DURATION "
    "\t   xcvr-use-reset (true | false) ecdr-use-reset (true | false) cdr-reset-scheme (sd-based | "
    "non-sd-based | single) ecdr-reset-scheme (sd-based | non-sd-based | single) "
    "\t   xcvr-reset-scheme (sd-based | non-sd-based | single | sd-based-type-2) "
    "cdr-lock-window-left-shoulder CDR_LOCK_WINDOW_LEFT_SHOULDER cdr-lock-window-right-shoulder "
    "CDR_LOCK_WINDOW_RIGHT_SHOULDER "
    "\t   rx-rst-per-rate (unified | separate) rx-xsbi-mode (apply | dont-apply) ecdr-use-lock-window "
    "(true | false) "
    "\t   ecdr-lock-disc-mode (stuck-at-0 | stuck-at-1 | stuck-at-2) ecdr-discovery-left-shoulder "
    "ECDR_DISCOVERY_LEFT_SHOULDER ecdr-discovery-right-shoulder ECDR_DISCOVERY_RIGHT_SHOULDER "
    "\t   ecdr-use-disc-envelop (true | false) ecdr-reset-polarity (low|high) ecdr-disc-win-polarity "
    "(low|high) normal-mode-sync-time NORMAL_MODE_SYNC_TIME "
    "\t   disc-mode-sync-time DISC_MODE_SYNC_TIME mac-active-window-left-shoulder "
    "MAC_ACTIVE_WINDOW_LEFT_SHOULDER mac-active-window-right-shoulder MAC_ACTIVE_WINDOW_RIGHT_SHOULDER "
    "\t   xcvr-user-rate-select XCVR_USER_RATE_SELECT pon-opt-rate-sel-left-soulder "
    "PON_OPT_RATE_SEL_LEFT_SHOULDER pon-opt-rate-sel-right-soulder PON_OPT_RATE_SEL_RIGHT_SHOULDER "
    "\t   dead-zone-1G-to-10G DEAD_ZONE_1G_TO_10G dead-zone-1G-to-1G DEAD_ZONE_1G_TO_1G "
    "dead-zone-10G-to-1G DEAD_ZONE_10G_TO_10G dead-zone-10G-to-1G DEAD_ZONE_10G_TO_10G "
    "\t   dead-zone-pre-1G DEAD_ZONE_PRE_1G dead-zone-pre-10G DEAD_ZONE_PRE_10G "
    "cdr-rate-sel-left-shoulder CDR_RATE_SEL_LEFT_SHOULDER cdr-rate-sel-right-shoulder "
    "CDR_RATE_SEL_RIGHT_SHOULDER "
    "\t   rx-lane-per-rate (unified | separate)",
    fill_olt_optics,
    "Fill a record of settings that another command applies\n"
    "Optics of an OLT; \"set olt ... optics\" applies the record filled last for the rate, to any OLT\n"
    "10G settings of an OLT that mixes rates\n"
    "When the clock and data recovery (CDR) is reset\n"
    "Offset into the grant, in time quanta of 16 ns, 0-4095, decimal or with 0x hexadecimal\n"
    "When the external CDR is reset\n"
    "Offset into the grant, in time quanta of 16 ns, 0-4095, decimal or with 0x hexadecimal\n"
    "How long the external CDR is reset\n"
    "Time, in time quanta of 16 ns, 0-4095, decimal or with 0x hexadecimal\n"
    "When the transceiver is reset\n"
    "Offset into the grant, in time quanta of 16 ns, 0-4095, decimal or with 0x hexadecimal\n"
    "How long the transceiver is reset\n"
    "Time, in time quanta of 16 ns, 0-4095, decimal or with 0x hexadecimal\n"
    "Reset of the transceiver between bursts\n"
    "true: used; false: not used\n"
    "Reset of the external CDR between bursts\n"
    "true: used; false: not used\n"
    "What triggers the reset of the CDR\n"
    "sd-based: the signal detection; non-sd-based: the end of the grant; single: once, at the start of the OLT\n"
    "What triggers the reset of the external CDR\n"
    "sd-based: the signal detection; non-sd-based: the end of the grant; single: once, at the start of the OLT\n"
    "What triggers the reset of the transceiver\n"
    "sd-based: the signal detection; non-sd-based: the end of the grant; single: once, at the start of the OLT; "
    "sd-based-type-2: the signal detection, until the next grant\n"
    "How long before a burst the CDR may lock\n"
    "Time, in time quanta of 16 ns, 0-255, decimal or with 0x hexadecimal\n"
    "How long after a burst the CDR may still lock\n"
    "Time, in time quanta of 16 ns, 0-255, decimal or with 0x hexadecimal\n"
    "Resets of the receivers of 1G and 10G\n"
    "unified: one for both rates; separate: one for each rate\n"
    "Reception by the 16-bit interface of 10G (XSBI)\n"
    "apply: used; dont-apply: not used\n"
    "Window in which the external CDR may lock\n"
    "true: used; false: not used\n"
    "State of the external CDR's lock during discovery\n"
    "stuck-at-0: low; stuck-at-1: high; stuck-at-2: left to the CDR\n"
    "How long before a discovery window the external CDR may lock\n"
    "Time, in time quanta of 16 ns, 0-255, decimal or with 0x hexadecimal\n"
    "How long after a discovery window the external CDR may still lock\n"
    "Time, in time quanta of 16 ns, 0-255, decimal or with 0x hexadecimal\n"
    "Signal to the external CDR that frames a discovery window\n"
    "true: used; false: not used\n"
    "Level at which the reset of the external CDR is active\n"
    "low: active low; high: active high\n"
    "Level at which the discovery window signal is active\n"
    "low: active low; high: active high\n"
    "Time for synchronization that the grants of registered links hold\n"
    "Time, in time quanta of 16 ns, 0-4095, decimal or with 0x hexadecimal\n"
    "Time for synchronization that discovery grants hold\n"
    "Time, in time quanta of 16 ns, 0-4095, decimal or with 0x hexadecimal\n"
    "How long before a burst the MAC begins to receive\n"
    "Time, in time quanta of 16 ns, 0-255, decimal or with 0x hexadecimal\n"
    "How long after a burst the MAC still receives\n"
    "Time, in time quanta of 16 ns, 0-255, decimal or with 0x hexadecimal\n"
    "Rate select input of the transceiver\n"
    "Level of the input, 0-1, decimal or with 0x hexadecimal\n"
    "How long before a burst the rate of the optics is selected\n"
    "Time, in time quanta of 16 ns, 0-255, decimal or with 0x hexadecimal\n"
    "How long after a burst the rate of the optics stays selected\n"
    "Time, in time quanta of 16 ns, 0-255, decimal or with 0x hexadecimal\n"
    "Time between a 1G burst and a 10G burst\n"
    "Time, in time quanta of 16 ns, 0-4095, decimal or with 0x hexadecimal\n"
    "Time between two 1G bursts\n"
    "Time, in time quanta of 16 ns, 0-4095, decimal or with 0x hexadecimal\n"
    "Time between a 10G burst and a 1G burst\n"
    "Time, in time quanta of 16 ns, 0-4095, decimal or with 0x hexadecimal\n"
    "Time between two 10G bursts\n"
    "Time, in time quanta of 16 ns, 0-4095, decimal or with 0x hexadecimal\n"
    "Time before a 1G discovery window\n"
    "Time, in time quanta of 16 ns, 0-4095, decimal or with 0x hexadecimal\n"
    "Time before a 10G discovery window\n"
    "Time, in time quanta of 16 ns, 0-4095, decimal or with 0x hexadecimal\n"
    "How long before a burst the rate of the CDR is selected\n"
    "Time, in time quanta of 16 ns, 0-255, decimal or with 0x hexadecimal\n"
    "How long after a burst the rate of the CDR stays selected\n"
    "Time, in time quanta of 16 ns, 0-255, decimal or with 0x hexadecimal\n"
    "Receive lanes of 1G and 10G\n"
    "unified: one for both rates; separate: one for each rate\n");
// clang-format on

namespace epon {

void install_fill_optics()
{
    install({{&fill_olt_optics_dual_1g_cmd, in(CONFIG_NODE, OLT_NODE)},
             {&fill_olt_optics_mixed_1g_cmd, in(CONFIG_NODE, OLT_NODE)},
             {&fill_olt_optics_mixed_10g_cmd, in(CONFIG_NODE, OLT_NODE)}});
}

} // namespace epon
