// SPDX-License-Identifier: Apache-2.0
// What can stand at a position of a line: for "?" and for completion.
#include <algorithm>

#include "host/engine/command_tree_nodes.h"

namespace engine {

namespace {

constexpr std::string_view END_OF_LINE_HELP = "Run the command";

struct Listing {
    std::string_view partial;
    std::vector<Candidate> keywords;
    std::vector<Candidate> values;
    bool sorted = true; // the keywords came in order
    bool ends = false;  // a command ends here
};

// The grammar's words on the way to a state.
std::vector<std::string_view> forms_before(const Walk& walk, const State& last)
{
    std::vector<std::string_view> forms(walk.words.size());
    const State* at = &last;
    for (std::size_t i = forms.size(); i-- > 0; at = &walk.state(at->parent))
        forms[i] = at->grammar->form(at->token);
    return forms;
}

// A word that can follow the state.
void add_token(Listing& listing, const Walk& walk, const State& at, const Grammar& grammar, std::size_t token)
{
    std::string_view form = grammar.form(token);
    if (grammar.token(token).kind == WordKind::Keyword) {
        if (!listing.keywords.empty()) {
            std::string_view last = listing.keywords.back().word;
            if (form == last) return;
            if (form < last) listing.sorted = false;
        }
        listing.keywords.push_back({form, grammar.help(token), true});
        return;
    }
    auto same = [form](const Candidate& value) { return value.word == form; };
    if (std::any_of(listing.values.begin(), listing.values.end(), same)) return;
    listing.values.push_back({form, grammar.help(token), false, forms_before(walk, at)});
}

void add_state(Listing& listing, const Walk& walk, const State& at)
{
    if (listing.partial.empty() && walk.command_at(at) != nullptr) listing.ends = true;
    if (at.node == LEAF) {
        std::size_t token = Walk::following_token(at);
        bool more = token < at.grammar->token_count;
        for (; more; token++) {
            if (may_become(at.grammar->token(token).kind, at.grammar->form(token), listing.partial)) {
                add_token(listing, walk, at, *at.grammar, token);
            }
            more = !at.grammar->token(token).last_of_word;
        }
        return;
    }
    const TreeNode& node = (*walk.nodes)[at.node];
    for (const Edge& edge : node.keywords_from(listing.partial)) {
        if (!form_of(edge).starts_with(listing.partial)) break;
        add_token(listing, walk, at, *edge.grammar, edge.token);
    }
    for (const Edge& edge : node.values()) {
        if (may_become(edge.grammar->token(edge.token).kind, form_of(edge), listing.partial)) {
            add_token(listing, walk, at, *edge.grammar, edge.token);
        }
    }
}

void sort_keywords(std::vector<Candidate>& keywords)
{
    // Stable: of equal words the help of the first stays.
    std::stable_sort(keywords.begin(), keywords.end(),
                     [](const Candidate& a, const Candidate& b) { return a.word < b.word; });
    auto same = [](const Candidate& a, const Candidate& b) { return a.word == b.word; };
    keywords.erase(std::unique(keywords.begin(), keywords.end(), same), keywords.end());
}

} // namespace

std::vector<Candidate> CommandTree::candidates(std::span<const std::string_view> words, std::string_view partial) const
{
    Walk& walk = impl->walk;
    walk.start(impl->nodes, words, HELP_STEPS);
    for (Walk::Set set; walk.next(&set);) {
        Listing listing;
        listing.partial = partial;
        for (std::uint32_t index = set.begin; index < set.end; index++)
            add_state(listing, walk, walk.state(index));
        if (!listing.sorted) sort_keywords(listing.keywords);
        std::vector<Candidate>& all = listing.keywords;
        all.insert(all.end(), listing.values.begin(), listing.values.end());
        if (listing.ends) all.push_back({END_OF_LINE, END_OF_LINE_HELP, false});
        if (!all.empty()) return std::move(all);
    }
    return {};
}

} // namespace engine
