// SPDX-License-Identifier: Apache-2.0
// The commands that every node has, and those that lead from the view node to the configuration node.
#include <algorithm>
#include <atomic>
#include <string>
#include <vector>

#include "host/engine/dispatch.h"
#include "host/engine/nodes.h"
#include "host/engine/session.h"

namespace engine {
namespace {

std::atomic<std::uint8_t> multi_tasking{1};

void print_line(Session& session, std::string_view text)
{
    print(session, "%.*s%s", static_cast<int>(text.size()), text.data(), newline(session));
}

int exit_node(cmd_element*, vty* session, int, char**)
{
    leave_node(*session_of(session));
    return 0;
}

int end_nodes(cmd_element*, vty* session, int, char**)
{
    leave_to_top(*session_of(session));
    return 0;
}

int close_console(cmd_element*, vty* session, int, char**)
{
    session_of(session)->closing = true;
    return 0;
}

int show_help(cmd_element*, vty* session, int, char**)
{
    static constexpr std::string_view lines[] = {
        "A command is a line of words. Each word may be cut short while it stays the only",
        "one that fits: \"sh hist\" is \"show history\".",
        "",
        "  ?         what can be typed here, at any place of a line, with what it means",
        "  TAB       completes the word, or shows how it could go on",
        "  up, down  earlier lines of this session",
        "  Ctrl-C    drops the line, Ctrl-U erases it, Ctrl-W erases a word",
        "",
        "  enable               from the view node (>) to the enable node (#)",
        "  configure terminal   from there to the configuration node",
        "  exit                 one node up; closes the session at the top",
        "  end                  back to the enable node",
        "  list                 all commands of this node",
        "  quit                 closes the session",
    };
    for (std::string_view line : lines)
        print_line(*session_of(session), line);
    return 0;
}

// A grammar as it is read, without the tabs and runs of blanks that its text may hold.
std::string readable(std::string_view grammar)
{
    std::string text;
    for (char c : grammar)
        if (c != ' ' && c != '\t')
            text += c;
        else if (!text.empty() && text.back() != ' ')
            text += ' ';
    return text;
}

int list_commands(cmd_element*, vty* session, int, char**)
{
    const Node* node = find_node(session->node);
    std::vector<std::string> grammars;
    if (node != nullptr)
        node->commands.for_each(
            [&](const cmd_element& element, Origin) { grammars.push_back(readable(element.string)); });
    std::sort(grammars.begin(), grammars.end());
    for (const std::string& grammar : grammars)
        print_line(*session_of(session), grammar);
    return 0;
}

int show_history(cmd_element*, vty* session, int, char**)
{
    Session& own = *session_of(session);
    std::size_t number = 0;
    for (const std::string& line : own.editor.history())
        print(own, "%4zu  %s%s", ++number, line.c_str(), newline(own));
    return 0;
}

int show_sessions(cmd_element*, vty* session, int, char**)
{
    Session& own = *session_of(session);
    print(own, " %-4s%-32s%-32s%s%s", "ID", "From", "At", "Idle", newline(own));
    for (unsigned i = 0; i < SESSION_LIMIT; ++i) {
        const Session& other = session_at(i);
        if (&other != &own && (!other.connected || other.phase != Phase::Open)) continue;
        auto idle = std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - other.last_input).count();
        print(own, "%c%-4u%-32s%-32s%02lld:%02lld:%02lld%s", &other == &own ? '*' : ' ', i, other.from.c_str(),
              prompt(&other).c_str(), static_cast<long long>(idle / 3600), static_cast<long long>(idle / 60 % 60),
              static_cast<long long>(idle % 60), newline(own));
    }
    return 0;
}

int enable(cmd_element*, vty* session, int, char**)
{
    session->node = ENABLE_NODE;
    return 0;
}

int disable(cmd_element*, vty* session, int, char**)
{
    session->node = VIEW_NODE;
    return 0;
}

int configure_terminal(cmd_element*, vty* session, int, char**)
{
    Session& own = *session_of(session);
    if (multi_tasking.load() == 0) {
        for (unsigned i = 0; i < SESSION_LIMIT; ++i) {
            const Session& other = session_at(i);
            if (&other == &own || other.phase != Phase::Open || !is_configuration(other.node)) continue;
            print(own, "%% Session %u (%s) is configuring; only one session may at a time.%s", i, other.from.c_str(),
                  newline(own));
            return -1;
        }
    }
    session->node = CONFIG_NODE;
    return 0;
}

constexpr cmd_element element(const char* grammar, cmd_handler* handler, const char* help)
{
    return {grammar, handler, help, 0, nullptr, 0, nullptr, nullptr, 0};
}

struct Installation {
    int node; // -1: every node
    cmd_element command;
};

Installation installations[] = {
    {-1, element("exit", exit_node, "Go one node up, or close the session when there is none\n")},
    {-1, element("end", end_nodes, "Go back to the enable node\n")},
    {-1, element("quit", close_console, "Close this session\n")},
    {-1, element("logout", close_console, "Close this session\n")},
    {-1, element("help", show_help, "How to work with this console\n")},
    {-1, element("list", list_commands, "List all commands of this node, one per line\n")},
    {-1,
     element("show history", show_history, "Show settings and state\nThe lines typed in this session, oldest first\n")},
    {-1, element("who", show_sessions, "List the open sessions: where from, at which prompt, idle for how long\n")},
    {VIEW_NODE, element("enable", enable, "Go to the enable node, where settings can be changed\n")},
    {ENABLE_NODE, element("disable", disable, "Go back to the view node\n")},
    {ENABLE_NODE, element("configure terminal", configure_terminal,
                          "Change the configuration\nFrom this terminal: go to the configuration node\n")},
};

} // namespace

void install_default_commands(int node)
{
    for (Installation& row : installations)
        if (row.node < 0 || row.node == node) add_element(node, &row.command, Origin::Engine);
}

} // namespace engine

void RBX_vty_set_multi_tasking_mode(uint8_t mode)
{
    engine::multi_tasking.store(mode);
}

void RBX_vty_get_multi_tasking_mode(uint8_t* mode)
{
    *mode = engine::multi_tasking.load();
}
