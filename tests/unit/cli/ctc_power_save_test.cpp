// SPDX-License-Identifier: Apache-2.0
#include <string>

#include "CTC_STACK_CLI/multi_llid.h"
#include "CTC_STACK_CLI/power_save.h"
#include "ctc_fixture.h"

namespace {

using CtcPowerSave = Ctc;
using CtcMultiLlid = Ctc;

TEST_F(CtcPowerSave, Capabilities)
{
    expect_report("powersave_capabilities", "CTC_STACK_get_onu_power_save_capabilities",
                  "sleep_mode: tx \r\nearly_wakeup: disable \r\n", "{sleep=1,early_wakeup=0}");
    expect_show_refusals("powersave_capabilities", "CTC_STACK_get_onu_power_save_capabilities");
    enter(ENABLE_NODE);
    EXPECT_EQ(type("show ctc onu powersave_capabilities 0 10"),
              "OLT_id: 0 \r\nONU_id: 10 \r\nsleep_mode: both \r\nearly_wakeup: enable \r\n");
}

TEST_F(CtcPowerSave, Configuration)
{
    expect_report("powersave_config", "CTC_STACK_get_onu_power_save_config",
                  "early_wakeup: disable \r\nsleep_duration_max: 62500000 \r\n",
                  "{early_wakeup=0,sleep_duration_max=62500000}");
    expect_show_refusals("powersave_config", "CTC_STACK_get_onu_power_save_config");
    enter_onu(10);
    EXPECT_EQ(type("ctc power_save early_wakeup enable sleep_duration_max 0x10"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(),
              Calls{"CTC_STACK_set_onu_power_save_config(0, 10, {early_wakeup=1,sleep_duration_max=16}) = 0"});
    EXPECT_EQ(type("show ctc powersave_config"),
              "OLT_id: 0 \r\nONU_id: 10 \r\nearly_wakeup: enable \r\nsleep_duration_max: 16 \r\n");
    EXPECT_EQ(type("ctc power_save early_wakeup disable sleep_duration_max 62500000"), "");
    EXPECT_EQ(type("ctc power_save early_wakeup disable sleep_duration_max 62500001"), BAD_PARAMETER);
    EXPECT_EQ(result, -4);
    enter_onu(5); // cannot wake early
    EXPECT_EQ(type("ctc power_save early_wakeup enable sleep_duration_max 1"), ONU_BAD_PARAMETER);
    EXPECT_EQ(result, -17009);
}

TEST_F(CtcPowerSave, ConfigurationRefusals)
{
    enter_onu(5);
    const std::pair<const char*, const char*> numbers[] = {
        {"1x", "Error reading SLEEP_DURATION_MAX parameter for command from input, aborting\r\n"},
        {"-1", "Error reading negative value of SLEEP_DURATION_MAX parameter from input, aborting\r\n"},
        {"0x100000000", "Error reading SLEEP_DURATION_MAX parameter for command from input, aborting\r\n"}};
    for (const auto& [number, message] : numbers) {
        EXPECT_EQ(type(std::string("ctc power_save early_wakeup disable sleep_duration_max ") + number), message);
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(call(power_save_config, {"enableenab", "1"}),
              "Error reading early_wakeup parameter, internal buffer is too short, aborting!\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(call(power_save_config, {"true", "1"}),
              "Error reading early_wakeup parameter (of the type enable_disable), aborting\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(journal(), Calls{});
    expect_ctc_failures("ctc power_save early_wakeup disable sleep_duration_max 1",
                        "CTC_STACK_set_onu_power_save_config");
}

TEST_F(CtcPowerSave, SleepControl)
{
    enter_onu(10);
    const std::pair<const char*, const char*> cases[] = {
        {"start-time 0x0 sleep-duration 0x0 wake-duration 0x0 flag leave mode none", "0, 0, 0, 0, 0"},
        {"start-time 0xffffffff sleep-duration 0x03B9ACA0 wake-duration 0x03b9aca0 flag enter mode tx",
         "4294967295, 62500000, 62500000, 1, 1"},
        {"start-time 0x10 sleep-duration 0x20 wake-duration 0x30 flag change mode trx", "16, 32, 48, 2, 2"},
        {"start-time 16 sleep-duration 32 wake-duration 48 flag leave mode none", "16, 32, 48, 0, 0"}};
    for (const auto& [words, arguments] : cases) {
        EXPECT_EQ(type(std::string("ctc sleep-control ") + words), "") << words;
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), Calls{std::string("CTC_STACK_set_sleep_control(0, 10, ") + arguments + ") = 0"});
    }
    for (const char* words : {"start-time 0x100000000 sleep-duration 0x0 wake-duration 0x0 flag leave mode none",
                              "start-time 0x0 sleep-duration 0x03B9ACA1 wake-duration 0x0 flag leave mode none",
                              "start-time 0x0 sleep-duration 0x0 wake-duration 0x03B9ACA1 flag leave mode none"}) {
        type(std::string("ctc sleep-control ") + words);
        EXPECT_NE(status, engine::MatchStatus::Matched) << words;
    }
}

TEST_F(CtcPowerSave, SleepFollowsWhatTheOnuCanAndDoes)
{
    const std::string times = "ctc sleep-control start-time 0x0 sleep-duration 0x64 wake-duration 0x64 flag ";
    enter_onu(5);                                                 // its transmitter alone can sleep
    EXPECT_EQ(type(times + "change mode tx"), ONU_BAD_PARAMETER); // it is awake
    EXPECT_EQ(type(times + "enter mode trx"), ONU_BAD_PARAMETER);
    EXPECT_EQ(type(times + "enter mode none"), ONU_BAD_PARAMETER);
    EXPECT_EQ(type(times + "enter mode tx"), "");
    EXPECT_EQ(type(times + "enter mode tx"), ONU_BAD_PARAMETER); // it sleeps already
    EXPECT_EQ(type(times + "change mode tx"), "");
    type("ctc power_save early_wakeup disable sleep_duration_max 99");
    EXPECT_EQ(type(times + "change mode tx"), ONU_BAD_PARAMETER); // longer than it may
    EXPECT_EQ(type(times + "leave mode none"), "");
    EXPECT_EQ(type(times + "leave mode none"), "");
    EXPECT_EQ(type(times + "change mode tx"), ONU_BAD_PARAMETER);
}

TEST_F(CtcPowerSave, SleepControlRefusals)
{
    enter_onu(5);
    const std::pair<std::vector<std::string>, const char*> cases[] = {
        {{"x", "0", "0", "leave", "none"}, "Error reading start_time parameter for command from input, aborting\r\n"},
        {{"-1", "0", "0", "leave", "none"},
         "Error reading negative value of start_time parameter from input, aborting\r\n"},
        {{"0", "x", "0", "leave", "none"},
         "Error reading sleep_duration parameter for command from input, aborting\r\n"},
        {{"0", "62500001", "0", "leave", "none"},
         "Error in range of sleep_duration parameter for command from input min:0 max:62500000, aborting\r\n"},
        {{"0", "0", "-1", "leave", "none"},
         "Error reading negative value of wake_duration parameter from input, aborting\r\n"},
        {{"0", "0", "62500001", "leave", "none"},
         "Error in range of wake_duration parameter for command from input min:0 max:62500000, aborting\r\n"},
        {{"0", "0", "0", "stay", "none"}, "Error reading flag parameter (of the type sleep_flag), aborting\r\n"},
        {{"0", "0", "0", "leave", "both"}, "Error reading mode parameter (of the type sleep_mode), aborting\r\n"}};
    for (const auto& [words, message] : cases) {
        EXPECT_EQ(call(sleep_control, words), message);
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
    expect_ctc_failures("ctc sleep-control start-time 0x0 sleep-duration 0x0 wake-duration 0x0 flag leave mode none",
                        "CTC_STACK_set_sleep_control");
    EXPECT_EQ(CTC_STACK_set_sleep_control(0, 5, 0, CTC_SLEEP_TIME_MAX + 1, 0, 0, 0), -4);
    EXPECT_EQ(CTC_STACK_set_sleep_control(0, 5, 0, 0, 0, 3, 0), -4);
    EXPECT_EQ(CTC_STACK_set_sleep_control(0, 5, 0, 0, 0, 0, 3), -4);
}

TEST_F(CtcPowerSave, BroadcastReachesEveryOnuThatAnswers)
{
    const CTC_power_save_config config = {0, {}, 7};
    EXPECT_EQ(CTC_STACK_set_onu_power_save_config(0, 4095, &config), 0);
    enter(ENABLE_NODE);
    for (const char* onu : {"5", "10", "11"})
        EXPECT_NE(type(std::string("show ctc onu powersave_config 0 ") + onu).find("sleep_duration_max: 7 \r\n"),
                  std::string::npos);
}

TEST_F(CtcMultiLlid, NumberOfLinks)
{
    enter_onu(10);
    for (const char* number : {"0", "1", "8"}) {
        EXPECT_EQ(type(std::string("ctc multi-llid-admin-control num-of-llid-activated ") + number), "");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), Calls{std::string("CTC_STACK_set_multi_llid_admin_control(0, 10, ") + number + ") = 0"});
    }
    enter_onu(5); // can have one alone
    EXPECT_EQ(type("ctc multi-llid-admin-control num-of-llid-activated 1"), "");
    EXPECT_EQ(type("ctc multi-llid-admin-control num-of-llid-activated 2"),
              "Command return error.\r\nONU returned no resources (error code : -17010)\r\n");
    EXPECT_EQ(result, -17010);
    journal();
    const std::pair<const char*, const char*> cases[] = {
        {"two", "Error reading num_of_llid_activated parameter for command from input, aborting\r\n"},
        {"-1", "Error reading negative value of num_of_llid_activated parameter from input, aborting\r\n"},
        {"256",
         "Error in range of num_of_llid_activated parameter for command from input min:0 max:255, aborting\r\n"}};
    for (const auto& [word, message] : cases) {
        EXPECT_EQ(call(multi_llid_admin_control, {word}), message);
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
    EXPECT_EQ(call(multi_llid_admin_control, {"9"}), BAD_PARAMETER);
    EXPECT_EQ(result, -4);
    expect_ctc_failures("ctc multi-llid-admin-control num-of-llid-activated 1",
                        "CTC_STACK_set_multi_llid_admin_control");
}

} // namespace
