// SPDX-License-Identifier: Apache-2.0
#include "REMOTE_MANAGEMENT_CLI/oam_statistics.h"

#include "onu_devices_fixture.h"

namespace {

class RemoteOamStatistics : public OnuDevices {
  protected:
    RemoteOamStatistics()
    {
        enter(CONFIG_NODE);
    }
    std::string by_leaf(const std::string& leaf, const std::string& own_kind, const std::string& onu = "5")
    {
        return type("show onu remote oam stat-by-leaf 0 " + onu + " stat-branch 7 stat-leaf " + leaf + " rbx-onu " +
                    own_kind);
    }
};

// 1000 frames a second of which two are wrong and one too long, and a quarter as many sent.
constexpr const char* AFTER_TEN_SECONDS = "frames_transmitted_ok: 2500 \r\n"
                                          "frames_received_ok: 9970 \r\n"
                                          "frame_check_sequence_errors: 20 \r\n"
                                          "octets_transmitted_ok: 1.28e+06 \r\n"
                                          "octets_received_ok: 5.10464e+06 \r\n"
                                          "multicast_frames_transmitted_ok: 10 \r\n"
                                          "broadcast_frames_transmitted_ok: 5 \r\n"
                                          "multicast_frames_received_ok: 100 \r\n"
                                          "broadcast_frames_received_ok: 50 \r\n"
                                          "frame_too_long_errors: 10 \r\n";

TEST_F(RemoteOamStatistics, AllCountersMoveWithTheTraffic)
{
    sdk_sim::advance_clock(10000);
    for (const int node : EVERY_SHOW_NODE) {
        enter(node);
        // Each request is counted, this one too.
        const std::string requests = std::to_string(node == VIEW_NODE ? 1 : node == ENABLE_NODE ? 2 : 3);
        EXPECT_EQ(type("show onu remote oam all-stats 0 5"), std::string(AFTER_TEN_SECONDS) +
                                                                 "information_transmitted: 10 \r\n"
                                                                 "information_received: 10 \r\n"
                                                                 "event_notification_transmitted: 0 \r\n"
                                                                 "loopback_control_received: 0 \r\n"
                                                                 "variable_request_received: 0 \r\n"
                                                                 "variable_response_transmitted: 0 \r\n"
                                                                 "organization_specific_transmitted: " +
                                                                 requests +
                                                                 " \r\n"
                                                                 "organization_specific_received: " +
                                                                 requests + " \r\n");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal().at(0).find("REMOTE_NEPONU_get_all_stats(0, 5) = 0 -> {frames_transmitted_ok=2500,"), 0u);
    }
}

TEST_F(RemoteOamStatistics, SameCountsHoweverOftenTheyAreLookedAt)
{
    for (int i = 0; i < 100; ++i) {
        sdk_sim::advance_clock(97);
        by_leaf("6", "true");
    }
    sdk_sim::advance_clock(300); // 10 s in all
    EXPECT_EQ(by_leaf("6", "true"), "value: 20 \r\n");
    EXPECT_EQ(by_leaf("5", "true"), "value: 9970 \r\n");
}

TEST_F(RemoteOamStatistics, OamFramesAreCounted)
{
    by_leaf("2", "false");
    by_leaf("2", "false");
    EXPECT_EQ(NEP_set_standard_onu_loopback(0, 5, 1), 0);
    EXPECT_EQ(NEP_set_standard_onu_loopback(0, 5, 0), 0);
    EXPECT_EQ(REMOTE_NEPONU_set_alarm_configuration(0, 5, 1, 1, 10, 1), 0);
    sdk_sim::advance_clock(3000);
    const std::string lines = type("show onu remote oam all-stats 0 5");
    for (const char* line : {"event_notification_transmitted: 3 \r\n", "loopback_control_received: 2 \r\n",
                             "variable_request_received: 2 \r\n", "variable_response_transmitted: 2 \r\n",
                             "organization_specific_received: 2 \r\n"})
        EXPECT_NE(lines.find(line), std::string::npos) << line << lines;
}

TEST_F(RemoteOamStatistics, OneCounterByItsLeaf)
{
    const std::pair<const char*, const char*> leaves[] = {
        {"2", "2500"}, {"5", "9970"}, {"6", "20"},   {"8", "1280000"}, {"14", "5104640"},
        {"18", "10"},  {"19", "5"},   {"21", "100"}, {"22", "50"},     {"25", "10"}};
    const char* printed[] = {"2500", "9970", "20", "1.28e+06", "5.10464e+06", "10", "5", "100", "50", "10"};
    sdk_sim::advance_clock(10000);
    journal();
    int i = 0;
    for (const auto& [leaf, value] : leaves) {
        const std::string arguments = std::string("(0, 5, 7, ") + leaf + ") = 0 -> " + value;
        for (const int node : EVERY_SHOW_NODE) {
            enter(node);
            EXPECT_EQ(by_leaf(leaf, "true"), std::string("value: ") + printed[i] + " \r\n");
            EXPECT_EQ(result, 0);
            EXPECT_EQ(by_leaf(leaf, "false"), std::string("value: ") + printed[i] + " \r\n");
            EXPECT_EQ(journal(), (Calls{"REMOTE_NEPONU_get_stat_by_leaf" + arguments,
                                        "REMOTE_NEPONU_get_stat_by_leaf_standard" + arguments}));
        }
        ++i;
    }
}

TEST_F(RemoteOamStatistics, CounterThatThereIsNot)
{
    for (const char* own_kind : {"true", "false"}) {
        for (const char* counter : {"stat-branch 7 stat-leaf 3", "stat-branch 7 stat-leaf 65535",
                                    "stat-branch 0 stat-leaf 2", "stat-branch 255 stat-leaf 2"}) {
            EXPECT_EQ(type(std::string("show onu remote oam stat-by-leaf 0 5 ") + counter + " rbx-onu " + own_kind),
                      failure("query failed", -13014));
            EXPECT_EQ(result, 0);
        }
    }
}

constexpr const char* STANDARD_LEAVES[] = {"2", "5", "6", "8", "14", "18", "19", "21", "22", "25"};

TEST_F(RemoteOamStatistics, MisspeltKeywordShowsAllStandardCounters)
{
    sdk_sim::advance_clock(10000);
    EXPECT_EQ(type("show onu remote oam-stansard stat-by-leaf 0 5"), AFTER_TEN_SECONDS);
    EXPECT_EQ(result, 0);
    const Calls calls = journal();
    ASSERT_EQ(calls.size(), std::size(STANDARD_LEAVES));
    for (size_t i = 0; i < calls.size(); ++i)
        EXPECT_EQ(calls[i].find(std::string("REMOTE_NEPONU_get_stat_by_leaf_standard(0, 5, 7, ") + STANDARD_LEAVES[i] +
                                ") = 0 -> "),
                  0u)
            << calls[i];
    for (const int node : {VIEW_NODE, ENABLE_NODE}) {
        enter(node);
        type("show onu remote oam-stansard stat-by-leaf 0 5");
        EXPECT_NE(status, engine::MatchStatus::Matched) << node;
    }
    enter(CONFIG_NODE);
    type("show onu remote oam-standard stat-by-leaf 0 5");
    EXPECT_EQ(status, engine::MatchStatus::Unknown);
}

TEST_F(RemoteOamStatistics, StandardCountersEndWithTheFirstThatFails)
{
    sdk_sim::advance_clock(10000);
    inject("REMOTE_NEPONU_get_stat_by_leaf_standard", -13014, 1, 2);
    EXPECT_EQ(type("show onu remote oam-stansard stat-by-leaf 0 5"),
              "frames_transmitted_ok: 2500 \r\nframes_received_ok: 9970 \r\n" + failure("query failed", -13014));
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal().size(), 3u);
}

TEST_F(RemoteOamStatistics, OnuWithoutRemoteManagementHasTheStandardsCounters)
{
    sdk_sim::advance_clock(10000);
    EXPECT_EQ(by_leaf("2", "true", "6"), failure("ONU not available", -13015));
    EXPECT_EQ(result, 0);
    EXPECT_EQ(by_leaf("2", "false", "6"), "value: 2500 \r\n");
    EXPECT_EQ(type("show onu remote oam all-stats 0 6"), failure("ONU not available", -13015));
}

TEST_F(RemoteOamStatistics, ClearingLeavesTheStandardsCounters)
{
    sdk_sim::advance_clock(10000);
    enter_onu(5);
    expect_set("remote oam-api clear-all-statistics", "REMOTE_NEPONU_clear_all_statistics(0, 5) = 0");
    enter(CONFIG_NODE);
    EXPECT_EQ(by_leaf("6", "true"), "value: 0 \r\n");
    EXPECT_EQ(by_leaf("6", "false"), "value: 20 \r\n");
    sdk_sim::advance_clock(5000);
    EXPECT_EQ(by_leaf("6", "true"), "value: 10 \r\n");
    EXPECT_EQ(by_leaf("6", "false"), "value: 30 \r\n");
}

TEST_F(RemoteOamStatistics, CountersBeginWithTheRegistration)
{
    sdk_sim::advance_clock(10000);
    EXPECT_EQ(REMOTE_NEPONU_reset_device(0, 5, 0), 0);
    sdk_sim::advance_clock(3000);
    EXPECT_EQ(by_leaf("2", "true"), "value: 0 \r\n");
    sdk_sim::advance_clock(1000);
    EXPECT_EQ(by_leaf("2", "true"), "value: 250 \r\n");
}

TEST_F(RemoteOamStatistics, LongFramesPassOnceTheMtuIsExtended)
{
    sdk_sim::advance_clock(10000);
    EXPECT_EQ(REMOTE_NEPONU_set_extend_mtu_size(0, 5, 1, 1), 0);
    sdk_sim::advance_clock(8000);
    EXPECT_EQ(by_leaf("25", "true"), "value: 10 \r\n");   // none since
    EXPECT_EQ(by_leaf("5", "true"), "value: 17954 \r\n"); // 9970 + 8000 - 16
    EXPECT_EQ(by_leaf("2", "true"), "value: 4502 \r\n");
}

TEST_F(RemoteOamStatistics, TrafficIsDrawnFromTheSeedUnlessItIsGiven)
{
    sdk_sim::advance_clock(1000);
    const std::string first = by_leaf("5", "true", "254");
    EXPECT_NE(first, "value: 999 \r\n");
    for (const auto& [seed, is_same] : {std::pair{"1", true}, {"2", false}}) {
        std::string scenario = devices();
        scenario.insert(scenario.find("[[olt]]"), std::string("[life]\nseed = ") + seed + "\n");
        load(scenario);
        sdk_sim::advance_clock(1000);
        EXPECT_EQ(by_leaf("5", "true", "254") == first, is_same) << seed;
    }
}

TEST_F(RemoteOamStatistics, RefusedWords)
{
    expect_keyword(show_remote_oam_stat_by_leaf, {"0", "5", "7", "2", "?"}, "rbx_onu", "true_false", 10);
    expect_refusals({
        {show_remote_oam_stat_by_leaf,
         {"0", "5", "256", "2", "true"},
         "Error in range of stat_branch parameter for command from input min:0 max:255, aborting\r\n"},
        {show_remote_oam_stat_by_leaf,
         {"0", "5", "x", "2", "true"},
         "Error reading stat_branch parameter for command from input, aborting\r\n"},
        {show_remote_oam_stat_by_leaf,
         {"0", "5", "7", "65536", "true"},
         "Error in range of stat_leaf parameter for command from input min:0 max:65535, aborting\r\n"},
        {show_remote_oam_stat_by_leaf,
         {"0", "5", "7", "-1", "true"},
         "Error reading negative value of stat_leaf parameter from input, aborting\r\n"},
    });
}

TEST_F(RemoteOamStatistics, FailedCalls)
{
    struct Case {
        std::string words;
        std::string own_words;
        const char* operation;
        std::string without_remote_management; // what ONUs 6 and 7 answer
        std::string silent;
    };
    const std::string no_onu = failure("ONU not available", -13015);
    const std::string time_out = failure("time out", -2);
    const std::string by_leaf_words = " stat-branch 7 stat-leaf 6 rbx-onu ";
    const std::string value = "value: 0 \r\n";
    const Case cases[] = {
        {"oam all-stats", "", "REMOTE_NEPONU_get_all_stats", no_onu, time_out},
        {"oam stat-by-leaf", by_leaf_words + "true", "REMOTE_NEPONU_get_stat_by_leaf", no_onu, time_out},
        {"oam stat-by-leaf", by_leaf_words + "false", "REMOTE_NEPONU_get_stat_by_leaf_standard", value, value},
    };
    for (const Case& test : cases) {
        const auto show = [&](const std::string& onu) {
            return type("show onu remote " + test.words + " " + onu + test.own_words);
        };
        EXPECT_EQ(show("0 6"), test.without_remote_management);
        EXPECT_EQ(show("0 7"), test.silent);
        for (const char* onu : {"0 8", "0 255", "0 -1", "0 4095"})
            EXPECT_EQ(show(onu), no_onu) << onu;
        EXPECT_EQ(show("0 9"), time_out);
        EXPECT_EQ(show("1 5"), failure("OLT not exist", -13013));
        EXPECT_EQ(result, 0);
        inject(test.operation, -13009);
        EXPECT_EQ(show("0 5"), failure("discard OAM", -13009));
        inject(test.operation, -17001);
        EXPECT_EQ(show("0 5"), failure("Error code was not found!!!", -17001));
        EXPECT_EQ(result, 0);
        journal();
        EXPECT_EQ(show("16 5"), "Error, OLT id (16) is out of bounds. OLT range: 0 - 15\n");
        EXPECT_EQ(result, -4);
        EXPECT_EQ(show("0 x"), "Error reading onu_index parameter for command from input, aborting\r\n");
        EXPECT_EQ(result, -1);
        EXPECT_EQ(journal(), Calls{});
    }
    EXPECT_EQ(type("show onu remote oam-stansard stat-by-leaf 0 9"), time_out);
    EXPECT_EQ(type("show onu remote oam-stansard stat-by-leaf 16 5"),
              "Error, OLT id (16) is out of bounds. OLT range: 0 - 15\n");
    EXPECT_EQ(result, -4);
    enter_onu(5);
    expect_remote_failures("remote oam-api clear-all-statistics", "REMOTE_NEPONU_clear_all_statistics");
}

} // namespace
