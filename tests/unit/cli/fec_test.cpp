// SPDX-License-Identifier: Apache-2.0
#include <cstring>

#include "links_fixture.h"
#include "olt/onu.h"

namespace {

std::string answer(const char* mode)
{
    return std::string("OLT_id: 0 \r\nfec: ") + mode + " \r\n";
}

using Fec = Links;

TEST_F(Fec, SetAndNo)
{
    enter_llid(5);
    EXPECT_EQ(type("set fec downlink"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"NEP_set_llid_fec_mode(0, 5, 1) = 0"});
    EXPECT_EQ(type("show fec"), answer("downlink"));
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"NEP_get_llid_fec_mode(0, 5) = 0 -> 1"});
    EXPECT_EQ(type("no fec"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"NEP_set_llid_fec_mode(0, 5, 0) = 0"});
    EXPECT_EQ(type("show fec"), answer("off"));
}

TEST_F(Fec, AlwaysOnWhereALinkRunsAt10G)
{
    const std::pair<int16_t, const char*> cases[] = {{10, "uplink-downlink"}, {11, "downlink"}};
    for (const auto& [llid, mode] : cases) {
        enter_llid(llid);
        EXPECT_EQ(type("show fec"), answer(mode));
        for (const char* line : {"set fec downlink", "no fec"}) {
            EXPECT_EQ(type(line),
                      "Command return error.\r\nnot supported in current HW version (error code : -1005)\r\n");
            EXPECT_EQ(result, -1005);
        }
        EXPECT_EQ(type("show fec"), answer(mode));
    }
}

TEST_F(Fec, ShowInEveryNodeAndForm)
{
    enter_llid(5);
    type("set fec downlink");
    for (const int node : {VIEW_NODE, ENABLE_NODE, LLID_NODE}) {
        SCOPED_TRACE(node);
        enter(node, 1); // these forms bring their own target
        session->llid = 77;
        journal();
        for (const char* line : {"show llid fec 0 5", "show llid fec 0x0 0x5"}) {
            EXPECT_EQ(type(line), answer("downlink"));
            EXPECT_EQ(journal(), Calls{"NEP_get_llid_fec_mode(0, 5) = 0 -> 1"});
        }
        for (const char* line : {"show llid fec 0 llid-mac-address 02-00-00-00-00-05", "sho ll fe 0 ll 2-0-0-0-0-5"}) {
            EXPECT_EQ(type(line), answer("downlink"));
            EXPECT_EQ(journal(), (Calls{"Mac_address_exist(0, 02-00-00-00-00-05) = 1 -> 5",
                                        "NEP_get_llid_fec_mode(0, 5) = 0 -> 1"}));
        }
        EXPECT_EQ(type("show llid fec 0 broadcast-llid"), answer("off"));
        EXPECT_EQ(journal(), Calls{"NEP_get_llid_fec_mode(0, 4095) = 0 -> 0"});
    }
    for (const int node : {VIEW_NODE, LLID_NODE}) {
        enter(node);
        session->llid = 5;
        EXPECT_EQ(type("show fec"), answer("downlink"));
        EXPECT_EQ(journal(), Calls{"NEP_get_llid_fec_mode(0, 5) = 0 -> 1"});
    }
}

// A link that was entered by address is looked up again: its ONU may have another link by now.
TEST_F(Fec, OfTheLinkThatAnAddressHasNow)
{
    enter(OLT_NODE);
    type("llid llid-mac-address 2-0-0-0-0-5");
    session->llid = 77;
    journal();
    const std::string found = "Mac_address_exist(0, 02-00-00-00-00-05) = 1 -> 5";
    const std::pair<const char*, const char*> cases[] = {{"set fec downlink", "NEP_set_llid_fec_mode(0, 5, 1) = 0"},
                                                         {"show fec", "NEP_get_llid_fec_mode(0, 5) = 0 -> 1"},
                                                         {"no fec", "NEP_set_llid_fec_mode(0, 5, 0) = 0"}};
    for (const auto& [line, call] : cases) {
        EXPECT_EQ(type(line), std::string(line) == "show fec" ? answer("downlink") : "");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), (Calls{found, call}));
    }
    strcpy(session->onu_mac, "02-00-00-00-00-77");
    for (const auto& [line, call] : cases) {
        EXPECT_EQ(type(line), "There is no 02-00-00-00-00-77 mac address in the system\r\n") << line;
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), Calls{"Mac_address_exist(0, 02-00-00-00-00-77) = 0"});
    }
}

// The broadcast link is corrected when no link is left that could not follow.
TEST_F(Fec, Broadcast)
{
    enter(BC_LLID_NODE);
    for (const int16_t llid : {5, 7, 9, 254}) {
        EXPECT_EQ(type("show llid fec 0 broadcast-llid"), answer("off"));
        enter_llid(llid);
        type("set fec downlink");
        enter(BC_LLID_NODE);
    }
    EXPECT_EQ(type("show llid fec 0 broadcast-llid"), answer("downlink"));
}

TEST_F(Fec, RefusedTargets)
{
    enter(VIEW_NODE);
    const std::pair<const char*, const char*> cases[] = {
        {"show llid fec x 5", "Error reading OLT_id parameter for command from input, aborting\r\n"},
        {"show llid fec 32768 5",
         "Error in range of OLT_id parameter for command from input min:-32767 max:32767, aborting\r\n"},
        {"show llid fec x broadcast-llid", "Error reading OLT_id parameter for command from input, aborting\r\n"},
        {"show llid fec 0 5x", "Error reading LLID_INDEX parameter for command from input, aborting\r\n"},
        {"show llid fec 0 99999",
         "Error in range of LLID_INDEX parameter for command from input min:-32767 max:32767, aborting\r\n"},
        {"show llid fec x llid-mac-address 02-00-00-00-00-05",
         "Error reading OLT_id parameter for command from input, aborting\r\n"},
        {"show llid fec 0 llid-mac-address 02-00-00-00-00-005",
         "Error reading mac_address has wrong length, aborting\r\n"},
    };
    for (const auto& [line, message] : cases) {
        EXPECT_EQ(type(line), message) << line;
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
    EXPECT_EQ(type("show llid fec 0 llid-mac-address 02-00-00-00-00"),
              "Error reading MAC address parameter from the MAC address string, aborting\r\n");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(type("show llid fec 0 llid-mac-address 02-00-00-00-00-77"),
              "There is no 02-00-00-00-00-77 mac address in the system\r\n");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"Mac_address_exist(0, 02-00-00-00-00-77) = 0"});
}

TEST_F(Fec, FailuresAreReported)
{
    const std::pair<const char*, const char*> cases[] = {{"set fec downlink", "NEP_set_llid_fec_mode"},
                                                         {"no fec", "NEP_set_llid_fec_mode"},
                                                         {"show fec", "NEP_get_llid_fec_mode"}};
    for (const auto& [line, operation] : cases) {
        enter_llid(5);
        inject(operation, -5);
        EXPECT_EQ(type(line), HARDWARE);
        EXPECT_EQ(result, -5);
        enter_llid(6); // not registered
        EXPECT_EQ(type(line), NO_ONU);
        EXPECT_EQ(result, -1007);
        enter_llid(5, 1); // an absent OLT
        EXPECT_EQ(type(line), NO_OLT);
        EXPECT_EQ(result, -1003);
    }
}

} // namespace
