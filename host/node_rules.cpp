// SPDX-License-Identifier: Apache-2.0
#include "host/node_rules.h"

#include <string>

#include <epon/cli.h>
#include <epon/engine.h>
#include <epon/sdk.h>

#include "host/engine/engine_host.h"

namespace {

// The MAC text of a session: shown up to its end, or to the six characters that the broadcast entry leaves.
std::string target(const vty& session, int16_t index)
{
    return session.onu_by_index == 1 ? std::to_string(index) : session.onu_mac;
}

void onu_tail(const vty& session, std::string* prompt)
{
    *prompt += " " + target(session, session.onu_id) + ")# ";
}

void llid_tail(const vty& session, std::string* prompt)
{
    *prompt += " " + target(session, session.llid) + ")# ";
}

void onu_pon_tail(const vty& session, std::string* prompt)
{
    *prompt += " " + target(session, session.onu_id) + " PON)# ";
}

void uni_tail(const vty& session, std::string* prompt)
{
    *prompt += " " + target(session, session.onu_id) + " UNI)# ";
}

void onu_cli_tail(const vty& session, std::string* prompt)
{
    *prompt += " " + target(session, session.onu_id) + " CLI)# ";
}

// A device that cannot be reached says nothing itself.
int report_unsent(vty* session, int16_t code)
{
    const char* newline = VTY_NEWLINE(session);
    if (code != 0)
        RBX_vty_out(session, "Command return error.%s%s (error code : %d)%s", newline, error_string_lookup(code), code,
                    newline);
    return code;
}

int send_to_firmware(vty* session, const char* line)
{
    const std::string text = std::string(line) + "\n";
    return report_unsent(session, NEP_send_cli_command(session->olt_id, 1, text.c_str()));
}

int send_to_onu(vty* session, const char* line)
{
    const std::string text = std::string(line) + "\n";
    return report_unsent(session, NEP_send_onu_cli_command(session->olt_id, session->onu_id, 1, text.c_str()));
}

void leave_firmware(vty* session)
{
    __atomic_store_n(&session->event_notify, session->event_notify_saved, __ATOMIC_RELAXED);
}

#define LEAVE_HELP(outer)                                                                                              \
    "  exit          Back to " outer " commands\n"                                                                     \
    "  end           Back to the configuration node\n"                                                                 \
    "  quit, logout  Close this session\n"
constexpr char FIRMWARE_HELP[] =
    LEAVE_HELP("the OLT's") "Every other line goes to the OLT's firmware, which answers to \"help\".";
constexpr char ONU_CLI_HELP[] = LEAVE_HELP("the ONU's") "Every other line goes to the ONU, which answers to \"help\".";

struct Node {
    const char* name;
    engine::NodeRules rules;
};

constexpr int CLOSES = -1;

const Node nodes[] = {
    {"auth", {AUTH_NODE, CLOSES}},
    {"view", {VIEW_NODE, CLOSES, "the view node"}},
    {"velora", {VELORA_NODE, CLOSES}},
    {"velora_debug", {VELORA_DEBUG_NODE, VELORA_NODE}},
    {"auth_enable", {AUTH_ENABLE_NODE, VIEW_NODE}},
    {"enable", {ENABLE_NODE, CLOSES, "the enable node"}},
    {"config", {CONFIG_NODE, ENABLE_NODE, "the configuration node"}},
    {"olt", {OLT_NODE, CONFIG_NODE, "the context of an OLT"}},
    {"nep5400_olt", {NEP5400_OLT_NODE, CONFIG_NODE}},
    {"onu", {ONU_NODE, OLT_NODE, "the context of an ONU", onu_tail}},
    {"llid", {LLID_NODE, OLT_NODE, "the context of a link", llid_tail}},
    {"nep5400_llid", {NEP5400_LLID_NODE, NEP5400_OLT_NODE, nullptr, llid_tail}},
    {"bc_llid", {BC_LLID_NODE, OLT_NODE, "the context of the broadcast link"}},
    {"nep5400_bc_llid", {NEP5400_BC_LLID_NODE, NEP5400_OLT_NODE}},
    {"olt_pon", {OLT_PON_NODE, OLT_NODE, "the PON context of an OLT"}},
    {"nep5400_olt_pon", {NEP5400_OLT_PON_NODE, NEP5400_OLT_NODE}},
    {"cni", {CNI_NODE, OLT_NODE, "the CNI context of an OLT"}},
    {"nep5400_cni", {NEP5400_CNI_NODE, NEP5400_OLT_NODE}},
    {"olt_fw_craft", {OLT_FW_CRAFT_NODE, OLT_NODE, nullptr, nullptr, send_to_firmware, FIRMWARE_HELP, leave_firmware}},
    {"onu_pon", {ONU_PON_NODE, ONU_NODE, "the PON context of an ONU", onu_pon_tail}},
    {"uni", {UNI_NODE, ONU_NODE, "the UNI context of an ONU", uni_tail}},
    {"dba_internal", {DBA_INTERNAL_NODE, OLT_NODE, "the internal DBA context of an OLT"}},
    {"dba_vireo4", {DBA_VIREO4_NODE, OLT_NODE, "the external DBA context of an OLT"}},
    {"onu_cli", {ONU_CLI_NODE, ONU_NODE, nullptr, onu_cli_tail, send_to_onu, ONU_CLI_HELP, leave_firmware}},
};

} // namespace

void install_node_rules()
{
    for (const Node& node : nodes)
        engine::set_node_rules(node.rules);
}

const char* node_name(int id)
{
    for (const Node& node : nodes) {
        if (node.rules.node == id) return node.name;
    }
    return nullptr;
}
