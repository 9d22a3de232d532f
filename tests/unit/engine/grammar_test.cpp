// SPDX-License-Identifier: Apache-2.0
#include "host/engine/grammar.h"

#include <gtest/gtest.h>

#include "engine/commands.h"

namespace {

using engine::Fit;
using engine::fit_of;
using engine::Grammar;
using engine::may_become;
using engine::Origin;
using engine::WordKind;

const Grammar* parse(cmd_element* element, std::string* error = nullptr)
{
    return engine::grammar_of(element, Origin::Library, error);
}

// Every token as kind and form, groups in parentheses: "K:set D:<0-255> (K:on|V:VALUE)".
std::string tokens_of(const Grammar& grammar)
{
    constexpr char KINDS[] = "KVDHI48M";
    std::string text;
    for (std::size_t i = 0; i < grammar.token_count; i++) {
        const engine::Token& token = grammar.token(i);
        bool first = grammar.word_start(i) == i;
        if (i > 0) text += first ? ' ' : '|';
        if (token.in_group && first) text += '(';
        text.append(1, KINDS[static_cast<int>(token.kind)]).append(":").append(grammar.form(i));
        if (token.in_group && token.last_of_word) text += ')';
    }
    return text;
}

struct Parsed {
    const char* grammar;
    const char* tokens;
    int words;
};

constexpr Parsed PARSED[] = {
    {"fw-craft", "K:fw-craft", 1},
    {"set max-rtt <0-65534>", "K:set K:max-rtt D:<0-65534>", 3},
    {"  set\t\tgrant-filtering \t", "K:set K:grant-filtering", 2},
    {"show olt version OLT_INDEX", "K:show K:olt K:version V:OLT_INDEX", 4},
    {"llid (LLID_INDEX|broadcast)", "K:llid (V:LLID_INDEX|K:broadcast)", 2},
    {"llid llid-mac-address (AA-BB-CC-DD-EE-FF|ff-ff-ff-ff-ff-ff)",
     "K:llid K:llid-mac-address (M:AA-BB-CC-DD-EE-FF|K:ff-ff-ff-ff-ff-ff)", 3},
    {"set olt OLT_INDEX optics  (1g|10g) optics-start-hunt-on-CDR-lock (enable|disable)",
     "K:set K:olt V:OLT_INDEX K:optics (K:1g|K:10g) K:optics-start-hunt-on-CDR-lock (K:enable|K:disable)", 7},
    {"set olt ref-clock (125-single-ended | 161-13-differential | 125-differential | 161-13-single-ended)",
     "K:set K:olt K:ref-clock (K:125-single-ended|K:161-13-differential|K:125-differential|K:161-13-single-ended)", 4},
    {"show i2c access-type (hw|pon-prim) \t  device-address DEVICE_ADDRESS size <0-255>",
     "K:show K:i2c K:access-type (K:hw|K:pon-prim) K:device-address V:DEVICE_ADDRESS K:size D:<0-255>", 8},
    {"set led-mode (cni-dp0-link-up|cni_dp0-tx-pkt| \t\t\t  cni-dp1-link-up)",
     "K:set K:led-mode (K:cni-dp0-link-up|K:cni_dp0-tx-pkt|K:cni-dp1-link-up)", 3},
    {"set rule (true|false)pr-op (enable|disable)prio0 (on|off)",
     "K:set K:rule (K:true|K:false) K:pr-op (K:enable|K:disable) K:prio0 (K:on|K:off)", 7},
    {"set (a|b)(c|d)VALUE", "K:set (K:a|K:b) (K:c|K:d) V:VALUE", 4},
    {"set op-type (<1000-2000>) op-val (VALUE)", "K:set K:op-type (D:<1000-2000>) K:op-val (V:VALUE)", 5},
    {"reset-card (irrelevant|all-cards|<0-62>) port (all-ports|<0x0-0xFE>)",
     "K:reset-card (K:irrelevant|K:all-cards|D:<0-62>) K:port (K:all-ports|H:<0x0-0xFE>)", 4},
    {"speed-limit (mdio|10|100|1000)", "K:speed-limit (K:mdio|K:10|K:100|K:1000)", 2},
    {"bias <-5-10> <-20--10>", "K:bias D:<-5-10> D:<-20--10>", 3},
    {"time <0x0-0xffffffff> <0x0-0x03B9ACA0>", "K:time H:<0x0-0xffffffff> H:<0x0-0x03B9ACA0>", 3},
    {"host A.B.C.D", "K:host I:A.B.C.D", 2},
    {"host XXXX:XXXX:XXXX:XXXX:XXXX:XXXX:XXXX:XXXX", "K:host 8:XXXX:XXXX:XXXX:XXXX:XXXX:XXXX:XXXX:XXXX", 2},
    {"host A:B:C:D:E:F:G:H A:B:C:D", "K:host 8:A:B:C:D:E:F:G:H 4:A:B:C:D", 3},
    {"onu AA-BB-CC-DD-EE-FF", "K:onu M:AA-BB-CC-DD-EE-FF", 2},
    {"A-B_C1 v2.0 10G", "V:A-B_C1 K:v2.0 K:10G", 3},
    {"twice (on|off|on)", "K:twice (K:on|K:off)", 2},
};

TEST(Grammar, ReadsWords)
{
    engine_test::Commands commands;
    for (const Parsed& row : PARSED) {
        std::string help;
        for (int i = 0; i < row.words; i++)
            help += "Help\n";
        cmd_element* element = commands.make(row.grammar, help);
        std::string error;
        const Grammar* grammar = parse(element, &error);
        ASSERT_NE(grammar, nullptr) << error;
        EXPECT_EQ(tokens_of(*grammar), row.tokens);
        EXPECT_EQ(element->cmdsize, row.words) << row.grammar;
        EXPECT_EQ(element->strvec, grammar);
        EXPECT_STREQ(element->string, row.grammar);
    }
}

struct Refused {
    const char* grammar;
    const char* error;
};

constexpr Refused REFUSED[] = {
    {"", "there is no word"},
    {" \t ", "there is no word"},
    {"set (a|b", "not closed"},
    {"set (", "an alternative is empty"},
    {"set ()", "an alternative is empty"},
    {"set (a||b)", "an alternative is empty"},
    {"set (a|)", "an alternative is empty"},
    {"set (a|(b|c))", "a group stands inside another"},
    {"set ((a|b))", "a group stands inside another"},
    {"set (a(b|c))", "a group stands inside another"},
    {"set (a b|c)", "a blank or tab parts an alternative"},
    {"set a|b", "glued"},
    {"set a)", "glued"},
    {"set )", "outside a group"},
    {"set | a", "outside a group"},
    {"set a(b|c)", "glued"},
    {"set <0-5>x", "glued"},
    {"set <0-5", "\"<0-5\" is not a range"},
    {"set <5-0>", "is not a range"},
    {"set <a-b>", "is not a range"},
    {"set <5>", "is not a range"},
    {"set <>", "is not a range"},
    {"set <->", "is not a range"},
    {"set <0 - 5>", "is not a range"},
    {"set <0-99999999999999999999>", "is not a range"},
    {"set <0x0-0x100000000>", "exceeds 32 bits"},
    {"set [VALUE]", "\"[VALUE]\" begins with neither a letter nor a digit"},
    {"set VALUE...", "neither a variable nor a known form"},
    {"set A.B.C", "neither a variable nor a known form"},
    {"set A:B", "holds a character that no word may have"},
    {"set -VALUE", "begins with neither"},
    {"set f\xc3\xbcr", "holds a character that no word may have"},
    {"set \x01", "begins with neither"},
    {"set a\nb", "holds a character that no word may have"},
};

TEST(Grammar, RefusesMalformedOnes)
{
    engine_test::Commands commands;
    for (const Refused& row : REFUSED) {
        cmd_element* element = commands.make(row.grammar, "Help\nHelp\n");
        std::string error;
        EXPECT_EQ(parse(element, &error), nullptr) << row.grammar;
        EXPECT_NE(error.find(row.error), std::string::npos) << row.grammar << " -> " << error;
        EXPECT_EQ(error.find("command \"" + std::string(row.grammar) + "\": "), 0u) << error;
        EXPECT_EQ(element->strvec, nullptr);
        EXPECT_EQ(element->cmdsize, 0);
    }
}

TEST(Grammar, RefusesWhatIsTooLongOrMissing)
{
    engine_test::Commands commands;
    std::string error;
    EXPECT_EQ(parse(commands.make(std::string(256, 'a'), "Help\n"), &error), nullptr);
    EXPECT_NE(error.find("a word is too long"), std::string::npos);
    EXPECT_NE(parse(commands.make(std::string(255, 'a'), "Help\n"), &error), nullptr);
    EXPECT_EQ(parse(commands.make(std::string(70000, ' ') + "a", "Help\n"), &error), nullptr);
    EXPECT_EQ(parse(commands.make("a", std::string(70000, 'h') + "\n"), &error), nullptr);
    cmd_element nothing{};
    EXPECT_EQ(parse(&nothing, &error), nullptr);
    nothing.string = "a";
    EXPECT_EQ(parse(&nothing, nullptr), nullptr);
}

TEST(Grammar, WantsOneHelpLinePerWord)
{
    engine_test::Commands commands;
    for (const char* help : {"", "One\n", "One\nTwo\nThree\n", "One\nTwo", "One\nTwo\nThree"}) {
        std::string error;
        EXPECT_EQ(parse(commands.make("set (a|b)", help), &error), nullptr) << help;
        EXPECT_NE(error.find("one line for each of the 2 words"), std::string::npos) << error;
    }
    const Grammar* grammar = parse(commands.make("set (a|b)pr-op", "One\n\nThree\n"));
    ASSERT_NE(grammar, nullptr);
    EXPECT_EQ(grammar->help(0), "One");
    EXPECT_EQ(grammar->help(1), "");
    EXPECT_EQ(grammar->help(2), "");
    EXPECT_EQ(grammar->help(3), "Three");
}

TEST(Grammar, GivesAlternativesTheirOwnHelp)
{
    engine_test::Commands commands;
    const Grammar* grammar =
        parse(commands.make("set (enable|disable|en|<0-5>) (on|off) (x|y)",
                            "Set\n"
                            "enable: it is replaced; at once; disable:it is not;en: short; <0-5>: a number\n"
                            "Whether it is on: or off\n"
                            "y: the second one\n"));
    ASSERT_NE(grammar, nullptr);
    EXPECT_EQ(grammar->help(1), "it is replaced; at once");
    EXPECT_EQ(grammar->help(2), "it is not");
    EXPECT_EQ(grammar->help(3), "short");
    EXPECT_EQ(grammar->help(4), "a number");
    EXPECT_EQ(grammar->help(5), "Whether it is on: or off");
    EXPECT_EQ(grammar->help(6), "Whether it is on: or off");
    EXPECT_EQ(grammar->help(7), "y: the second one");
    EXPECT_EQ(grammar->help(8), "the second one");
}

TEST(Grammar, AlternativesShareAPartOfTheHelp)
{
    engine_test::Commands commands;
    const Grammar* grammar = parse(commands.make("set (hw|on|off|blink) (a|b|c) (x|y)",
                                                 "Set\n"
                                                 "hw: the hardware, off: never; on, off,blink:the host; at once\n"
                                                 "a, b: both; c, d: a third, a: of its own\n"
                                                 "x, y\n"));
    ASSERT_NE(grammar, nullptr);
    EXPECT_EQ(grammar->help(1), "the hardware, off: never");
    for (std::size_t shared : {2, 3, 4})
        EXPECT_EQ(grammar->help(shared), "the host; at once");
    EXPECT_EQ(grammar->help(5), "both; c, d: a third, a: of its own");
    EXPECT_EQ(grammar->help(6), "both; c, d: a third, a: of its own");
    EXPECT_EQ(grammar->help(7), "a, b: both; c, d: a third, a: of its own") << "d is none of them";
    EXPECT_EQ(grammar->help(8), "x, y");
}

TEST(Grammar, IsParsedOnce)
{
    engine_test::Commands commands;
    cmd_element* element = commands.make("set VALUE", "Set\nA value\n");
    const Grammar* first = parse(element);
    EXPECT_EQ(parse(element), first);
    EXPECT_EQ(first->element, element);
}

struct FitRow {
    WordKind kind;
    const char* form;
    std::string_view word;
    Fit fit;
};

constexpr Fit NO = Fit::None;
constexpr Fit YES = Fit::Value;
constexpr std::string_view NUL_WORD{"a\0b", 3};

constexpr FitRow FITS[] = {
    {WordKind::Keyword, "enable", "enable", Fit::ExactKeyword},
    {WordKind::Keyword, "enable", "e", Fit::KeywordPrefix},
    {WordKind::Keyword, "enable", "enabled", NO},
    {WordKind::Keyword, "enable", "Enable", NO},
    {WordKind::Keyword, "enable", "", NO},
    {WordKind::Keyword, "enable", "nable", NO},
    {WordKind::Variable, "VALUE", "VALUE", Fit::Variable},
    {WordKind::Variable, "VALUE", "\xff\x01\x7f", Fit::Variable},
    {WordKind::Variable, "VALUE", "", NO},
    {WordKind::Variable, "VALUE", NUL_WORD, NO},
    {WordKind::Decimal, "<3-250>", "2", NO},
    {WordKind::Decimal, "<3-250>", "3", YES},
    {WordKind::Decimal, "<3-250>", "250", YES},
    {WordKind::Decimal, "<3-250>", "251", NO},
    {WordKind::Decimal, "<3-250>", "003", YES},
    {WordKind::Decimal, "<3-250>", "-3", NO},
    {WordKind::Decimal, "<3-250>", "+3", NO},
    {WordKind::Decimal, "<3-250>", " 3", NO},
    {WordKind::Decimal, "<3-250>", "3 ", NO},
    {WordKind::Decimal, "<3-250>", "0x10", NO},
    {WordKind::Decimal, "<3-250>", "1a", NO},
    {WordKind::Decimal, "<3-250>", "", NO},
    {WordKind::Decimal, "<3-250>", "-", NO},
    {WordKind::Decimal, "<3-250>", "\xff", NO},
    {WordKind::Decimal, "<0-65534>", "18446744073709551616", NO}, // 2^64
    {WordKind::Decimal, "<0-65534>", "18446744073709551617", NO}, // 2^64 + 1
    {WordKind::Decimal, "<0-65534>", "999999999999999999999999999999999999999999999999", NO},
    {WordKind::Decimal, "<0-65534>", "000000000000000000000000000000000000000000000005", YES},
    {WordKind::Decimal, "<-5-10>", "-6", NO},
    {WordKind::Decimal, "<-5-10>", "-5", YES},
    {WordKind::Decimal, "<-5-10>", "-0", YES},
    {WordKind::Decimal, "<-5-10>", "10", YES},
    {WordKind::Decimal, "<-5-10>", "11", NO},
    {WordKind::Decimal, "<-5-10>", "--5", NO},
    {WordKind::Decimal, "<-5-10>", "-", NO},
    {WordKind::Decimal, "<-5-10>", "-18446744073709551615", NO},
    {WordKind::Decimal, "<-20--10>", "-21", NO},
    {WordKind::Decimal, "<-20--10>", "-20", YES},
    {WordKind::Decimal, "<-20--10>", "-10", YES},
    {WordKind::Decimal, "<-20--10>", "-9", NO},
    {WordKind::Decimal, "<-20--10>", "15", NO},
    {WordKind::Hexadecimal, "<0x0-0x4f>", "0x0", YES},
    {WordKind::Hexadecimal, "<0x0-0x4f>", "0x4f", YES},
    {WordKind::Hexadecimal, "<0x0-0x4f>", "0x4F", YES},
    {WordKind::Hexadecimal, "<0x0-0x4f>", "0x50", NO},
    {WordKind::Hexadecimal, "<0x0-0x4f>", "79", YES},
    {WordKind::Hexadecimal, "<0x0-0x4f>", "80", NO},
    {WordKind::Hexadecimal, "<0x0-0x4f>", "4f", NO},
    {WordKind::Hexadecimal, "<0x0-0x4f>", "0x", NO},
    {WordKind::Hexadecimal, "<0x0-0x4f>", "-0x1", NO},
    {WordKind::Hexadecimal, "<0x0-0x4f>", "0X4f", NO},
    {WordKind::Hexadecimal, "<0x0-0x4f>", "0x000000000000000000000001", YES},
    {WordKind::Hexadecimal, "<0x0-0x4f>", "0x10000000000000001", NO},
    {WordKind::Hexadecimal, "<0x0-0xffffffff>", "0xFFFFFFFF", YES},
    {WordKind::Hexadecimal, "<0x0-0xffffffff>", "0x100000000", NO},
    {WordKind::Hexadecimal, "<0x0-0xffffffff>", "4294967295", YES},
    {WordKind::Hexadecimal, "<0x0-0xffffffff>", "4294967296", NO},
    {WordKind::Hexadecimal, "<0x0-0x03B9ACA0>", "62500000", YES},
    {WordKind::Hexadecimal, "<0x0-0x03B9ACA0>", "62500001", NO},
    {WordKind::Hexadecimal, "<0x10-0x20>", "0xf", NO},
    {WordKind::Ipv4, "A.B.C.D", "10.0.0.255", YES},
    {WordKind::Ipv4, "A.B.C.D", "10.0.0.256", NO},
    {WordKind::Ipv4, "A.B.C.D", "10.0.0", NO},
    {WordKind::Ipv4, "A.B.C.D", "10.0.0.1.", NO},
    {WordKind::Ipv4, "A.B.C.D", "10.0.0.", NO},
    {WordKind::Ipv4, "A.B.C.D", ".10.0.0", NO},
    {WordKind::Ipv4, "A.B.C.D", "10.0.0.1.2", NO},
    {WordKind::Ipv4, "A.B.C.D", "10.0.0.01", NO},
    {WordKind::Ipv4, "A.B.C.D", "10.0.0.0001", NO},
    {WordKind::Ipv4, "A.B.C.D", "10.0.0.a", NO},
    {WordKind::Ipv4, "A.B.C.D", "10.0.0.-1", NO},
    {WordKind::HexGroups8, "A:B:C:D:E:F:G:H", "2001:db8:0:0:0:0:0:1", YES},
    {WordKind::HexGroups8, "A:B:C:D:E:F:G:H", "2001:0DB8:0000:0000:0000:0000:0000:FFFF", YES},
    {WordKind::HexGroups8, "A:B:C:D:E:F:G:H", "2001:db8:0:0:0:0:0", NO},
    {WordKind::HexGroups8, "A:B:C:D:E:F:G:H", "2001:db8:0:0:0:0:0:1:2", NO},
    {WordKind::HexGroups8, "A:B:C:D:E:F:G:H", "2001:db8:0:0:0:0:0:10000", NO},
    {WordKind::HexGroups8, "A:B:C:D:E:F:G:H", "2001:db8:0:0:0::0:1", NO},
    {WordKind::HexGroups8, "A:B:C:D:E:F:G:H", "2001:db8:0:0:0:0:0:g", NO},
    {WordKind::HexGroups4, "A:B:C:D", "a:B:0:ffff", YES},
    {WordKind::HexGroups4, "A:B:C:D", "a:B:0", NO},
    {WordKind::HexGroups4, "A:B:C:D", "a:B:0:", NO},
    {WordKind::Mac, "AA-BB-CC-DD-EE-FF", "00-1e-AD-0-00-01", YES},
    {WordKind::Mac, "AA-BB-CC-DD-EE-FF", "00-1e-AD-00-00", Fit::Variable},
    {WordKind::Mac, "AA-BB-CC-DD-EE-FF", "00-1e-AD-00-00-001", Fit::Variable},
    {WordKind::Mac, "AA-BB-CC-DD-EE-FF", "00-1e-AD-00-00-00-00", Fit::Variable},
    {WordKind::Mac, "AA-BB-CC-DD-EE-FF", "gg-1e-AD-00-00-00", Fit::Variable},
    {WordKind::Mac, "AA-BB-CC-DD-EE-FF", "x", Fit::Variable},
    {WordKind::Mac, "AA-BB-CC-DD-EE-FF", "", NO},
    {WordKind::Mac, "AA-BB-CC-DD-EE-FF", NUL_WORD, NO},
};

TEST(Grammar, FitsWords)
{
    for (const FitRow& row : FITS) {
        EXPECT_EQ(fit_of(row.kind, row.form, row.word), row.fit) << row.form << " with \"" << row.word << '"';
        if (row.fit == Fit::None || row.fit == Fit::KeywordPrefix) continue;
        EXPECT_TRUE(may_become(row.kind, row.form, row.word)) << row.form << " with \"" << row.word << '"';
    }
}

TEST(Grammar, EveryBeginningOfAFittingWordMayBecomeOne)
{
    for (const FitRow& row : FITS) {
        if (row.fit == Fit::None) continue;
        for (std::size_t size = 0; size < row.word.size(); size++) {
            std::string_view partial = row.word.substr(0, size);
            EXPECT_TRUE(may_become(row.kind, row.form, partial)) << row.form << " with \"" << partial << '"';
        }
    }
}

struct PartialRow {
    WordKind kind;
    const char* form;
    const char* partial;
    bool may;
};

constexpr PartialRow PARTIALS[] = {
    {WordKind::Keyword, "enable", "", true},
    {WordKind::Keyword, "enable", "en", true},
    {WordKind::Keyword, "enable", "dis", false},
    {WordKind::Variable, "VALUE", "anything", true},
    {WordKind::Mac, "AA-BB-CC-DD-EE-FF", "anything", true},
    {WordKind::Decimal, "<300-305>", "3", true},
    {WordKind::Decimal, "<300-305>", "30", true},
    {WordKind::Decimal, "<300-305>", "31", false},
    {WordKind::Decimal, "<300-305>", "0", true},
    {WordKind::Decimal, "<300-305>", "4", false},
    {WordKind::Decimal, "<300-305>", "3000", false},
    {WordKind::Decimal, "<300-305>", "-", false},
    {WordKind::Decimal, "<300-305>", "x", false},
    {WordKind::Decimal, "<-5-10>", "-", true},
    {WordKind::Decimal, "<-5-10>", "-6", false},
    {WordKind::Decimal, "<-20--10>", "-1", true},
    {WordKind::Decimal, "<-20--10>", "-3", false},
    {WordKind::Decimal, "<-20--10>", "1", false},
    {WordKind::Decimal, "<0-255>", "99999999999999999999999", false},
    {WordKind::Hexadecimal, "<0x10-0x4f>", "0", true},
    {WordKind::Hexadecimal, "<0x10-0x4f>", "0x", true},
    {WordKind::Hexadecimal, "<0x10-0x4f>", "0x4", true},
    {WordKind::Hexadecimal, "<0x10-0x4f>", "0x5", false},
    {WordKind::Hexadecimal, "<0x10-0x4f>", "7", true},
    {WordKind::Hexadecimal, "<0x10-0x4f>", "9", false},
    {WordKind::Ipv4, "A.B.C.D", "10.", true},
    {WordKind::Ipv4, "A.B.C.D", "10..", false},
    {WordKind::Ipv4, "A.B.C.D", "256", false},
    {WordKind::Ipv4, "A.B.C.D", "1.2.3.4.", false},
    {WordKind::HexGroups8, "A:B:C:D:E:F:G:H", "2001:db", true},
    {WordKind::HexGroups8, "A:B:C:D:E:F:G:H", "x", false},
    {WordKind::HexGroups4, "A:B:C:D", "1:2:3:4:", false},
};

TEST(Grammar, KnowsWhatTypingMayBecome)
{
    for (const PartialRow& row : PARTIALS) {
        EXPECT_EQ(may_become(row.kind, row.form, row.partial), row.may) << row.form << " with " << row.partial;
    }
}

} // namespace
