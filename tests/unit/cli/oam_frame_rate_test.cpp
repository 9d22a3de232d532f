// SPDX-License-Identifier: Apache-2.0
#include "links_fixture.h"
#include "olt/llid.h"

namespace {

class OamFrameRate : public Links {
  protected:
    static Calls asked(const std::string& target, const std::string& call, const char* mode = "201 -> 0")
    {
        return {"Get_onu_record_static_mode(" + target + ") = 0", "NEP_get_onu_mode_extended(" + target + ") = " + mode,
                call};
    }

    static std::string shown(const char* rate, int olt_id = 0)
    {
        return "OLT_id: " + std::to_string(olt_id) + " \r\noam frame rate: " + rate + " \r\n";
    }
};

TEST_F(OamFrameRate, EveryRateInBothForms)
{
    for (int frames = 10; frames <= 200; frames += 10) {
        const std::string word = std::to_string(frames) + "-frames";
        const std::string call = "NEP_set_oam_frame_rate(0, 5, " + std::to_string(frames) + ") = 0";
        enter(OLT_NODE);
        EXPECT_EQ(type("set oam-frame-rate 5 rate " + word), "");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), asked("0, 5", call));
        enter_llid(5);
        EXPECT_EQ(type("set oam-frame-rate rate " + word), "");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), asked("0, 5", call));
        EXPECT_EQ(type("show oam-frame-rate"), shown(word.c_str()));
        journal();
    }
}

TEST_F(OamFrameRate, ShowAndNoInEveryForm)
{
    enter_llid(5);
    EXPECT_EQ(type("show oam-frame-rate"), shown("unlimited"));
    EXPECT_EQ(journal(), asked("0, 5", "NEP_get_oam_frame_rate(0, 5) = 0 -> 0"));
    type("set oam-frame-rate rate 70-frames");
    journal();
    for (const int node : {VIEW_NODE, ENABLE_NODE, CONFIG_NODE}) {
        enter(node, 1);
        session->llid = 77;
        EXPECT_EQ(type("show olt oam-frame-rate 0 0x5"), shown("70-frames"));
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), asked("0, 5", "NEP_get_oam_frame_rate(0, 5) = 0 -> 70"));
    }
    enter(OLT_NODE);
    EXPECT_EQ(type("show oam-frame-rate 5"), shown("70-frames"));
    EXPECT_EQ(type("no oam-frame-rate-limit 5"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal().back(), "NEP_set_oam_frame_rate(0, 5, 0) = 0");
    EXPECT_EQ(type("show oam-frame-rate 5"), shown("unlimited"));
    enter_llid(5);
    type("set oam-frame-rate rate 200-frames");
    journal();
    EXPECT_EQ(type("no oam-frame-rate-limit"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), asked("0, 5", "NEP_set_oam_frame_rate(0, 5, 0) = 0"));
}

// 10G links and links that are not authorized or warned are as good as any.
TEST_F(OamFrameRate, AnyRegisteredLink)
{
    const std::pair<int, const char*> cases[] = {{10, "201 -> 0"}, {11, "201 -> 0"}, {9, "203 -> 0"}, {7, "201 -> 1"}};
    for (const auto& [llid, mode] : cases) {
        enter(OLT_NODE);
        const std::string target = "0, " + std::to_string(llid);
        EXPECT_EQ(type("set oam-frame-rate " + std::to_string(llid) + " rate 20-frames"), "");
        EXPECT_EQ(journal(), asked(target, "NEP_set_oam_frame_rate(" + target + ", 20) = 0", mode));
    }
}

TEST_F(OamFrameRate, LinksThatAreRefused)
{
    struct Case {
        int llid;
        std::string line;
        int result;
    };
    const auto out_of_bounds = [](int llid) {
        return "Can't enter llid mode, llid (" + std::to_string(llid) + ") is out of bounds. llid range: 0 - 254\r\n";
    };
    const auto unregistered = [](int llid) {
        return "Error, LLID " + std::to_string(llid) +
               " of OLT id 0 isn't registered. Entering to LLID mode can be activated only after LLID "
               "registration.\r\n";
    };
    const Case cases[] = {{255, out_of_bounds(255), 0}, {-1, out_of_bounds(-1), 0}, {4095, out_of_bounds(4095), 0},
                          {0, unregistered(0), 0},      {8, unregistered(8), 0},    {6, NO_ONU, -1007}};
    for (const Case& test : cases) {
        const std::string llid = std::to_string(test.llid);
        enter(OLT_NODE);
        for (const std::string& line : {"set oam-frame-rate " + llid + " rate 10-frames",
                                        "no oam-frame-rate-limit " + llid, "show oam-frame-rate " + llid}) {
            EXPECT_EQ(type(line), test.line) << line;
            EXPECT_EQ(result, test.result);
            const Calls calls = journal();
            // Only what the SDK itself is to refuse gets as far as to it.
            EXPECT_EQ(calls.size(), test.result == 0 ? 2u : 3u);
        }
        enter_llid(static_cast<int16_t>(test.llid));
        for (const char* line :
             {"set oam-frame-rate rate 10-frames", "no oam-frame-rate-limit", "show oam-frame-rate"}) {
            EXPECT_EQ(type(line), test.line) << line;
            EXPECT_EQ(result, test.result);
        }
        enter(CONFIG_NODE);
        EXPECT_EQ(type("show olt oam-frame-rate 0 " + llid), test.line);
        EXPECT_EQ(result, test.result);
        journal();
    }
    enter(CONFIG_NODE); // on an absent OLT no link is registered
    EXPECT_EQ(type("show olt oam-frame-rate 1 5"),
              "Error, LLID 5 of OLT id 1 isn't registered. Entering to LLID mode can be activated only after LLID "
              "registration.\r\n");
    EXPECT_EQ(result, 0);
}

TEST_F(OamFrameRate, RefusedWords)
{
    const char* olt_error = "Error reading OLT_id parameter for command from input, aborting\r\n";
    const char* llid_error = "Error reading LLID_INDEX parameter for command from input, aborting\r\n";
    const char* llid_range =
        "Error in range of LLID_INDEX parameter for command from input min:-32767 max:32767, aborting\r\n";
    struct Case {
        int node;
        const char* line;
        const char* message;
    };
    const Case cases[] = {
        {OLT_NODE, "set oam-frame-rate 5x rate 10-frames", llid_error},
        {OLT_NODE, "set oam-frame-rate 32768 rate 10-frames", llid_range},
        {OLT_NODE, "no oam-frame-rate-limit x", llid_error},
        {OLT_NODE, "no oam-frame-rate-limit -32768", llid_range},
        {OLT_NODE, "show oam-frame-rate x", llid_error},
        {CONFIG_NODE, "show olt oam-frame-rate x 5", olt_error},
        {CONFIG_NODE, "show olt oam-frame-rate 0 x", llid_error},
        {CONFIG_NODE, "show olt oam-frame-rate 0 0x8000", llid_range},
    };
    for (const Case& test : cases) {
        enter(test.node);
        EXPECT_EQ(type(test.line), test.message) << test.line;
        EXPECT_EQ(result, -1);
    }
    enter_llid(5);
    for (const char* word : {"15-frames", "210-frames", "10", "unlimited", ""}) {
        EXPECT_EQ(call(set_oam_frame_rate, {word}),
                  "Error reading rate parameter (of the type oam_frame_rate), aborting\r\n");
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(OamFrameRate, FailuresAreReported)
{
    enter_llid(5);
    const std::pair<const char*, const char*> cases[] = {
        {"set oam-frame-rate rate 10-frames", "NEP_set_oam_frame_rate"},
        {"no oam-frame-rate-limit", "NEP_set_oam_frame_rate"},
        {"show oam-frame-rate", "NEP_get_oam_frame_rate"}};
    for (const auto& [line, operation] : cases) {
        inject(operation, -5);
        EXPECT_EQ(type(line), HARDWARE);
        EXPECT_EQ(result, -5);
    }
}

} // namespace
