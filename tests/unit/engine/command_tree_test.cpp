// SPDX-License-Identifier: Apache-2.0
#include "host/engine/command_tree.h"

#include <algorithm>
#include <utility>

#include <gtest/gtest.h>

#include "engine/commands.h"

namespace {

using engine::MatchStatus;
using engine::Origin;
using engine_test::Commands;

std::string joined(const std::vector<std::string>& texts)
{
    std::string all;
    for (const std::string& text : texts)
        all.append(all.empty() ? "" : ", ").append(text);
    return all;
}

// What a line means, as one text: "line | argument | argument" or why it means nothing.
std::string meaning(const engine::Match& match)
{
    switch (match.status) {
    case MatchStatus::Matched: {
        std::string text = match.line;
        for (const char* argument : match.argv)
            text.append(" | ").append(argument);
        return text;
    }
    case MatchStatus::Empty:
        return "empty";
    case MatchStatus::Incomplete:
        return "incomplete";
    case MatchStatus::Ambiguous:
        return "ambiguous: " + joined(match.candidates);
    case MatchStatus::Unknown:
        break;
    }
    std::string text = "unknown " + std::to_string(match.error_word);
    return match.reason.empty() ? text : text + ": " + match.reason;
}

constexpr std::initializer_list<const char*> OLT_COMMANDS = {
    "pon",
    "set max-rtt <0-65534>",
    "set min-rtt <0-32767>",
    "set mac-learning (enable|disable)",
    "set baud-rate (1200|2400|115200|default)",
    "self-test",
    "set xaui-redundancy-params param-type gpio-mode param-value (high-low|toggle)",
    "set xaui-redundancy-params param-type triggering-mode param-value (gpio|link-loss)",
    "set ne-mode olt OLT_INDEX mode (mode1|default|cascading)",
    "set ne-mode olt OLT_INDEX mode <1-4>",
    "set mng-vlan (host-to-olt-vlan|olt-to-host-vlan) (enable|disable)",
    "set mng-vlan (host-to-olt-vlan-id|olt-to-host-vlan-id) vlan VLAN",
    "set op op-type (set-cni-interface) op-val (mode-xaui|mode-rxaui)",
    "set op op-type (<1000-2000>) op-val (VALUE)",
    "set-grants clear-table",
    "set sample <-5-10> <0x0-0xff>",
    "show olt parameters",
    "show olt parameters OLT_INDEX",
    "show olt OLT_INDEX ref-clock",
    "show olt optics (1g|10g)",
    "show olt-pon-clock olt OLT_INDEX",
    "llid (LLID_INDEX|broadcast)",
    "auth password (PASSWORD|none)",
    "llid llid-mac-address (AA-BB-CC-DD-EE-FF|ff-ff-ff-ff-ff-ff)",
    "onu deregister ONU_INDEX",
    "onu deregister onu-mac-address AA-BB-CC-DD-EE-FF",
    "onu deregister ONU_INDEX wait-for-completion",
    "onu deregister onu-mac-address AA-BB-CC-DD-EE-FF wait-for-completion",
    "reset-card frame-number (irrelevant|<0-3>) card-number (irrelevant|all-cards|<0-62>)",
    "host address A.B.C.D",
    "host address A:B:C:D:E:F:G:H",
    "host name NAME",
    "host mask A.B.C.D",
    "disactivate (disactivated)",
};

struct Line {
    const char* typed;
    const char* meaning;
};

constexpr Line LINES[] = {
    // In full.
    {"", "empty"},
    {"pon", "pon"},
    {"set max-rtt 300", "set max-rtt 300 | 300"},
    {"set ne-mode olt 3 mode cascading", "set ne-mode olt 3 mode cascading | 3 | cascading"},
    {"set ne-mode olt 3 mode 4", "set ne-mode olt 3 mode 4 | 3 | 4"},
    {"set op op-type set-cni-interface op-val mode-xaui",
     "set op op-type set-cni-interface op-val mode-xaui | set-cni-interface | mode-xaui"},
    {"set op op-type 1500 op-val x", "set op op-type 1500 op-val x | 1500 | x"},
    {"onu deregister onu-mac-address 00-11-22-33-44-55 wait-for-completion",
     "onu deregister onu-mac-address 00-11-22-33-44-55 wait-for-completion | 00-11-22-33-44-55"},
    {"disactivate disactivated", "disactivate disactivated | disactivated"},
    {"reset-card frame-number irrelevant card-number 62",
     "reset-card frame-number irrelevant card-number 62 | irrelevant | 62"},
    {"set sample -5 0xFf", "set sample -5 0xFf | -5 | 0xFf"},
    // Short.
    {"p", "pon"},
    {"set ma 12000", "set max-rtt 12000 | 12000"},
    {"set ma en", "set mac-learning enable | enable"},
    {"se xaui param-t gp param-v tog", "set xaui-redundancy-params param-type gpio-mode param-value toggle | toggle"},
    {"dis d", "disactivate disactivated | disactivated"},
    {"set-g cl", "set-grants clear-table"},
    {"onu dereg 7 w", "onu deregister 7 wait-for-completion | 7"},
    {"reset f i c all", "reset-card frame-number irrelevant card-number all-cards | irrelevant | all-cards"},
    // The closest fit, from the left.
    {"show olt optics 1g", "show olt optics 1g | 1g"},
    {"show olt optics ref-clock", "show olt optics ref-clock | optics"},
    {"show olt parameters", "show olt parameters"},
    {"show olt param", "show olt parameters"},
    {"show olt param 3", "show olt parameters 3 | 3"},
    {"show olt param ref-clock", "show olt parameters ref-clock | ref-clock"},
    {"show olt 0 r", "show olt 0 ref-clock | 0"},
    {"show olt olt 0", "show olt-pon-clock olt 0 | 0"},
    {"set mng host-to-olt-vlan e", "set mng-vlan host-to-olt-vlan enable | host-to-olt-vlan | enable"},
    {"set mng host-to-olt-vlan v 5", "set mng-vlan host-to-olt-vlan-id vlan 5 | host-to-olt-vlan-id | 5"},
    {"set mng host en", "set mng-vlan host-to-olt-vlan enable | host-to-olt-vlan | enable"},
    {"llid llid-mac-address", "llid llid-mac-address | llid-mac-address"},
    {"llid llid-mac-address ff-ff-ff-ff-ff-ff", "llid llid-mac-address ff-ff-ff-ff-ff-ff | ff-ff-ff-ff-ff-ff"},
    {"llid llid-mac-address FF-FF-FF-FF-FF-FF", "llid llid-mac-address FF-FF-FF-FF-FF-FF | FF-FF-FF-FF-FF-FF"},
    {"llid llid-mac-address nonsense", "llid llid-mac-address nonsense | nonsense"},
    // Numbers and addresses are values, which have no short spelling.
    {"set baud-rate 1200", "set baud-rate 1200 | 1200"},
    {"set baud-rate d", "set baud-rate default | default"},
    {"llid llid-mac-address ff-ff", "llid llid-mac-address ff-ff | ff-ff"},
    {"llid llid-mac-address f", "llid llid-mac-address f | f"},
    {"host address 10.1.2.3", "host address 10.1.2.3 | 10.1.2.3"},
    {"host address 1:2:3:4:5:6:7:8", "host address 1:2:3:4:5:6:7:8 | 1:2:3:4:5:6:7:8"},
    // Beside a variable a keyword is typed in full: what begins it may be meant.
    {"llid broadcast", "llid broadcast | broadcast"},
    {"llid broadcas", "llid broadcas | broadcas"},
    {"llid b", "llid b | b"},
    {"ll b", "llid b | b"},
    {"auth password none", "auth password none | none"},
    {"auth password non", "auth password non | non"},
    {"auth password no", "auth password no | no"},
    {"au pass n", "auth password n | n"},
    // More than one meaning.
    {"set ma", "incomplete"},
    // A short last word that could begin a longer command is not taken for the one that ends here.
    {"s", "ambiguous: self-test, set, set-grants, show"},
    {"se", "ambiguous: self-test, set, set-grants"},
    {"sel", "self-test"},
    {"self-test", "self-test"},
    {"set xaui param-t gpio param-v", "incomplete"},
    {"set xaui param- gpio param toggle",
     "set xaui-redundancy-params param-type gpio-mode param-value toggle | toggle"},
    {"set m 5", "ambiguous: max-rtt, min-rtt"},
    {"show olt optics 1", "ambiguous: 10g, 1g"},
    {"set mng o e", "set mng-vlan olt-to-host-vlan enable | olt-to-host-vlan | enable"},
    {"set ne olt 0 mode d", "set ne-mode olt 0 mode default | 0 | default"},
    // Too few words.
    {"set", "incomplete"},
    {"set max-rtt", "incomplete"},
    {"host name", "incomplete"},
    // A wrong word.
    {"foo", "unknown 0"},
    {"SET max-rtt 1", "unknown 0"},
    {"set foo 1", "unknown 1"},
    {"set baud-rate 12", "unknown 2: one of 1200, 2400, 115200, default"},
    {"set max-rtt 65535", "unknown 2: not in the range 0-65534"},
    {"set max-rtt -1", "unknown 2: not in the range 0-65534"},
    {"set max-rtt 0x10", "unknown 2: not in the range 0-65534"},
    {"set max-rtt 99999999999999999999999999", "unknown 2: not in the range 0-65534"},
    {"set sample 11 0", "unknown 2: not in the range -5 to 10"},
    {"set sample 10 0x100", "unknown 3: not in the range 0x0-0xff"},
    {"set m foo", "unknown 2"},
    {"set mac-learning on", "unknown 2: one of enable, disable"},
    {"set max-rtt 5 6", "unknown 3: nothing can follow"},
    {"pon 5", "unknown 1: nothing can follow"},
    {"disactivate x", "unknown 1: must be disactivated"},
    {"host mask 10.1.2", "unknown 2: not of the form A.B.C.D"},
    {"host address 10.1.2", "unknown 2"},
    {"reset-card frame-number 4 card-number 5", "unknown 2: one of irrelevant, <0-3>"},
    {"set ne-mode olt 3 mode 5", "unknown 5"},
    {"show olt optics 2g", "unknown 3: one of 1g, 10g"},
    {"set op op-type 999 op-val x", "unknown 3"},
};

TEST(CommandTree, FindsWhatALineMeans)
{
    Commands commands(OLT_COMMANDS);
    ASSERT_EQ(commands.error, "");
    for (const Line& line : LINES)
        EXPECT_EQ(meaning(commands.run(line.typed)), line.meaning) << line.typed;
}

TEST(CommandTree, MeansTheSameInAnyOrderOfInstallation)
{
    std::vector<const char*> grammars(OLT_COMMANDS);
    for (std::size_t turn = 0; turn < grammars.size(); turn++) {
        std::rotate(grammars.begin(), grammars.begin() + 1, grammars.end());
        if (turn % 3 == 0) std::swap(grammars.front(), grammars[grammars.size() / 2]);
        Commands commands;
        for (const char* grammar : grammars)
            ASSERT_TRUE(commands.add(grammar)) << commands.error;
        for (const Line& line : LINES)
            ASSERT_EQ(meaning(commands.run(line.typed)), line.meaning) << line.typed;
    }
}

TEST(CommandTree, HandsOverTheElementAndWritableArguments)
{
    Commands commands(OLT_COMMANDS);
    const engine::Match& match = commands.run("set ne olt 3 m cas");
    ASSERT_EQ(match.status, MatchStatus::Matched);
    EXPECT_STREQ(match.element->string, "set ne-mode olt OLT_INDEX mode (mode1|default|cascading)");
    ASSERT_EQ(match.argv.size(), 2u);
    std::memset(match.argv[0], 'x', std::strlen(match.argv[0]));
    EXPECT_STREQ(match.argv[0], "x");
    EXPECT_STREQ(match.argv[1], "cascading");
    EXPECT_EQ(match.line, "set ne-mode olt 3 mode cascading");
}

TEST(CommandTree, LeavesNothingOfTheLineBefore)
{
    Commands commands(OLT_COMMANDS);
    EXPECT_EQ(meaning(commands.run("set m 5")), "ambiguous: max-rtt, min-rtt");
    EXPECT_EQ(meaning(commands.run("set max-rtt 65535")), "unknown 2: not in the range 0-65534");
    EXPECT_TRUE(commands.match.candidates.empty());
    EXPECT_EQ(meaning(commands.run("")), "empty");
    EXPECT_EQ(commands.match.reason, "");
    EXPECT_EQ(commands.match.error_word, 0u);
    EXPECT_EQ(meaning(commands.run("set max-rtt 7")), "set max-rtt 7 | 7");
    EXPECT_EQ(meaning(commands.run("pon")), "pon");
    EXPECT_TRUE(commands.match.argv.empty());
    EXPECT_EQ(meaning(commands.run("set")), "incomplete");
    EXPECT_EQ(commands.match.element, nullptr);
    EXPECT_EQ(commands.match.line, "");
}

TEST(CommandTree, NeverGuessesBetweenEqualMeanings)
{
    Commands commands{"show A x", "show B x", "clear (a|b) one", "clear (b|c) one", "test (enable|enabled) X",
                      "go <0-5>", "go <5-9>", "do one (on|off)", "do only (on|off)"};
    EXPECT_EQ(meaning(commands.run("show 1 x")), "ambiguous: A, B");
    EXPECT_EQ(meaning(commands.run("clear b one")), "ambiguous: clear (a|b) one, clear (b|c) one");
    EXPECT_EQ(meaning(commands.run("clear a one")), "clear a one | a");
    EXPECT_EQ(meaning(commands.run("test en 1")), "ambiguous: enable, enabled");
    EXPECT_EQ(meaning(commands.run("test enable 1")), "test enable 1 | enable | 1");
    EXPECT_EQ(meaning(commands.run("go 5")), "ambiguous: <0-5>, <5-9>");
    EXPECT_EQ(meaning(commands.run("go 4")), "go 4 | 4");
    EXPECT_EQ(meaning(commands.run("go 10")), "unknown 1: not in the range 0-5 or 5-9");
    EXPECT_EQ(meaning(commands.run("do o of")), "ambiguous: one, only");
}

TEST(CommandTree, SaysWhyOnlyWhenItIsShort)
{
    Commands commands{"a <0-1> x", "a <2-3> y", "a <4-5> z", "b <0-1>", "b other"};
    EXPECT_EQ(meaning(commands.run("a 6")), "unknown 1: not in the range 0-1 or 2-3 or 4-5");
    EXPECT_EQ(meaning(commands.run("b 6")), "unknown 1");
    commands.add("a <6-7>");
    EXPECT_EQ(meaning(commands.run("a 8")), "unknown 1");
}

TEST(CommandTree, AlternativesOfOneGroupAreNotCommandsOfTheirOwn)
{
    Commands commands{"set (enable|enabled|<0-9>|<5-20>|NAME) end", "set (enable|enabled|<0-9>|<5-20>|NAME) more"};
    EXPECT_EQ(meaning(commands.run("set 7 end")), "set 7 end | 7"); // both ranges take it: still one argument
    EXPECT_EQ(meaning(commands.run("set 15 e")), "set 15 end | 15");
    EXPECT_EQ(meaning(commands.run("set 21 e")), "set 21 end | 21");
    EXPECT_EQ(meaning(commands.run("set ena end")), "set ena end | ena");
    EXPECT_EQ(meaning(commands.run("set enable m")), "set enable more | enable");
    Commands without_variable{"set (enable|enabled|<0-9>) end", "set (enable|enabled|<0-9>) more"};
    EXPECT_EQ(meaning(without_variable.run("set ena end")), "ambiguous: enable, enabled");
}

TEST(CommandTree, TakesGluedAndTabbedGrammars)
{
    Commands commands;
    ASSERT_TRUE(
        commands.add("set rule\t(true | false)pr-op   (enable|disable)prio0 \t VALUE", "a\nb\nc\nd\ne\nf\ng\n"));
    EXPECT_EQ(meaning(commands.run("set rule true pr-op dis prio 5")),
              "set rule true pr-op disable prio0 5 | true | disable | 5");
    EXPECT_STREQ(commands.match.element->string, "set rule\t(true | false)pr-op   (enable|disable)prio0 \t VALUE");
}

TEST(CommandTree, BoundsTheListOfAlternatives)
{
    std::string grammar = "rate (";
    for (int i = 1; i <= 60; i++)
        grammar.append(i > 1 ? "|" : "").append(std::to_string(i * 10)).append("-frames");
    Commands commands;
    ASSERT_TRUE(commands.add(grammar + ")", "Rate\nFrames\n"));
    const engine::Match& match = commands.run("rate x");
    EXPECT_EQ(match.error_word, 1u);
    EXPECT_EQ(match.reason.substr(0, 29), "one of 10-frames, 20-frames, ");
    EXPECT_TRUE(match.reason.ends_with(", ..."));
    EXPECT_LE(match.reason.size(), 120u);
}

TEST(CommandTree, RefusesABadGrammarAndASecondCommandOfTheSameWords)
{
    Commands commands;
    EXPECT_FALSE(commands.add("set (a|b", "Set\nA\n"));
    EXPECT_EQ(commands.error, "command \"set (a|b\": a group is not closed");
    EXPECT_FALSE(commands.add("set (a|b)", "Set\n"));
    EXPECT_EQ(commands.error, "command \"set (a|b)\": the help does not have one line for each of the 2 words");
    EXPECT_TRUE(commands.add("set (a|b)"));
    EXPECT_TRUE(commands.add("set (a|b) c"));
    EXPECT_FALSE(commands.add("set  ( a | b )", "Set\nA\n"));
    EXPECT_EQ(commands.error, "command \"set  ( a | b )\": another one has the same words");
    EXPECT_FALSE(commands.tree.install(commands.make("set (a|b) c", "1\n2\n3\n"), Origin::Host, nullptr));
    EXPECT_EQ(meaning(commands.run("set a")), "set a | a");
    std::size_t count = 0;
    commands.tree.for_each([&count](const cmd_element&, Origin) { count++; });
    EXPECT_EQ(count, 2u);
}

TEST(CommandTree, SharesOneParsedElementBetweenTrees)
{
    Commands commands;
    engine::CommandTree second;
    cmd_element* element = commands.make("show olt OLT_INDEX", "Show\nOLT\nIndex\n");
    cmd_element* longer = commands.make("show olt OLT_INDEX all", "Show\nOLT\nIndex\nAll\n");
    std::string error;
    ASSERT_TRUE(commands.tree.install(element, Origin::Library, &error));
    void* parsed = element->strvec;
    EXPECT_EQ(element->cmdsize, 3);
    ASSERT_TRUE(second.install(longer, Origin::Host, &error));
    ASSERT_TRUE(second.install(element, Origin::Library, &error));
    ASSERT_TRUE(second.install(element, Origin::Library, &error));
    ASSERT_TRUE(second.install(longer, Origin::Host, &error));
    EXPECT_EQ(element->strvec, parsed);
    std::vector<std::pair<const cmd_element*, Origin>> seen;
    second.for_each([&seen](const cmd_element& each, Origin origin) { seen.emplace_back(&each, origin); });
    ASSERT_EQ(seen.size(), 2u);
    EXPECT_EQ(seen[0], std::make_pair(static_cast<const cmd_element*>(longer), Origin::Host));
    EXPECT_EQ(seen[1], std::make_pair(static_cast<const cmd_element*>(element), Origin::Library));

    engine::CommandTree moved = std::move(second);
    engine::Match match;
    moved.match(engine_test::split("sh olt 5"), match);
    EXPECT_EQ(match.element, element);
    moved.match(engine_test::split("sh olt 5 a"), match);
    EXPECT_EQ(match.element, longer);
}

TEST(CommandTree, TakesNoHostileWord)
{
    Commands commands(OLT_COMMANDS);
    commands.add("name NAME");
    const std::string_view words[] = {"", "\xff", "\x01", std::string_view("\0", 1), std::string_view("se\0t", 4)};
    for (std::string_view word : words) {
        std::string_view line[] = {word};
        commands.tree.match(line, commands.match);
        EXPECT_EQ(meaning(commands.match), "unknown 0");
    }
    std::string_view with_nul[] = {"name", std::string_view("a\0b", 3)};
    commands.tree.match(with_nul, commands.match);
    EXPECT_EQ(meaning(commands.match), "unknown 1: not of the form NAME");
    std::string_view with_empty[] = {"name", ""};
    commands.tree.match(with_empty, commands.match);
    EXPECT_EQ(commands.match.status, MatchStatus::Unknown);
    std::string_view bytes[] = {"name", "\xff\x80\x1b[2J"};
    commands.tree.match(bytes, commands.match);
    EXPECT_EQ(meaning(commands.match), "name \xff\x80\x1b[2J | \xff\x80\x1b[2J");
}

TEST(CommandTree, TakesLongLines)
{
    Commands commands(OLT_COMMANDS);
    std::vector<std::string_view> many(1000, "set");
    commands.tree.match(many, commands.match);
    EXPECT_EQ(meaning(commands.match), "unknown 1");
    many.assign(1000, "1");
    many[0] = "set";
    many[1] = "max-rtt";
    commands.tree.match(many, commands.match);
    EXPECT_EQ(meaning(commands.match), "unknown 3: nothing can follow");
    EXPECT_TRUE(commands.tree.candidates(many, "").empty());

    std::string word(10000, '9');
    EXPECT_EQ(meaning(commands.run("set max-rtt " + word)), "unknown 2: not in the range 0-65534");
    EXPECT_EQ(commands.run("host name " + word).line, "host name " + word);
    EXPECT_EQ(commands.match.argv[0], word);
}

TEST(CommandTree, TakesLongGrammars)
{
    std::string grammar = "long";
    std::string help = "Help\n";
    std::vector<std::string_view> words{"long"};
    for (int i = 0; i < 999; i++) {
        grammar += " (a|ab|abc|<0-9>|X)";
        help += "Help\n";
        words.emplace_back(i % 2 == 0 ? "a" : "5");
    }
    Commands commands;
    ASSERT_TRUE(commands.add(grammar, help)) << commands.error;
    ASSERT_TRUE(commands.add(grammar + " end", help + "End\n")) << commands.error;
    ASSERT_TRUE(commands.add(grammar + " stop", help + "Stop\n")) << commands.error;
    commands.tree.match(words, commands.match);
    ASSERT_EQ(commands.match.status, MatchStatus::Matched);
    EXPECT_EQ(commands.match.argv.size(), 999u);
    // Every word of it fits in several ways, and all of them fail only at the last one.
    words.emplace_back("wrong");
    commands.tree.match(words, commands.match);
    EXPECT_EQ(meaning(commands.match), "unknown 1000");
    EXPECT_TRUE(commands.tree.candidates(words, "").empty());
    words.back() = "s";
    commands.tree.match(words, commands.match);
    EXPECT_EQ(commands.match.status, MatchStatus::Matched);
}

// Groups of different commands that begin alike keep many branches alive, but never more than there are commands.
TEST(CommandTree, FollowsManyBranchesAtOnce)
{
    Commands commands;
    for (int i = 0; i < 300; i++) {
        std::string number = std::to_string(i);
        ASSERT_TRUE(commands.add("x (a|ab|abc|V" + number + ") (a|ab|W" + number + ") (a|ab|<0-9>) end" + number));
    }
    EXPECT_EQ(meaning(commands.run("x a a a e")).substr(0, 21), "ambiguous: end0, end1");
    EXPECT_EQ(commands.match.candidates.size(), 300u);
    EXPECT_EQ(meaning(commands.run("x a a a end299")), "x a a a end299 | a | a | a");
    EXPECT_EQ(meaning(commands.run("x a a a wrong")), "unknown 4");
    EXPECT_EQ(meaning(commands.run("x a a wrong")), "unknown 3: one of a, ab, <0-9>");
}

} // namespace
