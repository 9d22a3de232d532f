// SPDX-License-Identifier: Apache-2.0
// Into the context of one OLT, and on into its PON, its core network interface and its firmware's own console.
#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "olt/olt.h"

using namespace epon;

int olt_node_config(cmd_element*, vty* session, int, char** argv)
{
    int16_t olt_id;
    if (!read_olt_id(session, argv[0], &olt_id)) return -1;
    if (Olt_exists(olt_id) == 0) {
        RBX_vty_out(session, "OLT id (%d) doesn't exist. Can't enter to olt CLI mode with this parameter.%s", olt_id,
                    VTY_NEWLINE(session));
        return 0; // a refusal is not a failed command
    }
    session->olt_id = olt_id;
    session->node = OLT_NODE;
    return 0;
}

int olt_pon_node_config(cmd_element*, vty* session, int, char**)
{
    session->node = OLT_PON_NODE;
    return 0;
}

int cni_node_config(cmd_element*, vty* session, int, char**)
{
    session->node = CNI_NODE;
    return 0;
}

int fw_craft_node_config(cmd_element*, vty* session, int, char**)
{
    session->node = OLT_FW_CRAFT_NODE;
    // What the firmware says arrives like an event; leaving the node restores the operator's own choice.
    session->event_notify_saved = session->event_notify;
    __atomic_store_n(&session->event_notify, 1, __ATOMIC_RELAXED);
    Set_logging_configuration(LOGGING_TOPIC_FIRMWARE_CONSOLE, 1, 1, session->olt_id);
    NEP_send_cli_command(session->olt_id, 1, "\n"); // makes the firmware print its own prompt
    return 0;
}

static constinit cmd_element olt_node_config_cmd =
    command("olt OLT_INDEX", olt_node_config,
            "Enter the context of one OLT, or add, recover or remove one\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n");

static constinit cmd_element olt_pon_node_config_cmd =
    command("pon", olt_pon_node_config, "Enter the context of this OLT's PON: grants, transmission, bandwidth\n");

static constinit cmd_element cni_node_config_cmd =
    command("cni", cni_node_config, "Enter the context of this OLT's core network interface\n");

static constinit cmd_element fw_craft_node_config_cmd = command(
    "fw-craft", fw_craft_node_config, "Talk to this OLT's firmware: every line typed is sent to it, until exit\n");

namespace epon {

void install_olt_nodes()
{
    install({{&olt_node_config_cmd, in(CONFIG_NODE)},
             {&olt_pon_node_config_cmd, in(OLT_NODE)},
             {&cni_node_config_cmd, in(OLT_NODE)},
             {&fw_craft_node_config_cmd, in(OLT_NODE)}});
}

} // namespace epon
