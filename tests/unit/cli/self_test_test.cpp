// SPDX-License-Identifier: Apache-2.0
#include "olt/self_test.h"

#include <utility>

#include "console_fixture.h"

namespace {

using Calls = std::vector<std::string>;

std::vector<std::string> completed; // on the event thread, which drain_events waits for

void keep(int16_t olt_id, const SelfTestCompletedEvent* event)
{
    completed.push_back(std::to_string(olt_id) + ": " + std::to_string(event->tests_failed) + " of " +
                        std::to_string(event->tests_run));
}

class SelfTest : public Console {
  protected:
    SelfTest()
    {
        load_firmware("");
        completed.clear();
        sdk_sim::start();
        enter(OLT_NODE);
    }
    ~SelfTest() override
    {
        sdk_sim::stop();
    }
    // The network's clock stands still, but for wait().
    void load_firmware(const std::string& firmware)
    {
        load("[clock]\nspeed = 0\n\n[[olt]]\nid = 0\nmac = \"00-0a-c4-00-00-01\"\n" + firmware);
    }
    std::vector<std::string> wait(uint64_t milliseconds)
    {
        sdk_sim::advance_clock(milliseconds);
        sdk_sim::drain_events();
        return std::exchange(completed, {});
    }
    void listen()
    {
        uint16_t id = 0;
        EventHandler handler = reinterpret_cast<EventHandler>(keep);
        ASSERT_EQ(NEP_assign_handler_function(EVENT_SELF_TEST_COMPLETED, handler, &id), 0);
        journal();
    }
};

TEST_F(SelfTest, TheResultIsAnEvent)
{
    listen();
    EXPECT_EQ(type("self-test"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"NEP_olt_self_test(0) = 0"});
    EXPECT_EQ(wait(1999), Calls{});
    EXPECT_EQ(type("self-test"), "Command return error.\r\nexit error (error code : -1)\r\n"); // one at a time
    EXPECT_EQ(result, -1);
    EXPECT_EQ(wait(1), Calls{"0: 0 of 4"});
    EXPECT_EQ(type("self-test"), "");
    EXPECT_EQ(wait(2000), Calls{"0: 0 of 4"});
}

TEST_F(SelfTest, WhatIsOutOfOrderFails)
{
    load_firmware("[olt.firmware]\ntemperature = 85.1\n");
    listen();
    type("self-test");
    EXPECT_EQ(wait(2000), Calls{"0: 1 of 4"});
    type("set led-mode led-type pon0-link-up led-mode on");
    enter(CONFIG_NODE);
    type("set uart olt 0 value 1 start-loopback true");
    enter(OLT_NODE);
    type("self-test");
    EXPECT_EQ(wait(2000), Calls{"0: 3 of 4"});
}

TEST_F(SelfTest, AResetEndsIt)
{
    listen();
    type("self-test");
    enter(CONFIG_NODE);
    type("no olt 0");
    EXPECT_EQ(wait(5000), Calls{});
}

TEST_F(SelfTest, FailuresAreReported)
{
    inject("NEP_olt_self_test", -3);
    EXPECT_EQ(type("self-test"), "Command return error.\r\nnot implemented (error code : -3)\r\n");
    EXPECT_EQ(result, -3);
    enter(OLT_NODE, 1);
    EXPECT_EQ(type("self-test"), "Command return error.\r\nOLT not exist (error code : -1003)\r\n");
    EXPECT_EQ(result, -1003);
}

} // namespace
