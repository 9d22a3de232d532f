// SPDX-License-Identifier: Apache-2.0
#include "olt/olt_loopback.h"

#include "links_fixture.h"

namespace {

class OltLoopbacks : public Links {
  protected:
    OltLoopbacks()
    {
        enter(OLT_NODE);
    }
};

constexpr std::pair<const char*, const char*> LOOPBACKS[] = {
    {"test loopback type pon-mac", "NEP_set_loopback_mode(0, 1) = 0"},
    {"test loopback type pon-phy", "NEP_set_loopback_mode(0, 2) = 0"},
    {"test loopback type system-phy", "NEP_set_loopback_mode(0, 3) = 0"},
    {"test loopback type system-mac", "NEP_set_loopback_mode(0, 4) = 0"},
    {"test loopback type sniff", "NEP_set_loopback_mode(0, 5) = 0"},
    {"no test loopback", "NEP_set_loopback_mode(0, 0) = 0"},
};

TEST_F(OltLoopbacks, EachPort)
{
    for (const auto& [line, call] : LOOPBACKS) {
        EXPECT_EQ(type(line), "") << line;
        EXPECT_EQ(result, 0) << line;
        EXPECT_EQ(journal(), Calls{call});
    }
}

TEST_F(OltLoopbacks, ChangesAreTold)
{
    EventLines events;
    const std::string closed = "loopback-changed: olt 0, onu -1, state closed \r\n";
    const std::string open = "loopback-changed: olt 0, onu -1, state open \r\n";
    type("no test loopback");
    EXPECT_EQ(events.after(), "");
    type("test loopback type pon-mac");
    EXPECT_EQ(events.after(), closed);
    type("test loopback type pon-mac");
    EXPECT_EQ(events.after(), "");
    type("test loopback type sniff"); // one at a time
    EXPECT_EQ(events.after(), open + closed);
    type("no test loopback");
    EXPECT_EQ(events.after(), open);
}

TEST_F(OltLoopbacks, Refusals)
{
    for (const char* word : {"", "pon", "pon-macs", "none"}) {
        EXPECT_EQ(call(test_loopback_mode, {word}),
                  "Error reading type parameter (of the type test_loopback), aborting\r\n");
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
    for (const auto& [line, call] : LOOPBACKS) {
        enter(OLT_NODE);
        inject("NEP_set_loopback_mode", -5);
        EXPECT_EQ(type(line), HARDWARE);
        EXPECT_EQ(result, -5);
        enter(OLT_NODE, 1);
        EXPECT_EQ(type(line), NO_OLT);
        EXPECT_EQ(result, -1003);
    }
}

} // namespace
