// SPDX-License-Identifier: Apache-2.0
// Nodes, what is installed in them, and their prompts.
#include "host/engine/nodes.h"

#include <array>
#include <string_view>

#include "host/engine/log.h"

namespace engine {
namespace {

struct Tables {
    std::array<Node, NODE_ID_LIMIT> nodes;
    std::string host_name = "epon";
};

int usual_parent(int node)
{
    switch (node) {
    case AUTH_NODE:
    case AUTH_ENABLE_NODE:
    case VIEW_NODE:
    case ENABLE_NODE:
        return -1;
    default:
        return node > CONFIG_NODE ? CONFIG_NODE : ENABLE_NODE;
    }
}

// Never destroyed: SDK threads may still print while the process ends.
Tables& tables()
{
    static Tables& all = *[] {
        auto* made = new Tables;
        for (int id = 0; id < NODE_ID_LIMIT; ++id) {
            NodeRules& rules = made->nodes[static_cast<std::size_t>(id)].rules;
            rules.node = id;
            rules.parent = usual_parent(id);
        }
        return made;
    }();
    return all;
}

} // namespace

Node* find_node(int id)
{
    return id >= 0 && id < NODE_ID_LIMIT ? &tables().nodes[static_cast<std::size_t>(id)] : nullptr;
}

const NodeRules& rules_of(int id)
{
    static const NodeRules none{.node = -1, .parent = ENABLE_NODE};
    const Node* node = find_node(id);
    return node == nullptr ? none : node->rules;
}

void set_node_rules(const NodeRules& rules)
{
    if (Node* node = find_node(rules.node))
        node->rules = rules;
    else
        log_line("rules for node %d ignored: there is no such node", rules.node);
}

void add_element(int id, cmd_element* element, Origin origin)
{
    Node* node = find_node(id);
    std::string error;
    if (node == nullptr)
        log_line("command \"%s\" not installed: there is no node %d", element->string, id);
    else if (!node->commands.install(element, origin, &error))
        log_line("command \"%s\" not installed in node %d: %s", element->string, id, error.c_str());
}

void install_host_element(int node, cmd_element* element)
{
    add_element(node, element, Origin::Host);
}

void for_each_element(Origin origin, const std::function<void(int node, const cmd_element&)>& visit)
{
    for (const Node& node : tables().nodes)
        node.commands.for_each([&](const cmd_element& element, Origin from) {
            if (from == origin) visit(static_cast<int>(&node - tables().nodes.data()), element);
        });
}

bool is_configuration(int node)
{
    for (int steps = 0; node >= 0 && steps < NODE_ID_LIMIT; ++steps) {
        if (node == CONFIG_NODE) return true;
        node = rules_of(node).parent;
    }
    return false;
}

void set_host_name(const std::string& name)
{
    tables().host_name = name;
}

const std::string& host_name()
{
    return tables().host_name;
}

// A prompt is data, never a format: only "%s" and "%d" are replaced.
std::string prompt(const vty* session)
{
    const Node* node = find_node(session->node);
    std::string_view pattern = node != nullptr && node->record != nullptr ? node->record->prompt : "%s> ";
    std::string text;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        char kind = pattern[i] == '%' && i + 1 < pattern.size() ? pattern[i + 1] : '\0';
        if (kind == 's')
            text += host_name();
        else if (kind == 'd')
            text += std::to_string(session->olt_id);
        else
            text += pattern[i];
        if (kind == 's' || kind == 'd') ++i;
    }
    if (node != nullptr && node->rules.prompt_tail != nullptr) node->rules.prompt_tail(*session, &text);
    return text;
}

} // namespace engine

void RBX_cmd_init(void)
{
    engine::tables();
}

void RBX_install_node(cmd_node* record, int (*config_write)(vty* session))
{
    engine::Node* node = engine::find_node(record->node);
    if (node == nullptr) {
        engine::log_line("node %d not installed: ids end at %d", record->node, NODE_ID_LIMIT - 1);
        return;
    }
    record->func = config_write;
    record->cmd_vector = &node->commands;
    node->record = record;
}

void RBX_install_default(int id)
{
    engine::Node* node = engine::find_node(id);
    if (node == nullptr || node->has_defaults) return;
    node->has_defaults = true;
    engine::install_default_commands(id);
}

void RBX_install_element(int node, cmd_element* element)
{
    engine::add_element(node, element, engine::Origin::Library);
}
