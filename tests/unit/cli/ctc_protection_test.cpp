// SPDX-License-Identifier: Apache-2.0
#include <string>

#include "CTC_STACK_CLI/protection.h"
#include "ctc_fixture.h"

namespace {

using CtcProtection = Ctc;

constexpr const char* TARGET = "OLT_id: 0 \r\nONU_id: 5 \r\n";

TEST_F(CtcProtection, Holdover)
{
    expect_report("holdover-state-parameter", "CTC_STACK_get_holdover_state",
                  "holdover_state: disactivated \r\nholdover_time: 0 \r\n", "1, 0");
    expect_show_refusals("holdover-state-parameter", "CTC_STACK_get_holdover_state");
    const std::pair<const char*, const char*> cases[] = {{"activated holdover-time 50", "2, 50"},
                                                         {"activated holdover-time 1000", "2, 1000"},
                                                         {"disactivated holdover-time 100", "1, 100"}};
    for (const auto& [words, arguments] : cases) {
        enter_onu(5);
        EXPECT_EQ(type(std::string("ctc holdover-state holdover-state ") + words), "");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), Calls{std::string("CTC_STACK_set_holdover_state(0, 5, ") + arguments + ") = 0"});
    }
    EXPECT_EQ(type("show ctc holdover-state-parameter"),
              std::string(TARGET) + "holdover_state: disactivated \r\nholdover_time: 100 \r\n");
    type("ctc holdover-state holdover-state activated holdover-time 200");
    EXPECT_EQ(type("show ctc holdover-state-parameter"),
              std::string(TARGET) + "holdover_state: activated \r\nholdover_time: 200 \r\n");
}

TEST_F(CtcProtection, HoldoverInOneWordSendsStateOneAndTimeZero)
{
    enter_onu(5);
    type("ctc holdover-state holdover-state activated holdover-time 200");
    journal();
    EXPECT_EQ(type("ctc holdover-state holdover-state disactivated"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"CTC_STACK_set_holdover_state(0, 5, 1, 0) = 0"});
    EXPECT_EQ(type("show ctc holdover-state-parameter"),
              std::string(TARGET) + "holdover_state: disactivated \r\nholdover_time: 0 \r\n");
}

TEST_F(CtcProtection, HoldoverRefusals)
{
    enter_onu(5);
    const std::pair<std::vector<std::string>, const char*> cases[] = {
        {{"on", "100"}, "Error reading holdover_state parameter (of the type holdover_state), aborting\r\n"},
        {{"deactivated"}, "Error reading holdover_state parameter (of the type holdover_state), aborting\r\n"},
        {{"activated", "1s"}, "Error reading holdover_time parameter for command from input, aborting\r\n"},
        {{"activated", "-50"}, "Error reading negative value of holdover_time parameter from input, aborting\r\n"},
    };
    for (const auto& [words, message] : cases) {
        EXPECT_EQ(call(holdover_state_config, words), message);
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
    EXPECT_EQ(call(holdover_state_config, {"activated", "0x64"}), "");
    EXPECT_EQ(journal(), Calls{"CTC_STACK_set_holdover_state(0, 5, 2, 100) = 0"});
    // The grammar bounds the time; what comes past it the ONU refuses.
    for (const char* time : {"49", "1001", "0"}) {
        EXPECT_EQ(call(holdover_state_config, {"activated", time}), ONU_BAD_PARAMETER);
        EXPECT_EQ(result, -17009);
    }
    for (const int32_t state : {0, 3})
        EXPECT_EQ(CTC_STACK_set_holdover_state(0, 5, state, 100), -17009);
    expect_ctc_failures("ctc holdover-state holdover-state activated holdover-time 100",
                        "CTC_STACK_set_holdover_state");
    expect_ctc_failures("ctc holdover-state holdover-state disactivated", "CTC_STACK_set_holdover_state");
}

TEST_F(CtcProtection, SettingsEndWithTheRegistration)
{
    enter_onu(5);
    type("ctc holdover-state holdover-state activated holdover-time 200");
    type("ctc reset");
    sdk_sim::advance_clock(3000);
    EXPECT_EQ(type("show ctc holdover-state-parameter"),
              std::string(TARGET) + "holdover_state: disactivated \r\nholdover_time: 0 \r\n");
}

TEST_F(CtcProtection, ActivePonInterface)
{
    expect_report("active-pon-if-state-parameter", "CTC_STACK_get_active_pon_if_state", "active_pon_if: 0 \r\n", "0");
    expect_show_refusals("active-pon-if-state-parameter", "CTC_STACK_get_active_pon_if_state");
    enter_onu(5);
    EXPECT_EQ(type("ctc active-pon-if-state active-pon-if 0"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"CTC_STACK_set_active_pon_if_state(0, 5, 0) = 0"});
    for (const char* number : {"1", "255"}) { // it has one interface
        EXPECT_EQ(type(std::string("ctc active-pon-if-state active-pon-if ") + number), ONU_BAD_PARAMETER);
        EXPECT_EQ(result, -17009);
    }
    enter_onu(10); // which has two
    EXPECT_EQ(type("ctc active-pon-if-state active-pon-if 1"), "");
    EXPECT_EQ(type("show ctc active-pon-if-state-parameter"), "OLT_id: 0 \r\nONU_id: 10 \r\nactive_pon_if: 1 \r\n");
    EXPECT_EQ(type("ctc active-pon-if-state active-pon-if 2"), ONU_BAD_PARAMETER);
}

TEST_F(CtcProtection, InterfaceWithoutPowerCannotWork)
{
    enter_onu(10);
    type("ctc onu-tx-power-supply-control action 30 onu-sn 02-00-00-00-00-0a optical standby broadcast false");
    EXPECT_EQ(type("ctc active-pon-if-state active-pon-if 1"), ONU_BAD_PARAMETER);
    type("ctc onu-tx-power-supply-control action reenable onu-sn 02-00-00-00-00-0a optical standby broadcast false");
    EXPECT_EQ(type("ctc active-pon-if-state active-pon-if 1"), "");
}

TEST_F(CtcProtection, ActivePonInterfaceRefusals)
{
    enter_onu(5);
    const std::pair<const char*, const char*> cases[] = {
        {"one", "Error reading active_pon_if parameter for command from input, aborting\r\n"},
        {"-1", "Error reading negative value of active_pon_if parameter from input, aborting\r\n"},
        {"256", "Error in range of active_pon_if parameter for command from input min:0 max:255, aborting\r\n"}};
    for (const auto& [word, message] : cases) {
        EXPECT_EQ(call(active_pon_if_state_config, {word}), message);
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
    expect_ctc_failures("ctc active-pon-if-state active-pon-if 0", "CTC_STACK_set_active_pon_if_state");
}

TEST_F(CtcProtection, ProtectionParameters)
{
    expect_report("protection_parameter", "CTC_STACK_get_onu_protection_parameters",
                  "los_optic_time: 2 \r\nlos_mac_time: 50 \r\n", "2, 50");
    expect_show_refusals("protection_parameter", "CTC_STACK_get_onu_protection_parameters");
    enter_onu(5);
    EXPECT_EQ(type("ctc protection_parameter los_optic_time 0 los_mac_time 65535"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"CTC_STACK_set_onu_protection_parameters(0, 5, 0, 65535) = 0"});
    EXPECT_EQ(type("ctc protection_parameter los_optic_time 0xffff los_mac_time 0x10"), "");
    EXPECT_EQ(type("show ctc protection_parameter"),
              std::string(TARGET) + "los_optic_time: 65535 \r\nlos_mac_time: 16 \r\n");
    journal();
    const std::pair<const char*, const char*> cases[] = {
        {"los_optic_time 1x los_mac_time 1",
         "Error reading LOS_OPTIC_TIME parameter for command from input, aborting\r\n"},
        {"los_optic_time -1 los_mac_time 1",
         "Error reading negative value of LOS_OPTIC_TIME parameter from input, aborting\r\n"},
        {"los_optic_time 65536 los_mac_time 1",
         "Error in range of LOS_OPTIC_TIME parameter for command from input min:0 max:65535, aborting\r\n"},
        {"los_optic_time 1 los_mac_time x",
         "Error reading LOS_MAC_TIME parameter for command from input, aborting\r\n"},
        {"los_optic_time 1 los_mac_time -1",
         "Error reading negative value of LOS_MAC_TIME parameter from input, aborting\r\n"},
        {"los_optic_time 1 los_mac_time 65536",
         "Error in range of LOS_MAC_TIME parameter for command from input min:0 max:65535, aborting\r\n"}};
    for (const auto& [words, message] : cases) {
        EXPECT_EQ(type(std::string("ctc protection_parameter ") + words), message);
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
    expect_ctc_failures("ctc protection_parameter los_optic_time 1 los_mac_time 1",
                        "CTC_STACK_set_onu_protection_parameters");
}

} // namespace
