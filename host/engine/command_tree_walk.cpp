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
        if (set.next_step == steps.size()) {
            sets.pop_back();
            continue;
        }
        auto begin = static_cast<std::uint32_t>(states.size());
        expand(set, words[depth], steps[set.next_step++]);
        auto end = static_cast<std::uint32_t>(states.size());
        if (begin == end) continue;
        sets.push_back({begin, end, 0});
        if (depth + 1 > furthest) {
            furthest = depth + 1;
            furthest_set = sets.back();
        }
    }
    return false;
}

const Grammar* Walk::command_at(const State& at) const
{
    if (at.node != LEAF) return (*nodes)[at.node].command;
    return following_token(at) == at.grammar->token_count ? at.grammar : nullptr;
}

void Walk::expand(const Set& set, std::string_view word, FitStep step)
{
    if (word.empty()) return;
    for (std::uint32_t index = set.begin; index < set.end; index++) {
        if (states[index].node == LEAF) {
            expand_leaf(index, word, step);
        } else if (step.closest <= Fit::KeywordPrefix) {
            expand_keywords(index, word, step);
        } else {
            expand_values(index, word, step);
        }
    }
}

void Walk::expand_leaf(std::uint32_t index, std::string_view word, FitStep step)
{
    State& at = states[index];
    const Grammar& grammar = *at.grammar;
    if (step.closest == Fit::ExactKeyword) { // the first step decides how the word fits
        at.next_fit = Fit::None;
        at.next_is_ambiguous = false;
        std::size_t token = following_token(at);
        bool more = token < grammar.token_count;
        for (; more; token++) {
            Fit fit = fit_of(grammar.token(token).kind, grammar.form(token), word);
            if (fit < at.next_fit) {
                at.next_fit = fit;
                at.next_token = static_cast<std::uint16_t>(token);
                at.next_is_ambiguous = false;
            } else if (fit == Fit::KeywordPrefix && fit == at.next_fit) {
                at.next_is_ambiguous = true;
            }
            more = !grammar.token(token).last_of_word;
        }
    }
    if (at.next_fit < step.closest || at.next_fit > step.farthest) return;
    State reached;
    reached.grammar = at.grammar;
    reached.node = LEAF;
    reached.parent = index;
    reached.token = at.next_token;
    reached.ambiguous = at.ambiguous || at.next_is_ambiguous;
    states.push_back(reached);
}

void Walk::expand_keywords(std::uint32_t index, std::string_view word, FitStep step)
{
    const TreeNode& node = (*nodes)[states[index].node];
    for (const Edge& edge : node.keywords_from(word)) {
        Fit fit = fit_of(WordKind::Keyword, form_of(edge), word);
        if (fit > step.farthest) break; // sorted: equal ones first, then longer ones
        if (fit == step.closest) enter(index, edge, fit);
    }
}

void Walk::expand_values(std::uint32_t index, std::string_view word, FitStep step)
{
    const TreeNode& node = (*nodes)[states[index].node];
    for (const Edge& edge : node.values()) {
        Fit fit = fit_of(edge.grammar->token(edge.token).kind, form_of(edge), word);
        if (fit >= step.closest && fit <= step.farthest) enter(index, edge, fit);
    }
}

void Walk::enter(std::uint32_t parent, const Edge& edge, Fit fit)
{
    if (edge.grammar->token(edge.token).in_group) {
        for (const Entered& place : entered) {
            if (place.node != edge.node || place.grammar != edge.grammar) continue;
            // Entered by a closer alternative, or just now by one that fits as well.
            for (std::size_t i = states.size(); fit == Fit::KeywordPrefix && i-- > 0 && states[i].parent == parent;) {
                if (states[i].node == edge.node && states[i].grammar == edge.grammar) states[i].ambiguous = true;
            }
            return;
        }
        entered.push_back({edge.grammar, edge.node});
    }
    State reached;
    reached.grammar = edge.grammar;
    reached.node = edge.node;
    reached.parent = parent;
    reached.token = edge.token;
    reached.ambiguous = states[parent].ambiguous;
    states.push_back(reached);
}

} // namespace engine
