// SPDX-License-Identifier: Apache-2.0
// Into the context of one ONU, by its index or its MAC address, and on into its PON and its user network interfaces.
#include <cstdio>

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "olt/link.h"
#include "olt/onu.h"

using namespace epon;

namespace {

void enter_onu(vty* session, int16_t onu_id, uint8_t by_index)
{
    session->node = ONU_NODE;
    session->onu_id = onu_id;
    session->onu_by_index = by_index;
}

} // namespace

int onu_node_config(cmd_element*, vty* session, int, char** argv)
{
    const int32_t onu_id = read_bounded_decimal(argv[0]); // no number is 0
    int result;
    if (!can_enter(session, onu_terms, session->olt_id, onu_id, &result)) return result;
    enter_onu(session, static_cast<int16_t>(onu_id), 1);
    return 0;
}

int onu_node_mac_config(cmd_element*, vty* session, int, char** argv)
{
    int16_t onu_id;
    int result;
    if (!read_link_by_mac(session, session->olt_id, argv[0], onu_to_enter, &onu_id, &result)) return result;
    enter_onu(session, onu_id, 0);
    snprintf(session->onu_mac, sizeof session->onu_mac, "%s", argv[0]);
    return 0;
}

int onu_pon_node_config(cmd_element*, vty* session, int, char**)
{
    session->node = ONU_PON_NODE;
    return 0;
}

int uni_node_config(cmd_element*, vty* session, int, char**)
{
    session->node = UNI_NODE;
    return 0;
}

static constinit cmd_element onu_node_config_cmd = command("onu ONU_INDEX", onu_node_config,
                                                           "Enter the context of one ONU\n"
                                                           "Index of the ONU, 0-254, decimal\n");

static constinit cmd_element onu_node_mac_config_cmd =
    command("onu onu-mac-address AA-BB-CC-DD-EE-FF", onu_node_mac_config,
            "Enter the context of one ONU\n"
            "The ONU that has a MAC address\n"
            "MAC address of the ONU, six hexadecimal fields\n");

static constinit cmd_element onu_pon_node_config_cmd =
    command("pon", onu_pon_node_config, "Enter the context of this ONU's PON: loopback tests\n");

static constinit cmd_element uni_node_config_cmd =
    command("uni", uni_node_config, "Enter the context of this ONU's user network interfaces\n");

namespace epon {

void install_onu_node()
{
    install({{&onu_node_config_cmd, in(OLT_NODE)},
             {&onu_node_mac_config_cmd, in(OLT_NODE)},
             {&onu_pon_node_config_cmd, in(ONU_NODE)},
             {&uni_node_config_cmd, in(ONU_NODE)}});
}

} // namespace epon
