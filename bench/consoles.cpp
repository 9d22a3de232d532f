// SPDX-License-Identifier: Apache-2.0
#include "bench/consoles.h"

#include <cstdio>
#include <cstdlib>
#include <map>

#include <libcli.h>

#include "host/engine/engine_host.h"

namespace bench {

const char* const FOUR_WORDS = "set queue-set 3 enable";
const char* const EIGHT_WORDS = "set port 2 vlan 100 priority 7 tagged";

namespace {

constexpr int FIRST_NODE = OLT_NODE;

void install_node(int id)
{
    static cmd_node records[NODE_ID_LIMIT];
    cmd_node& record = records[id];
    record.node = id;
    record.prompt = "%s# ";
    RBX_install_node(&record, nullptr);
}

int next_node()
{
    static int next = FIRST_NODE;
    if (next == FIRST_NODE) RBX_cmd_init();
    if (next == NODE_ID_LIMIT) abort();
    install_node(next);
    return next++;
}

int install(Elements& elements)
{
    int node = next_node();
    for (cmd_element& element : elements.all)
        RBX_install_element(node, &element);
    return node;
}

int count_for_libcli(cli_def*, const char*, char**, int)
{
    handled_commands++;
    return CLI_OK;
}

void print_nothing(cli_def*, const char*) {}

} // namespace

int node_with(std::size_t count)
{
    static std::map<std::size_t, int> nodes;
    auto [at, is_new] = nodes.try_emplace(count);
    if (is_new) at->second = install(*new Elements(commands(count)));
    return at->second;
}

int node_with_long_commands()
{
    static const int node = install(*new Elements(std::vector<std::string_view>{
        "set queue-set <0-15> (enable|disable)", "set queue-set <0-15> weight <0-255>",
        "set port <0-15> vlan <1-4095> priority <0-7> (tagged|untagged)", "set port <0-15> state (enable|disable)",
        "set port <0-15> vlan <1-4095> name NAME", "show queue-set <0-15>", "show port <0-15> vlan <1-4095>"}));
    return node;
}

vty* session_in(int node)
{
    vty* session = engine::open_memory_session();
    if (session == nullptr) abort();
    session->node = node;
    return session;
}

void add_to_libcli(cli_def* cli, const std::vector<Command>& commands)
{
    std::map<std::string, cli_command*> verbs;
    for (const Command& command : commands) {
        cli_command*& verb = verbs[command.verb];
        if (verb == nullptr) {
            verb = cli_register_command(cli, nullptr, command.verb.c_str(), nullptr, PRIVILEGE_UNPRIVILEGED, MODE_ANY,
                                        "What is to be done");
        }
        cli_register_command(cli, verb, command.object.c_str(), count_for_libcli, PRIVILEGE_UNPRIVILEGED, MODE_ANY,
                             "What it is done to");
    }
}

cli_def* libcli_with(std::size_t count)
{
    cli_def* cli = cli_init();
    if (cli == nullptr) abort();
    cli_print_callback(cli, print_nothing);
    add_to_libcli(cli, commands(count));
    return cli;
}

} // namespace bench
