// SPDX-License-Identifier: Apache-2.0
// How the commands of one node are kept and walked.
//
// A tree node stands for the words before it and has one edge for each word that can follow; a group has one edge for
// each of its alternatives, all to the same tree node. Below the last word that a command shares with another there
// are no tree nodes: the edge is a leaf, and the rest of the command is read from its grammar.
//
// A walk takes the typed words and yields sets of places where they can lead, best first. All places of a set are
// reached with the same fits (exact keyword, keyword prefix, value, variable) word by word. A place that has been
// entered once is not entered again with a worse fit, so a walk costs no more than one visit to each place.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>
#include <vector>

#include "host/engine/command_tree.h"
#include "host/engine/grammar.h"

namespace engine {

constexpr std::uint32_t LEAF = 0xffffffff;

struct Edge {
    const Grammar* grammar; // the command that brought the word
    std::uint32_t node;     // where it leads; LEAF: only that command goes on here
    std::uint16_t token;
    std::uint16_t check; // of a keyword: tells most others apart without a look at their texts
};

inline std::string_view form_of(const Edge& edge)
{
    return edge.grammar->form(edge.token);
}

inline std::uint16_t check_of(std::string_view word)
{
    auto first = static_cast<unsigned char>(word.front());
    auto last = static_cast<unsigned char>(word.back());
    return static_cast<std::uint16_t>((first << 8 | last) ^ (word.size() << 4));
}

inline bool is_keyword(const Edge& edge, std::uint16_t check, std::string_view word)
{
    return edge.check == check && same_text(form_of(edge), word);
}

// That many keywords are looked through one by one; more are found by a table, unless they are too many for its slots.
constexpr std::size_t SCANNED_KEYWORDS = 12;

struct TreeNode {
    std::vector<Edge> edges; // keywords sorted by text, behind them values and variables as installed
    std::uint32_t keyword_count = 0;
    std::uint32_t first_letters = 0;  // a bit for each that a keyword begins with; some letters share one
    const Grammar* command = nullptr; // the command that ends here
    // Of a node with many keywords: 1 + index of the first edge with each text, at its hash or behind it; 0: free. Made
    // when a word is looked for.
    mutable std::vector<std::uint16_t> table;

    std::span<const Edge> keywords() const
    {
        return {edges.data(), keyword_count};
    }
    std::span<const Edge> values() const
    {
        return {edges.data() + keyword_count, edges.size() - keyword_count};
    }
    static std::uint32_t letter_bit(std::string_view word)
    {
        return std::uint32_t{1} << (static_cast<unsigned char>(word[0]) & 31);
    }
    // False when no keyword is the word or begins like it; nothing is an empty word.
    bool has_keyword_like(std::string_view word) const
    {
        return !word.empty() && (first_letters & letter_bit(word)) != 0;
    }
    // The keywords from the first that is not less than `word`.
    std::span<const Edge> keywords_from(std::string_view word) const;
    // The keywords that are `word`, which is not empty: none, one, or one from each of several groups and words.
    std::span<const Edge> keywords_equal(std::string_view word) const
    {
        std::uint16_t check = check_of(word);
        std::size_t first = first_equal(word, check);
        std::size_t end = std::min<std::size_t>(first + 1, keyword_count);
        while (end < keyword_count && is_keyword(edges[end], check, word))
            end++;
        return keywords().subspan(first, end - first);
    }
    // The same when there is only one of them; otherwise null.
    const Edge* only_keyword(std::string_view word) const
    {
        std::uint16_t check = check_of(word);
        std::size_t first = first_equal(word, check);
        if (first == keyword_count) return nullptr;
        const Edge* edge = &edges[first];
        return first + 1 < keyword_count && is_keyword(edge[1], check, word) ? nullptr : edge;
    }

  private:
    // Index of the first keyword that is the word; keyword_count when none is.
    std::size_t first_equal(std::string_view word, std::uint16_t check) const
    {
        if (keyword_count > SCANNED_KEYWORDS) return first_in_table(word, check);
        std::size_t index = 0;
        while (index < keyword_count && !is_keyword(edges[index], check, word))
            index++;
        return index;
    }
    std::size_t first_in_table(std::string_view word, std::uint16_t check) const;
    void make_table() const;
};

// How a word fits the next word of a leaf's command.
struct Step {
    std::uint16_t token = 0; // the alternative that it fits best
    Fit fit = Fit::None;
    bool ambiguous = false;       // it fits another one as well
    std::uint16_t next_token = 0; // behind the word
};

// A place that the words typed so far lead to.
struct State {
    const Grammar* grammar = nullptr; // token of the word that was taken last
    std::uint32_t node = 0;           // LEAF: behind that word of that grammar
    std::uint32_t parent = 0;         // the state before that word
    std::uint16_t token = 0;
    bool ambiguous = false;  // two alternatives of a group fit equally, here or at an earlier word
    bool short_word = false; // a keyword was typed short, here or at an earlier word
    Step next;               // of a leaf among several states
};

// Fits that a walk treats as equally good.
struct FitStep {
    Fit closest;
    Fit farthest;
};

// A line means what fits it most closely, word by word.
constexpr FitStep MATCH_STEPS[] = {{Fit::ExactKeyword, Fit::ExactKeyword},
                                   {Fit::KeywordPrefix, Fit::KeywordPrefix},
                                   {Fit::Value, Fit::Value},
                                   {Fit::Variable, Fit::Variable}};
constexpr std::uint32_t VALUE_STEP = 2; // those before it are for keywords

// Help lists what can follow a value and what can follow a variable together.
constexpr FitStep HELP_STEPS[] = {
    {Fit::ExactKeyword, Fit::ExactKeyword}, {Fit::KeywordPrefix, Fit::KeywordPrefix}, {Fit::Value, Fit::Variable}};

struct Walk {
    // Indices of states.
    struct Set {
        std::uint32_t begin;
        std::uint32_t end;
        std::uint32_t next_step;
    };
    struct Entered {
        const Grammar* grammar;
        std::uint32_t node;
    };

    const std::vector<TreeNode>* nodes = nullptr;
    std::span<const std::string_view> words;
    std::span<const FitStep> steps;
    std::vector<State> states;
    std::vector<Set> sets;        // one for each word of the line that is being tried
    std::vector<Entered> entered; // places behind groups
    std::size_t furthest = 0;     // most words that any command takes
    Set furthest_set{};           // the best set behind them

    void start(const std::vector<TreeNode>& tree, std::span<const std::string_view> typed,
               std::span<const FitStep> fit_steps);
    // The next best set that all words lead to; false when there is none.
    bool next(Set* found);
    // Right behind the start: the first set, found at less cost when every word is typed in full and leaves no choice,
    // as in most lines. Otherwise false, and the walk has to be started again.
    bool go_straight(Set* found);

    // The states behind each word up to the last one, as indices.
    void path_to(std::uint32_t last, std::vector<std::uint32_t>& path) const;
    // Puts these states next to each other behind the first, where a straight walk has them. The walk is then over.
    void line_up(std::uint32_t last);
    const State& state(std::uint32_t index) const
    {
        return states[index];
    }
    // The command that ends at the state, or null.
    const Grammar* command_at(const State& at) const;
    // First token of the word that follows a leaf's; token_count when its command ends there.
    static std::size_t following_token(const State& at)
    {
        return at.grammar->after_word(at.token);
    }

  private:
    static Step step_leaf(const Grammar& grammar, std::size_t token, std::string_view word);
    bool follow_leaf(std::uint32_t index, std::size_t depth, Set* found);
    void note_furthest(std::size_t depth, const Set& set);
    void expand(const Set& set, std::string_view word, FitStep step);
    void expand_leaf(std::uint32_t index, std::string_view word, FitStep step);
    std::uint32_t expand_node(std::uint32_t index, std::string_view word, std::uint32_t step);
    void expand_edges(const TreeNode& node, std::uint32_t index, std::string_view word, FitStep step);
    void expand_beginnings(const TreeNode& node, std::uint32_t index, std::string_view word);
    void enter(std::uint32_t parent, const Edge& edge, Fit fit);
    bool was_entered(std::uint32_t parent, const Edge& edge, Fit fit);
};

struct CommandTree::Impl {
    std::vector<TreeNode> nodes{1};
    std::vector<const Grammar*> installed;
    // Kept for its buffers.
    mutable Walk walk;

    bool insert(const Grammar* grammar);
};

} // namespace engine
