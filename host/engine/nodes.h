// SPDX-License-Identifier: Apache-2.0
// The command nodes: records, commands, rules. Filled before the console is served, then only read.
#pragma once

#include <string>

#include "host/engine/engine_host.h"

namespace engine {

struct Node {
    cmd_node* record = nullptr;
    NodeRules rules;
    CommandTree commands;
    bool has_defaults = false;
};

// The node of that id; null when no node can have it.
Node* find_node(int id);
const NodeRules& rules_of(int id);

// Adds a command and complains on stderr when its grammar is wrong.
void add_element(int node, cmd_element* element, Origin origin);

// Whether the node is the configuration node or below it.
bool is_configuration(int node);

// Installs the engine's own commands; see default_commands.cpp.
void install_default_commands(int node);

void set_host_name(const std::string& name);
const std::string& host_name();

inline const char* newline(const vty& session)
{
    return session.type == VTY_TYPE_TERMINAL ? "\r\n" : "\n";
}

} // namespace engine
