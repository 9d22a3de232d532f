// SPDX-License-Identifier: Apache-2.0
// Following typed words through the tree, best fit first.
#include "host/engine/command_tree_nodes.h"

namespace engine {

void Walk::start(const std::vector<TreeNode>& tree, std::span<const std::string_view> typed,
                 std::span<const FitStep> fit_steps)
{
    nodes = &tree;
    words = typed;
    steps = fit_steps;
    states.clear();
    sets.clear();
    entered.clear();
    states.emplace_back();
    sets.push_back({0, 1, 0});
    furthest = 0;
    furthest_set = sets.back();
}

bool Walk::next(Set* found)
{
    while (!sets.empty()) {
        Set& set = sets.back();
        std::size_t depth = sets.size() - 1;
        if (depth == words.size()) {
            *found = set;
            sets.pop_back();
            return true;
        }
        if (set.end - set.begin == 1 && states[set.begin].node == LEAF) {
            std::uint32_t leaf = set.begin;
            sets.pop_back();
            if (!follow_leaf(leaf, depth, found)) continue;
            return true;
        }
        if (set.next_step == steps.size()) {
            sets.pop_back();
            continue;
        }
        auto begin = static_cast<std::uint32_t>(states.size());
        if (set.end - set.begin == 1) {
            set.next_step = expand_node(set.begin, words[depth], set.next_step);
        } else {
            while (set.next_step < steps.size() && states.size() == begin)
                expand(set, words[depth], steps[set.next_step++]);
        }
        auto end = static_cast<std::uint32_t>(states.size());
        if (begin == end) continue;
        sets.push_back({begin, end, 0});
        note_furthest(depth + 1, sets.back());
    }
    return false;
}

namespace {

// The one edge that takes the word; null when there is none or a choice, or the word may be a keyword typed short.
inline const Edge* only_edge(const TreeNode& node, std::string_view word)
{
    if (node.has_keyword_like(word)) return node.only_keyword(word);
    const Edge* only = nullptr;
    Fit best = Fit::None;
    for (const Edge& edge : node.values()) {
        Fit fit = value_fit(edge.grammar->token(edge.token).kind, form_of(edge), word);
        if (fit == Fit::None || fit > best) continue;
        only = fit < best ? &edge : nullptr;
        best = fit;
    }
    return only;
}

} // namespace

bool Walk::go_straight(Set* found)
{
    std::uint32_t index = 0;
    for (std::uint32_t place = 0; index < words.size() && place != LEAF; index++) {
        const Edge* edge = only_edge((*nodes)[place], words[index]);
        if (edge == nullptr) return false;
        place = edge->node;
        State& reached = states.emplace_back();
        reached.grammar = edge->grammar;
        reached.node = place;
        reached.parent = index;
        reached.token = edge->token;
    }
    *found = {index, index + 1, 0};
    return index == words.size() || follow_leaf(index, index, found);
}

void Walk::note_furthest(std::size_t depth, const Set& set)
{
    if (depth <= furthest) return;
    furthest = depth;
    furthest_set = set;
}

// How a word fits the next word of a leaf's grammar, which is not at its end.
Step Walk::step_leaf(const Grammar& grammar, std::size_t token, std::string_view word)
{
    Step step;
    for (;; token++) {
        const Token& alternative = grammar.token(token);
        Fit fit = fit_of(alternative.kind, grammar.form(token), word);
        if (fit == Fit::ExactKeyword) { // nothing fits better
            return {static_cast<std::uint16_t>(token), fit, false,
                    static_cast<std::uint16_t>(grammar.after_word(token))};
        }
        // The rest of what the grammar's fit_of() says: words typed in full, which most are, do not come here.
        if (fit == Fit::KeywordPrefix && grammar.stands_beside_variable(token)) fit = Fit::None;
        if (fit < step.fit) {
            step = {static_cast<std::uint16_t>(token), fit, false, 0};
        } else if (fit == Fit::KeywordPrefix && fit == step.fit) {
            step.ambiguous = true;
        }
        if (alternative.last_of_word) break;
    }
    step.next_token = static_cast<std::uint16_t>(token + 1);
    return step;
}

// Only one command is left: all other words are its own, or the walk goes back to a worse set.
bool Walk::follow_leaf(std::uint32_t index, std::size_t depth, Set* found)
{
    const Grammar& grammar = *states[index].grammar;
    std::size_t token = following_token(states[index]);
    bool ambiguous = states[index].ambiguous;
    bool short_word = states[index].short_word;
    for (; depth < words.size() && token < grammar.token_count; depth++) {
        Step step = step_leaf(grammar, token, words[depth]);
        if (step.fit == Fit::None) break;
        ambiguous |= step.ambiguous;
        short_word |= step.fit == Fit::KeywordPrefix;
        states.push_back({&grammar, LEAF, index, step.token, ambiguous, short_word, {}});
        index = static_cast<std::uint32_t>(states.size() - 1);
        token = step.next_token;
    }
    *found = {index, index + 1, 0};
    note_furthest(depth, *found);
    return depth == words.size();
}

const Grammar* Walk::command_at(const State& at) const
{
    if (at.node != LEAF) return (*nodes)[at.node].command;
    return following_token(at) == at.grammar->token_count ? at.grammar : nullptr;
}

void Walk::path_to(std::uint32_t last, std::vector<std::uint32_t>& path) const
{
    path.resize(words.size());
    for (std::size_t i = path.size(); i-- > 0;) {
        path[i] = last;
        last = states[last].parent;
    }
}

void Walk::line_up(std::uint32_t last)
{
    std::vector<std::uint32_t> path;
    path_to(last, path);
    for (std::size_t i = 0; i < path.size(); i++) // no state stands before the place of its word
        states[i + 1] = states[path[i]];
}

// Whether an alternative of the same group has led to the same place.
bool Walk::was_entered(std::uint32_t parent, const Edge& edge, Fit fit)
{
    for (const Entered& place : entered) {
        if (place.node != edge.node || place.grammar != edge.grammar) continue;
        // Entered by a closer alternative, or just now by one that fits as well.
        for (std::size_t i = states.size(); fit == Fit::KeywordPrefix && i-- > 0 && states[i].parent == parent;) {
            if (states[i].node == edge.node && states[i].grammar == edge.grammar) states[i].ambiguous = true;
        }
        return true;
    }
    entered.push_back({edge.grammar, edge.node});
    return false;
}

inline void Walk::enter(std::uint32_t parent, const Edge& edge, Fit fit)
{
    if (edge.grammar->token(edge.token).in_group && was_entered(parent, edge, fit)) return;
    bool ambiguous = states[parent].ambiguous;
    bool short_word = states[parent].short_word || fit == Fit::KeywordPrefix;
    states.push_back({edge.grammar, edge.node, parent, edge.token, ambiguous, short_word, {}});
}

void Walk::expand(const Set& set, std::string_view word, FitStep step)
{
    for (std::uint32_t index = set.begin; index < set.end; index++) {
        if (states[index].node == LEAF)
            expand_leaf(index, word, step);
        else
            expand_edges((*nodes)[states[index].node], index, word, step);
    }
}

// Follows the edges of the only place there is, step by step until one leads on. Returns the step behind that one.
std::uint32_t Walk::expand_node(std::uint32_t index, std::string_view word, std::uint32_t step)
{
    const TreeNode& node = (*nodes)[states[index].node];
    const auto end = static_cast<std::uint32_t>(node.values().empty() ? VALUE_STEP : steps.size());
    if (step < VALUE_STEP && !node.has_keyword_like(word)) step = VALUE_STEP;
    for (std::size_t before = states.size(); step < end && states.size() == before; step++)
        expand_edges(node, index, word, steps[step]);
    return step < end ? step : static_cast<std::uint32_t>(steps.size());
}

void Walk::expand_edges(const TreeNode& node, std::uint32_t index, std::string_view word, FitStep step)
{
    if (step.closest == Fit::ExactKeyword) {
        if (!node.has_keyword_like(word)) return;
        for (const Edge& edge : node.keywords_equal(word))
            enter(index, edge, Fit::ExactKeyword);
    } else if (step.closest == Fit::KeywordPrefix) {
        expand_beginnings(node, index, word);
    } else {
        for (const Edge& edge : node.values()) {
            Fit fit = value_fit(edge.grammar->token(edge.token).kind, form_of(edge), word);
            if (fit >= step.closest && fit <= step.farthest) enter(index, edge, fit);
        }
    }
}

void Walk::expand_leaf(std::uint32_t index, std::string_view word, FitStep step)
{
    State& at = states[index];
    if (step.closest == Fit::ExactKeyword) { // the first step decides how the word fits
        std::size_t token = following_token(at);
        at.next = token < at.grammar->token_count ? step_leaf(*at.grammar, token, word) : Step{};
    }
    if (at.next.fit < step.closest || at.next.fit > step.farthest) return;
    State reached;
    reached.grammar = at.grammar;
    reached.node = LEAF;
    reached.parent = index;
    reached.token = at.next.token;
    reached.ambiguous = at.ambiguous || at.next.ambiguous;
    reached.short_word = at.short_word || at.next.fit == Fit::KeywordPrefix;
    states.push_back(reached);
}

// The keywords that the word begins.
void Walk::expand_beginnings(const TreeNode& node, std::uint32_t index, std::string_view word)
{
    if (!node.has_keyword_like(word)) return;
    for (const Edge& edge : node.keywords_from(word)) {
        if (!form_of(edge).starts_with(word)) break;
        if (fit_of(*edge.grammar, edge.token, word) == Fit::KeywordPrefix) enter(index, edge, Fit::KeywordPrefix);
    }
}

} // namespace engine
