// SPDX-License-Identifier: Apache-2.0
// What holds for the whole console: its time limit, and what it counts.
#include <cstdlib>

#include "host/engine/engine_commands.h"
#include "host/engine/limits.h"
#include "host/engine/nodes.h"
#include "host/engine/statistics.h"

namespace engine {
namespace {

int set_exec_timeout_to(cmd_element*, vty*, int argc, char** argv)
{
    std::chrono::seconds time = std::chrono::minutes(atoi(argv[0]));
    if (argc > 1) time += std::chrono::seconds(atoi(argv[1]));
    set_exec_timeout(time);
    return 0;
}

int show_exec_timeout(cmd_element*, vty* session, int, char**)
{
    Session& own = *session_of(session);
    auto seconds = static_cast<long long>(std::chrono::duration_cast<std::chrono::seconds>(exec_timeout()).count());
    print(own, "%lld minutes %lld seconds%s%s", seconds / 60, seconds % 60, seconds == 0 ? " (never)" : "",
          newline(own));
    return 0;
}

int show_statistics(cmd_element*, vty* session, int, char**)
{
    print_statistics(*session_of(session));
    return 0;
}

int show_statistics_commands(cmd_element*, vty* session, int, char**)
{
    print_command_statistics(*session_of(session));
    return 0;
}

int clear_console_statistics(cmd_element*, vty*, int, char**)
{
    clear_statistics();
    return 0;
}

EngineCommand commands[] = {
    {CONFIG_NODE, element("exec-timeout <0-35791>", set_exec_timeout_to,
                          "Close sessions in which nothing is typed\nAfter so many minutes, 0-35791; 0: never\n")},
    {CONFIG_NODE, element("exec-timeout <0-35791> <0-59>", set_exec_timeout_to,
                          "Close sessions in which nothing is typed\nAfter so many minutes, 0-35791; 0: never\n"
                          "And so many seconds, 0-59\n")},
    {ENABLE_NODE, element("show exec-timeout", show_exec_timeout,
                          "Show settings and state\nHow long a session may be idle before it is closed\n")},
    {CONFIG_NODE, element("show exec-timeout", show_exec_timeout,
                          "Show settings and state\nHow long a session may be idle before it is closed\n")},
    {ENABLE_NODE, element("show console statistics", show_statistics,
                          "Show settings and state\nThis console\nSessions, logins, commands, bytes and events\n")},
    {ENABLE_NODE, element("show console statistics commands", show_statistics_commands,
                          "Show settings and state\nThis console\nWhat it counts\n"
                          "Each command: how often it ran and failed, its time in milliseconds\n")},
    {ENABLE_NODE, element("clear console statistics", clear_console_statistics,
                          "Set counters to zero\nThose of this console\nAll of them, and those of its commands\n")},
};

} // namespace

std::span<EngineCommand> console_commands()
{
    return commands;
}

} // namespace engine
