// SPDX-License-Identifier: Apache-2.0
#include "olt/grants.h"

#include "links_fixture.h"

namespace {

class Grants : public Links {
  protected:
    Grants()
    {
        // The tables live as long as the process.
        for (const int16_t olt_id : {1, 0}) {
            enter(OLT_PON_NODE, olt_id);
            type("set-grants clear-table");
        }
        type("dba stop");
        journal();
    }
};

TEST_F(Grants, ATableIsAppliedAsAWhole)
{
    EXPECT_EQ(type("set-grants add-record 5 grant-length 1"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(type("set-grants add-record 0xfe grant-length 0xFFFF"), "");
    EXPECT_EQ(type("set-grants add-record 5 grant-length 1000"), "");
    EXPECT_EQ(journal(), Calls{});
    EXPECT_EQ(type("set-grants apply cycle-size 66536"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"NEP_set_grants(0, [5:1,254:65535,5:1000], 66536) = 0"});
    // It is still there, until it is cleared.
    EXPECT_EQ(type("set-grants apply cycle-size 0xffffffff"), "");
    EXPECT_EQ(journal(), Calls{"NEP_set_grants(0, [5:1,254:65535,5:1000], 4294967295) = 0"});
    EXPECT_EQ(type("set-grants clear-table"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(type("set-grants apply cycle-size 100"), BAD_PARAMETER);
    EXPECT_EQ(result, -4);
    EXPECT_EQ(journal(), Calls{"NEP_set_grants(0, [], 100) = -4"});
}

TEST_F(Grants, LinksByMacAddress)
{
    EXPECT_EQ(type("set-grants add-record llid-mac-address 02-00-00-00-00-0A grant-length 20"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(type("set-grants apply cycle-size 20"), "");
    EXPECT_EQ(journal(),
              (Calls{"Mac_address_exist(0, 02-00-00-00-00-0a) = 1 -> 10", "NEP_set_grants(0, [10:20], 20) = 0"}));
    type("set-grants clear-table");
    struct Case {
        const char* mac;
        const char* message;
        int result;
    };
    const Case cases[] = {
        {"02-00-00-00-00-99", "There is no 02-00-00-00-00-99 mac address in the system\r\n", 0},
        {"02-00-00-00-00-055", "Error reading mac_address has wrong length, aborting\r\n", -1},
        {"5", "Error reading MAC address parameter from the MAC address string, aborting\r\n", -1},
    };
    for (const Case& test : cases) {
        EXPECT_EQ(type(std::string("set-grants add-record llid-mac-address ") + test.mac + " grant-length 20"),
                  test.message);
        EXPECT_EQ(result, test.result);
    }
    journal();
    type("set-grants apply cycle-size 20");
    EXPECT_EQ(journal(), Calls{"NEP_set_grants(0, [], 20) = -4"});
}

TEST_F(Grants, Numbers)
{
    const std::pair<const char*, const char*> cases[] = {
        {"add-record x grant-length 1", "Error reading LLID_INDEX parameter for command from input, aborting\r\n"},
        {"add-record 32768 grant-length 1",
         "Error in range of LLID_INDEX parameter for command from input min:-32767 max:32767, aborting\r\n"},
        {"add-record 5 grant-length x", "Error reading GRANT_LENGTH parameter for command from input, aborting\r\n"},
        {"add-record 5 grant-length -1",
         "Error reading negative value of GRANT_LENGTH parameter from input, aborting\r\n"},
        {"add-record 5 grant-length 65536",
         "Error in range of GRANT_LENGTH parameter for command from input min:0 max:65535, aborting\r\n"},
        {"apply cycle-size 1k", "Error reading GRANT_CYCLE_SIZE parameter for command from input, aborting\r\n"},
        {"apply cycle-size 0x100000000",
         "Error reading GRANT_CYCLE_SIZE parameter for command from input, aborting\r\n"},
        {"apply cycle-size -1", "Error reading negative value of GRANT_CYCLE_SIZE parameter from input, aborting\r\n"},
    };
    for (const auto& [words, message] : cases) {
        EXPECT_EQ(type(std::string("set-grants ") + words), message) << words;
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(Grants, TheTableIsBounded)
{
    for (int i = 0; i < GRANT_TABLE_SIZE; ++i)
        EXPECT_EQ(type("set-grants add-record 5 grant-length 7"), "");
    EXPECT_EQ(type("set-grants add-record 5 grant-length 7"),
              "Error, the table of grants is full (256 records), aborting\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(type("set-grants apply cycle-size 1792"), "");
    EXPECT_EQ(result, 0);
    std::string grants = "5:7";
    for (int i = 1; i < GRANT_TABLE_SIZE; ++i)
        grants += ",5:7";
    EXPECT_EQ(journal(), Calls{"NEP_set_grants(0, [" + grants + "], 1792) = 0"});
}

TEST_F(Grants, EachOltHasItsOwnTable)
{
    type("set-grants add-record 5 grant-length 7");
    enter(OLT_PON_NODE, 1);
    type("set-grants add-record 6 grant-length 8");
    EXPECT_EQ(type("set-grants apply cycle-size 100"), NO_OLT);
    EXPECT_EQ(result, -1003);
    enter(OLT_PON_NODE);
    type("set-grants apply cycle-size 100");
    EXPECT_EQ(journal(), (Calls{"NEP_set_grants(1, [6:8], 100) = -1003", "NEP_set_grants(0, [5:7], 100) = 0"}));
    for (const int16_t olt_id : {-1, 16}) {
        for (const auto& [handler, words] : std::vector<std::pair<cmd_handler*, std::vector<std::string>>>{
                 {set_grants_clear, {}}, {set_grants_add, {"5", "7"}}, {set_grants_apply, {"100"}}}) {
            enter(OLT_PON_NODE, olt_id);
            EXPECT_EQ(call(handler, words), NO_OLT);
            EXPECT_EQ(result, -1003);
        }
    }
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(Grants, WhatTheDeviceRefuses)
{
    struct Case {
        const char* record;
        const char* cycle_size;
        std::string message;
        int result;
    };
    const Case cases[] = {
        {"5 grant-length 0", "100", BAD_PARAMETER, -4},   {"5 grant-length 101", "100", BAD_PARAMETER, -4},
        {"6 grant-length 10", "100", NO_ONU, -1007},      {"255 grant-length 10", "100", NO_ONU, -1007},
        {"-32767 grant-length 10", "100", NO_ONU, -1007},
    };
    for (const Case& test : cases) {
        type("set-grants clear-table");
        type(std::string("set-grants add-record ") + test.record);
        EXPECT_EQ(type(std::string("set-grants apply cycle-size ") + test.cycle_size), test.message) << test.record;
        EXPECT_EQ(result, test.result);
    }
    inject("NEP_set_grants", -2);
    EXPECT_EQ(type("set-grants apply cycle-size 1"), "Command return error.\r\ntime out (error code : -2)\r\n");
    EXPECT_EQ(result, -2);
}

TEST_F(Grants, ABandwidthAllocationKeepsThemOut)
{
    load(links());
    type("set-grants add-record 5 grant-length 7");
    EXPECT_EQ(type("set-grants apply cycle-size 100"),
              "Command return error.\r\ndba already running (error code : -1009)\r\n");
    EXPECT_EQ(result, -1009);
    type("dba stop");
    EXPECT_EQ(type("set-grants apply cycle-size 100"), "");
    EXPECT_EQ(result, 0);
}

} // namespace
