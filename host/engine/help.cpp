// SPDX-License-Identifier: Apache-2.0
// What "?" and TAB show at a position of the line.
#include <algorithm>
#include <deque>

#include "host/engine/dispatch.h"
#include "host/engine/live_values.h"
#include "host/engine/nodes.h"

namespace engine {
namespace {

constexpr std::size_t WIDEST_WORD = 28; // longer words have their help on a line of its own
constexpr std::size_t INDENT = 2, GAP = 2;
constexpr std::size_t NARROWEST_HELP = 20;
constexpr std::size_t VALUES_SHOWN = 64; // of one word, with what they stand for
constexpr std::string_view FILTER_HELP = "Filter the answer: include, exclude, count, json ...";

std::size_t screen_width(const Session& session)
{
    return screen_columns(session) > 0 ? screen_columns(session) : PLAIN_WIDTH;
}

// The complete words before the one being typed, and that one.
struct Position {
    std::vector<std::string_view> words;
    std::string_view partial;
};

Position position_in(std::string_view text)
{
    Position position{split_words(text), {}};
    if (!text.empty() && text.back() != ' ' && text.back() != '\t' && !position.words.empty()) {
        position.partial = position.words.back();
        position.words.pop_back();
    }
    return position;
}

std::vector<Candidate> candidates_at(const Session& session, std::string_view before_cursor, Position* position)
{
    FilteredLine line = split_filters(before_cursor);
    *position = position_in(line.filters.empty() ? line.command : line.filters.back());
    std::vector<Candidate> entries;
    if (!line.filters.empty())
        entries = filter_candidates(position->words, position->partial);
    else if (const Node* node = find_node(session.node))
        entries = node->commands.candidates(position->words, position->partial);
    if (!entries.empty() && entries.back().word == END_OF_LINE) entries.push_back({"|", FILTER_HELP, false});
    return entries;
}

// One entry: the word, and its help in the rest of the line and as many more as it takes.
void append_entry(std::string_view word, std::string_view help, std::size_t word_width, std::size_t width,
                  const char* end, std::string* text)
{
    const std::size_t columns = columns_of(word);
    std::size_t indent = INDENT + word_width + GAP;
    std::size_t room = width > indent + NARROWEST_HELP ? width - indent - 1 : NARROWEST_HELP;
    text->append(INDENT, ' ').append(word);
    std::size_t column = INDENT + columns;
    if (help.empty()) {
        *text += end;
        return;
    }
    if (columns > word_width) {
        *text += end;
        column = 0;
    }
    while (!help.empty()) {
        std::size_t length = help.size();
        if (help.size() > room && columns_of(help) > room) { // no character has more columns than bytes
            length = help.rfind(' ', room);
            if (length == std::string_view::npos || length == 0) length = std::min(help.find(' '), help.size());
        }
        text->append(indent - column, ' ').append(help.substr(0, length)).append(end);
        column = 0;
        help.remove_prefix(std::min(help.find_first_not_of(' ', length), help.size()));
    }
}

// One line of help.
struct Row {
    std::string_view word;
    std::string_view help;
};

std::string table(const std::vector<Row>& rows, std::size_t width, const char* end)
{
    std::size_t word_width = 0;
    for (const Row& row : rows) {
        std::size_t columns = columns_of(row.word);
        if (columns <= WIDEST_WORD) word_width = std::max(word_width, columns);
    }
    std::string text;
    text.reserve(rows.size() * width);
    for (const Row& row : rows)
        append_entry(row.word, row.help, word_width, width, end, &text);
    return text;
}

// Words side by side.
std::string columns(const std::vector<std::string_view>& words, std::size_t width, const char* end)
{
    std::size_t cell = GAP;
    for (std::string_view word : words)
        cell = std::max(cell, columns_of(word) + GAP);
    std::size_t per_line = std::max<std::size_t>(1, (width - 1) / std::max<std::size_t>(1, cell));
    std::string text;
    for (std::size_t i = 0; i < words.size(); ++i) {
        text += words[i];
        if ((i + 1) % per_line == 0 || i + 1 == words.size())
            text += end;
        else
            text.append(cell - columns_of(words[i]), ' ');
    }
    return text;
}

// What can stand at a position, and what of it can be spelt out.
struct Choices {
    std::vector<Row> rows;               // for help: live values stand below the word that they are values of
    std::vector<std::string_view> words; // keywords and live values that begin with what was typed
    bool complete = true;                // there is nothing else
    std::deque<std::string> made;        // texts of rows and words that are not the commands' own

    std::string_view keep(std::string text)
    {
        return made.emplace_back(std::move(text));
    }
};

// A part of a line of help that names several words begins like a line of its own.
std::string_view as_sentence(std::string_view help, Choices* choices)
{
    if (help.empty() || help[0] < 'a' || help[0] > 'z') return help;
    std::string text(help);
    text[0] = static_cast<char>(text[0] - 'a' + 'A');
    return choices->keep(std::move(text));
}

Choices choices_at(const Session& session, std::string_view before_cursor, Position* position)
{
    Choices choices;
    const std::vector<Candidate> candidates = candidates_at(session, before_cursor, position);
    choices.rows.reserve(candidates.size());
    choices.words.reserve(candidates.size());
    for (const Candidate& entry : candidates) {
        choices.rows.push_back({entry.word, as_sentence(entry.help, &choices)});
        if (entry.literal) {
            if (entry.word.starts_with(position->partial)) choices.words.push_back(entry.word);
            continue;
        }
        std::vector<LiveValue> values = live_values(session, entry, position->words, position->partial);
        for (const LiveValue& value : values) {
            choices.words.push_back(choices.keep(value.word));
            if (&value - values.data() < static_cast<std::ptrdiff_t>(VALUES_SHOWN))
                choices.rows.push_back({choices.keep("  " + value.word), choices.keep(value.help)});
        }
        if (values.size() > VALUES_SHOWN)
            choices.rows.push_back(
                {"  ...", choices.keep(std::to_string(values.size() - VALUES_SHOWN) + " more; TAB lists all")});
        if (values.empty()) choices.complete = false;
    }
    return choices;
}

std::size_t common_length(std::string_view a, std::string_view b)
{
    return static_cast<std::size_t>(std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin());
}

} // namespace

std::string help_text(const Session& session, std::string_view before_cursor)
{
    const char* end = newline(session);
    const NodeRules& rules = rules_of(session.node);
    if (rules.raw_line != nullptr) {
        std::string text = rules.raw_help == nullptr ? "" : rules.raw_help;
        while (!text.empty() && text.back() == '\n')
            text.pop_back();
        std::string lines;
        for (char c : text)
            c == '\n' ? lines += end : lines += c;
        return lines + end;
    }
    Position position;
    Choices choices = choices_at(session, before_cursor, &position);
    if (choices.rows.empty()) return std::string(NO_HELP) + end;
    return table(choices.rows, screen_width(session), end);
}

Completion complete(const Session& session, std::string_view before_cursor)
{
    if (rules_of(session.node).raw_line != nullptr) return {};
    Position position;
    Choices choices = choices_at(session, before_cursor, &position);
    const std::vector<std::string_view>& words = choices.words;
    std::size_t typed = position.partial.size();
    if (words.size() == 1 && (choices.complete || typed > 0)) return {std::string(words[0].substr(typed)) + ' ', {}};
    if (!words.empty() && typed > 0) {
        std::size_t length = words[0].size();
        for (std::string_view word : words)
            length = std::min(length, common_length(words[0], word));
        if (length > typed) return {std::string(words[0].substr(typed, length - typed)), {}};
    }
    if (choices.rows.empty()) return {};
    // What has no spelling to complete has help that says what it is.
    bool spelt = choices.complete || (typed > 0 && !words.empty());
    return {{},
            spelt ? columns(words, screen_width(session), newline(session))
                  : table(choices.rows, screen_width(session), newline(session))};
}

} // namespace engine
