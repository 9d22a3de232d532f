// SPDX-License-Identifier: Apache-2.0
// The engine's own commands, file by file.
#pragma once

#include <span>
#include <string_view>

#include "host/engine/session.h"

namespace engine {

struct EngineCommand {
    int node; // or one of these
    cmd_element element;
};
constexpr int EVERY_NODE = -1;
constexpr int BELOW_VIEW = -2; // every node but the view node

constexpr cmd_element element(const char* grammar, cmd_handler* handler, const char* help)
{
    return {grammar, handler, help, 0, nullptr, 0, nullptr, nullptr, 0};
}

std::span<EngineCommand> screen_commands();  // terminal length, terminal width
std::span<EngineCommand> session_commands(); // who, kill session, show history
std::span<EngineCommand> console_commands(); // exec-timeout, show console statistics

void print_line(Session& session, std::string_view text);

} // namespace engine
