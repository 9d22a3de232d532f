// SPDX-License-Identifier: Apache-2.0
// Installing commands in the tree.
#include "host/engine/command_tree.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "host/engine/command_tree_nodes.h"

namespace engine {

namespace {

constexpr std::size_t NONE = std::numeric_limits<std::size_t>::max();

// The same word of two grammars: one token, or the same alternatives in the same order.
bool same_word(const Grammar& a, std::size_t token_a, const Grammar& b, std::size_t token_b)
{
    for (;; token_a++, token_b++) {
        const Token& in_a = a.token(token_a);
        const Token& in_b = b.token(token_b);
        if (in_a.in_group != in_b.in_group || in_a.last_of_word != in_b.last_of_word) return false;
        if (a.form(token_a) != b.form(token_b)) return false;
        if (in_a.last_of_word) return true;
    }
}

// The edge of a word's first token, by index; NONE when the word is not there.
std::size_t find_word(const TreeNode& node, const Grammar& grammar, std::size_t token)
{
    std::string_view form = grammar.form(token);
    bool keyword = grammar.token(token).kind == WordKind::Keyword;
    std::span<const Edge> edges = keyword ? node.keywords_from(form) : node.values();
    for (const Edge& edge : edges) {
        if (keyword && form_of(edge) != form) break;
        if (same_word(*edge.grammar, edge.grammar->word_start(edge.token), grammar, token)) {
            return static_cast<std::size_t>(&edge - node.edges.data());
        }
    }
    return NONE;
}

void add_edge(TreeNode* node, const Edge& edge)
{
    if (edge.grammar->token(edge.token).kind != WordKind::Keyword) {
        node->edges.push_back(edge);
        return;
    }
    auto end = node->edges.begin() + node->keyword_count;
    auto at = end;
    // Commands often come sorted.
    if (at != node->edges.begin() && form_of(edge) < form_of(at[-1])) {
        at = std::upper_bound(node->edges.begin(), end, form_of(edge),
                              [](std::string_view form, const Edge& other) { return form < form_of(other); });
    }
    node->edges.insert(at, edge);
    node->keyword_count++;
}

// Adds the word, alternatives and all, as leaves of the grammar.
void add_word(TreeNode* node, const Grammar* grammar, std::size_t token)
{
    std::size_t end = grammar->after_word(token);
    for (; token < end; token++)
        add_edge(node, {grammar, LEAF, static_cast<std::uint16_t>(token)});
}

// Gives the leaf a tree node of its own, from which the rest of its command hangs.
std::uint32_t split_leaf(std::vector<TreeNode>& nodes, std::uint32_t parent, Edge leaf)
{
    auto index = static_cast<std::uint32_t>(nodes.size());
    TreeNode& node = nodes.emplace_back();
    std::size_t rest = leaf.grammar->after_word(leaf.token);
    if (rest == leaf.grammar->token_count) {
        node.command = leaf.grammar;
    } else {
        add_word(&node, leaf.grammar, rest);
    }
    for (Edge& edge : nodes[parent].edges) {
        if (edge.grammar == leaf.grammar && edge.node == LEAF) edge.node = index;
    }
    return index;
}

} // namespace

std::span<const Edge> TreeNode::keywords_from(std::string_view word) const
{
    std::span<const Edge> all = keywords();
    auto first = std::lower_bound(all.begin(), all.end(), word,
                                  [](const Edge& edge, std::string_view text) { return form_of(edge) < text; });
    return all.subspan(static_cast<std::size_t>(first - all.begin()));
}

// False when another element has the same words.
bool CommandTree::Impl::insert(const Grammar* grammar)
{
    std::uint32_t at = 0;
    std::size_t token = 0;
    while (token < grammar->token_count) {
        std::size_t found = find_word(nodes[at], *grammar, token);
        if (found == NONE) {
            add_word(&nodes[at], grammar, token);
            installed.push_back(grammar);
            return true;
        }
        Edge edge = nodes[at].edges[found];
        if (edge.node == LEAF) {
            if (edge.grammar == grammar) return true;
            edge.node = split_leaf(nodes, at, edge);
        }
        at = edge.node;
        token = grammar->after_word(token);
    }
    if (nodes[at].command != nullptr) return nodes[at].command == grammar;
    nodes[at].command = grammar;
    installed.push_back(grammar);
    return true;
}

CommandTree::CommandTree() : impl(std::make_unique<Impl>()) {}
CommandTree::~CommandTree() = default;
CommandTree::CommandTree(CommandTree&&) noexcept = default;
CommandTree& CommandTree::operator=(CommandTree&&) noexcept = default;

bool CommandTree::install(cmd_element* element, Origin origin, std::string* error)
{
    const Grammar* grammar = grammar_of(element, origin, error);
    if (grammar == nullptr) return false;
    if (impl->insert(grammar)) return true;
    if (error != nullptr) *error = "command \"" + std::string(element->string) + "\": another one has the same words";
    return false;
}

void CommandTree::for_each(const std::function<void(const cmd_element&, Origin)>& visit) const
{
    for (const Grammar* grammar : impl->installed)
        visit(*grammar->element, grammar->origin);
}

} // namespace engine
