// SPDX-License-Identifier: Apache-2.0
// Any grammars, any lines. The input is lines of text: those that begin with '+' are commands to install, a '!' in
// front of the grammar makes its help one line short; all others are typed.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "host/engine/command_tree.h"
#include "tests/fuzz/require.h"

namespace {

struct Commands {
    std::deque<std::string> texts;
    std::deque<cmd_element> elements;
    engine::CommandTree tree;
    std::size_t installed = 0;

    // The help gets more lines until it fits or the grammar is refused for another reason.
    void add(std::string_view line)
    {
        bool short_help = line.starts_with('!');
        if (short_help) line.remove_prefix(1);
        line = line.substr(0, line.find('\0'));
        cmd_element& element = elements.emplace_back();
        element.string = texts.emplace_back(line).c_str();
        std::string& help = texts.emplace_back();
        for (int words = 0; words < 64; words++) {
            std::string error;
            element.doc = help.c_str();
            if (tree.install(&element, engine::Origin::Library, &error)) {
                require(element.cmdsize == words, "one word for each help line");
                require(element.strvec != nullptr, "an installed element is parsed");
                require(line == element.string, "the grammar is left alone");
                installed++;
                return;
            }
            require(!error.empty(), "a refusal has a reason");
            if (element.strvec != nullptr) return; // another command has the same words
            require(element.cmdsize == 0, "a refused element is left alone");
            if (short_help && words > 0) return;
            help += "enable: on; a: b; <0-9>: c\n";
        }
    }
};

std::vector<std::string_view> split(std::string_view line)
{
    std::vector<std::string_view> words;
    while (true) {
        std::size_t end = line.find(' ');
        words.push_back(line.substr(0, end)); // empty ones, too
        if (end == std::string_view::npos) return words;
        line.remove_prefix(end + 1);
    }
}

std::size_t arguments_of(const cmd_element& element)
{
    const auto& grammar = *static_cast<const engine::Grammar*>(element.strvec);
    std::size_t count = 0;
    for (std::size_t i = 0; i < grammar.token_count; i = grammar.after_word(i)) {
        if (grammar.token(i).kind != engine::WordKind::Keyword || grammar.token(i).in_group) count++;
    }
    return count;
}

void check_matched(const Commands& commands, const std::vector<std::string_view>& words, const engine::Match& match)
{
    require(match.element != nullptr, "a match has an element");
    require(static_cast<std::size_t>(match.element->cmdsize) == words.size(), "as many words as the grammar");
    require(match.argv.size() == arguments_of(*match.element), "as many arguments as the grammar");
    for (const char* argument : match.argv) {
        require(argument >= match.storage.data(), "arguments lie in the storage");
        require(argument + std::strlen(argument) <= match.storage.data() + match.storage.size(), "and end in it");
    }
    // A short spelling never means something else than the long one.
    std::vector<std::string_view> full = split(match.line);
    require(full.size() == words.size(), "the line in full has the same words");
    engine::Match again;
    commands.tree.match(full, again);
    require(again.element == match.element, "the line in full means the same command");
    require(again.line == match.line && again.storage == match.storage, "with the same arguments");
}

void check_candidates(const Commands& commands, const std::vector<std::string_view>& words)
{
    auto before = std::span(words).first(words.size() - 1);
    bool literals = true;
    std::string_view last;
    for (const engine::Candidate& candidate : commands.tree.candidates(before, words.back())) {
        require(!candidate.word.empty(), "a candidate is a word");
        require(candidate.literal ? literals : true, "literals come first");
        literals = candidate.literal;
        if (!candidate.literal) continue;
        require(candidate.word.starts_with(words.back()), "a literal continues what is typed");
        require(last < candidate.word, "literals are sorted and listed once");
        last = candidate.word;
    }
}

void type(const Commands& commands, std::string_view line, engine::Match& match)
{
    std::vector<std::string_view> words = split(line);
    commands.tree.match(words, match);
    switch (match.status) {
    case engine::MatchStatus::Matched:
        check_matched(commands, words, match);
        break;
    case engine::MatchStatus::Unknown:
        require(match.error_word < words.size(), "the wrong word is one of the line");
        require(match.reason.size() <= 1024, "a reason is short");
        break;
    case engine::MatchStatus::Ambiguous:
        require(!match.candidates.empty(), "ambiguous words are listed");
        break;
    case engine::MatchStatus::Incomplete:
        break;
    case engine::MatchStatus::Empty:
        require(false, "a line with words is not empty");
        break;
    }
    check_candidates(commands, words);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::string_view input(reinterpret_cast<const char*>(data), size);
    Commands commands;
    engine::Match match;
    while (!input.empty()) {
        std::size_t end = input.find('\n');
        std::string_view line = input.substr(0, end);
        if (line.starts_with('+')) {
            commands.add(line.substr(1));
        } else {
            type(commands, line, match);
        }
        if (end == std::string_view::npos) break;
        input.remove_prefix(end + 1);
    }
    std::size_t seen = 0;
    commands.tree.for_each([&seen](const cmd_element&, engine::Origin) { seen++; });
    require(seen == commands.installed, "every installed command is visited once");
    return 0;
}
