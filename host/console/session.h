// SPDX-License-Identifier: Apache-2.0
// One session with a console over its local socket.
#pragma once

#include <string>
#include <vector>

namespace console {

// Connects to the local socket of a console. The descriptor, or -1 with one clear line in *error.
int connect_local(const std::string& path, std::string* error);

enum class Ending { ByConsole, ByOperator, BySignal, Broken, Lost }; // Lost: the console is gone

// Carries bytes between standard input and output and the console until one of them ends. With a terminal, every key
// goes to the console and Ctrl-] leaves; otherwise lines are sent, and the answers to all of them printed. The first
// lines go ahead of what is typed. *signal_number tells the signal that ended it.
Ending run_session(int connection, const std::vector<std::string>& first_lines, int* signal_number);

} // namespace console
