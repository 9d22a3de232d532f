// SPDX-License-Identifier: Apache-2.0
#include "olt/led.h"

#include "console_fixture.h"

namespace {

using Calls = std::vector<std::string>;

// By code, as setting spells them.
constexpr const char* led_names[] = {
    "cni-dp0-link-up",
    "cni-dp0-rx-err",
    "cni-dp0-rx-pkt",
    "cni_dp0-tx-pkt",
    "cni-dp1-link-up",
    "cni-dp1-rx-err",
    "cni-dp1-rx-pkt",
    "cni_dp1-tx-pkt",
    "cni-snif-link-up",
    "cni-snif-rx-err",
    "cni-snif-rx-pkt",
    "cni_snif-tx-pkt",
    "pon0-link-up",
    "pon0-rx-err",
    "pon0-rx-pkt",
    "pon0-tx-pkt",
    "pon1-link-up",
    "pon1-rx-err",
    "pon1-rx-pkt",
    "pon1-tx-pkt",
    "hmii-link-up",
    "hmii-rx-err",
    "hmii-rx-pkt",
    "hmii-tx-pkt",
    "cni-dp0-rx-crc-err-good-len",
    "cni-dp0-rx-crc-err-usize",
    "cni_dp0-rx-frm-jabber-err",
    "cni-dp0-rx-frm-align-err",
    "cni-dp0-undersize-err",
    "cni-dp0-rx-frm-toolong-err",
    "cni-dp0-rx-pause-ok",
    "cni-dp0-tx-pause-ok",
    "cni-dp1-rx-crc-err-good-len",
    "cni-dp1-rx-crc-err-usize",
    "cni_dp1-rx-frm-jabber-err",
    "cni-dp1-rx-frm-align-err",
    "cni-dp1-undersize-err",
    "cni-dp1-rx-frm-toolong-err",
    "cni-dp1-rx-pause-ok",
    "cni-dp1-tx-pause-ok",
};
static_assert(std::size(led_names) == LED_COUNT);

// Showing spells three of them differently.
std::string shown_name(int led)
{
    std::string name = led_names[led];
    if (led == 3 || led == 7 || led == 11) name[3] = '-';
    return name;
}

class Led : public Console {
  protected:
    Led()
    {
        enter(OLT_NODE);
    }
    std::string mode_of(int led)
    {
        return type("show led-mode led-type " + shown_name(led));
    }
};

TEST_F(Led, EveryLedInEveryMode)
{
    const char* const modes[] = {"hw", "blink", "on", "off"};
    for (int led = 0; led < LED_COUNT; ++led) {
        for (int mode = 0; mode < LED_MODE_COUNT; ++mode) {
            EXPECT_EQ(type(std::string("set led-mode led-type ") + led_names[led] + " led-mode " + modes[mode]), "");
            EXPECT_EQ(result, 0);
            const std::string arguments = "(0, " + std::to_string(led);
            const std::string code = std::to_string(mode);
            EXPECT_EQ(journal(), Calls{"NEP_set_led_mode" + arguments + ", " + code + ") = 0"});
            EXPECT_EQ(mode_of(led), std::string("OLT_id: 0 \r\nled mode: ") + modes[mode] + " \r\n");
            EXPECT_EQ(result, 0);
            EXPECT_EQ(journal(), Calls{"NEP_get_led_mode" + arguments + ") = 0 -> " + code});
        }
    }
}

TEST_F(Led, EachGrammarHasItsSpelling)
{
    for (const char* name : {"cni-dp0-tx-pkt", "cni-dp1-tx-pkt", "cni-snif-tx-pkt", "cni-dp0-rx-frm-jabber-err"}) {
        type(std::string("set led-mode led-type ") + name + " led-mode on");
        EXPECT_EQ(status, engine::MatchStatus::Unknown) << name;
    }
    for (const char* name : {"cni_dp0-tx-pkt", "cni_dp1-tx-pkt", "cni_snif-tx-pkt", "cni-dp1-rx-frm-jabber-err"}) {
        type(std::string("show led-mode led-type ") + name);
        EXPECT_EQ(status, engine::MatchStatus::Unknown) << name;
    }
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(Led, Refusals)
{
    const std::string type_refusal = "Error reading led_type parameter (of the type led_type), aborting\r\n";
    EXPECT_EQ(call(set_led_mode, {"pon2-link-up", "on"}), type_refusal);
    EXPECT_EQ(result, -1);
    EXPECT_EQ(call(show_led_mode, {""}), type_refusal);
    EXPECT_EQ(result, -1);
    EXPECT_EQ(call(set_led_mode, {"pon1-link-up", "dim"}),
              "Error reading led_mode parameter (of the type led_mode), aborting\r\n");
    EXPECT_EQ(result, -1);
    const std::vector<std::pair<const char*, const char*>> cases = {
        {"x", "Error reading VALUE parameter for command from input, aborting\r\n"},
        {"-1", "Error reading negative value of VALUE parameter from input, aborting\r\n"},
        {"2147483648", "Error reading VALUE parameter for command from input, aborting\r\n"}, // decimal: 31 bits
        {"0x100000000", "Error reading VALUE parameter for command from input, aborting\r\n"},
    };
    for (const auto& [word, message] : cases) {
        EXPECT_EQ(type(std::string("set led-by-val value ") + word), message);
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(Led, AValueSwitchesTheLedsOfTheHost)
{
    EXPECT_EQ(type("set led-by-val value 1"),
              "Command return error.\r\nsoftware does not control the LEDS (error code : -1015)\r\n");
    EXPECT_EQ(result, -1015);
    type("set led-mode led-type cni-dp0-link-up led-mode blink");
    type("set led-mode led-type cni-dp0-tx-pause-ok led-mode on");
    type("set led-mode led-type cni-dp1-tx-pause-ok led-mode blink");
    journal();
    EXPECT_EQ(type("set led-by-val value 0x80000000"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"NEP_set_led_by_value(0, 2147483648) = 0"});
    EXPECT_EQ(mode_of(0), "OLT_id: 0 \r\nled mode: off \r\n");
    EXPECT_EQ(mode_of(1), "OLT_id: 0 \r\nled mode: hw \r\n");
    EXPECT_EQ(mode_of(31), "OLT_id: 0 \r\nled mode: on \r\n");
    EXPECT_EQ(mode_of(39), "OLT_id: 0 \r\nled mode: blink \r\n"); // behind the 32 of a value
    journal();
    EXPECT_EQ(type("set led-by-val value 0xffffffff"), "");
    EXPECT_EQ(journal(), Calls{"NEP_set_led_by_value(0, 4294967295) = 0"});
    EXPECT_EQ(mode_of(0), "OLT_id: 0 \r\nled mode: on \r\n");
    EXPECT_EQ(mode_of(1), "OLT_id: 0 \r\nled mode: hw \r\n");
}

TEST_F(Led, FailuresAreReported)
{
    const std::vector<std::pair<const char*, const char*>> cases = {
        {"set led-mode led-type pon0-link-up led-mode on", "NEP_set_led_mode"},
        {"show led-mode led-type pon0-link-up", "NEP_get_led_mode"},
        {"set led-by-val value 0", "NEP_set_led_by_value"},
    };
    for (const auto& [line, operation] : cases) {
        enter(OLT_NODE);
        inject(operation, -5);
        EXPECT_EQ(type(line), "Command return error.\r\nhardware error (error code : -5)\r\n");
        EXPECT_EQ(result, -5);
        enter(OLT_NODE, 1);
        EXPECT_EQ(type(line), "Command return error.\r\nOLT not exist (error code : -1003)\r\n");
        EXPECT_EQ(result, -1003);
    }
}

} // namespace
