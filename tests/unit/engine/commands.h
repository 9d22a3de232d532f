// SPDX-License-Identifier: Apache-2.0
// Commands made up by a test, and a tree to install them in.
#pragma once

#include <cstring>
#include <deque>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "host/engine/command_tree.h"

namespace engine_test {

inline std::vector<std::string_view> split(std::string_view line)
{
    std::vector<std::string_view> words;
    while (!line.empty()) {
        std::size_t end = line.find(' ');
        if (end != 0) words.push_back(line.substr(0, end));
        if (end == std::string_view::npos) break;
        line.remove_prefix(end + 1);
    }
    return words;
}

// Words of a grammar whose groups hold no blanks and are not glued.
inline std::string help_for(std::string_view grammar)
{
    std::string help;
    for (std::string_view word : split(grammar))
        help.append("Help of ").append(word).append("\n");
    return help;
}

struct Commands {
    std::deque<std::string> texts;
    std::deque<cmd_element> elements;
    engine::CommandTree tree;
    engine::Match match;
    std::string error;

    Commands() = default;
    Commands(std::initializer_list<const char*> grammars)
    {
        for (const char* grammar : grammars)
            add(grammar);
    }

    cmd_element* make(std::string_view grammar, std::string_view help)
    {
        cmd_element element{};
        element.string = texts.emplace_back(grammar).c_str();
        element.doc = texts.emplace_back(help).c_str();
        return &elements.emplace_back(element);
    }

    bool add(std::string_view grammar, std::string_view help)
    {
        return tree.install(make(grammar, help), engine::Origin::Library, &error);
    }
    bool add(std::string_view grammar)
    {
        return add(grammar, help_for(grammar));
    }

    const engine::Match& run(std::string_view line)
    {
        tree.match(split(line), match);
        return match;
    }

    // The words that can stand behind the line, or in place of its last word when it does not end with a blank.
    std::string listed(std::string_view line) const
    {
        std::vector<std::string_view> words = split(line);
        std::string_view partial;
        if (!line.empty() && line.back() != ' ') {
            partial = words.back();
            words.pop_back();
        }
        std::string text;
        for (const engine::Candidate& candidate : tree.candidates(words, partial)) {
            if (!text.empty()) text += ' ';
            text += candidate.word;
        }
        return text;
    }
};

} // namespace engine_test
