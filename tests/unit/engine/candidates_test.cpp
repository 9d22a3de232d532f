// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "engine/commands.h"

namespace {

using engine_test::Commands;

struct Row {
    const char* typed; // ends with a blank: the next word
    const char* listed;
};

TEST(Candidates, ListWhatCanStandThere)
{
    Commands commands{
        "show olt version",
        "show olt version OLT_INDEX",
        "show olt OLT_INDEX ref-clock",
        "show olt-pon-clock olt OLT_INDEX",
        "show onu (1g|10g|ONU_INDEX) mode",
        "set max-rtt <0-65534>",
        "set min-rtt <10-20>",
        "set max-size (small|<5-9>|<0x10-0x20>|A.B.C.D)",
        "set value <0-5> low",
        "set value VALUE any",
        "set-grants clear-table",
        "pon",
    };
    constexpr Row ROWS[] = {
        {"", "pon set set-grants show"},
        {"s", "set set-grants show"},
        {"set", "set set-grants"},
        {"set-", "set-grants"},
        {"x", ""},
        {"set ", "max-rtt max-size min-rtt value"},
        {"set m", "max-rtt max-size min-rtt"},
        {"set max-rtt ", "<0-65534>"},
        {"set max-rtt 7", "<0-65534>"},
        {"set max-rtt 70000", ""},
        {"set max-rtt x", ""},
        {"set max-rtt 7 ", "<cr>"},
        {"set max-rtt 7 x", ""},
        {"set min-rtt 2", "<10-20>"},
        {"set min-rtt 3", ""},
        {"set max-size ", "small <5-9> <0x10-0x20> A.B.C.D"},
        {"set max-size s", "small"},
        {"set max-size 1", "<0x10-0x20> A.B.C.D"},
        {"set max-size 0x", "<0x10-0x20>"},
        {"set max-size 10.", "A.B.C.D"},
        {"se max-r ", "<0-65534>"},
        {"set m ", "small <0-65534> <5-9> <0x10-0x20> A.B.C.D <10-20>"},
        // A keyword is meant as one; the rest is listed when nothing else is.
        {"show olt ", "version OLT_INDEX"},
        {"show olt v", "version OLT_INDEX"},
        {"show olt version ", "OLT_INDEX <cr>"},
        {"show olt version 5 ", "<cr>"},
        {"show olt 5 ", "ref-clock"},
        {"show ol ", "olt version OLT_INDEX"},
        {"show olt-p ", "olt"},
        {"show olt olt ", "ref-clock"},
        {"show onu ", "10g 1g ONU_INDEX"},
        {"show onu 1", "10g 1g ONU_INDEX"},
        {"show onu 1g ", "mode"},
        // Values do not hide each other.
        {"set value 3 ", "any low"},
        {"set value 9 ", "any"},
        {"foo ", ""},
        {"foo bar ", ""},
        {"pon ", "<cr>"},
    };
    for (const Row& row : ROWS)
        EXPECT_EQ(commands.listed(row.typed), row.listed) << row.typed;
}

TEST(Candidates, CarryHelpAndKind)
{
    Commands commands;
    ASSERT_TRUE(commands.add("set state (enable|disable)", "Change\nThe state\nenable: on; disable: off\n"));
    ASSERT_TRUE(commands.add("set state VALUE", "Never seen\nNeither\nA value\n"));
    ASSERT_TRUE(commands.add("set (state|size) (a|b) now", "Group\nWhich\nOne of two\nAt once\n"));
    std::vector<std::string_view> words{"set"};
    auto first = commands.tree.candidates({}, "");
    ASSERT_EQ(first.size(), 1u);
    EXPECT_EQ(first[0].help, "Change");
    auto second = commands.tree.candidates(words, "");
    ASSERT_EQ(second.size(), 2u);
    EXPECT_EQ(second[0].word, "size");
    EXPECT_EQ(second[0].help, "Which");
    EXPECT_EQ(second[1].word, "state");
    EXPECT_EQ(second[1].help, "The state");
    words.emplace_back("state");
    auto third = commands.tree.candidates(words, "");
    ASSERT_EQ(third.size(), 5u);
    EXPECT_EQ(third[0].word, "a");
    EXPECT_EQ(third[0].help, "One of two");
    EXPECT_TRUE(third[0].literal);
    EXPECT_EQ(third[2].word, "disable");
    EXPECT_EQ(third[2].help, "off");
    EXPECT_EQ(third[3].word, "enable");
    EXPECT_EQ(third[3].help, "on");
    EXPECT_EQ(third[4].word, "VALUE");
    EXPECT_EQ(third[4].help, "A value");
    EXPECT_FALSE(third[4].literal);
    words.emplace_back("enable");
    auto end = commands.tree.candidates(words, "");
    ASSERT_EQ(end.size(), 1u);
    EXPECT_EQ(end[0].word, "<cr>");
    EXPECT_FALSE(end[0].literal);
}

TEST(Candidates, OfManyCommandsAreSortedAndListedOnce)
{
    Commands commands;
    for (int i = 0; i < 220; i++) {
        ASSERT_TRUE(
            commands.add("show item-" + std::to_string(i * 7919 % 1000) + " (one|two) VALUE" + std::to_string(i)));
        ASSERT_TRUE(commands.add("show item-" + std::to_string(i * 7919 % 1000) + " all" + std::to_string(i)));
    }
    std::string_view words[] = {"show"};
    auto list = commands.tree.candidates(words, "");
    ASSERT_EQ(list.size(), 220u);
    for (std::size_t i = 1; i < list.size(); i++)
        EXPECT_LT(list[i - 1].word, list[i].word);
    std::string_view deeper[] = {"show", "item"};
    auto merged = commands.tree.candidates(deeper, "");
    ASSERT_EQ(merged.size(), 222u);
    EXPECT_EQ(merged[0].word, "all0");
    EXPECT_EQ(merged[220].word, "one");
    EXPECT_EQ(merged[221].word, "two");
}

} // namespace
