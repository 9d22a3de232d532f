// SPDX-License-Identifier: Apache-2.0
#include "REMOTE_MANAGEMENT_CLI/frame_processing.h"

#include "managed_onus_fixture.h"

namespace {

using RemoteFrameProcessing = ManagedOnus;

std::string key_lines(int vlan_id, int vlan_priority, int mac_sa, int mac_da)
{
    return "VLAN ID key: " + std::to_string(vlan_id) + " \r\nVLAN ID prio key: " + std::to_string(vlan_priority) +
           " \r\nMAC SA key: " + std::to_string(mac_sa) + " \r\nMAC DA key: " + std::to_string(mac_da) + " \r\n";
}

TEST_F(RemoteFrameProcessing, ThresholdsOfReports)
{
    std::string text = "thresholds_enable: Enable \r\nqueue_sets: 2 \r\n";
    for (int queue = 0; queue < 8; ++queue)
        text += "queue_" + std::to_string(queue) + "_threshold: 500 \r\n";
    expect_show(remote_show("frame-processing threshold-reporter-configuration"), text,
                "REMOTE_NEPONU_get_threshold_reporter_configuration(0, 5) = 0 -> "
                "{enabled=1,queue_sets=2,threshold=[500,500,500,500,500,500,500,500]}");
}

TEST_F(RemoteFrameProcessing, ThresholdsComeFromTheScenario)
{
    load(laboratory({{5, "[olt.onu.reports]\nthresholds = false\nqueue_sets = 4\nthreshold = 65535"}}));
    enter_onu(5);
    std::string text = "thresholds_enable: Disable \r\nqueue_sets: 4 \r\n";
    for (int queue = 0; queue < 8; ++queue)
        text += "queue_" + std::to_string(queue) + "_threshold: 65535 \r\n";
    EXPECT_EQ(type("show remote frame-processing threshold-reporter-configuration"), text);
}

TEST_F(RemoteFrameProcessing, LagHashKeyInConfigAndOnuNodesOnly)
{
    Show show = remote_show("frame-processing lag-hash-key");
    show.nodes = {CONFIG_NODE};
    expect_show(show, key_lines(0, 0, 1, 1), "REMOTE_NEPONU_ne_get_lag_hash_key(0, 5) = 0 -> 0, 0, 1, 1");
    expect_set("remote frame-processing lag-hash-key vlan-id-key 1 vlan-pri-key 0x1 mac-sa-key 0x0 mac-da-key 0",
               "REMOTE_NEPONU_ne_set_lag_hash_key(0, 5, 1, 1, 0, 0) = 0");
    expect_show(show, key_lines(1, 1, 0, 0), "REMOTE_NEPONU_ne_get_lag_hash_key(0, 5) = 0 -> 1, 1, 0, 0");
    for (const int node : {VIEW_NODE, ENABLE_NODE}) {
        enter(node);
        type("show onu remote frame-processing lag-hash-key 0 5");
        EXPECT_EQ(status, engine::MatchStatus::Unknown);
    }
}

TEST_F(RemoteFrameProcessing, KeyNumbers)
{
    enter_onu(5);
    const char* names[] = {"vlan_id_key_enable", "vlan_pri_key_enable", "mac_sa_key_enable", "mac_da_key_enable"};
    for (size_t i = 0; i < 4; ++i) {
        const std::string name = names[i];
        const auto refusal_of = [&](const std::string& word) {
            std::vector<std::string> words(4, "1");
            words[i] = word;
            const std::string text = call(remote_lag_hash_key, words);
            EXPECT_EQ(result, -1);
            return text;
        };
        EXPECT_EQ(refusal_of("x"), "Error reading " + name + " parameter for command from input, aborting\r\n");
        EXPECT_EQ(refusal_of("1z"), "Error reading " + name + " parameter for command from input, aborting\r\n");
        EXPECT_EQ(refusal_of("-1"), "Error reading negative value of " + name + " parameter from input, aborting\r\n");
        EXPECT_EQ(refusal_of("99999999999999999999"),
                  "Error reading " + name + " parameter for command from input, aborting\r\n");
    }
    EXPECT_EQ(journal(), Calls{});
    const std::string command = "remote frame-processing lag-hash-key vlan-id-key ";
    expect_refusal(command + "2 vlan-pri-key 0 mac-sa-key 0 mac-da-key 0", "parameter error", -4);
    expect_refusal(command + "0xffffffff vlan-pri-key 0 mac-sa-key 0 mac-da-key 0", "parameter error", -4);
    expect_refusal(command + "0 vlan-pri-key 0 mac-sa-key 0 mac-da-key 0", "bad configuration", -13008);
}

TEST_F(RemoteFrameProcessing, FailedCalls)
{
    expect_remote_failures("show remote frame-processing threshold-reporter-configuration",
                           "REMOTE_NEPONU_get_threshold_reporter_configuration");
    expect_remote_failures("show remote frame-processing lag-hash-key", "REMOTE_NEPONU_ne_get_lag_hash_key");
    expect_remote_failures(
        "remote frame-processing lag-hash-key vlan-id-key 1 vlan-pri-key 1 mac-sa-key 1 mac-da-key 1",
        "REMOTE_NEPONU_ne_set_lag_hash_key");
}

} // namespace
