// SPDX-License-Identifier: Apache-2.0
#include "olt/llid.h"

#include <cstring>

#include "links_fixture.h"

namespace {

std::string out_of_bounds(int llid)
{
    return "Can't enter llid mode, llid (" + std::to_string(llid) + ") is out of bounds. llid range: 0 - 254\r\n";
}

std::string unregistered(int llid, int olt_id = 0)
{
    return "Error, LLID " + std::to_string(llid) + " of OLT id " + std::to_string(olt_id) +
           " isn't registered. Entering to LLID mode can be activated only after LLID registration.\r\n";
}

class LlidNode : public Links {
  protected:
    // The session is where it was, with what it had.
    void expect_unchanged()
    {
        EXPECT_EQ(session->node, OLT_NODE);
        EXPECT_EQ(session->llid, 77);
        EXPECT_EQ(session->onu_by_index, 9);
        EXPECT_STREQ(session->onu_mac, "before");
    }

    void begin(int16_t olt_id = 0)
    {
        enter(OLT_NODE, olt_id);
        session->llid = 77;
        session->onu_by_index = 9;
        memset(session->onu_mac, 0, sizeof session->onu_mac);
        strcpy(session->onu_mac, "before");
        journal();
    }

    std::string both_questions(int llid, int is_static, const std::string& mode)
    {
        const std::string target = "(0, " + std::to_string(llid) + ") = ";
        return "Get_onu_record_static_mode" + target + std::to_string(is_static) + "\nNEP_get_onu_mode_extended" +
               target + mode;
    }

    std::string joined_journal()
    {
        std::string text;
        for (const std::string& call : journal())
            text += (text.empty() ? "" : "\n") + call;
        return text;
    }
};

TEST_F(LlidNode, RegisteredAndStaticLinksAreEntered)
{
    struct Case {
        const char* word;
        int llid, is_static;
        const char* mode;
    };
    const Case cases[] = {
        {"5", 5, 0, "201 -> 0"},      {"0x5", 5, 0, "201 -> 0"}, {"9", 9, 0, "203 -> 0"},   {"254", 254, 0, "201 -> 0"},
        {"0xFE", 254, 0, "201 -> 0"}, {"6", 6, 1, "200 -> 0"},   {"12", 12, 1, "200 -> 1"},
    };
    for (const Case& test : cases) {
        begin();
        EXPECT_EQ(type(std::string("llid ") + test.word), "");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(session->node, LLID_NODE);
        EXPECT_EQ(session->llid, test.llid);
        EXPECT_EQ(session->onu_by_index, 1);
        EXPECT_STREQ(session->onu_mac, "before");
        EXPECT_EQ(joined_journal(), both_questions(test.llid, test.is_static, test.mode));
        EXPECT_EQ(engine::prompt(session), "LAB(OLT0 LLID " + std::to_string(test.llid) + ")# ");
    }
}

TEST_F(LlidNode, RefusalsStayInTheOltNodeWithSuccess)
{
    struct Case {
        const char* word;
        int llid;
        const char* mode;
        std::string line;
    };
    const Case cases[] = {
        {"255", 255, "200 -> 0", out_of_bounds(255)},
        {"0xff", 255, "200 -> 0", out_of_bounds(255)},
        {"4095", 4095, "200 -> 0", out_of_bounds(4095)},
        {"-1", -1, "200 -> 0", out_of_bounds(-1)},
        {"32767", 32767, "200 -> 0", out_of_bounds(32767)},
        {"-32767", -32767, "200 -> 0", out_of_bounds(-32767)},
        {"0", 0, "200 -> 0", unregistered(0)},
        {"8", 8, "202 -> 0", unregistered(8)},
        {"7", 7, "201 -> 1",
         "LLID 7 of OLT id 0 is warned for mode change. Can't enter llid cli mode, LLID mode need to be changed.\r\n"},
    };
    for (const Case& test : cases) {
        begin();
        EXPECT_EQ(type(std::string("llid ") + test.word), test.line);
        EXPECT_EQ(result, 0);
        expect_unchanged();
        // Both questions come before the bounds.
        EXPECT_EQ(joined_journal(), both_questions(test.llid, 0, test.mode));
    }
    begin(1); // an OLT that has left in the meantime
    EXPECT_EQ(type("llid 5"), unregistered(5, 1));
    EXPECT_EQ(result, 0);
    expect_unchanged();
}

TEST_F(LlidNode, TheLastIndexAndTheFirstOutOfBounds)
{
    begin();
    EXPECT_EQ(type("llid 254"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(session->node, LLID_NODE);
    EXPECT_EQ(session->llid, 254);
    begin();
    EXPECT_EQ(type("llid 255"), "Can't enter llid mode, llid (255) is out of bounds. llid range: 0 - 254\r\n");
    EXPECT_EQ(result, 0);
    expect_unchanged();
}

TEST_F(LlidNode, AStaticRecordIsEnteredInAModeThatIsNotRegistered)
{
    for (const int16_t mode : {200, 202, 0}) {
        begin();
        inject("NEP_get_onu_mode_extended", mode);
        EXPECT_EQ(type("llid 6"), "") << mode;
        EXPECT_EQ(session->node, LLID_NODE);
        EXPECT_EQ(session->llid, 6);
        EXPECT_EQ(session->onu_by_index, 1);
    }
}

TEST_F(LlidNode, AnyModeButTheRegisteredOnesIsRefused)
{
    for (const int16_t mode : {0, 199, 200, 202, 204, -1}) {
        begin();
        inject("NEP_get_onu_mode_extended", mode);
        EXPECT_EQ(type("llid 5"), unregistered(5)) << mode;
        EXPECT_EQ(result, 0);
        expect_unchanged();
        // A static record is entered in any mode.
        inject("NEP_get_onu_mode_extended", mode);
        EXPECT_EQ(type("llid 6"), "") << mode;
        EXPECT_EQ(session->node, LLID_NODE);
    }
}

TEST_F(LlidNode, IndexConversion)
{
    const char* read_error = "Error reading LLID_INDEX parameter for command from input, aborting\r\n";
    const char* range_error =
        "Error in range of LLID_INDEX parameter for command from input min:-32767 max:32767, aborting\r\n";
    const std::pair<const char*, const char*> cases[] = {
        {"5x", read_error},     {"x", read_error},       {"", read_error},        {"\x02", read_error},
        {"0x", read_error},     {"0x-1", read_error},    {"broad", read_error},   {"99999999999", read_error},
        {"32768", range_error}, {"-32768", range_error}, {"0x8000", range_error}, {"65541", range_error},
    };
    for (const auto& [word, message] : cases) {
        begin();
        EXPECT_EQ(call(llid_node_config, {word}), message) << word;
        EXPECT_EQ(result, -1);
        expect_unchanged();
        EXPECT_EQ(journal(), Calls{});
    }
}

TEST_F(LlidNode, Broadcast)
{
    begin();
    EXPECT_EQ(type("llid broadcast"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(session->node, BC_LLID_NODE);
    EXPECT_EQ(session->llid, 0xFFF);
    EXPECT_EQ(session->onu_by_index, 1);
    EXPECT_STREQ(session->onu_mac, "before");
    EXPECT_EQ(journal(), Calls{});
    EXPECT_EQ(engine::prompt(session), "LAB(OLT0 LLID-BROADCAST)# ");

    begin();
    EXPECT_EQ(type("llid broad"), "Error reading LLID_INDEX parameter for command from input, aborting\r\n");
    EXPECT_EQ(result, -1);
    expect_unchanged();
}

TEST_F(LlidNode, BroadcastByAddress)
{
    begin();
    memset(session->onu_mac, '*', 20);
    EXPECT_EQ(type("llid llid-mac-address ff-ff-ff-ff-ff-ff"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(session->node, BC_LLID_NODE);
    EXPECT_EQ(session->llid, 0xFFF);
    EXPECT_EQ(session->onu_by_index, 0);
    EXPECT_STREQ(session->onu_mac, "ff-ff-**************"); // six characters, and no end of their own
    EXPECT_EQ(journal(), Calls{});

    begin();
    memset(session->onu_mac, 0, sizeof session->onu_mac);
    type("llid llid-mac-address ff-ff-ff-ff-ff-ff");
    EXPECT_STREQ(session->onu_mac, "ff-ff-");
}

TEST_F(LlidNode, ByAddress)
{
    // The address is kept as it was typed. Neither registration nor warnings matter.
    const std::pair<const char*, int> cases[] = {
        {"02-00-00-00-00-05", 5}, {"2-0-0-0-0-5", 5}, {"02-00-00-00-00-FE", 254}, {"02-00-00-00-00-07", 7}};
    for (const auto& [mac, llid] : cases) {
        begin();
        EXPECT_EQ(type(std::string("llid llid-mac-address ") + mac), "") << mac;
        EXPECT_EQ(result, 0);
        EXPECT_EQ(session->node, LLID_NODE);
        EXPECT_EQ(session->llid, llid);
        EXPECT_EQ(session->onu_by_index, 0);
        EXPECT_STREQ(session->onu_mac, mac);
        EXPECT_EQ(engine::prompt(session), std::string("LAB(OLT0 LLID ") + mac + ")# ");
    }
    begin();
    type("llid llid-mac-address 02-00-00-00-00-05");
    EXPECT_EQ(journal(), Calls{"Mac_address_exist(0, 02-00-00-00-00-05) = 1 -> 5"});
}

TEST_F(LlidNode, AddressesThatAreRefused)
{
    struct Case {
        const char* mac;
        const char* line;
        int result;
    };
    const char* malformed = "Error reading MAC address parameter from the MAC address string, aborting\r\n";
    const Case cases[] = {
        {"", "Error reading mac_address parameter for command from input, aborting\r\n", -1},
        {"  ", "Error reading mac_address parameter for command from input, aborting\r\n", -1},
        {"02-00-00-00-00-005", "Error reading mac_address has wrong length, aborting\r\n", -1},
        {"02-00-00-00-00", malformed, 0},
        {"02-00-00-00-00-0g", malformed, 0},
        {"02-00-00-00-00-77", "There is no 02-00-00-00-00-77 mac address in the system\r\n", 0},
        {"FF-FF-FF-FF-FF-FF", "There is no FF-FF-FF-FF-FF-FF mac address in the system\r\n", 0},
    };
    for (const Case& test : cases) {
        begin();
        EXPECT_EQ(call(llid_node_mac_config, {test.mac}), test.line) << test.mac;
        EXPECT_EQ(result, test.result) << test.mac;
        expect_unchanged();
    }
}

} // namespace
