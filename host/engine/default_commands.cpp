// SPDX-License-Identifier: Apache-2.0
// The commands that every node has, and those that lead from the view node to the configuration node.
#include <algorithm>
#include <atomic>
#include <string>
#include <vector>

#include "host/engine/dispatch.h"
#include "host/engine/engine_commands.h"
#include "host/engine/login.h"
#include "host/engine/nodes.h"

namespace engine {
namespace {

std::atomic<std::uint8_t> multi_tasking{1};

int exit_node(cmd_element*, vty* session, int, char**)
{
    leave_node(*session_of(session));
    return 0;
}

int end_nodes(cmd_element*, vty* session, int, char**)
{
    leave_contexts(*session_of(session));
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
        "Type a command and Enter. To look at the first OLT, for example:",
        "",
        "  enable                  from the view node (>) to the enable node (#)",
        "  configure terminal      from there to the configuration node",
        "  olt 0                   into the context of OLT 0",
        "  show olt parameters     what is set there",
        "  exit, end               one node up; back to the configuration node",
        "  quit                    closes the session",
        "",
        "Keys: ? shows what can be typed, at any place of a line, and what it means;",
        "TAB completes; up, down and Ctrl-R find earlier lines; Ctrl-C drops the line.",
        "Words may be cut short while they stay clear: \"sh hist\" is \"show history\".",
        "",
        "  list                    all commands of this node",
        "  COMMAND | include RE    a part of an answer; \"COMMAND | ?\" shows the others",
        "  terminal length 0       long answers do not wait for a key",
        "  event-notify            prints what happens as it happens",
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

int enable(cmd_element*, vty* session, int, char**)
{
    return enter_enable(*session_of(session));
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

EngineCommand commands[] = {
    {EVERY_NODE, element("exit", exit_node, "Go one node up, or close the session when there is none\n")},
    // There is nowhere to go back to from the view node, and "en" is to be "enable" there.
    {BELOW_VIEW, element("end", end_nodes, "Go back to the configuration or the enable node\n")},
    {EVERY_NODE, element("quit", close_console, "Close this session\n")},
    {EVERY_NODE, element("logout", close_console, "Close this session\n")},
    {EVERY_NODE, element("help", show_help, "How to work with this console\n")},
    {EVERY_NODE, element("list", list_commands, "List all commands of this node, one per line\n")},
    {VIEW_NODE, element("enable", enable, "Go to the enable node, where settings can be changed\n")},
    {ENABLE_NODE, element("disable", disable, "Go back to the view node\n")},
    {ENABLE_NODE, element("configure terminal", configure_terminal,
                          "Change the configuration\nFrom this terminal: go to the configuration node\n")},
};

} // namespace

void install_default_commands(int node)
{
    for (std::span<EngineCommand> file :
         {std::span<EngineCommand>(commands), screen_commands(), session_commands(), console_commands()})
        for (EngineCommand& command : file)
            if (command.node == EVERY_NODE || command.node == node || (command.node == BELOW_VIEW && node != VIEW_NODE))
                add_element(node, &command.element, Origin::Engine);
}

void print_line(Session& session, std::string_view text)
{
    print(session, "%.*s%s", static_cast<int>(text.size()), text.data(), newline(session));
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
