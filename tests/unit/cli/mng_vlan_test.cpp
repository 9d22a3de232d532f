// SPDX-License-Identifier: Apache-2.0
#include "olt/mng_vlan.h"

#include "links_fixture.h"

namespace {

class MngVlan : public Links {};

struct Item {
    const char* word;
    int code;
    const char* label;
    const char* before_value; // of the setting command
    const char* shown_first;
    std::vector<std::pair<const char*, std::string>> values; // typed, as a number
};

const std::vector<Item>& items()
{
    static const std::vector<std::pair<const char*, std::string>> states = {{"enable", "1"}, {"disable", "0"}};
    static const std::vector<std::pair<const char*, std::string>> vlans = {
        {"0", "0"}, {"4095", "4095"}, {"0x10", "16"}};
    static const std::vector<std::pair<const char*, std::string>> priorities = {{"7", "7"}, {"0", "0"}, {"0x5", "5"}};
    static const std::vector<Item> table = {
        {"host-to-olt-vlan", 0, "host to olt vlan", "", "disable", states},
        {"olt-to-host-vlan", 1, "olt to host vlan", "", "disable", states},
        {"host-to-olt-vlan-id", 2, "host to olt vlan id", "vlan ", "1", vlans},
        {"olt-to-host-vlan-id", 3, "olt to host vlan id", "vlan ", "1", vlans},
        {"host-to-olt-vlan-prio", 4, "host to olt vlan prio", "prio ", "0", priorities},
        {"olt-to-host-vlan-mng-prio", 5, "olt to host vlan mng prio", "prio ", "0", priorities},
        {"olt-to-host-vlan-oam-prio", 6, "olt to host vlan oam prio", "prio ", "0", priorities},
        {"olt-to-host-vlan-protocol-prio", 8, "olt to host vlan protocol prio", "prio ", "0", priorities},
    };
    return table;
}

std::string set_line(const Item& item, const std::string& olt, const std::string& value)
{
    return "set mng-vlan olt " + olt + " " + item.word + " " + item.before_value + value;
}

std::string show_line(const Item& item, const std::string& olt)
{
    return "show mng-vlan olt " + olt + " " + item.word;
}

std::string answer(const Item& item, const std::string& value)
{
    return std::string("OLT_id: 0 \r\n") + item.label + ": " + value + " \r\n";
}

TEST_F(MngVlan, EachItemIsSetAndShown)
{
    for (const Item& item : items())
        EXPECT_EQ(type(show_line(item, "0")), answer(item, item.shown_first));
    journal();
    for (const Item& item : items()) {
        for (const auto& [typed, number] : item.values) {
            const std::string code = std::to_string(item.code);
            EXPECT_EQ(type(set_line(item, "0", typed)), "") << item.word;
            EXPECT_EQ(result, 0);
            EXPECT_EQ(journal(),
                      Calls{"NEP_set_olt_management_vlan_configuration(0, " + code + ", " + number + ") = 0"});
            EXPECT_EQ(type(show_line(item, "0x0")), answer(item, item.before_value[0] == '\0' ? typed : number));
            EXPECT_EQ(result, 0);
            EXPECT_EQ(journal(), Calls{"NEP_get_olt_management_vlan_configuration(0, " + code + ") = 0 -> " + number});
        }
    }
}

TEST_F(MngVlan, IgmpFramesFollowTheOtherProtocols)
{
    const std::string show = "show mng-vlan olt 0 olt-to-host-vlan-igmp-prio";
    EXPECT_EQ(type(show), "OLT_id: 0 \r\nolt to host vlan igmp prio: 0 \r\n");
    EXPECT_EQ(type("set mng-vlan olt 0 olt-to-host-vlan-oam-prio prio 3"), "");
    EXPECT_EQ(type("set mng-vlan olt 0 olt-to-host-vlan-protocol-prio prio 6"), "");
    EXPECT_EQ(type(show), "OLT_id: 0 \r\nolt to host vlan igmp prio: 6 \r\n");
    EXPECT_EQ(journal().back(), "NEP_get_olt_management_vlan_configuration(0, 7) = 0 -> 6");
}

TEST_F(MngVlan, OneItemLeavesTheOthersAlone)
{
    type("set mng-vlan olt 0 host-to-olt-vlan-id vlan 100");
    type("set mng-vlan olt 0 olt-to-host-vlan enable");
    for (const Item& item : items()) {
        const std::string shown = item.code == 1 ? "enable" : item.code == 2 ? "100" : item.shown_first;
        EXPECT_EQ(type(show_line(item, "0")), answer(item, shown));
    }
}

TEST_F(MngVlan, NumbersThatTheSdkRefuses)
{
    for (const char* line :
         {"set mng-vlan olt 0 host-to-olt-vlan-id vlan 4096", "set mng-vlan olt 0 olt-to-host-vlan-id vlan 65535",
          "set mng-vlan olt 0 host-to-olt-vlan-prio prio 8", "set mng-vlan olt 0 olt-to-host-vlan-mng-prio prio 8",
          "set mng-vlan olt 0 olt-to-host-vlan-oam-prio prio 0x8",
          "set mng-vlan olt 0 olt-to-host-vlan-protocol-prio prio 65535"}) {
        EXPECT_EQ(type(line), BAD_PARAMETER) << line;
        EXPECT_EQ(result, -4);
    }
    for (const Item& item : items())
        EXPECT_EQ(type(show_line(item, "0")), answer(item, item.shown_first));
}

TEST_F(MngVlan, NumbersThatAreRefused)
{
    const std::vector<std::pair<const char*, const char*>> commands = {
        {"set mng-vlan olt 0 host-to-olt-vlan-id vlan ", "VLAN"},
        {"set mng-vlan olt 0 olt-to-host-vlan-oam-prio prio ", "PRIO"},
    };
    for (const auto& [command, name_text] : commands) {
        const std::string name = name_text;
        const std::vector<std::pair<const char*, std::string>> cases = {
            {"65536", "Error in range of " + name + " parameter for command from input min:0 max:65535, aborting\r\n"},
            {"-1", "Error reading negative value of " + name + " parameter from input, aborting\r\n"},
            {"7z", "Error reading " + name + " parameter for command from input, aborting\r\n"},
        };
        for (const auto& [word, message] : cases) {
            EXPECT_EQ(type(std::string(command) + word), message) << command << word;
            EXPECT_EQ(result, -1);
        }
    }
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(MngVlan, WordsThatAreRefused)
{
    const std::string not_an_item = "Error reading mng_vlan parameter (of the type mng_vlan), aborting\r\n";
    for (const char* word : {"", "vlan", "host-to-olt-vlan-igmp-prio"}) {
        EXPECT_EQ(call(set_olt_mng_vlan_cfg, {"0", word, "enable"}), not_an_item) << word;
        EXPECT_EQ(call(set_olt_mng_vlan_id, {"0", word, "1"}), not_an_item) << word;
        EXPECT_EQ(call(set_olt_mng_vlan_prio, {"0", word, "1"}), not_an_item) << word;
        EXPECT_EQ(call(show_olt_mng_vlan_cfg, {"0", word}), not_an_item) << word;
        EXPECT_EQ(call(show_olt_mng_vlan_id, {"0", word}), not_an_item) << word;
        EXPECT_EQ(call(show_olt_mng_vlan_prio, {"0", word}), not_an_item) << word;
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(call(set_olt_mng_vlan_prio, {"0", "olt-to-host-vlan-igmp-prio", "1"}), not_an_item); // shown only
    const std::vector<std::pair<const char*, const char*>> states = {
        {"on", "Error reading mng_vlan parameter (of the type enable_disable), aborting\r\n"},
        {"0123456789", "Error reading mng_vlan parameter, internal buffer is too short, aborting!\r\n"},
        {" ", "Error reading mng_vlan parameter for command from input, aborting\r\n"},
    };
    for (const auto& [word, message] : states) {
        EXPECT_EQ(call(set_olt_mng_vlan_cfg, {"0", "host-to-olt-vlan", word}), message);
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(MngVlan, FailuresAndAbsentOlts)
{
    const std::string misread = "Error reading OLT_id parameter for command from input, aborting\r\n";
    for (const Item& item : items()) {
        const std::string value = item.values[0].first;
        inject("NEP_set_olt_management_vlan_configuration", -5);
        EXPECT_EQ(type(set_line(item, "0", value)), HARDWARE) << item.word;
        EXPECT_EQ(result, -5);
        inject("NEP_get_olt_management_vlan_configuration", -5);
        EXPECT_EQ(type(show_line(item, "0")), HARDWARE) << item.word;
        EXPECT_EQ(result, -5);
        for (const char* olt : {"1", "16", "-1"}) {
            EXPECT_EQ(type(set_line(item, olt, value)), NO_OLT) << item.word;
            EXPECT_EQ(result, -1003);
            EXPECT_EQ(type(show_line(item, olt)), NO_OLT) << item.word;
            EXPECT_EQ(result, -1003);
        }
        journal();
        EXPECT_EQ(type(set_line(item, "0y", value)), misread) << item.word;
        EXPECT_EQ(result, -1);
        EXPECT_EQ(type(show_line(item, "0y")), misread) << item.word;
        EXPECT_EQ(result, -1);
        EXPECT_EQ(journal(), Calls{});
    }
}

} // namespace
