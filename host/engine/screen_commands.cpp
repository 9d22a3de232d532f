// SPDX-License-Identifier: Apache-2.0
// The size of the operator's screen, for pages of long answers and for the width of help.
#include <cstdlib>
#include <string>

#include "host/engine/engine_commands.h"

namespace engine {
namespace {

int set_length(cmd_element*, vty* session, int, char** argv)
{
    session_of(session)->length_set = static_cast<unsigned>(strtoul(argv[0], nullptr, 10));
    return 0;
}

int set_width(cmd_element*, vty* session, int, char** argv)
{
    Session& own = *session_of(session);
    own.width_set = static_cast<unsigned>(strtoul(argv[0], nullptr, 10));
    adopt_screen_size(own);
    return 0;
}

int no_length(cmd_element*, vty* session, int, char**)
{
    session_of(session)->length_set.reset();
    return 0;
}

int no_width(cmd_element*, vty* session, int, char**)
{
    Session& own = *session_of(session);
    own.width_set.reset();
    adopt_screen_size(own);
    return 0;
}

const char* source_of(bool set, bool told)
{
    return set ? "set here" : told ? "told by the client" : "not told by the client";
}

int show_terminal(cmd_element*, vty* session, int, char**)
{
    Session& own = *session_of(session);
    bool told = own.telnet && own.telnet->columns > 0;
    bool told_rows = own.telnet && own.telnet->rows > 0;
    std::size_t rows = screen_rows(own), columns = screen_columns(own);
    print_line(own, "Length: " + (rows > 0 ? std::to_string(rows) + " lines" : "no pages") + ", " +
                        source_of(own.length_set.has_value(), told_rows));
    print_line(own, "Width: " + std::to_string(columns > 0 ? columns : PLAIN_WIDTH) + " columns, " +
                        source_of(own.width_set.has_value(), told));
    return 0;
}

EngineCommand commands[] = {
    {EVERY_NODE, element("terminal length <0-512>", set_length,
                         "The screen of this session\n"
                         "Long answers wait for a key at each page\n"
                         "Lines of a page, 1-512; 0: answers never wait\n")},
    {EVERY_NODE, element("terminal width <8-1000>", set_width,
                         "The screen of this session\n"
                         "Columns that help and long lines are drawn for\n"
                         "Columns, 8-1000\n")},
    {EVERY_NODE, element("no terminal length", no_length,
                         "Turn a setting off, or take an object away\n"
                         "The screen of this session\n"
                         "Pages as long as the client's window again\n")},
    {EVERY_NODE, element("no terminal width", no_width,
                         "Turn a setting off, or take an object away\n"
                         "The screen of this session\n"
                         "Columns of the client's window again\n")},
    {EVERY_NODE, element("show terminal", show_terminal,
                         "Show settings and state\n"
                         "Length and width of this session's screen\n")},
};

} // namespace

std::span<EngineCommand> screen_commands()
{
    return commands;
}

} // namespace engine
