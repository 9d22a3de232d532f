// SPDX-License-Identifier: Apache-2.0
// The CTC stack of the simulated SDK: registrations, discovery of ONUs, what it remembers, and its end.
#include <mutex>
#include <utility>

#include "network_fixture.h"

namespace {

using Lines = std::vector<std::string>;

// OLT 4 has ONUs that answer (10, 11), none (12), silent (13) and with a version of its own (14). None of them is
// registered before its OLT has started.
constexpr std::string_view ONUS = R"(
[clock]
speed = 0
[life]
return_time = 5
[[olt]]
id = 4
present = false
mac = "02-00-00-00-00-00"
[[olt.onu]]
first = 10
count = 2
mac = "02-00-00-01-00-00"
[[olt.onu]]
id = 12
extended_oam = "none"
mac = "02-00-00-01-00-02"
[[olt.onu]]
id = 13
extended_oam = "silent"
mac = "02-00-00-01-00-03"
[[olt.onu]]
id = 14
ctc_versions = [[0x222222, 1]]
mac = "02-00-00-01-00-04"
)";

std::mutex told_mutex;
Lines told;

void tell(std::string line)
{
    const std::lock_guard lock(told_mutex);
    told.push_back(std::move(line));
}

void on_discovery(std::int16_t olt_id, std::int16_t llid, std::int32_t state, std::uint8_t count,
                  const CTC_oui_version* records)
{
    std::string line = "olt " + std::to_string(olt_id) + " onu " + std::to_string(llid) + ": " +
                       (state == CTC_DISCOVERY_COMPLETE ? "complete" : "failed");
    for (int i = 0; i < count; ++i)
        line += " " + std::to_string(records[i].oui[0]) + "/" + std::to_string(records[i].version);
    tell(line);
}

void on_notification(std::int16_t, std::int16_t onu_id, std::uint16_t leaf, const CTC_management_object_index* object,
                     std::uint8_t raised, std::uint32_t value, std::uint16_t alarm_id)
{
    tell("onu " + std::to_string(onu_id) + " leaf " + std::to_string(leaf) + " port " +
         std::to_string(object->port_number) + "/" + std::to_string(object->port_type) + " alarm " +
         std::to_string(alarm_id) + (raised == 1 ? " raised" : " cleared") + (value != 0 ? " with a value" : ""));
}

template <class Handler>
std::uint16_t assign(int type, Handler* handler)
{
    std::uint16_t id = 0;
    EXPECT_EQ(CTC_STACK_assign_handler_function(type, reinterpret_cast<EventHandler>(handler), &id), 0);
    return id;
}

class CtcStackTest : public NetworkTest {
  protected:
    CtcStackTest()
    {
        load(std::string(ONUS));
        told.clear();
        assign(CTC_EVENT_EXTENDED_OAM_DISCOVERY, on_discovery);
        sdk_sim::start();
    }
    static void load(const std::string& toml)
    {
        std::string error;
        ASSERT_TRUE(sdk_sim::load_scenario_text(toml, "ctc.toml", &error)) << error;
    }
    static Lines after(std::uint64_t milliseconds)
    {
        sdk_sim::advance_clock(milliseconds);
        sdk_sim::drain_events();
        const std::lock_guard lock(told_mutex);
        return std::exchange(told, {});
    }
};

// The ONUs register from 1500 ms on, one every 10 ms.
TEST_F(CtcStackTest, DiscoveryFollowsRegistration)
{
    ASSERT_TRUE(sdk_sim::return_olt(4));
    EXPECT_EQ(after(1599), Lines{});
    EXPECT_EQ(after(1), Lines{"olt 4 onu 10: complete 17/32 17/33"});
    EXPECT_EQ(after(10), Lines{"olt 4 onu 11: complete 17/32 17/33"});
    EXPECT_EQ(after(889), Lines{"olt 4 onu 14: failed 34/1"});
    EXPECT_EQ(after(1021), (Lines{"olt 4 onu 12: failed", "olt 4 onu 13: failed"})); // 1000 ms
    EXPECT_EQ(after(1000000), Lines{});
    std::uint32_t times[2];
    EXPECT_EQ(CTC_STACK_get_encryption_update_time(4, 10, &times[0], &times[1]), 0);
    EXPECT_EQ(CTC_STACK_get_encryption_update_time(4, 12, &times[0], &times[1]), -17002);
    EXPECT_EQ(CTC_STACK_get_encryption_update_time(4, 13, &times[0], &times[1]), -2);
    EXPECT_EQ(CTC_STACK_get_encryption_update_time(4, 14, &times[0], &times[1]), -17002);
}

TEST_F(CtcStackTest, TheTimeoutIsTheStacks)
{
    ASSERT_EQ(CTC_STACK_set_extended_oam_discovery_timing(99), 0); // too short for anybody
    ASSERT_TRUE(sdk_sim::return_olt(4));
    EXPECT_EQ(after(10000).size(), 5U);
    ASSERT_TRUE(sdk_sim::remove_olt(4));
    ASSERT_EQ(CTC_STACK_set_extended_oam_discovery_timing(0), 0); // for ever
    ASSERT_TRUE(sdk_sim::return_olt(4));
    EXPECT_EQ(after(1000000), (Lines{"olt 4 onu 10: complete 17/32 17/33", "olt 4 onu 11: complete 17/32 17/33",
                                     "olt 4 onu 14: failed 34/1"}));
}

TEST_F(CtcStackTest, WhatTheStackSpeaksDecides)
{
    ASSERT_EQ(CTC_STACK_set_extended_oam_discovery_timing(0), 0);
    const auto completed = [this] {
        EXPECT_TRUE(sdk_sim::return_olt(4));
        Lines complete;
        for (const std::string& line : after(10000))
            if (line.find("complete") != std::string::npos) complete.push_back(line.substr(6, 6));
        EXPECT_TRUE(sdk_sim::remove_olt(4));
        return complete;
    };
    EXPECT_EQ(completed(), (Lines{"onu 10", "onu 11"}));
    ASSERT_EQ(CTC_STACK_set_version(0x30), 0);
    EXPECT_EQ(completed(), Lines{});
    ASSERT_EQ(CTC_STACK_set_version(0x20), 0);
    EXPECT_EQ(completed(), (Lines{"onu 10", "onu 11"}));
    ASSERT_EQ(CTC_STACK_set_oui(0x222222), 0);
    EXPECT_EQ(completed(), Lines{});
    ASSERT_EQ(CTC_STACK_set_version(1), 0);
    EXPECT_EQ(completed(), Lines{"onu 14"});
    // Records take their place.
    const CTC_oui_version records[] = {{{0x11, 0x11, 0x11}, 0x21}, {{0x22, 0x22, 0x22}, 1}};
    ASSERT_EQ(CTC_STACK_set_parameters(1, 1, records, 0), 0);
    EXPECT_EQ(completed(), (Lines{"onu 10", "onu 11"}));
    ASSERT_EQ(CTC_STACK_set_parameters(1, 2, records, 0), 0);
    EXPECT_EQ(completed(), (Lines{"onu 10", "onu 11", "onu 14"}));
}

TEST_F(CtcStackTest, WithoutAutomaticModeNobodyIsDiscovered)
{
    ASSERT_EQ(CTC_STACK_set_parameters(0, 0, nullptr, 0), 0);
    ASSERT_TRUE(sdk_sim::return_olt(4));
    EXPECT_EQ(after(10000), Lines{});
    std::uint32_t times[2];
    EXPECT_EQ(CTC_STACK_get_encryption_update_time(4, 10, &times[0], &times[1]), 0) << "it can be asked all the same";
}

TEST_F(CtcStackTest, AuthorizationBringsDiscovery)
{
    ASSERT_TRUE(sdk_sim::return_olt(4));
    after(10000);
    ASSERT_EQ(NEP_authorize_onu(4, 10, 0), 0);
    EXPECT_EQ(after(10000), Lines{});
    ASSERT_EQ(NEP_authorize_onu(4, 10, 1), 0);
    EXPECT_EQ(after(100), Lines{"olt 4 onu 10: complete 17/32 17/33"});
}

TEST_F(CtcStackTest, OnusThatAreThereFromTheBeginningAreDiscovered)
{
    std::string toml(ONUS);
    toml.replace(toml.find("present = false\n"), 16, "");
    load(toml);
    EXPECT_EQ(after(10000), Lines{});
    std::uint32_t times[2];
    EXPECT_EQ(CTC_STACK_get_encryption_update_time(4, 11, &times[0], &times[1]), 0);
    EXPECT_EQ(CTC_STACK_get_encryption_update_time(4, 14, &times[0], &times[1]), -17002);
}

// --- What was set before -----------------------------------------------------------------------------------------

TEST_F(CtcStackTest, AReturningOnuIsConfiguredAgainIfTheStackDoesSo)
{
    ASSERT_TRUE(sdk_sim::return_olt(4));
    after(10000);
    std::uint32_t times[2];
    std::uint8_t number = 4;
    CTC_queue_set_thresholds sets[CTC_QUEUE_SETS_MAX] = {};
    for (const int configures : {0, 1}) {
        ASSERT_EQ(CTC_STACK_set_parameters(1, 0, nullptr, configures), 0);
        ASSERT_EQ(CTC_STACK_set_encryption_update_time(4, 10, 7000, 8), 0);
        number = 4;
        sets[1].queues[3] = {1, 0, 77};
        ASSERT_EQ(CTC_STACK_set_dba_report_thresholds(4, 10, &number, sets), 0);
        ASSERT_EQ(NEP_deregister_onu(4, 10, 0), 0);
        after(10000);
        ASSERT_EQ(CTC_STACK_get_encryption_update_time(4, 10, &times[0], &times[1]), 0);
        EXPECT_EQ(times[0], configures == 1 ? 7000U : 10000U);
        EXPECT_EQ(times[1], configures == 1 ? 8U : 300U);
        ASSERT_EQ(CTC_STACK_get_dba_report_thresholds(4, 10, &number, sets), 0);
        EXPECT_EQ(number, configures == 1 ? 4 : 2);
        EXPECT_EQ(sets[1].queues[3].threshold, configures == 1 ? 77 : 0);
    }
}

// --- Alarms of life ----------------------------------------------------------------------------------------------

TEST_F(CtcStackTest, DiscoveredOnusNotifyOfAlarms)
{
    std::string toml(ONUS);
    toml.replace(toml.find("present = false\n"), 16, "");
    toml.replace(toml.find("return_time = 5"), 15, "alarm_interval = 1\nalarm_duration = 1\nseed = 3");
    load(toml);
    assign(CTC_EVENT_NOTIFICATION, on_notification);
    const Lines lines = after(200000);
    ASSERT_GT(lines.size(), 20U);
    for (const std::string& line : lines) {
        EXPECT_TRUE(line.starts_with("onu 10 ") || line.starts_with("onu 11 ")) << "it is not discovered: " << line;
        EXPECT_TRUE(line.find(" leaf 1 port 1/1 alarm 770 ") != std::string::npos ||
                    line.find(" leaf 65535 port 0/0 alarm 2 ") != std::string::npos ||
                    line.find(" leaf 65535 port 0/0 alarm 258 ") != std::string::npos)
            << line;
        EXPECT_EQ(line.ends_with(" raised with a value"), !line.ends_with(" cleared")) << line;
    }
}

// --- Registrations -----------------------------------------------------------------------------------------------

TEST_F(CtcStackTest, EachTypeHasOneHandler)
{
    const auto handler = reinterpret_cast<EventHandler>(on_discovery);
    std::uint16_t id = 0;
    for (const int type : {-1, 4, 5, 7, 100, 200, 201})
        EXPECT_EQ(CTC_STACK_assign_handler_function(type, handler, &id), -4) << type;
    EXPECT_EQ(CTC_STACK_assign_handler_function(0, nullptr, &id), -4);
    EXPECT_EQ(CTC_STACK_assign_handler_function(0, handler, nullptr), -4);
    EXPECT_EQ(CTC_STACK_assign_handler_function(1, handler, &id), -17007) << "the fixture's";
    std::vector<std::uint16_t> ids;
    for (const int type : {0, 2, 3, 6}) {
        ASSERT_EQ(CTC_STACK_assign_handler_function(type, handler, &id), 0) << type;
        EXPECT_NE(id, 0);
        ids.push_back(id);
    }
    for (const std::uint16_t given : ids) {
        EXPECT_EQ(CTC_STACK_delete_handler_function(given), 0);
        EXPECT_EQ(CTC_STACK_delete_handler_function(given), -4);
    }
    EXPECT_EQ(CTC_STACK_delete_handler_function(0), -4);
    EXPECT_EQ(CTC_STACK_assign_handler_function(6, handler, &id), 0);
}

TEST_F(CtcStackTest, HandlersOfOltsAreNotTheStacks)
{
    std::uint16_t of_olts = 0;
    ASSERT_EQ(NEP_assign_handler_function(
                  EVENT_ALARM, reinterpret_cast<EventHandler>(+[](std::int16_t, const AlarmEvent*) { tell("alarm"); }),
                  &of_olts),
              0);
    EXPECT_EQ(CTC_STACK_delete_handler_function(of_olts), -4);
    ASSERT_TRUE(sdk_sim::return_olt(4));
    EXPECT_EQ(NEP_delete_handler_function(1), 0); // the number of the fixture's discovery handler
    EXPECT_EQ(after(1600).size(), 1U);
    EXPECT_EQ(CTC_STACK_delete_handler_function(1), 0);
    EXPECT_EQ(after(10000), Lines{});
    std::string error;
    ASSERT_TRUE(sdk_sim::raise_event(EVENT_ALARM, 4, "", &error)) << error;
    EXPECT_EQ(after(0), Lines{"alarm"});
}

// --- The end -----------------------------------------------------------------------------------------------------

TEST_F(CtcStackTest, TheEndForgetsSettingsAndHandlers)
{
    ASSERT_TRUE(sdk_sim::return_olt(4));
    after(10000);
    ASSERT_EQ(CTC_STACK_set_version(7), 0);
    ASSERT_EQ(CTC_STACK_start_encryption(4, 10), 0);
    after(100);
    std::uint8_t key[LLID_ENCRYPTION_KEY_SIZE];
    EXPECT_EQ(NEP_get_encryption_key(4, 10, key), 0);
    EXPECT_EQ(CTC_STACK_terminate(), 0);
    EXPECT_EQ(NEP_get_encryption_key(4, 10, key), -1) << "it is sent in the clear";

    std::uint8_t version = 0;
    std::uint32_t times[2];
    EXPECT_EQ(CTC_STACK_get_version(&version), -1);
    EXPECT_EQ(CTC_STACK_set_version(1), -1);
    EXPECT_EQ(CTC_STACK_start_encryption(4, 10), -1);
    EXPECT_EQ(CTC_STACK_get_encryption_update_time(4, 10, &times[0], &times[1]), -1);
    EXPECT_EQ(CTC_STACK_terminate(), -1);
    EXPECT_EQ(CTC_STACK_delete_handler_function(1), -4);
    ASSERT_EQ(NEP_authorize_onu(4, 11, 0), 0);
    ASSERT_EQ(NEP_authorize_onu(4, 11, 1), 0);
    EXPECT_EQ(after(10000), Lines{});

    assign(CTC_EVENT_EXTENDED_OAM_DISCOVERY, on_discovery); // starts it again
    EXPECT_EQ(CTC_STACK_get_version(&version), 0);
    EXPECT_EQ(version, 0x21);
    ASSERT_EQ(NEP_authorize_onu(4, 11, 0), 0);
    ASSERT_EQ(NEP_authorize_onu(4, 11, 1), 0);
    EXPECT_EQ(after(10000), Lines{"olt 4 onu 11: complete 17/32 17/33"});
}

// --- Scenarios ---------------------------------------------------------------------------------------------------

TEST_F(CtcStackTest, SettingsFromAScenario)
{
    load(R"(
[ctc_stack]
automatic_mode = false
automatic_onu_configuration = true
records = [[0x123456, 1], [0, 255]]
oui = 0xabcdef
version = 9
discovery_timeout = 2550
update_key_time = 255
no_reply_timeout = 2550
start_encryption_threshold = 255
)");
    std::int32_t automatic = 9;
    std::int32_t configures = 9;
    std::uint8_t number = 0;
    CTC_oui_version records[CTC_OUI_RECORDS_MAX];
    ASSERT_EQ(CTC_STACK_get_parameters(&automatic, &number, records, &configures), 0);
    EXPECT_EQ(automatic, 0);
    EXPECT_EQ(configures, 1);
    ASSERT_EQ(number, 2);
    EXPECT_EQ(records[0].oui[2], 0x56);
    EXPECT_EQ(records[1].version, 255);
    std::uint16_t timeout = 0;
    ASSERT_EQ(CTC_STACK_get_extended_oam_discovery_timing(&timeout), 0);
    EXPECT_EQ(timeout, 2550);
    EXPECT_EQ(CTC_STACK_terminate(), 0);
    assign(CTC_EVENT_EXTENDED_OAM_DISCOVERY, on_discovery);
    std::uint32_t oui = 0;
    ASSERT_EQ(CTC_STACK_get_oui(&oui), 0);
    EXPECT_EQ(oui, 0xabcdefU) << "the scenario's, again";
}

using CtcScenarioTest = NetworkTest;

TEST_F(CtcScenarioTest, WrongCtcSettingsInAScenario)
{
    expect_load_error("[ctc_stack]\nversion = 256\n", "bad.toml:2: version: expected a number 0-255");
    expect_load_error("[ctc_stack]\ndiscovery_timeout = 2551\n",
                      "bad.toml:2: discovery_timeout: expected a number 0-2550");
    expect_load_error("[ctc_stack]\nrecords = 3\n",
                      "bad.toml:2: records: expected an array of [OUI, version], 0-0xffffff and 0-255");
    expect_load_error("[ctc_stack]\nrecords = [[1]]\n",
                      "bad.toml:2: records: expected [OUI, version], 0-0xffffff and 0-255");
    expect_load_error("[ctc_stack]\nrecords = [[1, 256]]\n",
                      "bad.toml:2: records: expected [OUI, version], 0-0xffffff and 0-255");
    expect_load_error("[ctc_stack]\nrecords = [[0x1000000, 2]]\n",
                      "bad.toml:2: records: expected [OUI, version], 0-0xffffff and 0-255");
}

} // namespace
