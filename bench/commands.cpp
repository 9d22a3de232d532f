// SPDX-License-Identifier: Apache-2.0
#include "bench/commands.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace bench {

namespace {

constexpr const char* SUBJECTS[] = {"pon",   "llid",   "queue", "vlan", "port", "alarm",
                                    "grant", "optics", "mac",   "link", "timer"};
constexpr const char* PROPERTIES[] = {"rate", "depth", "limit", "mode", "weight", "delay", "level", "window"};

std::string object(std::size_t index)
{
    std::size_t subject = index % std::size(SUBJECTS);
    std::size_t property = index / std::size(SUBJECTS) % std::size(PROPERTIES);
    std::size_t number = index / (std::size(SUBJECTS) * std::size(PROPERTIES));
    return std::string(SUBJECTS[subject]) + '-' + PROPERTIES[property] + '-' + std::to_string(number);
}

} // namespace

std::vector<Command> commands(std::size_t count)
{
    constexpr const char* VERBS[] = {"clear", "reset", "set", "test"};
    std::vector<Command> all;
    for (std::size_t i = 0; i < std::min(count, SHOW_OBJECTS); i++)
        all.push_back({"show", object(i)});
    for (std::size_t i = 0; all.size() < count; i++)
        all.push_back({VERBS[i % std::size(VERBS)], object(i / std::size(VERBS))});
    return all;
}

std::vector<std::string> typed_lines(const std::vector<Command>& commands)
{
    constexpr std::size_t STRIDE = 389; // prime, so that every command has its turn
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < commands.size(); i++) {
        const Command& command = commands[i * STRIDE % commands.size()];
        lines.push_back(command.verb + ' ' + command.object + ' ' + std::to_string(i % 1000));
    }
    return lines;
}

Elements::Elements(const std::vector<Command>& commands)
{
    for (const Command& command : commands)
        add(command.verb + ' ' + command.object + " <0-1000>",
            "What is to be done\nWhat it is done to\nThe value, in units of its own, 0-1000\n");
}

Elements::Elements(const std::vector<std::string_view>& grammars)
{
    for (std::string_view grammar : grammars) {
        std::string help;
        for (auto words = std::count(grammar.begin(), grammar.end(), ' ') + 1; words > 0; words--)
            help += "One word of a command\n";
        add(std::string(grammar), help);
    }
}

void Elements::add(std::string grammar, std::string help)
{
    cmd_element element{};
    element.string = texts.emplace_back(std::move(grammar)).c_str();
    element.doc = texts.emplace_back(std::move(help)).c_str();
    element.func = count_command;
    all.push_back(element);
}

long handled_commands = 0;

int count_command(cmd_element*, vty*, int, char**)
{
    handled_commands++;
    return 0;
}

} // namespace bench
