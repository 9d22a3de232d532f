// SPDX-License-Identifier: Apache-2.0
// What a typed line means: its command and arguments, or why it means none.
#include <algorithm>

#include "host/engine/command_tree_nodes.h"

namespace engine {

namespace {

// Where "one of ..." stops listing: it is part of one line on a terminal.
constexpr std::size_t REASON_WIDTH = 120;

void reset(Match& out)
{
    out.status = MatchStatus::Empty;
    out.element = nullptr;
    out.argv.clear();
    out.line.clear();
    out.error_word = 0;
    out.reason.clear();
    out.candidates.clear();
    out.storage.clear();
}

std::string_view form_of(const State& at)
{
    return at.grammar->form(at.token);
}

std::size_t joined_size(std::span<const std::string_view> words)
{
    std::size_t size = words.size() - 1;
    for (std::string_view word : words)
        size += word.size();
    return size;
}

void write_line(const Walk& walk, std::string& line)
{
    std::span<const std::string_view> words = walk.words;
    auto typed_size = static_cast<std::size_t>(words.back().data() + words.back().size() - words.front().data());
    if (!walk.states[words.size()].short_word && joined_size(words) == typed_size) {
        line.assign(words.front().data(), typed_size); // a tab becomes a blank later
        return;
    }
    for (std::size_t i = 0; i < words.size(); i++) {
        const State& at = walk.states[i + 1];
        if (i > 0) line += ' ';
        line += at.grammar->token(at.token).kind == WordKind::Keyword ? form_of(at) : words[i];
    }
}

// The state behind each word is the one of the word's number.
void accept(const Walk& walk, const Grammar* command, Match& out)
{
    write_line(walk, out.line);
    out.storage = out.line;
    char* line = out.line.data();
    char* storage = out.storage.data();
    std::size_t begin = 0;
    const State* at = walk.states.data() + 1;
    for (std::string_view typed : walk.words) {
        const Token& token = at->grammar->token(at->token);
        at++;
        bool keyword = token.kind == WordKind::Keyword;
        if (!keyword || token.in_group) out.argv.push_back(storage + begin);
        begin += keyword ? token.length : typed.size();
        if (begin == out.line.size()) break;
        line[begin] = ' ';
        storage[begin++] = '\0';
    }
    out.element = command->element;
    out.status = MatchStatus::Matched;
}

// What the word behind a state could mean: the one thing it means, or all alternatives of its group that it begins.
void add_meanings(const Walk& walk, std::uint32_t index, std::string_view word, std::vector<std::string>& meanings)
{
    const State& at = walk.state(index);
    if (!at.ambiguous || walk.state(at.parent).ambiguous) {
        meanings.emplace_back(form_of(at));
        return;
    }
    const Grammar& grammar = *at.grammar;
    std::size_t end = grammar.after_word(at.token);
    for (std::size_t token = grammar.word_start(at.token); token < end; token++) {
        if (fit_of(grammar, token, word) == Fit::KeywordPrefix) {
            meanings.emplace_back(grammar.form(token));
        }
    }
}

void sort_unique(std::vector<std::string>& texts)
{
    std::sort(texts.begin(), texts.end());
    texts.erase(std::unique(texts.begin(), texts.end()), texts.end());
}

// Lists the meanings of the first word that tells the commands apart; the commands when no word does.
void list_meanings(const Walk& walk, const std::vector<std::uint32_t>& finals, std::vector<std::string>& meanings)
{
    std::vector<std::vector<std::uint32_t>> paths(finals.size());
    for (std::size_t i = 0; i < finals.size(); i++)
        walk.path_to(finals[i], paths[i]);
    for (std::size_t word = 0; word < walk.words.size(); word++) {
        meanings.clear();
        for (const auto& path : paths)
            add_meanings(walk, path[word], walk.words[word], meanings);
        sort_unique(meanings);
        if (meanings.size() > 1) return;
    }
    meanings.clear();
    for (std::uint32_t final : finals)
        meanings.emplace_back(walk.command_at(walk.state(final))->element->string);
    sort_unique(meanings);
}

// The words that can stand at a place, each once, by their first token.
struct Expected {
    const Grammar* grammar;
    std::size_t token;

    bool operator==(const Expected& other) const
    {
        std::size_t end = grammar->after_word(token);
        if (end - token != other.grammar->after_word(other.token) - other.token) return false;
        for (std::size_t i = token; i < end; i++) {
            if (grammar->form(i) != other.grammar->form(other.token + (i - token))) return false;
        }
        return true;
    }
};

void add_expected(std::vector<Expected>& expected, const Grammar* grammar, std::size_t token)
{
    Expected word{grammar, grammar->word_start(token)};
    // More than a few are never told apart in a reason.
    if (expected.size() > 3) return;
    if (std::find(expected.begin(), expected.end(), word) == expected.end()) expected.push_back(word);
}

std::vector<Expected> expected_behind(const Walk& walk, const Walk::Set& set)
{
    std::vector<Expected> expected;
    for (std::uint32_t index = set.begin; index < set.end; index++) {
        const State& at = walk.state(index);
        if (at.node != LEAF) {
            for (const Edge& edge : (*walk.nodes)[at.node].edges)
                add_expected(expected, edge.grammar, edge.token);
        } else if (std::size_t token = Walk::following_token(at); token < at.grammar->token_count) {
            add_expected(expected, at.grammar, token);
        }
    }
    return expected;
}

bool is_single(const Expected& word)
{
    return word.grammar->token(word.token).last_of_word;
}

bool is_range(const Expected& word)
{
    WordKind kind = word.grammar->token(word.token).kind;
    return is_single(word) && (kind == WordKind::Decimal || kind == WordKind::Hexadecimal);
}

// "<0-255>" as "0-255", "<-5-10>" as "-5 to 10".
void append_range(std::string& reason, std::string_view form)
{
    form = form.substr(1, form.size() - 2);
    if (form[0] != '-') {
        reason.append(form);
        return;
    }
    std::size_t dash = form.find('-', 1);
    reason.append(form.substr(0, dash)).append(" to ").append(form.substr(dash + 1));
}

void explain_ranges(const std::vector<Expected>& expected, std::string& reason)
{
    reason = "not in the range ";
    for (const Expected& word : expected) {
        if (&word != expected.data()) reason += " or ";
        append_range(reason, word.grammar->form(word.token));
    }
}

void explain_alternatives(const Grammar& grammar, std::size_t token, std::string& reason)
{
    reason = "one of ";
    std::size_t end = grammar.after_word(token);
    for (std::size_t i = token; i < end; i++) {
        if (i > token) reason += ", ";
        if (reason.size() + grammar.form(i).size() > REASON_WIDTH - 5) {
            reason += "...";
            return;
        }
        reason.append(grammar.form(i));
    }
}

// Why nothing that could follow takes the word, when that can be told in a few words.
void explain(const Walk& walk, std::string& reason)
{
    std::vector<Expected> expected = expected_behind(walk, walk.furthest_set);
    if (expected.empty() && walk.furthest > 0) {
        reason = "nothing can follow";
    } else if (!expected.empty() && expected.size() <= 3 && std::all_of(expected.begin(), expected.end(), is_range)) {
        explain_ranges(expected, reason);
    } else if (expected.size() == 1) {
        const Grammar& grammar = *expected[0].grammar;
        std::size_t token = expected[0].token;
        if (!is_single(expected[0])) {
            explain_alternatives(grammar, token, reason);
        } else if (grammar.token(token).in_group && grammar.token(token).kind == WordKind::Keyword) {
            reason.append("must be ").append(grammar.form(token));
        } else if (grammar.token(token).kind != WordKind::Keyword) {
            reason.append("not of the form ").append(grammar.form(token));
        }
    }
}

// No later word tells what a short last word means. So where it could as well begin a longer command, it is not taken
// for the one that happens to end here: "s" must not run "self-test" while "set" and "show" begin the same way.
bool has_unclear_end(const Walk& walk, const Walk::Set& set, std::uint32_t final, std::string_view last)
{
    const State& end = walk.state(final);
    if (fit_of(*end.grammar, end.token, last) != Fit::KeywordPrefix) return false;
    for (std::uint32_t index = set.begin; index < set.end; index++) {
        if (walk.state(index).ambiguous || form_of(walk.state(index)) != form_of(end)) return true;
    }
    return false;
}

} // namespace

void CommandTree::match(std::span<const std::string_view> words, Match& out) const
{
    reset(out);
    if (words.empty()) return;
    Walk& walk = impl->walk;
    walk.start(impl->nodes, words, MATCH_STEPS);
    Walk::Set set;
    if (walk.go_straight(&set)) {
        const State& end = walk.state(set.begin);
        const Grammar* command = walk.command_at(end);
        if (command != nullptr && !end.ambiguous) {
            accept(walk, command, out);
            return;
        }
    }
    walk.start(impl->nodes, words, MATCH_STEPS);
    while (walk.next(&set)) {
        std::uint32_t final = 0;
        std::size_t commands = 0;
        for (std::uint32_t index = set.begin; index < set.end; index++) {
            if (walk.command_at(walk.state(index)) == nullptr) continue;
            final = index;
            commands++;
        }
        if (commands == 0) continue;
        if (commands == 1 && !walk.state(final).ambiguous) {
            if (!has_unclear_end(walk, set, final, words.back())) {
                walk.line_up(final);
                accept(walk, walk.command_at(walk.states[words.size()]), out);
                return;
            }
            for (std::uint32_t index = set.begin; index < set.end; index++)
                add_meanings(walk, index, words.back(), out.candidates);
            sort_unique(out.candidates);
            out.status = MatchStatus::Ambiguous;
            return;
        }
        std::vector<std::uint32_t> finals;
        for (std::uint32_t index = set.begin; index < set.end; index++) {
            if (walk.command_at(walk.state(index)) != nullptr) finals.push_back(index);
        }
        list_meanings(walk, finals, out.candidates);
        out.status = MatchStatus::Ambiguous;
        return;
    }
    if (walk.furthest == words.size()) {
        out.status = MatchStatus::Incomplete;
        return;
    }
    out.status = MatchStatus::Unknown;
    out.error_word = walk.furthest;
    explain(walk, out.reason);
}

} // namespace engine
