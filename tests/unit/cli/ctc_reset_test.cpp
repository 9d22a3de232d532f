// SPDX-License-Identifier: Apache-2.0
#include <string>

#include "CTC_STACK_CLI/reset.h"
#include "ctc_fixture.h"
#include "event_lines.h"

namespace {

using CtcReset = Ctc;

TEST_F(CtcReset, OnuLeavesAndComesBack)
{
    enter_onu(5);
    EventLines events;
    journal();
    EXPECT_EQ(type("ctc reset"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"CTC_STACK_reset_onu(0, 5) = 0"});
    EXPECT_NE(events.after(0).find("onu-deregistered: olt 0, onu 5, mac 02-00-00-00-00-05, reason onu \r\n"),
              std::string::npos);
    EXPECT_EQ(type("ctc reset"), NO_ONU);
    EXPECT_EQ(result, -17002);
    EXPECT_EQ(events.after(2999), "");
    EXPECT_NE(events.after(1).find("onu-registered: olt 0, onu 5"), std::string::npos);
    EXPECT_EQ(type("ctc reset"), "");
}

TEST_F(CtcReset, ByAddress)
{
    enter_onu_by_mac("02-00-00-00-00-05");
    EXPECT_EQ(type("ctc reset"), "");
    EXPECT_EQ(journal(), (Calls{"Mac_address_exist(0, 02-00-00-00-00-05) = 1 -> 5", "CTC_STACK_reset_onu(0, 5) = 0"}));
}

TEST_F(CtcReset, Refusals)
{
    expect_ctc_failures("ctc reset", "CTC_STACK_reset_onu");
    expect_ctc_failures("ctc reset-card frame-number 0 card-number 1", "CTC_STACK_reset_card");
}

TEST_F(CtcReset, Cards)
{
    load_onu(R"(
[olt.onu.capabilities]
slots = 4
[[olt.onu]]
id = 6
mac = "02-00-00-00-00-06"
)");
    enter_onu(5);
    EventLines events;
    const std::pair<const char*, int> present[] = {{"0", 0}, {"1", 1}, {"4", 4}, {"all-cards", 63}};
    for (const auto& [card, number] : present) {
        journal();
        EXPECT_EQ(type(std::string("ctc reset-card frame-number 0 card-number ") + card), "");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), Calls{"CTC_STACK_reset_card(0, 5, 0, " + std::to_string(number) + ") = 0"});
    }
    for (const char* card : {"frame-number 0 card-number 5", "frame-number 0 card-number 62",
                             "frame-number 3 card-number 1", "frame-number 1 card-number all-cards"}) {
        EXPECT_EQ(type(std::string("ctc reset-card ") + card), ONU_BAD_PARAMETER) << card;
        EXPECT_EQ(result, -17009);
    }
    EXPECT_EQ(events.after(10000), ""); // the ONU itself stays
    enter_onu(6);                       // a box without slots
    EXPECT_EQ(type("ctc reset-card frame-number 0 card-number all-cards"), ONU_BAD_PARAMETER);
}

TEST_F(CtcReset, CardConversion)
{
    enter_onu(5);
    const std::pair<std::vector<std::string>, const char*> cases[] = {
        {{"x", "0"}, "Error reading frame_number parameter for command from input, aborting\r\n"},
        {{"-1", "0"}, "Error reading negative value of frame_number parameter from input, aborting\r\n"},
        {{"256", "0"}, "Error in range of frame_number parameter for command from input min:0 max:255, aborting\r\n"},
        {{"0", "1 2"}, "Error reading card_number parameter for command from input, aborting\r\n"},
        {{"0", "-1"}, "Error reading negative value of card_number parameter from input, aborting\r\n"},
        {{"0", "0x100"}, "Error in range of card_number parameter for command from input min:0 max:255, aborting\r\n"}};
    for (const auto& [words, message] : cases) {
        EXPECT_EQ(call(card_reset, words), message);
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
    EXPECT_EQ(call(card_reset, {"0x1", "0xff"}), ONU_BAD_PARAMETER);
    EXPECT_EQ(journal(), Calls{"CTC_STACK_reset_card(0, 5, 1, 255) = -17009"});
}

} // namespace
