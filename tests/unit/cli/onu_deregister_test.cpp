// SPDX-License-Identifier: Apache-2.0
#include "olt/onu_deregister.h"

#include "links_fixture.h"

namespace {

class OnuDeregister : public Links {
  protected:
    OnuDeregister()
    {
        enter(OLT_NODE);
    }
};

constexpr const char* LEFT = "onu-deregistered: olt 0, onu 5, mac 02-00-00-00-00-05, reason command \r\n";

TEST_F(OnuDeregister, EachForm)
{
    const std::string found = "Mac_address_exist(0, 02-00-00-00-00-0a) = 1 -> 10";
    const std::pair<const char*, Calls> cases[] = {
        {"onu deregister 5", {"NEP_deregister_onu(0, 5, 0) = 0"}},
        {"onu deregister 0xFE wait-for-completion", {"NEP_deregister_onu(0, 254, 1) = 0"}},
        {"onu deregister onu-mac-address 02-00-00-00-00-0A", {found, "NEP_deregister_onu(0, 10, 0) = 0"}},
        {"onu deregister onu-mac-address 2-0-0-0-0-a wait-for-completion", {found, "NEP_deregister_onu(0, 10, 1) = 0"}},
        {"onu dereg onu-mac 2-0-0-0-0-b wait",
         {"Mac_address_exist(0, 02-00-00-00-00-0b) = 1 -> 11", "NEP_deregister_onu(0, 11, 1) = 0"}},
    };
    for (const auto& [line, calls] : cases) {
        EXPECT_EQ(type(line), "") << line;
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), calls);
    }
}

TEST_F(OnuDeregister, TheOnuLeaves)
{
    EventLines events;
    EXPECT_EQ(type("onu deregister 5"), "");
    EXPECT_EQ(events.after(), "");
    EXPECT_EQ(events.after(1000), LEFT);
    EXPECT_EQ(type("onu deregister 5"), NO_ONU);
    EXPECT_EQ(result, -1007);
    EXPECT_EQ(events.after(100000), ""); // here it stays away
}

TEST_F(OnuDeregister, WaitingEndsWhenTheOnuHasLeft)
{
    EventLines events;
    EXPECT_EQ(type("onu deregister 5"), ""); // is still on its way
    EXPECT_EQ(type("onu deregister 5 wait-for-completion"), "");
    EXPECT_EQ(events.after(), LEFT);
    EXPECT_EQ(type("onu deregister 5 wait-for-completion"), NO_ONU);
    EXPECT_EQ(events.after(1000), "");
}

TEST_F(OnuDeregister, OnusComeBackWhereTheScenarioSaysSo)
{
    load(laboratory({{5}}, "[life]\nreturn_time = 5\n"));
    EventLines events;
    type("onu deregister 5 wait-for-completion");
    EXPECT_EQ(events.after(4999), LEFT);
    EXPECT_EQ(events.after(1), "onu-registered: olt 0, onu 5, mac 02-00-00-00-00-05, rate 1G/1G, rtt 1000 \r\n");
    EXPECT_EQ(type("onu deregister 5"), "");
}

TEST_F(OnuDeregister, Refusals)
{
    struct Case {
        const char* onu;
        const char* message;
        int result;
    };
    const Case cases[] = {
        {"x", "Error reading ONU_INDEX parameter for command from input, aborting\r\n", -1},
        {"5x", "Error reading ONU_INDEX parameter for command from input, aborting\r\n", -1},
        {"32768", "Error in range of ONU_INDEX parameter for command from input min:-32767 max:32767, aborting\r\n",
         -1},
        {"-32768", "Error in range of ONU_INDEX parameter for command from input min:-32767 max:32767, aborting\r\n",
         -1},
        {"onu-mac-address 02-00-00-00-00-055", "Error reading mac_address has wrong length, aborting\r\n", -1},
        {"onu-mac-address 5", "Error reading MAC address parameter from the MAC address string, aborting\r\n", -1},
        {"onu-mac-address 02:00:00:00:00:05",
         "Error reading MAC address parameter from the MAC address string, aborting\r\n", -1},
    };
    for (const char* wait : {"", " wait-for-completion"}) {
        for (const Case& test : cases) {
            EXPECT_EQ(type(std::string("onu deregister ") + test.onu + wait), test.message) << test.onu;
            EXPECT_EQ(result, test.result);
        }
        EXPECT_EQ(journal(), Calls{});
        EXPECT_EQ(type(std::string("onu deregister onu-mac-address 02-00-00-00-00-99") + wait),
                  "There is no ONU with 02-00-00-00-00-99 mac address in the system\r\n");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), Calls{"Mac_address_exist(0, 02-00-00-00-00-99) = 0"});
    }
}

TEST_F(OnuDeregister, Failures)
{
    for (const char* wait : {"", " wait-for-completion"}) {
        for (const char* onu : {"6", "0", "255", "-1", "32767", "-32767"}) {
            EXPECT_EQ(type(std::string("onu deregister ") + onu + wait), NO_ONU) << onu;
            EXPECT_EQ(result, -1007);
        }
        inject("NEP_deregister_onu", -2);
        EXPECT_EQ(type(std::string("onu deregister 5") + wait),
                  "Command return error.\r\ntime out (error code : -2)\r\n");
        EXPECT_EQ(result, -2);
        enter(OLT_NODE, 1);
        EXPECT_EQ(type(std::string("onu deregister 5") + wait), NO_OLT);
        EXPECT_EQ(result, -1003);
        enter(OLT_NODE);
    }
}

} // namespace
