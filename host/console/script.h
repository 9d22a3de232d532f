// SPDX-License-Identifier: Apache-2.0
// Commands without an operator: from the command line or a file, with an exit code that tells whether all succeeded.
#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

namespace console {

constexpr int EXIT_FAILED = 1;  // a command failed, or the console went away
constexpr int EXIT_NOTHING = 2; // nothing was carried out: wrong options, an unreadable file, no console

struct ScriptLine {
    std::string text;
    std::string place; // "settings.txt:12"; empty on the command line
};

struct Script {
    std::vector<std::string> way; // commands that lead to the node where the lines are to be carried out
    std::vector<ScriptLine> lines;
    bool json = false;
    bool echo = false; // show prompt and command before each answer
    bool keep_going = false;
    std::chrono::seconds wait{0};  // for events, behind the last command
    std::chrono::seconds limit{0}; // for each answer; 0: none
};

// Adds the lines of a text that are not blank and no comment ("!" or "#" first). With a name they know their place.
void add_lines(std::string_view text, const std::string& name, std::vector<ScriptLine>* lines);
// The same with a file, "-" for standard input. False with one clear line in *error.
bool read_script(const std::string& path, std::vector<ScriptLine>* lines, std::string* error);

// Parts of a text between semicolons, without blanks around them.
std::vector<std::string> split_way(const std::string& text);

// Carries a script out over a connection, which it closes. The exit code.
int run_script(int connection, const Script& script);

} // namespace console
