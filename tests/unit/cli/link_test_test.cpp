// SPDX-License-Identifier: Apache-2.0
#include "links_fixture.h"
#include "olt/llid.h"

namespace {

class LinkTests : public Links {
  protected:
    // The completed test as the event tells it: number after the name.
    static long value(const std::string& line, const std::string& name)
    {
        const std::size_t at = line.find(" " + name + " ");
        EXPECT_NE(at, std::string::npos) << line;
        return at == std::string::npos ? -1 : std::stol(line.substr(at + name.size() + 2));
    }
};

TEST_F(LinkTests, EveryForm)
{
    const std::pair<const char*, const char*> cases[] = {
        {"test link-test number-of-frames 1 size 56 delay-measurement disable vlan disable", "1, 56, 0, 0, 0, 0"},
        {"test link-test number-of-frames 32766 size 1514 delay-measurement enable vlan disable",
         "32766, 1514, 1, 0, 0, 0"},
        {"test link-test number-of-frames 10 size 64 delay-measurement enable vlan enable vlan-priority 7 vlan-tag "
         "4094",
         "10, 64, 1, 1, 7, 4094"},
        {"test link-test number-of-frames 10 size 64 delay-measurement disable vlan enable vlan-priority 0 vlan-tag 0",
         "10, 64, 0, 1, 0, 0"},
        {"test link-test continuous size 60 vlan disable", "32767, 60, 0, 0, 0, 0"},
        {"test link-test continuous size 1514 vlan enable vlan-priority 3 vlan-tag 100", "32767, 1514, 0, 1, 3, 100"},
    };
    for (const auto& [line, arguments] : cases) {
        enter_llid(5);
        journal();
        EXPECT_EQ(type(line), "") << line;
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), Calls{std::string("NEP_link_test(0, 5, ") + arguments + ") = 0"});
        EXPECT_EQ(type(line), WRONG_STATE); // one test at a time
        EXPECT_EQ(result, -1);
        journal();
        EXPECT_EQ(type("no link-test delay-measurement enable"), "");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), Calls{"NEP_link_test(0, 5, 0, 0, 1, 0, 0, 0) = 0"});
        EXPECT_EQ(type("no link-test delay-measurement disable"), WRONG_STATE); // none runs any more
        EXPECT_EQ(result, -1);
    }
}

TEST_F(LinkTests, ACountedTestEndsByItself)
{
    enter_llid(5);
    EventLines events;
    type("test link-test number-of-frames 100 size 64 delay-measurement disable vlan disable");
    EXPECT_EQ(events.after(99), "");
    EXPECT_EQ(events.after(1),
              "link-test-completed: olt 0, llid 5, frames-sent 100, frames-received 100, frame-errors 0, min-delay 0, "
              "max-delay 0, average-delay 0 \r\n");
    EXPECT_EQ(events.after(100000), "");
    type("test link-test number-of-frames 100 size 1000 delay-measurement enable vlan disable");
    const std::string line = events.after(100);
    // Round trip 1000, and 8000 bits at 16 bits a time quantum in each direction.
    EXPECT_EQ(value(line, "min-delay"), 2000);
    EXPECT_GE(value(line, "max-delay"), 2000);
    EXPECT_LT(value(line, "max-delay"), 2016);
    EXPECT_LE(value(line, "average-delay"), value(line, "max-delay"));
    EXPECT_GE(value(line, "average-delay"), 2000);
}

TEST_F(LinkTests, AContinuousTestEndsWhenItIsStopped)
{
    enter_llid(5);
    EventLines events;
    type("test link-test continuous size 64 vlan disable");
    EXPECT_EQ(events.after(3600000), "");
    type("no link-test delay-measurement enable");
    const std::string line = events.after();
    EXPECT_EQ(value(line, "frames-sent"), 3600000);
    EXPECT_EQ(value(line, "frames-received"), 3600000);
    EXPECT_EQ(value(line, "min-delay"), 1064);
    // A counted test that is stopped does not end a second time.
    type("test link-test number-of-frames 100 size 64 delay-measurement enable vlan disable");
    sdk_sim::advance_clock(40);
    type("no link-test delay-measurement disable");
    const std::string stopped = events.after(1000);
    EXPECT_EQ(value(stopped, "frames-sent"), 40);
    EXPECT_EQ(value(stopped, "min-delay"), 0);
    EXPECT_EQ(stopped.find("link-test-completed", 1), std::string::npos);
}

TEST_F(LinkTests, LostFramesAreCounted)
{
    std::string scenario = links();
    scenario.replace(scenario.find("rtt = 1000"), 10, "frame_error_rate = 10000");
    load(scenario);
    enter_llid(5);
    EventLines events;
    type("test link-test number-of-frames 32766 size 64 delay-measurement disable vlan disable");
    const std::string line = events.after(32766);
    EXPECT_GE(value(line, "frame-errors"), 327); // 1 %, rounded one way or the other
    EXPECT_LE(value(line, "frame-errors"), 328);
    EXPECT_EQ(value(line, "frames-received"), 32766 - value(line, "frame-errors"));
}

TEST_F(LinkTests, RefusedWords)
{
    using Words = std::vector<std::string>;
    enter_llid(5);
    struct Case {
        cmd_handler* handler;
        Words words;
        const char* message;
    };
    const char* frames_range =
        "Error in range of number_of_frames parameter for command from input min:1 max:32766, aborting\r\n";
    const char* size_range = "Error in range of size parameter for command from input min:56 max:1514, aborting\r\n";
    const char* cont_range = "Error in range of size parameter for command from input min:60 max:1514, aborting\r\n";
    const char* priority_range =
        "Error in range of vlan_priority parameter for command from input min:0 max:7, aborting\r\n";
    const char* tag_range = "Error in range of vlan_tag parameter for command from input min:0 max:4094, aborting\r\n";
    const char* delay_word = "Error reading delay_measurement parameter (of the type enable_disable), aborting\r\n";
    const char* delay_length = "Error reading delay_measurement parameter, internal buffer is too short, aborting!\r\n";
    const Case cases[] = {
        {link_test_num_of_frames, {"0", "64", "enable"}, frames_range},
        {link_test_num_of_frames, {"32767", "64", "enable"}, frames_range},
        {link_test_num_of_frames,
         {"-1", "64", "enable"},
         "Error reading negative value of number_of_frames parameter from input, aborting\r\n"},
        {link_test_num_of_frames,
         {"1x", "64", "enable"},
         "Error reading number_of_frames parameter for command from input, aborting\r\n"},
        {link_test_num_of_frames, {"1", "55", "enable"}, size_range},
        {link_test_num_of_frames, {"1", "1515", "enable"}, size_range},
        {link_test_num_of_frames, {"1", "56", "on"}, delay_word},
        {link_test_num_of_frames, {"1", "56", "enableenable"}, delay_length},
        {link_test_num_of_frames, {"1", "56", "enable", "8", "0"}, priority_range},
        {link_test_num_of_frames, {"1", "56", "enable", "0", "4095"}, tag_range},
        {link_test_cont, {"59"}, cont_range},
        {link_test_cont, {"1515"}, cont_range},
        {link_test_cont, {"60", "8", "0"}, priority_range},
        {link_test_cont, {"60", "7", "4095"}, tag_range},
        {no_link_test, {"on"}, delay_word},
        {no_link_test, {"disabledisable"}, delay_length},
    };
    for (const Case& test : cases) {
        EXPECT_EQ(call(test.handler, test.words), test.message);
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(LinkTests, FailuresAreReported)
{
    for (const char* line :
         {"test link-test number-of-frames 1 size 56 delay-measurement disable vlan disable",
          "test link-test number-of-frames 1 size 56 delay-measurement disable vlan enable vlan-priority 0 vlan-tag 1",
          "test link-test continuous size 60 vlan disable",
          "test link-test continuous size 60 vlan enable vlan-priority 0 vlan-tag 1",
          "no link-test delay-measurement enable"})
        expect_link_failures(line, "NEP_link_test");
}

} // namespace
