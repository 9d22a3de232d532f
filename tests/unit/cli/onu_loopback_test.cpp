// SPDX-License-Identifier: Apache-2.0
#include <cstring>

#include "links_fixture.h"
#include "olt/onu.h"

namespace {

constexpr const char* CLOSED = "loopback-changed: olt 0, onu 5, state closed \r\n";
constexpr const char* OPEN = "loopback-changed: olt 0, onu 5, state open \r\n";

using OnuLoopbacks = Links;

TEST_F(OnuLoopbacks, Standard)
{
    enter(OLT_NODE);
    const std::string label = "OLT_id: 0 \r\nstandard onu loopback mode: ";
    EXPECT_EQ(type("show standard-onu-loopback-mode onu-id 5"), label + "disable \r\n");
    EXPECT_EQ(journal(), Calls{"NEP_get_standard_onu_loopback(0, 5) = 0 -> 0"});
    EXPECT_EQ(type("set standard-onu-loopback onu-id 0x5"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"NEP_set_standard_onu_loopback(0, 5, 1) = 0"});
    EXPECT_EQ(type("show standard-onu-loopback-mode onu-id 5"), label + "enable \r\n");
    EXPECT_EQ(result, 0);
    journal();
    EXPECT_EQ(type("no standard-onu-loopback onu-id 5"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"NEP_set_standard_onu_loopback(0, 5, 0) = 0"});
    EXPECT_EQ(type("show standard-onu-loopback-mode onu-id 5"), label + "disable \r\n");
}

TEST_F(OnuLoopbacks, StandardRefusals)
{
    struct Case {
        const char* onu;
        const char* message;
    };
    const Case conversion[] = {
        {"x", "Error reading ONU_ID parameter for command from input, aborting\r\n"},
        {"32768", "Error in range of ONU_ID parameter for command from input min:-32767 max:32767, aborting\r\n"},
        {"-32768", "Error in range of ONU_ID parameter for command from input min:-32767 max:32767, aborting\r\n"},
    };
    const std::pair<const char*, const char*> commands[] = {
        {"set standard-onu-loopback onu-id ", "NEP_set_standard_onu_loopback"},
        {"no standard-onu-loopback onu-id ", "NEP_set_standard_onu_loopback"},
        {"show standard-onu-loopback-mode onu-id ", "NEP_get_standard_onu_loopback"}};
    for (const auto& [command, operation] : commands) {
        enter(OLT_NODE);
        for (const Case& test : conversion) {
            EXPECT_EQ(type(std::string(command) + test.onu), test.message);
            EXPECT_EQ(result, -1);
        }
        EXPECT_EQ(journal(), Calls{});
        for (const char* onu : {"6", "0", "255", "-1"}) {
            EXPECT_EQ(type(std::string(command) + onu), NO_ONU) << onu;
            EXPECT_EQ(result, -1007);
        }
        inject(operation, -5);
        EXPECT_EQ(type(std::string(command) + "5"), HARDWARE);
        EXPECT_EQ(result, -5);
        enter(OLT_NODE, 1);
        EXPECT_EQ(type(std::string(command) + "5"), NO_OLT);
        EXPECT_EQ(result, -1003);
        journal();
    }
    // OAM holds the loopback; a link that is not authorized has none.
    enter(OLT_NODE);
    EXPECT_EQ(type("set standard-onu-loopback onu-id 9"), NO_OAM);
    EXPECT_EQ(result, -1006);
}

TEST_F(OnuLoopbacks, TestsOfThePonPort)
{
    enter_onu(5, ONU_PON_NODE);
    const std::pair<const char*, const char*> cases[] = {
        {"test loopback type phy timeout 1 speed-limit mdio", "NEP_TESTING_set_onu_test_mode(0, 5, 1, 1, 1, 0) = 0"},
        {"no test loopback type pon-phy", "NEP_TESTING_set_onu_test_mode(0, 5, 1, 0, 0, 0) = 0"},
        {"test loopback type phy timeout 65535 speed-limit 10",
         "NEP_TESTING_set_onu_test_mode(0, 5, 1, 1, 65535, 10) = 0"},
        {"no test loopback type pon-phy", "NEP_TESTING_set_onu_test_mode(0, 5, 1, 0, 0, 0) = 0"},
        {"test loopback type phy timeout 30 speed-limit 100", "NEP_TESTING_set_onu_test_mode(0, 5, 1, 1, 30, 100) = 0"},
        {"test loopback type phy timeout 30 speed-limit 1000",
         "NEP_TESTING_set_onu_test_mode(0, 5, 1, 1, 30, 1000) = 0"},
        {"no test loopback type pon-phy", "NEP_TESTING_set_onu_test_mode(0, 5, 1, 0, 0, 0) = 0"},
        {"test loopback type mac", "NEP_TESTING_set_onu_test_mode(0, 5, 0, 1, 0, 0) = 0"},
        {"no test loopback type pon-mac", "NEP_TESTING_set_onu_test_mode(0, 5, 0, 0, 0, 0) = 0"},
    };
    for (const auto& [line, call] : cases) {
        EXPECT_EQ(type(line), "") << line;
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), Calls{call});
    }
}

TEST_F(OnuLoopbacks, EventsTellOfEachChange)
{
    enter_onu(5, ONU_PON_NODE);
    EventLines events;
    type("test loopback type phy timeout 30 speed-limit 100");
    EXPECT_EQ(events.after(0), CLOSED);
    EXPECT_EQ(events.after(29999), "");
    EXPECT_EQ(events.after(1), OPEN); // by itself
    type("test loopback type phy timeout 30 speed-limit 100");
    type("no test loopback type pon-phy");
    type("test loopback type mac");
    EXPECT_EQ(events.after(0), std::string(CLOSED) + OPEN + CLOSED);
    EXPECT_EQ(events.after(60000), ""); // the first one's end is not the second one's
    // Opening what is not closed changes nothing.
    type("no test loopback type pon-phy");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(events.after(0), "");
    enter(OLT_NODE);
    EXPECT_EQ(type("set standard-onu-loopback onu-id 5"), WRONG_STATE); // the MAC's is in its way
    EXPECT_EQ(result, -1);
    enter_onu(5, ONU_PON_NODE);
    type("no test loopback type pon-mac");
    EXPECT_EQ(events.after(0), OPEN);
    enter(OLT_NODE);
    type("set standard-onu-loopback onu-id 5");
    EXPECT_EQ(events.after(0), CLOSED);
    enter_onu(5, ONU_PON_NODE);
    EXPECT_EQ(type("test loopback type mac"), WRONG_STATE);
    EXPECT_EQ(result, -1);
    NEP_authorize_onu(0, 5, 0); // takes OAM away, and its loopback with it
    const std::string lines = events.after(0);
    EXPECT_NE(lines.find(OPEN), std::string::npos) << lines;
}

TEST_F(OnuLoopbacks, ByAddress)
{
    enter_onu(77, ONU_PON_NODE);
    session->onu_by_index = 0;
    strcpy(session->onu_mac, "02-00-00-00-00-05");
    EXPECT_EQ(type("test loopback type mac"), "");
    EXPECT_EQ(journal(), (Calls{"Mac_address_exist(0, 02-00-00-00-00-05) = 1 -> 5",
                                "NEP_TESTING_set_onu_test_mode(0, 5, 0, 1, 0, 0) = 0"}));
    EXPECT_STREQ(session->onu_mac, "02-00-00-00-00-05");
    strcpy(session->onu_mac, "02-00-00-00-00-77");
    EXPECT_EQ(type("no test loopback type pon-mac"), "There is no 02-00-00-00-00-77 mac address in the system\r\n");
    EXPECT_EQ(result, 0);
    strcpy(session->onu_mac, "02-00");
    EXPECT_EQ(type("test loopback type phy timeout 1 speed-limit 10"),
              "Error reading MAC address parameter from the MAC address string, aborting\r\n");
    EXPECT_EQ(result, 0);
}

TEST_F(OnuLoopbacks, TestRefusals)
{
    enter_onu(5, ONU_PON_NODE);
    const char* range = "Error in range of timeout parameter for command from input min:1 max:65535, aborting\r\n";
    const std::pair<const char*, const char*> timeouts[] = {
        {"0", range},
        {"65536", range},
        {"-1", "Error reading negative value of timeout parameter from input, aborting\r\n"},
        {"1s", "Error reading timeout parameter for command from input, aborting\r\n"}};
    for (const auto& [timeout, message] : timeouts) {
        EXPECT_EQ(call(onu_test_phy_mode, {timeout, "10"}), message);
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(call(onu_test_phy_mode, {"1", "10000"}),
              "Error reading speed_limit parameter (of the type speed_limit), aborting\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(call(no_onu_test_mode, {"mac"}),
              "Error reading type parameter (of the type loopback_type), aborting\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(journal(), Calls{});
    for (const char* line : {"test loopback type phy timeout 1 speed-limit 10", "test loopback type mac",
                             "no test loopback type pon-mac"}) {
        enter_onu(5, ONU_PON_NODE);
        inject("NEP_TESTING_set_onu_test_mode", -5);
        EXPECT_EQ(type(line), HARDWARE);
        EXPECT_EQ(result, -5);
        enter_onu(6, ONU_PON_NODE);
        EXPECT_EQ(type(line), NO_ONU);
        EXPECT_EQ(result, -1007);
        enter_onu(5, ONU_PON_NODE, 1);
        EXPECT_EQ(type(line), NO_OLT);
        EXPECT_EQ(result, -1003);
    }
}

} // namespace
