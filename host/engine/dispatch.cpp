// SPDX-License-Identifier: Apache-2.0
// Executing a line. What an operator reads when a line is not executed is one line that begins with "% ", below a caret
// under the word that did not match.
#include "host/engine/dispatch.h"

#include <algorithm>

#include "host/engine/accounting.h"
#include "host/engine/event_loop.h"
#include "host/engine/nodes.h"
#include "host/engine/secrets.h"

namespace engine {
namespace {

constexpr std::size_t CANDIDATES_SHOWN = 20;
constexpr std::size_t WORDS_KEPT = 1024; // room that a session keeps for the words of its next line

// The words that leave a node whose lines go to the host, spelt in full.
struct LeaveWord {
    std::string_view word;
    void (*leave)(Session& session);
};
constexpr LeaveWord leave_words[] = {
    {"exit", leave_node},
    {"end", leave_contexts},
    {"quit", [](Session& session) { session.closing = true; }},
    {"logout", [](Session& session) { session.closing = true; }},
};

bool is_blank(char c)
{
    return static_cast<unsigned char>(c) <= ' ' && (c == ' ' || c == '\t'); // one look for most
}

std::string_view trimmed(std::string_view line)
{
    while (!line.empty() && is_blank(line.front()))
        line.remove_prefix(1);
    while (!line.empty() && is_blank(line.back()))
        line.remove_suffix(1);
    return line;
}

// Points at the word where it stands on the screen, if the line did not wrap.
void print_caret(Session& session, std::string_view line, std::string_view word)
{
    if (session.machine || session.filters) return; // there is no line on a screen to point into
    auto offset = static_cast<std::size_t>(word.data() - line.data());
    std::size_t column = session.editor.prompt_columns() + columns_of(line.substr(0, offset));
    std::size_t width = screen_columns(session) > 0 ? screen_columns(session) : PLAIN_WIDTH;
    if (column < width) print(session, "%*s^%s", static_cast<int>(column), "", newline(session));
}

// Whether a node has a command that begins with these words; one that is called something, at least.
bool has_command(int id, const std::vector<std::string_view>& words, Match& match)
{
    const Node* node = rules_of(id).title == nullptr ? nullptr : find_node(id);
    if (node == nullptr) return false;
    node->commands.match(words, match);
    return match.status == MatchStatus::Matched || match.status == MatchStatus::Incomplete;
}

// The node that has the command which the session's node has not: one on the way back, or else the first of all.
// Null: there is none.
const char* home_of(int from, const std::vector<std::string_view>& words)
{
    Match match;
    for (int id = rules_of(from).parent, steps = 0; id >= 0 && steps < NODE_ID_LIMIT; id = rules_of(id).parent, ++steps)
        if (has_command(id, words, match)) return rules_of(id).title;
    for (int id = 0; id < NODE_ID_LIMIT; ++id)
        if (has_command(id, words, match)) return rules_of(id).title;
    return nullptr;
}

void print_unknown(Session& session, std::string_view line, const std::vector<std::string_view>& words)
{
    const Match& match = session.match;
    if (match.error_word < words.size()) print_caret(session, line, words[match.error_word]);
    if (!match.reason.empty())
        print(session, WRONG_WORD, match.reason.c_str(), newline(session));
    else if (const char* home = home_of(session.node, words))
        print(session, UNKNOWN_HERE, home, newline(session));
    else
        print(session, match.error_word == 0 ? UNKNOWN_COMMAND : UNKNOWN_WORD, newline(session));
}

void print_ambiguous(Session& session)
{
    std::string names;
    const auto& candidates = session.match.candidates;
    for (std::size_t i = 0; i < candidates.size() && i < CANDIDATES_SHOWN; ++i)
        names += (i > 0 ? ", " : "") + candidates[i];
    if (candidates.size() > CANDIDATES_SHOWN) names += ", ...";
    print(session, AMBIGUOUS_COMMAND, names.c_str(), newline(session));
}

Outcome run_raw(Session& session, const NodeRules& rules, std::string_view line)
{
    for (const LeaveWord& row : leave_words)
        if (row.word == trimmed(line)) {
            row.leave(session);
            return {MatchStatus::Matched};
        }
    std::string text(line);
    session.buf = text.c_str();
    Executing scope(session);
    session.watch.begin();
    int result = rules.raw_line(&session, text.c_str());
    session.buf = "";
    return {MatchStatus::Matched, result, nullptr, session.watch.end()};
}

} // namespace

void split_words(std::string_view line, std::vector<std::string_view>* words)
{
    words->clear();
    const char* end = line.data() + line.size();
    for (const char* at = line.data();;) {
        while (at != end && is_blank(*at))
            at++;
        if (at == end) return;
        const char* word = at;
        do
            at++;
        while (at != end && !is_blank(*at));
        words->emplace_back(word, static_cast<std::size_t>(at - word));
    }
}

std::vector<std::string_view> split_words(std::string_view line)
{
    std::vector<std::string_view> words;
    split_words(line, &words);
    return words;
}

namespace {

// Lines of pasted scripts that say something to their reader.
bool is_remark(const std::vector<std::string_view>& words)
{
    return !words.empty() && (words.front()[0] == '!' || words.front()[0] == '#');
}

// The line without blanks around it.
std::string_view from_first_to_last(const std::vector<std::string_view>& words)
{
    if (words.empty()) return {};
    const char* end = words.back().data() + words.back().size();
    return {words.front().data(), static_cast<std::size_t>(end - words.front().data())};
}

// Finds the command that the words of the line mean in the session's node, or says why there is none.
MatchStatus match_line(Session& session, const Node* node, std::string_view line)
{
    const std::vector<std::string_view>& words = session.words;
    Match& match = session.match;
    if (words.empty()) {
        match.status = MatchStatus::Empty;
    } else if (node != nullptr) {
        node->commands.match(words, match);
    } else {
        match.status = MatchStatus::Unknown;
        match.error_word = 0;
        match.reason.clear();
    }
    switch (match.status) {
    case MatchStatus::Matched:
    case MatchStatus::Empty:
        break;
    case MatchStatus::Unknown:
        print_unknown(session, line, words);
        break;
    case MatchStatus::Incomplete:
        print(session, INCOMPLETE_COMMAND, newline(session));
        break;
    case MatchStatus::Ambiguous:
        print_ambiguous(session);
        break;
    }
    return match.status;
}

Outcome run_match(Session& session)
{
    Match& match = session.match;
    session.buf = match.line.c_str();
    Executing scope(session);
    session.watch.begin();
    int result = match.element->func(match.element, &session, static_cast<int>(match.argv.size()), match.argv.data());
    session.buf = "";
    return {MatchStatus::Matched, result, match.element, session.watch.end()};
}

Outcome run_command(Session& session, const Node* node, std::string_view line)
{
    MatchStatus status = match_line(session, node, line);
    return status == MatchStatus::Matched ? run_match(session) : Outcome{status};
}

void start_saving(Session& session, SaveRequest&& request)
{
    session.saving = start_saving(std::move(request), [&session] {
        session.flush_wanted.store(true);
        wake_loop();
    });
}

// A line with filters. A wrong one keeps the command from running.
Outcome run_filtered(Session& session, const Node* node, std::string_view line)
{
    FilteredLine typed = split_filters(line);
    std::string_view fault;
    std::string error;
    auto show = [&session](std::string_view text) {
        show_answer(session, text);
        show_answer(session, newline(session));
    };
    std::unique_ptr<FilterChain> chain = FilterChain::make(typed.filters, show, &fault, &error);
    if (chain && trimmed(typed.command).empty()) {
        fault = line.substr(typed.command.size());
        error = "There is no command before the filter";
        chain.reset();
    }
    if (!chain) {
        print_caret(session, line, fault);
        print(session, WRONG_FILTER, error.c_str(), newline(session));
        return {MatchStatus::Unknown};
    }
    if (chain->wishes.no_more) session.pager.off();
    if (chain->wishes.takes_errors) session.filters = std::move(chain);
    split_words(typed.command, &session.words);
    Outcome outcome{match_line(session, node, line)};
    if (chain) session.filters = std::move(chain);
    bool matched = outcome.status == MatchStatus::Matched;
    if (matched) outcome = run_match(session);
    chain = std::move(session.filters);
    if (matched || chain->wishes.takes_errors) chain->end(matched ? outcome.result : -1);
    if (matched && chain->wishes.save) start_saving(session, std::move(*chain->wishes.save));
    return outcome;
}

} // namespace

Outcome run_line(Session& session, std::string_view line)
{
    if (line.size() > LINE_LIMIT) {
        print(session, LINE_TOO_LONG, LINE_LIMIT, newline(session));
        return {MatchStatus::Unknown};
    }
    const Node* node = find_node(session.node);
    bool raw = node != nullptr && node->rules.raw_line != nullptr;
    split_words(line, &session.words);
    if (!raw && is_remark(session.words)) return {MatchStatus::Empty};
    std::string hidden;
    std::string_view shown = without_secrets(session, from_first_to_last(session.words), session.words, &hidden);
    session.editor.remember(shown);
    Account account(session, shown);
    Outcome outcome = raw                                        ? run_raw(session, node->rules, line)
                      : line.find('|') == std::string_view::npos ? run_command(session, node, line)
                                                                 : run_filtered(session, node, line);
    account.settle(outcome);
    if (session.words.capacity() > WORDS_KEPT) std::vector<std::string_view>().swap(session.words);
    return outcome;
}

void finish_saving(Session& session)
{
    append_output(session, session.saving->report() + newline(session));
    session.saving.reset();
}

namespace {

// Leaves the current node for good: its hook sees the session still in it.
void move_up(Session& session, int target)
{
    if (auto* leave = rules_of(session.node).leave) {
        Executing scope(session);
        leave(&session);
    }
    session.node = target;
}

} // namespace

void leave_node(Session& session)
{
    int parent = rules_of(session.node).parent;
    if (parent < 0)
        session.closing = true; // the hook runs when the session closes
    else
        move_up(session, parent);
}

void leave_contexts(Session& session)
{
    const bool is_below_configuration = session.node != CONFIG_NODE && is_configuration(session.node);
    const int top = is_below_configuration ? CONFIG_NODE : ENABLE_NODE;
    int target = session.node;
    for (int steps = 0; target != top && target != VIEW_NODE && steps < NODE_ID_LIMIT; ++steps) {
        int parent = rules_of(target).parent;
        if (parent < 0) return;
        target = parent;
    }
    if (target != session.node) move_up(session, target);
}

} // namespace engine
