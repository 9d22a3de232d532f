// SPDX-License-Identifier: Apache-2.0
// LEDs of an OLT: whether the hardware or the host drives each of them, and how the host does.
#include "olt/led.h"

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"

using namespace epon;

namespace {

// In the order of their codes. Setting and showing spell some names differently; the other spellings follow.
constexpr Word led_words[] = {
    {"cni-dp0-link-up", LED_CNI_DP0},
    {"cni-dp0-rx-err", LED_CNI_DP0 + 1},
    {"cni-dp0-rx-pkt", LED_CNI_DP0 + 2},
    {"cni_dp0-tx-pkt", LED_CNI_DP0 + 3},
    {"cni-dp1-link-up", LED_CNI_DP1},
    {"cni-dp1-rx-err", LED_CNI_DP1 + 1},
    {"cni-dp1-rx-pkt", LED_CNI_DP1 + 2},
    {"cni_dp1-tx-pkt", LED_CNI_DP1 + 3},
    {"cni-snif-link-up", LED_CNI_SNIF},
    {"cni-snif-rx-err", LED_CNI_SNIF + 1},
    {"cni-snif-rx-pkt", LED_CNI_SNIF + 2},
    {"cni_snif-tx-pkt", LED_CNI_SNIF + 3},
    {"pon0-link-up", LED_PON0},
    {"pon0-rx-err", LED_PON0 + 1},
    {"pon0-rx-pkt", LED_PON0 + 2},
    {"pon0-tx-pkt", LED_PON0 + 3},
    {"pon1-link-up", LED_PON1},
    {"pon1-rx-err", LED_PON1 + 1},
    {"pon1-rx-pkt", LED_PON1 + 2},
    {"pon1-tx-pkt", LED_PON1 + 3},
    {"hmii-link-up", LED_HMII},
    {"hmii-rx-err", LED_HMII + 1},
    {"hmii-rx-pkt", LED_HMII + 2},
    {"hmii-tx-pkt", LED_HMII + 3},
    {"cni-dp0-rx-crc-err-good-len", LED_CNI_DP0_ERRORS},
    {"cni-dp0-rx-crc-err-usize", LED_CNI_DP0_ERRORS + 1},
    {"cni_dp0-rx-frm-jabber-err", LED_CNI_DP0_ERRORS + 2},
    {"cni-dp0-rx-frm-align-err", LED_CNI_DP0_ERRORS + 3},
    {"cni-dp0-undersize-err", LED_CNI_DP0_FRAMES},
    {"cni-dp0-rx-frm-toolong-err", LED_CNI_DP0_FRAMES + 1},
    {"cni-dp0-rx-pause-ok", LED_CNI_DP0_FRAMES + 2},
    {"cni-dp0-tx-pause-ok", LED_CNI_DP0_FRAMES + 3},
    {"cni-dp1-rx-crc-err-good-len", LED_CNI_DP1_ERRORS},
    {"cni-dp1-rx-crc-err-usize", LED_CNI_DP1_ERRORS + 1},
    {"cni_dp1-rx-frm-jabber-err", LED_CNI_DP1_ERRORS + 2},
    {"cni-dp1-rx-frm-align-err", LED_CNI_DP1_ERRORS + 3},
    {"cni-dp1-undersize-err", LED_CNI_DP1_FRAMES},
    {"cni-dp1-rx-frm-toolong-err", LED_CNI_DP1_FRAMES + 1},
    {"cni-dp1-rx-pause-ok", LED_CNI_DP1_FRAMES + 2},
    {"cni-dp1-tx-pause-ok", LED_CNI_DP1_FRAMES + 3},
    {"cni-dp0-tx-pkt", LED_CNI_DP0 + 3},
    {"cni-dp1-tx-pkt", LED_CNI_DP1 + 3},
    {"cni-snif-tx-pkt", LED_CNI_SNIF + 3},
};
constexpr WordTable led_type = {"led_type", led_words};

consteval bool codes_are_positions()
{
    for (int i = 0; i < LED_COUNT; ++i) {
        if (led_words[i].value != i) return false;
    }
    return true;
}
static_assert(codes_are_positions());

constexpr Word led_mode_words[] = {
    {"hw", LED_MODE_HW}, {"blink", LED_MODE_BLINK}, {"on", LED_MODE_ON}, {"off", LED_MODE_OFF}};
constexpr WordTable led_mode = {"led_mode", led_mode_words};

} // namespace

int set_led_mode(cmd_element*, vty* session, int, char** argv)
{
    int32_t led;
    int32_t mode;
    if (!read_word(session, argv[0], "led_type", led_type, &led)) return -1;
    if (!read_word(session, argv[1], "led_mode", led_mode, &mode)) return -1;
    return report(session, NEP_set_led_mode(session->olt_id, led, mode));
}

int show_led_mode(cmd_element*, vty* session, int, char** argv)
{
    int32_t led;
    int32_t mode;
    if (!read_word(session, argv[0], "led_type", led_type, &led)) return -1;
    const int16_t code = NEP_get_led_mode(session->olt_id, led, &mode);
    if (code != 0) return report(session, code);
    print_olt_id(session, session->olt_id);
    RBX_vty_out(session, "%s: %s %s", "led mode", word_of(led_mode, mode), VTY_NEWLINE(session));
    return 0;
}

int set_led_by_val(cmd_element*, vty* session, int, char** argv)
{
    uint32_t value;
    if (!read_number(session, argv[0], unsigned_32("VALUE"), &value)) return -1;
    return report(session, NEP_set_led_by_value(session->olt_id, value));
}

// clang-format off
// Each line is one row of the grammar.
static constinit cmd_element set_led_mode_cmd =
    command("set led-mode led-type (cni-dp0-link-up|cni-dp0-rx-err|cni-dp0-rx-pkt|cni_dp0-tx-pkt| "
            "\t\t\t\t\t\t\t  cni-dp1-link-up|cni-dp1-rx-err|cni-dp1-rx-pkt|cni_dp1-tx-pkt| "
            "\t\t\t\t\t\t\t  cni-snif-link-up|cni-snif-rx-err|cni-snif-rx-pkt|cni_snif-tx-pkt| "
            "\t\t\t\t\t\t\t  pon0-link-up|pon0-rx-err|pon0-rx-pkt|pon0-tx-pkt| "
            "\t\t\t\t\t\t\t  pon1-link-up|pon1-rx-err|pon1-rx-pkt|pon1-tx-pkt| "
            "\t\t\t\t\t\t\t  hmii-link-up|hmii-rx-err|hmii-rx-pkt|hmii-tx-pkt| "
            "\t\t\t\t\t\t\t  cni-dp0-rx-crc-err-good-len|cni-dp0-rx-crc-err-usize|cni_dp0-rx-frm-jabber-err|cni-dp0-rx-frm-align-err| "
            "\t\t\t\t\t\t\t  cni-dp0-undersize-err|cni-dp0-rx-frm-toolong-err|cni-dp0-rx-pause-ok|cni-dp0-tx-pause-ok| "
            "\t\t\t\t\t\t\t  cni-dp1-rx-crc-err-good-len|cni-dp1-rx-crc-err-usize|cni_dp1-rx-frm-jabber-err|cni-dp1-rx-frm-align-err| "
            "\t\t\t\t\t\t\t  cni-dp1-undersize-err|cni-dp1-rx-frm-toolong-err|cni-dp1-rx-pause-ok|cni-dp1-tx-pause-ok) \t  led-mode (hw|blink|on|off)",
            set_led_mode,
            "Change a setting\n"
            "What drives the LEDs of this OLT\n"
            "Which LED\n"
            "The interface, then what the LED shows: its link, frames or errors\n"
            "What drives the LED\n"
            "hw: the hardware; blink: the host lets it blink; on: the host lights it; off: the host keeps it dark\n");

static constinit cmd_element show_led_mode_cmd =
    command("show led-mode led-type (cni-dp0-link-up|cni-dp0-rx-err|cni-dp0-rx-pkt|cni-dp0-tx-pkt| "
            "\t\t\t\t\t\t\t  cni-dp1-link-up|cni-dp1-rx-err|cni-dp1-rx-pkt|cni-dp1-tx-pkt| "
            "\t\t\t\t\t\t\t  cni-snif-link-up|cni-snif-rx-err|cni-snif-rx-pkt|cni-snif-tx-pkt| "
            "\t\t\t\t\t\t\t  pon0-link-up|pon0-rx-err|pon0-rx-pkt|pon0-tx-pkt| "
            "\t\t\t\t\t\t\t  pon1-link-up|pon1-rx-err|pon1-rx-pkt|pon1-tx-pkt| "
            "\t\t\t\t\t\t\t  hmii-link-up|hmii-rx-err|hmii-rx-pkt|hmii-tx-pkt| "
            "\t\t\t\t\t\t\t  cni-dp0-rx-crc-err-good-len|cni-dp0-rx-crc-err-usize|cni_dp0-rx-frm-jabber-err|cni-dp0-rx-frm-align-err| "
            "\t\t\t\t\t\t\t  cni-dp0-undersize-err|cni-dp0-rx-frm-toolong-err|cni-dp0-rx-pause-ok|cni-dp0-tx-pause-ok| "
            "\t\t\t\t\t\t\t  cni-dp1-rx-crc-err-good-len|cni-dp1-rx-crc-err-usize|cni_dp1-rx-frm-jabber-err|cni-dp1-rx-frm-align-err| "
            "\t\t\t\t\t\t\t  cni-dp1-undersize-err|cni-dp1-rx-frm-toolong-err|cni-dp1-rx-pause-ok|cni-dp1-tx-pause-ok)",
            show_led_mode,
            "Show settings and state\n"
            "What drives the LEDs of this OLT\n"
            "Which LED\n"
            "The interface, then what the LED shows: its link, frames or errors\n");
// clang-format on

static constinit cmd_element set_led_by_val_cmd =
    command("set led-by-val value VALUE", set_led_by_val,
            "Change a setting\n"
            "Switch all LEDs of this OLT that the host drives\n"
            "Which LEDs are on\n"
            "One bit for each of the first 32 LEDs, 0x0-0xffffffff, bit 0 for the first LED; 1: on, 0: off\n");

namespace epon {

void install_led()
{
    install(
        {{&set_led_mode_cmd, in(OLT_NODE)}, {&show_led_mode_cmd, in(OLT_NODE)}, {&set_led_by_val_cmd, in(OLT_NODE)}});
}

} // namespace epon
