// SPDX-License-Identifier: Apache-2.0
// How a command is declared and installed. The compiler checks every declaration: grammar, handler and help.
#pragma once

#include <cstdint>
#include <initializer_list>

#include <epon/cli.h>

namespace epon {

// Never defined: a declaration that reaches one of these does not compile, and the error names the fault.
void grammar_has_an_unbalanced_group();
void grammar_has_an_empty_word();
void command_has_no_handler();
void help_has_not_one_line_for_each_grammar_word();

consteval bool is_blank(char c)
{
    return c == ' ' || c == '\t';
}

// Words of a grammar: blanks and tabs separate them, a group in parentheses is one word, and what is glued to its
// closing parenthesis is the next one.
consteval int count_grammar_words(const char* grammar)
{
    int words = 0;
    while (*grammar != '\0') {
        if (is_blank(*grammar)) {
            ++grammar;
        } else if (*grammar == '(') {
            bool alternative_is_empty = true;
            for (++grammar; *grammar != ')'; ++grammar) {
                if (*grammar == '\0' || *grammar == '(') grammar_has_an_unbalanced_group();
                if (*grammar == '|') {
                    if (alternative_is_empty) grammar_has_an_empty_word();
                    alternative_is_empty = true;
                } else if (!is_blank(*grammar)) {
                    alternative_is_empty = false;
                }
            }
            if (alternative_is_empty) grammar_has_an_empty_word();
            ++grammar;
            ++words;
        } else {
            for (; *grammar != '\0' && *grammar != '(' && !is_blank(*grammar); ++grammar) {
                if (*grammar == ')' || *grammar == '|') grammar_has_an_unbalanced_group();
            }
            ++words;
        }
    }
    if (words == 0) grammar_has_an_empty_word();
    return words;
}

consteval int count_help_lines(const char* help)
{
    int lines = 0;
    bool line_is_empty = true;
    for (; *help != '\0'; ++help) {
        if (*help == '\n') {
            if (line_is_empty) help_has_not_one_line_for_each_grammar_word();
            ++lines;
            line_is_empty = true;
        } else {
            line_is_empty = false;
        }
    }
    if (!line_is_empty) help_has_not_one_line_for_each_grammar_word();
    return lines;
}

// One command: its grammar, its handler, and one help line for each word of the grammar.
consteval cmd_element command(const char* grammar, cmd_handler* handler, const char* help)
{
    if (handler == nullptr) command_has_no_handler();
    if (count_grammar_words(grammar) != count_help_lines(help)) help_has_not_one_line_for_each_grammar_word();
    return {grammar, handler, help, 0, nullptr, 0, nullptr, nullptr, 0};
}

// A set of nodes, one bit for each id.
using NodeSet = uint32_t;

template <class... Nodes>
constexpr NodeSet in(Nodes... nodes)
{
    return ((NodeSet{1} << nodes) | ...);
}

// Where commands that only read live, beside the context they belong to.
constexpr NodeSet SHOW_NODES = in(VIEW_NODE, ENABLE_NODE, CONFIG_NODE);

struct Installation {
    cmd_element* element;
    NodeSet nodes;
};

// Installs each element in its nodes, in order of the node ids.
void install(std::initializer_list<Installation> commands);

} // namespace epon
