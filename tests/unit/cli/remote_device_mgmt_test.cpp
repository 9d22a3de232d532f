// SPDX-License-Identifier: Apache-2.0
#include "REMOTE_MANAGEMENT_CLI/device_mgmt.h"

#include "event_lines.h"
#include "onu_devices_fixture.h"

namespace {

using RemoteDeviceMgmt = OnuDevices;

TEST_F(RemoteDeviceMgmt, Leds)
{
    const char* leds[] = {"pon-rx", "pon-link", "pon-tx", "pon-rx-err", "uni1", "uni2", "uni3", "uni4"};
    const char* activities[] = {"hw", "fw", "off", "on", "slow", "fast"};
    int led_code = 0;
    for (const std::string led : leds) {
        int activity_code = 0;
        for (const std::string activity : activities) {
            expect_set("remote device-mgmt led-configuration led " + led + " activity " + activity,
                       "REMOTE_NEPONU_set_led_configuration(0, 5, " + std::to_string(led_code) + ", " +
                           std::to_string(activity_code) + ") = 0");
            ++activity_code;
        }
        ++led_code;
    }
    expect_keyword(remote_led_configuration, {"?", "hw"}, "led", "onu_led", 20);
    expect_keyword(remote_led_configuration, {"uni1", "?"}, "activity", "onu_led_activity", 10);
    EXPECT_EQ(REMOTE_NEPONU_set_led_configuration(0, 5, 8, 0), -4);
    EXPECT_EQ(REMOTE_NEPONU_set_led_configuration(0, 5, -1, 0), -4);
    EXPECT_EQ(REMOTE_NEPONU_set_led_configuration(0, 5, 0, 6), -4);
}

TEST_F(RemoteDeviceMgmt, EachReasonOfARestartIsItsCause)
{
    int code = 0;
    for (const std::string reason : {"none", "sw", "sw-error", "periph-low", "periph-high"}) {
        expect_set("remote device-mgmt reset-device reason " + reason,
                   "REMOTE_NEPONU_reset_device(0, 5, " + std::to_string(code) + ") = 0");
        sdk_sim::advance_clock(3000);
        const std::string lines = type("show remote device-mgmt device-status");
        EXPECT_EQ(lines.substr(0, lines.find('\r')), "reboot_cause: " + reason + " ");
        journal();
        ++code;
    }
    expect_keyword(remote_reset_device, {"?"}, "reason", "reset_reason", 20);
    EXPECT_EQ(REMOTE_NEPONU_reset_device(0, 5, 5), -4);
    EXPECT_EQ(REMOTE_NEPONU_reset_device(0, 5, -1), -4);
}

constexpr const char* GONE = "onu-deregistered: olt 0, onu 5, mac 02-00-00-00-00-05, reason onu \r\n";
constexpr const char* BACK = "onu-registered: olt 0, onu 5, mac 02-00-00-00-00-05, rate 1G/1G, rtt 1000 \r\n";
constexpr const char* ABOUT_TO_RESET = "alarm: olt 0, onu 5, alarm oam-vendor-specific, state raised, value 17 \r\n";
constexpr const char* GASP_ENDS = "alarm: olt 0, onu 5, alarm dying-gasp, state cleared, value 0 \r\n";

std::string gasp(const char* times)
{
    return std::string("alarm: olt 0, onu 5, alarm dying-gasp, state raised, value ") + times + " \r\n";
}

TEST_F(RemoteDeviceMgmt, RestartTakesTheOnuAwayAndBringsItBack)
{
    EventLines events;
    sdk_sim::advance_clock(60000);
    type("remote device-mgmt reset-device reason sw");
    EXPECT_EQ(events.after(), ABOUT_TO_RESET + gasp("3") + GONE);
    EXPECT_EQ(type("show remote device-mgmt up-time"), failure("ONU not available", -13015));
    EXPECT_EQ(events.after(2999), "");
    EXPECT_EQ(events.after(1), std::string(BACK) + GASP_ENDS);
    EXPECT_EQ(type("show remote device-mgmt up-time"), "time: 3 \r\n");
    EXPECT_EQ(type("show remote device-mgmt reboot-counter"), "reboot_counter: 15 \r\n");
}

TEST_F(RemoteDeviceMgmt, LastWordsOfARestartCanBeSwitchedOff)
{
    EventLines events;
    type("remote device-mgmt event-configuration type pre-reset event disable");
    type("remote oam-api oam-dying-gasp-times times 10");
    type("remote device-mgmt reset-device reason sw");
    EXPECT_EQ(events.after(), gasp("10") + GONE);
    EXPECT_EQ(events.after(3000), std::string(BACK) + GASP_ENDS);
    type("remote oam-api oam-dying-gasp-times times 0");
    type("remote device-mgmt reset-device reason sw");
    EXPECT_EQ(events.after(3000), std::string(ABOUT_TO_RESET) + GONE + BACK);
}

TEST_F(RemoteDeviceMgmt, SettingsEndWithARestart)
{
    type("remote device-mgmt led-configuration led uni1 activity fast");
    type("remote oam-api oam-vendor-information data 0x1234");
    type("remote mp-application mld-init");
    type("remote device-mgmt extend-mtu-size downstream-extend enable upstream-extend enable");
    type("remote device-mgmt reset-device reason sw");
    sdk_sim::advance_clock(3000);
    EXPECT_EQ(type("show remote oam-api oam-vendor-information"), "data: 0 \r\n");
    EXPECT_EQ(type("show remote device-mgmt extend-mtu-size"),
              "downstream_extend_enable: Disable \r\nupstream_extend_enable: Disable \r\n");
    const std::string status_lines = type("show remote device-mgmt device-status");
    EXPECT_NE(status_lines.find("mld_application: stopped"), std::string::npos);
    EXPECT_NE(status_lines.find("led_uni1: hw"), std::string::npos);
}

TEST_F(RemoteDeviceMgmt, DiagnosticTest)
{
    EXPECT_EQ(type("remote device-mgmt diagnostic-test test uni-loopback"), failure("hardware error", -5));
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"REMOTE_NEPONU_diagnostic_test(0, 5, 0) = -5"});
    enter_onu(254);
    expect_set("remote device-mgmt diagnostic-test test uni-loopback", "REMOTE_NEPONU_diagnostic_test(0, 254, 0) = 0");
    EXPECT_NE(type("show remote device-mgmt device-status").find("diagnostic_test: passed"), std::string::npos);
    journal();
    expect_keyword(remote_diagnostic_test, {"?"}, "test", "diagnostic_test", 20);
    EXPECT_EQ(REMOTE_NEPONU_diagnostic_test(0, 5, 1), -4);
}

TEST_F(RemoteDeviceMgmt, ExtendMtuSize)
{
    const std::pair<const char*, const char*> states[] = {{"disable", "Disable"}, {"enable", "Enable"}};
    for (int down = 0; down < 2; ++down) {
        for (int up = 0; up < 2; ++up) {
            const std::string values = std::to_string(down) + ", " + std::to_string(up);
            expect_set(std::string("remote device-mgmt extend-mtu-size downstream-extend ") + states[down].first +
                           " upstream-extend " + states[up].first,
                       "REMOTE_NEPONU_set_extend_mtu_size(0, 5, " + values + ") = 0");
            expect_show(remote_show("device-mgmt extend-mtu-size"),
                        std::string("downstream_extend_enable: ") + states[down].second +
                            " \r\nupstream_extend_enable: " + states[up].second + " \r\n",
                        "REMOTE_NEPONU_get_extend_mtu(0, 5) = 0 -> " + values);
        }
    }
    expect_keyword(remote_extend_mtu_size, {"?", "enable"}, "downstream_extend", "enable_disable", 10);
    expect_keyword(remote_extend_mtu_size, {"enable", "?"}, "upstream_extend", "enable_disable", 10);
    EXPECT_EQ(REMOTE_NEPONU_set_extend_mtu_size(0, 5, 2, 0), -4);
    EXPECT_EQ(REMOTE_NEPONU_set_extend_mtu_size(0, 5, 0, 2), -4);
}

TEST_F(RemoteDeviceMgmt, RebootCounter)
{
    const Show show = remote_show("device-mgmt reboot-counter");
    expect_show(show, "reboot_counter: 14 \r\n", "REMOTE_NEPONU_get_reboot_counter(0, 5) = 0 -> 14");
    for (const std::string counter : {"0", "15"}) {
        expect_set("remote device-mgmt reboot-counter counter " + counter,
                   "REMOTE_NEPONU_set_reboot_counter(0, 5, " + counter + ") = 0");
        expect_show(show, "reboot_counter: " + counter + " \r\n",
                    "REMOTE_NEPONU_get_reboot_counter(0, 5) = 0 -> " + counter);
    }
    type("remote device-mgmt reset-device reason sw"); // the count begins at 0 again
    sdk_sim::advance_clock(3000);
    journal();
    expect_show(show, "reboot_counter: 0 \r\n", "REMOTE_NEPONU_get_reboot_counter(0, 5) = 0 -> 0");
    type("remote device-mgmt reboot-counter counter 16");
    EXPECT_EQ(status, engine::MatchStatus::Unknown);
    expect_refusals(
        {{remote_reboot_counter,
          {"16"},
          "Error in range of counter parameter for command from input min:0 max:15, aborting\r\n"},
         {remote_reboot_counter, {"x"}, "Error reading counter parameter for command from input, aborting\r\n"},
         {remote_reboot_counter,
          {"-1"},
          "Error reading negative value of counter parameter from input, aborting\r\n"}});
    EXPECT_EQ(REMOTE_NEPONU_set_reboot_counter(0, 5, 16), -4);
}

TEST_F(RemoteDeviceMgmt, FailedCalls)
{
    const std::pair<const char*, const char*> commands[] = {
        {"remote device-mgmt led-configuration led uni1 activity on", "REMOTE_NEPONU_set_led_configuration"},
        {"remote device-mgmt reset-device reason sw", "REMOTE_NEPONU_reset_device"},
        {"remote device-mgmt diagnostic-test test uni-loopback", "REMOTE_NEPONU_diagnostic_test"},
        {"remote device-mgmt extend-mtu-size downstream-extend enable upstream-extend enable",
         "REMOTE_NEPONU_set_extend_mtu_size"},
        {"show remote device-mgmt extend-mtu-size", "REMOTE_NEPONU_get_extend_mtu"},
        {"remote device-mgmt reboot-counter counter 1", "REMOTE_NEPONU_set_reboot_counter"},
        {"show remote device-mgmt reboot-counter", "REMOTE_NEPONU_get_reboot_counter"},
    };
    for (const auto& [line, operation] : commands)
        expect_remote_failures(line, operation);
}

} // namespace
