// SPDX-License-Identifier: Apache-2.0
#include "olt/onu.h"

#include <cstring>

#include "links_fixture.h"

namespace {

std::string out_of_bounds(int onu)
{
    return "Can't enter onu mode, ONU id (" + std::to_string(onu) + ") is out of bounds. ONU range: 0 - 254\r\n";
}

std::string unregistered(int onu, int olt_id = 0)
{
    return "Error, ONU " + std::to_string(onu) + " of OLT id " + std::to_string(olt_id) +
           " isn't registered. Entering to onu mode can be activated only after ONU registration.\r\n";
}

class OnuNode : public Links {
  protected:
    void begin(int16_t olt_id = 0)
    {
        enter(OLT_NODE, olt_id);
        session->onu_id = 77;
        session->onu_by_index = 9;
        strcpy(session->onu_mac, "before");
        journal();
    }

    void expect_unchanged()
    {
        EXPECT_EQ(session->node, OLT_NODE);
        EXPECT_EQ(session->onu_id, 77);
        EXPECT_EQ(session->onu_by_index, 9);
        EXPECT_STREQ(session->onu_mac, "before");
    }
};

TEST_F(OnuNode, RegisteredAndStaticOnusAreEntered)
{
    const std::pair<const char*, int> cases[] = {{"5", 5},   {"9", 9},  {"254", 254}, {"6", 6},
                                                 {"12", 12}, {"05", 5}, {"5x", 5}};
    for (const auto& [word, onu] : cases) {
        begin();
        EXPECT_EQ(type(std::string("onu ") + word), "") << word;
        EXPECT_EQ(result, 0);
        EXPECT_EQ(session->node, ONU_NODE);
        EXPECT_EQ(session->onu_id, onu);
        EXPECT_EQ(session->onu_by_index, 1);
        EXPECT_STREQ(session->onu_mac, "before");
        EXPECT_EQ(engine::prompt(session), "LAB(OLT0 ONU " + std::to_string(onu) + ")# ");
    }
    begin();
    type("onu 5");
    EXPECT_EQ(journal(), (Calls{"Get_onu_record_static_mode(0, 5) = 0", "NEP_get_onu_mode_extended(0, 5) = 201 -> 0"}));
}

TEST_F(OnuNode, RefusalsAreFailures)
{
    struct Case {
        const char* word;
        int asked;
        std::string line;
        int result;
    };
    const Case cases[] = {
        {"255", 255, out_of_bounds(255), -4},
        {"-1", -1, out_of_bounds(-1), -4},
        {"4095", 4095, out_of_bounds(4095), -4},
        // What 16 bits cannot hold does not wrap into an index.
        {"65541", 32767, out_of_bounds(65541), -4},
        {"-65531", -32768, out_of_bounds(-65531), -4},
        {"99999999999", 32767, out_of_bounds(2147483647), -4},
        {"-99999999999", -32768, out_of_bounds(-2147483647 - 1), -4},
        {"0", 0, unregistered(0), -1007},
        {"0x5", 0, unregistered(0), -1007}, // decimal only
        {"tower", 0, unregistered(0), -1007},
        {"8", 8, unregistered(8), -1007},
        {"7", 7,
         "ONU 7 of OLT id 0 is warned for mode change. Can't enter onu cli mode, ONU mode need to be changed.\r\n",
         -1007},
    };
    for (const Case& test : cases) {
        begin();
        EXPECT_EQ(type(std::string("onu ") + test.word), test.line);
        EXPECT_EQ(result, test.result) << test.word;
        expect_unchanged();
        const Calls calls = journal();
        const std::string target = "(0, " + std::to_string(test.asked) + ") = ";
        ASSERT_EQ(calls.size(), 2u);
        EXPECT_EQ(calls[0], "Get_onu_record_static_mode" + target + "0");
        EXPECT_TRUE(calls[1].starts_with("NEP_get_onu_mode_extended" + target)) << calls[1];
    }
    begin(1);
    EXPECT_EQ(type("onu 5"), unregistered(5, 1));
    EXPECT_EQ(result, -1007);
    expect_unchanged();
}

TEST_F(OnuNode, TheFirstIndexOutOfBounds)
{
    begin();
    EXPECT_EQ(type("onu 255"), "Can't enter onu mode, ONU id (255) is out of bounds. ONU range: 0 - 254\r\n");
    EXPECT_EQ(result, -4);
    expect_unchanged();
}

TEST_F(OnuNode, ByAddress)
{
    for (const char* mac : {"02-00-00-00-00-05", "2-0-0-0-0-5"}) {
        begin();
        EXPECT_EQ(type(std::string("onu onu-mac-address ") + mac), "");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(session->node, ONU_NODE);
        EXPECT_EQ(session->onu_id, 5);
        EXPECT_EQ(session->onu_by_index, 0);
        EXPECT_STREQ(session->onu_mac, mac);
        EXPECT_EQ(journal(), Calls{"Mac_address_exist(0, 02-00-00-00-00-05) = 1 -> 5"});
    }
}

TEST_F(OnuNode, AddressesThatAreRefused)
{
    struct Case {
        const char* mac;
        const char* line;
        int result;
    };
    const char* malformed = "Error reading MAC address parameter from the MAC address string, aborting\r\n";
    const Case cases[] = {
        {"", "Error reading mac_address parameter for command from input, aborting\r\n", -1},
        {"02-00-00-00-00-005", "Error reading mac_address has wrong length, aborting\r\n", -1},
        {"02-00-00-00-00", malformed, 0},
        {"02-00-00-00-00-0g", malformed, 0},
        {"02-00-00-00-00-77", "There is no ONU with 02-00-00-00-00-77 mac address in the system\r\n", 0},
        {"ff-ff-ff-ff-ff-ff", "There is no ONU with ff-ff-ff-ff-ff-ff mac address in the system\r\n", 0},
    };
    for (const Case& test : cases) {
        begin();
        EXPECT_EQ(call(onu_node_mac_config, {test.mac}), test.line) << test.mac;
        EXPECT_EQ(result, test.result) << test.mac;
        expect_unchanged();
    }
}

TEST_F(OnuNode, SubContexts)
{
    const std::pair<const char*, int> cases[] = {{"pon", ONU_PON_NODE}, {"uni", UNI_NODE}};
    for (const auto& [word, node] : cases) {
        enter_onu(5);
        EXPECT_EQ(type(word), "");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(session->node, node);
        EXPECT_EQ(session->onu_id, 5);
        EXPECT_EQ(session->onu_by_index, 1);
        type("exit");
        EXPECT_EQ(session->node, ONU_NODE);
    }
    EXPECT_EQ(journal(), Calls{});
}

} // namespace
