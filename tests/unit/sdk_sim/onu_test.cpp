// SPDX-License-Identifier: Apache-2.0
// ONUs, XAUI redundancy and the operating-system services.
#include <atomic>
#include <cstring>
#include <thread>

#include <pthread.h>

#include "network_fixture.h"

namespace {

using Lines = std::vector<std::string>;

using OnuTest = NetworkTest;

TEST_F(OnuTest, ModesAreBoundsSafe)
{
    struct Case {
        std::int16_t olt_id, onu_id;
        std::int32_t mode;
        std::uint8_t warned;
        std::int32_t is_static;
    };
    const Case cases[] = {
        {0, 0, 201, 0, 0},   {0, 1, 203, 0, 0},      {0, 2, 200, 0, 0},  {0, 3, 200, 0, 1},
        {0, 4, 201, 1, 0},   {0, 5, 202, 0, 0},      {0, 6, 200, 0, 0},  {0, 254, 201, 0, 0},
        {0, 255, 200, 0, 0}, {0, 4095, 200, 0, 0},   {0, -1, 200, 0, 0}, {0, 32767, 200, 0, 0},
        {1, 0, 200, 0, 0},   {0, -32768, 200, 0, 0}, {16, 0, 200, 0, 0}, {-1, 0, 200, 0, 0},
    };
    for (const Case& test : cases) {
        std::uint8_t warned = 0xEE;
        EXPECT_EQ(NEP_get_onu_mode_extended(test.olt_id, test.onu_id, &warned), test.mode) << test.onu_id;
        EXPECT_EQ(warned, test.warned) << test.onu_id;
        EXPECT_EQ(Get_onu_record_static_mode(test.olt_id, test.onu_id) != 0, test.is_static != 0) << test.onu_id;
    }
    const Lines lines = journal();
    EXPECT_EQ(lines[0], "NEP_get_onu_mode_extended(0, 0) = 201 -> 0");
    EXPECT_EQ(lines[1], "Get_onu_record_static_mode(0, 0) = 0");
    EXPECT_EQ(lines[7], "Get_onu_record_static_mode(0, 3) = 1");
    EXPECT_EQ(lines[8], "NEP_get_onu_mode_extended(0, 4) = 201 -> 1");
}

TEST_F(OnuTest, AddressesBelongToLinksThatAreThere)
{
    struct Case {
        std::int16_t olt_id;
        std::uint8_t last;
        std::int32_t answer;
    };
    const Case cases[] = {{0, 0, 1},    {0, 1, 1}, {0, 2, 0}, {0, 3, 1}, {0, 4, 1}, {0, 5, 1},
                          {0, 0xFE, 1}, {0, 6, 0}, {1, 0, 0}, {2, 0, 0}, {16, 0, 0}};
    for (const Case& test : cases) {
        const std::uint8_t mac[6] = {2, 0, 0, 1, 0, test.last};
        std::int16_t onu_id = -7;
        EXPECT_EQ(Mac_address_exist(test.olt_id, mac, &onu_id), test.answer) << int{test.last};
        EXPECT_EQ(onu_id, test.answer == 1 ? test.last : -7);
    }
    const Lines lines = journal();
    EXPECT_EQ(lines[1], "Mac_address_exist(0, 02-00-00-01-00-01) = 1 -> 1");
    EXPECT_EQ(lines[2], "Mac_address_exist(0, 02-00-00-01-00-02) = 0");
}

TEST_F(OnuTest, XauiParametersAreKept)
{
    std::int32_t value = -1;
    EXPECT_EQ(NEP_xaui_redundancy_get_params(0, XAUI_REDUNDANCY_GPIO_MODE, &value), 0);
    EXPECT_EQ(value, 1);
    for (std::int32_t parameter = 0; parameter < 3; ++parameter) {
        for (const std::int32_t set : {1, 0}) {
            EXPECT_EQ(NEP_xaui_redundancy_set_params(0, parameter, set), 0);
            EXPECT_EQ(NEP_xaui_redundancy_get_params(0, parameter, &value), 0);
            EXPECT_EQ(value, set);
        }
        EXPECT_EQ(NEP_xaui_redundancy_set_params(0, parameter, 2), -4);
        EXPECT_EQ(NEP_xaui_redundancy_set_params(0, parameter, -1), -4);
    }
    for (const std::int32_t parameter : {-1, 3, 1000}) {
        EXPECT_EQ(NEP_xaui_redundancy_set_params(0, parameter, 0), -4);
        EXPECT_EQ(NEP_xaui_redundancy_get_params(0, parameter, &value), -4);
    }
    journal();
    EXPECT_EQ(NEP_xaui_redundancy_set_params(0, 1, 1), 0);
    EXPECT_EQ(NEP_xaui_redundancy_get_params(0, 1, &value), 0);
    EXPECT_EQ(NEP_xaui_redundancy_get_params(0, 1, nullptr), -4);
    EXPECT_EQ(journal(),
              (Lines{"NEP_xaui_redundancy_set_params(0, 1, 1) = 0", "NEP_xaui_redundancy_get_params(0, 1) = 0 -> 1",
                     "NEP_xaui_redundancy_get_params(0, 1) = -4"}));
}

TEST_F(OnuTest, XauiSwitchesOverWhileItIsOn)
{
    watch_events();
    EXPECT_EQ(NEP_xaui_redundancy_switch_over(0), 0);
    EXPECT_EQ(NEP_xaui_redundancy_switch_over(0), 0);
    EXPECT_EQ(take_events(), (Lines{"olt 0: channel 1, cause 0", "olt 0: channel 0, cause 0"}));
    EXPECT_EQ(NEP_xaui_redundancy_enable(0, 2), -4);
    EXPECT_EQ(NEP_xaui_redundancy_enable(0, -1), -4);
    EXPECT_EQ(NEP_xaui_redundancy_enable(0, 0), 0);
    EXPECT_EQ(NEP_xaui_redundancy_switch_over(0), -1);
    EXPECT_EQ(NEP_xaui_redundancy_enable(0, 1), 0);
    EXPECT_EQ(NEP_xaui_redundancy_switch_over(0), 0);
    EXPECT_EQ(take_events(), (Lines{"olt 0: channel 1, cause 0"}));
}

TEST_F(OnuTest, LoggingTopicsAreChecked)
{
    for (const std::int32_t topic : {-1, 32})
        EXPECT_EQ(Set_logging_configuration(topic, 1, 1, 0), -4);
    for (const std::int32_t enable : {-1, 2})
        EXPECT_EQ(Set_logging_configuration(8, enable, 1, 0), -4);
    for (const std::int32_t level : {-1, 8})
        EXPECT_EQ(Set_logging_configuration(8, 1, level, 0), -4);
    EXPECT_EQ(Set_logging_configuration(8, 1, 1, 0), 0);
    EXPECT_EQ(journal().back(), "Set_logging_configuration(8, 1, 1, 0) = 0");
}

std::atomic<bool> thread_has_run;

void* note_name(void* argument)
{
    pthread_getname_np(pthread_self(), static_cast<char*>(argument), 32);
    thread_has_run = true;
    return nullptr;
}

TEST_F(OnuTest, ThreadsRunWithTheirName)
{
    static char name[32];
    thread_has_run = false;
    EXPECT_EQ(OSSRV_create_thread("console-server-of-the-host", note_name, name), 0);
    while (!thread_has_run)
        std::this_thread::yield();
    EXPECT_STREQ(name, "console-server-");
    EXPECT_EQ(OSSRV_create_thread("nothing", nullptr, nullptr), -4);
    EXPECT_EQ(OSSRV_create_thread(nullptr, note_name, name), -4);
    EXPECT_EQ(journal(), (Lines{"OSSRV_create_thread(\"console-server-of-the-host\") = 0",
                                "OSSRV_create_thread(\"nothing\") = -4", "OSSRV_create_thread(null) = -4"}));
}

} // namespace
