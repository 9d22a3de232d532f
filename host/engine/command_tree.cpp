// SPDX-License-Identifier: Apache-2.0
// Installing commands in the tree.
#include "host/engine/command_tree.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

#include "host/engine/command_tree_nodes.h"

namespace engine {

namespace {

constexpr std::uint16_t VALUE_CHECK = 0;
constexpr std::size_t FIRST_EDGES = 4; // most tree nodes have no more
constexpr std::size_t FIRST_COMMANDS = 16;

constexpr std::size_t NONE = std::numeric_limits<std::size_t>::max();

// That many are looked through one by one while commands are installed.
constexpr std::size_t LOOKED_THROUGH = 48;
// More keywords than the slots of a table can number are looked for by halves.
constexpr std::size_t TABLE_LIMIT = 32 * 1024;

// Most words differ in one of their first letters.
bool is_before(std::string_view a, std::string_view b)
{
    std::size_t size = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < size; i++)
        if (a[i] != b[i]) return static_cast<unsigned char>(a[i]) < static_cast<unsigned char>(b[i]);
    return a.size() < b.size();
}

// The same word of two grammars: one token, or the same alternatives in the same order.
bool same_word(const Grammar& a, std::size_t token_a, const Grammar& b, std::size_t token_b)
{
    for (;; token_a++, token_b++) {
        const Token& in_a = a.token(token_a);
        const Token& in_b = b.token(token_b);
        if (in_a.in_group != in_b.in_group || in_a.last_of_word != in_b.last_of_word) return false;
        if (!same_text(a.form(token_a), b.form(token_b))) return false;
        if (in_a.last_of_word) return true;
    }
}

// The edge of a word's first token, by index; NONE when the word is not there.
std::size_t find_word(const TreeNode& node, const Grammar& grammar, std::size_t token)
{
    const Token& first = grammar.token(token);
    std::string_view form = grammar.form(token);
    bool keyword = first.kind == WordKind::Keyword;
    std::uint16_t check = keyword ? check_of(form) : VALUE_CHECK;
    std::span<const Edge> edges = keyword ? node.keywords() : node.values();
    // Beyond that many they are looked for by halves; a table would have to be made anew after each word that comes.
    bool many = keyword && edges.size() > LOOKED_THROUGH;
    if (many) edges = node.keywords_from(form);
    for (const Edge& edge : edges) {
        if (edge.check != check || !same_text(form_of(edge), form)) {
            if (many) break;
            continue;
        }
        bool in_group = edge.grammar->token(edge.token).in_group;
        if (in_group != first.in_group) continue;
        if (!in_group || same_word(*edge.grammar, edge.grammar->word_start(edge.token), grammar, token))
            return static_cast<std::size_t>(&edge - node.edges.data());
    }
    return NONE;
}

void add_edge(TreeNode* node, Edge edge)
{
    if (edge.grammar->token(edge.token).kind != WordKind::Keyword) {
        node->edges.push_back(edge);
        return;
    }
    edge.check = check_of(form_of(edge));
    node->first_letters |= TreeNode::letter_bit(form_of(edge));
    node->table.clear();
    auto end = node->edges.begin() + node->keyword_count;
    auto at = end;
    // Commands often come sorted.
    if (at != node->edges.begin() && is_before(form_of(edge), form_of(at[-1]))) {
        at = std::upper_bound(node->edges.begin(), end, form_of(edge),
                              [](std::string_view form, const Edge& other) { return is_before(form, form_of(other)); });
    }
    node->edges.insert(at, edge);
    node->keyword_count++;
}

// Adds the word, alternatives and all, as leaves of the grammar.
void add_word(TreeNode* node, const Grammar* grammar, std::size_t token)
{
    std::size_t end = grammar->after_word(token);
    for (; token < end; token++)
        add_edge(node, {grammar, LEAF, static_cast<std::uint16_t>(token), VALUE_CHECK});
}

// Takes eight letters at a time: words that differ in one of them get different values.
std::size_t keyword_hash(std::string_view word)
{
    constexpr std::uint64_t SPREAD = 0x9e3779b97f4a7c15;
    constexpr std::size_t STEP = sizeof(std::uint64_t);
    std::uint64_t hash = word.size();
    while (!word.empty()) {
        std::uint64_t letters = 0;
        std::string_view part = word.substr(0, STEP);
        if (part.size() == STEP) {
            std::memcpy(&letters, part.data(), STEP);
        } else {
            for (char letter : part)
                letters = letters << 8 | static_cast<unsigned char>(letter);
        }
        hash = (hash ^ letters) * SPREAD;
        hash ^= hash >> 32;
        word.remove_prefix(part.size());
    }
    return static_cast<std::size_t>(hash);
}

// Gives the leaf a tree node of its own, from which the rest of its command hangs.
std::uint32_t split_leaf(std::vector<TreeNode>& nodes, std::uint32_t parent, std::size_t edge_index)
{
    const Edge leaf = nodes[parent].edges[edge_index];
    auto index = static_cast<std::uint32_t>(nodes.size());
    TreeNode& node = nodes.emplace_back();
    node.edges.reserve(FIRST_EDGES);
    std::size_t rest = leaf.grammar->after_word(leaf.token);
    if (rest == leaf.grammar->token_count) {
        node.command = leaf.grammar;
    } else {
        add_word(&node, leaf.grammar, rest);
    }
    if (!leaf.grammar->token(leaf.token).in_group) {
        nodes[parent].edges[edge_index].node = index;
        return index;
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
    auto first = std::lower_bound(all.begin(), all.end(), word, [](const Edge& edge, std::string_view text) {
        return is_before(form_of(edge), text);
    });
    return all.subspan(static_cast<std::size_t>(first - all.begin()));
}

void TreeNode::make_table() const
{
    std::size_t size = 1;
    while (size < keyword_count + keyword_count / 2)
        size *= 2;
    table.assign(size, 0);
    table.shrink_to_fit();
    std::string_view previous;
    for (std::size_t index = 0; index < keyword_count; index++) {
        std::string_view form = form_of(edges[index]);
        if (form == previous) continue;
        previous = form;
        std::size_t slot = keyword_hash(form) & (size - 1);
        while (table[slot] != 0)
            slot = (slot + 1) & (size - 1);
        table[slot] = static_cast<std::uint16_t>(index + 1);
    }
}

std::size_t TreeNode::first_in_table(std::string_view word, std::uint16_t check) const
{
    if (keyword_count > TABLE_LIMIT) {
        std::span<const Edge> from = keywords_from(word);
        if (from.empty() || form_of(from.front()) != word) return keyword_count;
        return static_cast<std::size_t>(&from.front() - edges.data());
    }
    if (table.empty()) make_table();
    std::size_t mask = table.size() - 1;
    for (std::size_t slot = keyword_hash(word) & mask; table[slot] != 0; slot = (slot + 1) & mask)
        if (is_keyword(edges[table[slot] - 1U], check, word)) return table[slot] - 1U;
    return keyword_count;
}

// False when another element has the same words.
bool CommandTree::Impl::insert(const Grammar* grammar)
{
    if (installed.empty()) {
        installed.reserve(FIRST_COMMANDS);
        nodes.front().edges.reserve(FIRST_COMMANDS);
    }
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
            edge.node = split_leaf(nodes, at, found);
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

bool CommandTree::has_first_keyword(std::string_view word) const
{
    const TreeNode& root = impl->nodes.front();
    return root.has_keyword_like(word) && !root.keywords_equal(word).empty();
}

void CommandTree::for_each(const std::function<void(const cmd_element&, Origin)>& visit) const
{
    for (const Grammar* grammar : impl->installed)
        visit(*grammar->element, grammar->origin);
}

} // namespace engine
