// SPDX-License-Identifier: Apache-2.0
#include "links_fixture.h"

namespace {

constexpr const char* GONE = "onu-authorization-changed: olt 0, llid 5, mac 02-00-00-00-00-05, authorized no \r\n"
                             "oam-link-changed: olt 0, llid 5, state down \r\n";
constexpr const char* GIVEN = "onu-authorization-changed: olt 0, llid 5, mac 02-00-00-00-00-05, authorized yes \r\n"
                              "oam-link-changed: olt 0, llid 5, state up \r\n";

class Authorize : public Links {
  protected:
    int32_t mode(int16_t llid)
    {
        return NEP_get_onu_mode_extended(0, llid, nullptr);
    }
};

TEST_F(Authorize, AuthorizationIsTakenAndGiven)
{
    enter_llid(5);
    EventLines events;
    journal();
    EXPECT_EQ(type("no authorize"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"NEP_authorize_onu(0, 5, 0) = 0"});
    EXPECT_EQ(events.after(), GONE);
    EXPECT_EQ(mode(5), ONU_MODE_REGISTERED_UNAUTHORIZED);
    type("no authorize"); // no change, no event
    EXPECT_EQ(events.after(), "");
    journal();
    EXPECT_EQ(type("authorize"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"NEP_authorize_onu(0, 5, 1) = 0"});
    EXPECT_EQ(events.after(), GIVEN);
    EXPECT_EQ(mode(5), ONU_MODE_REGISTERED);
    type("authorize");
    EXPECT_EQ(events.after(), "");
}

TEST_F(Authorize, Reauthentication)
{
    enter_llid(5);
    EventLines events;
    journal();
    EXPECT_EQ(type("reauthenticate"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"NEP_reauthenticate_onu(0, 5) = 0"});
    EXPECT_EQ(events.after(499), GONE);
    EXPECT_EQ(mode(5), ONU_MODE_REGISTERED_UNAUTHORIZED);
    EXPECT_EQ(events.after(1), GIVEN);
    EXPECT_EQ(mode(5), ONU_MODE_REGISTERED);
    // What an operator says meanwhile goes before it.
    type("reauthenticate");
    type("no authorize");
    EXPECT_EQ(events.after(10000), GONE);
    EXPECT_EQ(type("reauthenticate"), WRONG_STATE);
    EXPECT_EQ(result, -1);
}

TEST_F(Authorize, FailuresAreReported)
{
    const std::pair<const char*, const char*> cases[] = {{"authorize", "NEP_authorize_onu"},
                                                         {"no authorize", "NEP_authorize_onu"},
                                                         {"reauthenticate", "NEP_reauthenticate_onu"}};
    for (const auto& [line, operation] : cases)
        expect_link_failures(line, operation);
}

} // namespace
