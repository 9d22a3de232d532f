// SPDX-License-Identifier: Apache-2.0
#include "REMOTE_MANAGEMENT_CLI/mp_application.h"

#include "event_lines.h"
#include "onu_devices_fixture.h"

namespace {

constexpr const char* JOINED =
    "multicast-group-changed: olt 0, llid 5, group 33-33-00-01-00-05, vlan 0, state joined \r\n";
constexpr const char* LEFT = "multicast-group-changed: olt 0, llid 5, group 33-33-00-01-00-05, vlan 0, state left \r\n";

using RemoteMpApplication = OnuDevices;

TEST_F(RemoteMpApplication, Version)
{
    expect_show(remote_show("mp-application mld-version"),
                "major_version: 1 \r\nminor_version: 2 \r\nbuild_version: 65535 \r\n",
                "REMOTE_NEPONU_mp_mld_get_version(0, 5) = 0 -> {major=1,minor=2,build=65535}");
}

TEST_F(RemoteMpApplication, GroupIsJoinedWhileItRuns)
{
    EventLines events;
    journal();
    expect_set("remote mp-application mld-init", "REMOTE_NEPONU_mp_mld_init(0, 5) = 0");
    EXPECT_EQ(events.after(999), "");
    EXPECT_EQ(events.after(1), JOINED);
    expect_set("remote mp-application mld-terminate", "REMOTE_NEPONU_mp_mld_terminate(0, 5) = 0");
    EXPECT_EQ(events.after(60000), LEFT);
}

TEST_F(RemoteMpApplication, WrongOrder)
{
    EXPECT_EQ(type("remote mp-application mld-terminate"), failure("bad configuration", -13008));
    EXPECT_EQ(result, 0);
    EXPECT_EQ(type("remote mp-application mld-init"), "");
    EXPECT_EQ(type("remote mp-application mld-init"), failure("already exist", -13010));
    EXPECT_EQ(result, 0);
    EXPECT_EQ(type("remote mp-application mld-terminate"), "");
    EXPECT_EQ(type("remote mp-application mld-terminate"), failure("bad configuration", -13008));
}

TEST_F(RemoteMpApplication, StoppedBeforeTheFirstAnswerItJoinsNothing)
{
    EventLines events;
    type("remote mp-application mld-init");
    EXPECT_EQ(events.after(500), "");
    type("remote mp-application mld-terminate");
    type("remote mp-application mld-init");
    EXPECT_EQ(events.after(999), ""); // the first start's answer is not the second one's
    EXPECT_EQ(events.after(1), JOINED);
}

TEST_F(RemoteMpApplication, EventsThatAreSwitchedOffAreNotSent)
{
    EventLines events;
    EXPECT_EQ(REMOTE_NEPONU_set_event_configuration(0, 5, 23, 0), 0);
    type("remote mp-application mld-init");
    EXPECT_EQ(events.after(1000), "");
    type("remote mp-application mld-terminate");
    EXPECT_EQ(events.after(), LEFT);
}

TEST_F(RemoteMpApplication, FailedCalls)
{
    expect_remote_failures("show remote mp-application mld-version", "REMOTE_NEPONU_mp_mld_get_version");
    expect_remote_failures("remote mp-application mld-init", "REMOTE_NEPONU_mp_mld_init");
    expect_remote_failures("remote mp-application mld-terminate", "REMOTE_NEPONU_mp_mld_terminate");
}

} // namespace
