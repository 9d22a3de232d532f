// SPDX-License-Identifier: Apache-2.0
// The commands that the benchmarks install: five verbs, "show" with 220 objects and the others with the rest, each
// followed by one number. The same ones are given to the yardstick.
#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include <epon/engine.h>

namespace bench {

constexpr std::size_t SHOW_OBJECTS = 220;

struct Command {
    std::string verb;
    std::string object; // "queue-depth-17"
};

std::vector<Command> commands(std::size_t count);

// What an operator types for each of them, in an order that jumps about: "set queue-depth-17 12".
std::vector<std::string> typed_lines(const std::vector<Command>& commands);

// The same as elements of ours: a richer grammar, with a range and help for every word. Their handler counts.
class Elements {
  public:
    explicit Elements(const std::vector<Command>& commands);
    // Elements with the given grammars; every word has the same help.
    explicit Elements(const std::vector<std::string_view>& grammars);

    std::deque<cmd_element> all;

  private:
    void add(std::string grammar, std::string help);
    std::deque<std::string> texts;
};

extern "C" long handled_commands;
extern "C" int count_command(cmd_element* self, vty* session, int argc, char** argv);

} // namespace bench
