// SPDX-License-Identifier: Apache-2.0
// Many generated command sets: each command is reachable by its own words and found by completion, and every line
// means what a plain search through all commands says it means.
#include <algorithm>
#include <random>

#include <gtest/gtest.h>

#include "engine/commands.h"

namespace {

using engine::Fit;
using engine::Grammar;
using engine::MatchStatus;
using engine_test::Commands;

using Random = std::mt19937;

constexpr const char* KEYWORDS[] = {"a", "ab", "abc", "b", "ba", "c", "5g", "10", "on", "one", "only"};
constexpr const char* VALUES[] = {"X",          "Y_INDEX", "<0-9>",   "<5-20>",  "<-3-3>",
                                  "<0x0-0xff>", "Z",       "A.B.C.D", "A:B:C:D", "AA-BB-CC-DD-EE-FF"};
constexpr const char* TYPED[] = {"a", "ab", "abc", "b",   "o",  "on",      "one",     "5",           "5g",  "10",
                                 "1", "-2", "0x7", "300", "zz", "1.2.3.4", "1:2:3:4", "0-1-2-3-4-5", "abcd"};

template <typename Table>
const char* pick(Random& random, const Table& table)
{
    return table[random() % std::size(table)];
}

std::string random_word(Random& random)
{
    switch (random() % 4) {
    case 0:
        return pick(random, VALUES);
    case 1: {
        std::string group = "(";
        for (unsigned i = random() % 4; i > 0; i--)
            group.append(pick(random, KEYWORDS)).append("|");
        return group + (random() % 2 ? pick(random, VALUES) : pick(random, KEYWORDS)) + ")";
    }
    default:
        return pick(random, KEYWORDS);
    }
}

std::string random_grammar(Random& random)
{
    std::string grammar = random_word(random);
    for (unsigned i = random() % 4; i > 0; i--)
        grammar += " " + random_word(random);
    return grammar;
}

const Grammar& parsed(const cmd_element& element)
{
    return *static_cast<const Grammar*>(element.strvec);
}

// How a line fits one command: the closest fit of each word, and what it would be called in full.
struct Reading {
    const cmd_element* element = nullptr;
    std::vector<Fit> fits;
    std::vector<std::string> full;
    bool ambiguous = false;
    std::size_t taken = 0; // words that fit before one does not
    bool complete = false; // the grammar ends where they end
};

Reading read_line(const cmd_element& element, std::span<const std::string_view> words)
{
    const Grammar& grammar = parsed(element);
    Reading reading;
    reading.element = &element;
    std::size_t token = 0;
    while (reading.taken < words.size() && token < grammar.token_count) {
        std::string_view word = words[reading.taken];
        std::size_t end = grammar.after_word(token);
        Fit best = Fit::None;
        std::size_t best_token = token;
        int equal = 0;
        for (std::size_t i = token; i < end; i++) {
            Fit fit = engine::fit_of(grammar, i, word);
            equal = fit < best ? 1 : equal + (fit == best);
            if (fit >= best) continue;
            best = fit;
            best_token = i;
        }
        if (best == Fit::None) break;
        if (best == Fit::KeywordPrefix && equal > 1) reading.ambiguous = true;
        reading.fits.push_back(best);
        bool keyword = grammar.token(best_token).kind == engine::WordKind::Keyword;
        reading.full.emplace_back(keyword ? grammar.form(best_token) : word);
        reading.taken++;
        token = end;
    }
    reading.complete = token == grammar.token_count;
    return reading;
}

// The meaning of a line by looking at every command.
void check_line(Commands& commands, const std::vector<const cmd_element*>& elements, const std::string& line)
{
    SCOPED_TRACE(line);
    std::vector<std::string_view> words = engine_test::split(line);
    std::vector<Reading> best;
    std::vector<Reading> unfinished; // commands that go on behind the line
    std::size_t furthest = 0;
    for (const cmd_element* element : elements) {
        Reading reading = read_line(*element, words);
        furthest = std::max(furthest, reading.taken);
        if (reading.taken == words.size() && !reading.complete) unfinished.push_back(reading);
        if (reading.taken < words.size() || !reading.complete) continue;
        if (!best.empty() && best[0].fits < reading.fits) continue;
        if (!best.empty() && reading.fits < best[0].fits) best.clear();
        best.push_back(std::move(reading));
    }
    commands.tree.match(words, commands.match);
    const engine::Match& match = commands.match;
    if (best.empty()) {
        bool incomplete = furthest == words.size();
        EXPECT_EQ(match.status, incomplete ? MatchStatus::Incomplete : MatchStatus::Unknown);
        EXPECT_EQ(match.error_word, incomplete ? 0 : furthest);
        return;
    }
    // A short last word is not clear while it begins another keyword of a command that goes on.
    bool unclear =
        best[0].fits.back() == Fit::KeywordPrefix &&
        std::any_of(unfinished.begin(), unfinished.end(), [&](const Reading& other) {
            return other.fits == best[0].fits && (other.ambiguous || other.full.back() != best[0].full.back());
        });
    if (best.size() > 1 || best[0].ambiguous || unclear) {
        EXPECT_EQ(match.status, MatchStatus::Ambiguous);
        EXPECT_FALSE(match.candidates.empty());
        return;
    }
    ASSERT_EQ(match.status, MatchStatus::Matched);
    ASSERT_EQ(match.element, best[0].element);
    std::string full;
    for (const std::string& word : best[0].full)
        full.append(full.empty() ? "" : " ").append(word);
    EXPECT_EQ(match.line, full);
    const Grammar& grammar = parsed(*match.element);
    std::size_t argument = 0;
    std::size_t word = 0;
    for (std::size_t i = 0; i < grammar.token_count; i = grammar.after_word(i), word++) {
        if (grammar.token(i).kind == engine::WordKind::Keyword && !grammar.token(i).in_group) continue;
        ASSERT_LT(argument, match.argv.size());
        EXPECT_EQ(match.argv[argument++], best[0].full[word]);
    }
    EXPECT_EQ(argument, match.argv.size());
}

std::vector<const cmd_element*> installed_in(const Commands& commands)
{
    std::vector<const cmd_element*> elements;
    commands.tree.for_each([&elements](const cmd_element& element, engine::Origin) { elements.push_back(&element); });
    return elements;
}

TEST(CommandTreeRandom, MeansWhatASearchThroughAllCommandsSays)
{
    Random random(20240517);
    for (int round = 0; round < 400; round++) {
        Commands commands;
        for (unsigned i = 1 + random() % 40; i > 0; i--)
            commands.add(random_grammar(random));
        std::vector<const cmd_element*> elements = installed_in(commands);
        for (int i = 0; i < 100; i++) {
            std::string line = pick(random, TYPED);
            for (unsigned more = random() % 4; more > 0; more--)
                line.append(" ").append(pick(random, TYPED));
            check_line(commands, elements, line);
        }
        if (HasFailure()) FAIL() << "round " << round;
    }
}

// A word for each kind that no other kind of these grammars takes.
std::string own_word(const Grammar& grammar, std::size_t token, Random& random)
{
    switch (grammar.token(token).kind) {
    case engine::WordKind::Keyword:
        return std::string(grammar.form(token));
    case engine::WordKind::Decimal:
        return "3";
    case engine::WordKind::Hexadecimal:
        return "0x1F";
    case engine::WordKind::Ipv4:
        return "10.0.0.1";
    case engine::WordKind::HexGroups4:
        return "1:2:3:4";
    case engine::WordKind::HexGroups8:
        return "1:2:3:4:5:6:7:8";
    case engine::WordKind::Mac:
        return "00-11-22-33-44-55";
    case engine::WordKind::Variable:
        break;
    }
    return "value" + std::to_string(random() % 10);
}

// Grammars that no two commands share: the last word is the command's own.
TEST(CommandTreeRandom, ReachesEveryCommandByItsOwnWords)
{
    Random random(7);
    for (int round = 0; round < 100; round++) {
        Commands commands;
        for (int i = 0; i < 100; i++) {
            std::string number = std::to_string(i);
            ASSERT_TRUE(commands.add(random_grammar(random) + " end" + number + "-" + number)) << commands.error;
        }
        for (const cmd_element* element : installed_in(commands)) {
            const Grammar& grammar = parsed(*element);
            std::vector<std::string> own;
            for (std::size_t i = 0; i < grammar.token_count; i = grammar.after_word(i)) {
                std::size_t alternatives = grammar.after_word(i) - i;
                std::size_t token = i + random() % alternatives;
                if (grammar.form(token) == "<5-20>")
                    own.emplace_back("7");
                else
                    own.push_back(own_word(grammar, token, random));
                // Completion knows the word as well, when it is a literal one.
                if (grammar.token(token).kind != engine::WordKind::Keyword) continue;
                std::vector<std::string_view> before(own.begin(), own.end() - 1);
                bool listed = false;
                for (const auto& candidate : commands.tree.candidates(before, own.back())) {
                    listed |= candidate.word == own.back();
                }
                EXPECT_TRUE(listed) << element->string << " at " << own.back();
            }
            std::vector<std::string_view> words(own.begin(), own.end());
            commands.tree.match(words, commands.match);
            ASSERT_EQ(commands.match.element, element) << element->string;
            for (std::size_t count = 1; count < words.size(); count++) {
                commands.tree.match(std::span(words).first(count), commands.match);
                EXPECT_EQ(commands.match.status, MatchStatus::Incomplete) << element->string;
            }
            words.emplace_back("more");
            commands.tree.match(words, commands.match);
            EXPECT_NE(commands.match.status, MatchStatus::Matched) << element->string;
        }
    }
}

} // namespace
