// SPDX-License-Identifier: Apache-2.0
#include "host/engine/secrets.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "host/engine/nodes.h"

namespace engine {
namespace {

constexpr std::string_view MASK = "***";
// In a line that the node's commands do not explain, so much of a word is enough to take it for the secret word.
constexpr std::size_t TELLING_LENGTH = 3;

struct Words {
    std::vector<SecretWord> rows;
    std::array<bool, 256> begins{}; // with that byte, at least one of them
};

Words& secret_words()
{
    static Words& all = *new Words;
    return all;
}

// Letters to change, to add or to take away that make a slip of the finger; two neighbours in the wrong order are two.
constexpr std::size_t SLIP = 2;

// Whether one word becomes the other by a slip behind its first letter.
bool resembles(std::string_view typed, std::string_view word)
{
    if (typed[0] != word[0] || typed.size() > word.size() + SLIP || word.size() > typed.size() + SLIP) return false;
    std::array<std::size_t, 32> row; // changes from what was typed so far to each beginning of the word
    if (word.size() >= row.size()) return false;
    for (std::size_t i = 0; i <= word.size(); ++i)
        row[i] = i;
    for (std::size_t at = 0; at < typed.size(); ++at) {
        std::size_t above_left = std::exchange(row[0], at + 1);
        for (std::size_t i = 1; i <= word.size(); ++i) {
            std::size_t change = above_left + (typed[at] == word[i - 1] ? 0 : 1);
            above_left = row[i];
            row[i] = std::min({change, row[i] + 1, row[i - 1] + 1});
        }
    }
    return row[word.size()] <= SLIP;
}

// Whether the word at the given place of the line can stand for the secret word.
bool means(const Session& session, std::span<const std::string_view> words, std::size_t at, std::string_view secret)
{
    std::string_view typed = words[at];
    if (typed == secret) return true;
    bool begins = secret.starts_with(typed);
    if (!begins && !resembles(typed, secret)) return false;
    const Node* node = find_node(session.node);
    if (node == nullptr || node->rules.raw_line != nullptr) return typed.size() >= TELLING_LENGTH;
    // "set" is a word of its own, in many lines, and no short "set-key".
    if (at == 0 && node->commands.has_first_keyword(typed) && !node->commands.has_first_keyword(secret)) return false;
    auto candidates = node->commands.candidates(words.first(at), typed);
    if (candidates.empty()) return typed.size() >= TELLING_LENGTH;
    return std::any_of(candidates.begin(), candidates.end(),
                       [&](const Candidate& candidate) { return candidate.word == secret; });
}

} // namespace

void set_secret_words(std::span<const SecretWord> words)
{
    secret_words().begins.fill(false);
    secret_words().rows.assign(words.begin(), words.end());
    for (const SecretWord& row : words)
        secret_words().begins[static_cast<unsigned char>(row.word[0])] = true;
}

std::string_view without_secrets(const Session& session, std::string_view line, std::span<const std::string_view> words,
                                 std::string* storage)
{
    const Words& secrets = secret_words();
    auto begins_like_one = [&secrets](std::string_view word) {
        return secrets.begins[static_cast<unsigned char>(word[0])];
    };
    auto first = std::find_if(words.begin(), words.end(), begins_like_one);
    std::size_t copied = 0;
    std::size_t hidden = words.size(); // the next word to be hidden
    for (auto i = static_cast<std::size_t>(first - words.begin()); i < words.size(); ++i) {
        if (i == hidden) {
            auto from = static_cast<std::size_t>(words[i].data() - line.data());
            storage->append(line.substr(copied, from - copied)).append(MASK);
            copied = from + words[i].size();
            continue;
        }
        if (!begins_like_one(words[i])) continue;
        for (const SecretWord& row : secrets.rows)
            if (means(session, words, i, row.word)) hidden = i + row.distance;
    }
    if (copied == 0) return line;
    return storage->append(line.substr(copied));
}

} // namespace engine
