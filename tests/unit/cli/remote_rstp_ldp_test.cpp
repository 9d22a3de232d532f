// SPDX-License-Identifier: Apache-2.0
#include "REMOTE_MANAGEMENT_CLI/rstp_ldp.h"

#include "event_lines.h"
#include "managed_onus_fixture.h"

namespace {

using RstpLdp = ManagedOnus;

constexpr const char* DETECTED = "CLI: Got ONU RSTP loop detect event. OLT: 0, ONU: 5. Port: 1, Loop status: loop "
                                 "detected, Link status: link down\n";
constexpr const char* REPAIRED =
    "CLI: Got ONU RSTP loop detect event. OLT: 0, ONU: 5. Port: 1, Loop status: loop repaired, Link status: link up\n";

// What the printer of remote management writes, whose handler outlives a reset of the SDK no more than others.
class LoopLines : public EventLines {
  public:
    LoopLines()
    {
        EXPECT_EQ(CLI_remote_management_init(), 0);
        EXPECT_EQ(after(), "CLI: REMOTE_MANAGEMENT Handler functions assignment success\n");
        sdk_sim::take_journal();
    }
};

TEST_F(RstpLdp, ModeIsShownAsSet)
{
    const Show show = remote_show("rstp-ldp mode");
    expect_show(show, "mode: Disable \r\n", "REMOTE_NEPONU_rstp_ldp_get_mode(0, 5) = 0 -> 0");
    EXPECT_EQ(type("remote rstp-ldp mode enable"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"REMOTE_NEPONU_rstp_ldp_set_mode(0, 5, 1) = 0"});
    expect_show(show, "mode: Enable \r\n", "REMOTE_NEPONU_rstp_ldp_get_mode(0, 5) = 0 -> 1");
    EXPECT_EQ(type("remote rstp-ldp mode disable"), "");
    EXPECT_EQ(journal(), Calls{"REMOTE_NEPONU_rstp_ldp_set_mode(0, 5, 0) = 0"});
    expect_show(show, "mode: Disable \r\n", "REMOTE_NEPONU_rstp_ldp_get_mode(0, 5) = 0 -> 0");
}

TEST_F(RstpLdp, LoopIsFoundToldAndResolved)
{
    LoopLines lines;
    enter_onu(5);
    type("remote rstp-ldp mode enable");
    EXPECT_EQ(lines.after(60000), "");
    ASSERT_TRUE(sdk_sim::make_loop(0, 5, 1));
    EXPECT_EQ(lines.after(1999), "");
    EXPECT_EQ(lines.after(1), DETECTED); // with the next BPDU
    EXPECT_EQ(lines.after(60000), "");   // the port is closed
    journal();
    EXPECT_EQ(type("remote rstp-ldp resolve-loop port-number 0x1"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"REMOTE_NEPONU_rstp_ldp_resolve_loop(0, 5, 1) = 0"});
    EXPECT_EQ(lines.after(), REPAIRED);
    EXPECT_EQ(lines.after(60000), "");
    EXPECT_FALSE(sdk_sim::remove_loop(0, 5, 1)); // it is broken
    EXPECT_EQ(type("remote rstp-ldp resolve-loop port-number 1"), failure("mismatch", -13012));
    EXPECT_EQ(result, 0);
}

TEST_F(RstpLdp, LoopFromBeforeIsFoundOnceTheOnuLooks)
{
    LoopLines lines;
    enter_onu(5);
    ASSERT_TRUE(sdk_sim::make_loop(0, 5, 1));
    EXPECT_EQ(lines.after(60000), "");
    EXPECT_EQ(type("remote rstp-ldp resolve-loop port-number 1"), failure("bad configuration", -13008));
    EXPECT_EQ(result, 0);
    type("remote rstp-ldp mode enable");
    EXPECT_EQ(lines.after(2000), DETECTED);
    // The cable is gone, but the port stays closed until somebody opens it.
    ASSERT_TRUE(sdk_sim::remove_loop(0, 5, 1));
    EXPECT_EQ(lines.after(60000), "");
    EXPECT_EQ(type("remote rstp-ldp resolve-loop port-number 1"), "");
    EXPECT_EQ(lines.after(), REPAIRED);
}

TEST_F(RstpLdp, OnuThatDoesNotLookFindsNothing)
{
    LoopLines lines;
    enter_onu(5);
    type("remote rstp-ldp mode enable");
    ASSERT_TRUE(sdk_sim::make_loop(0, 5, 1));
    type("remote rstp-ldp mode disable"); // before the BPDU
    EXPECT_EQ(lines.after(60000), "");
}

TEST_F(RstpLdp, EachValueOfTheEventThatIsNotZeroIsTrue)
{
    LoopLines lines;
    std::string error;
    const int kind = 100;
    ASSERT_TRUE(sdk_sim::raise_event(kind, 15, "onu_id=254,port=-3,loop=-1,link=77", &error)) << error;
    EXPECT_EQ(lines.after(), "CLI: Got ONU RSTP loop detect event. OLT: 15, ONU: 254. Port: -3, Loop status: loop "
                             "detected, Link status: link up\n");
    ASSERT_TRUE(sdk_sim::raise_event(kind, 0, "", &error)) << error;
    EXPECT_EQ(lines.after(), "CLI: Got ONU RSTP loop detect event. OLT: 0, ONU: 0. Port: 0, Loop status: loop "
                             "repaired, Link status: link down\n");
}

TEST_F(RstpLdp, Refusals)
{
    enter_onu(5);
    expect_keyword(remote_rstp_ldp_mode, {"?"}, "mode", "enable_disable", 10);
    EXPECT_EQ(call(remote_rstp_ldp_resolve_loop, {"256"}),
              "Error in range of port_number parameter for command from input min:0 max:255, aborting\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(call(remote_rstp_ldp_resolve_loop, {"1x"}),
              "Error reading port_number parameter for command from input, aborting\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(RstpLdp, FailedCalls)
{
    enter_onu(5);
    const std::pair<const char*, const char*> commands[] = {
        {"show remote rstp-ldp mode", "REMOTE_NEPONU_rstp_ldp_get_mode"},
        {"remote rstp-ldp mode enable", "REMOTE_NEPONU_rstp_ldp_set_mode"},
        {"remote rstp-ldp resolve-loop port-number 0xff", "REMOTE_NEPONU_rstp_ldp_resolve_loop"}};
    for (const auto& [line, operation] : commands) {
        expect_remote_failures(line, operation);
    }
}

} // namespace
