// SPDX-License-Identifier: Apache-2.0
// Into the context of one link, by its index or by the MAC address of its ONU, or of the broadcast link.
#include <cstdio>
#include <cstring>

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "olt/link.h"
#include "olt/llid.h"

using namespace epon;

namespace {

constexpr char BROADCAST_MAC[] = "ff-ff-ff-ff-ff-ff";
constexpr size_t BROADCAST_MAC_KEPT = 6;

void enter_broadcast(vty* session, uint8_t by_index)
{
    session->node = BC_LLID_NODE;
    session->llid = BROADCAST_LLID;
    session->onu_by_index = by_index;
}

void enter_llid(vty* session, int16_t llid, uint8_t by_index)
{
    session->node = LLID_NODE;
    session->llid = llid;
    session->onu_by_index = by_index;
}

} // namespace

int llid_node_config(cmd_element*, vty* session, int, char** argv)
{
    if (strcmp(argv[0], "broadcast") == 0) {
        enter_broadcast(session, 1);
        return 0;
    }
    int16_t llid;
    int result;
    if (!read_llid(session, argv[0], &llid)) return -1;
    if (!can_enter(session, llid_terms, session->olt_id, llid, &result)) return result;
    enter_llid(session, llid, 1);
    return 0;
}

int llid_node_mac_config(cmd_element*, vty* session, int, char** argv)
{
    if (strcmp(argv[0], BROADCAST_MAC) == 0) {
        enter_broadcast(session, 0);
        memcpy(session->onu_mac, BROADCAST_MAC, BROADCAST_MAC_KEPT); // without an end: what stood behind stays
        return 0;
    }
    int16_t llid;
    int result;
    if (!read_link_by_mac(session, session->olt_id, argv[0], link_to_enter, &llid, &result)) return result;
    enter_llid(session, llid, 0);
    snprintf(session->onu_mac, sizeof session->onu_mac, "%s", argv[0]);
    return 0;
}

static constinit cmd_element llid_node_config_cmd =
    command("llid (LLID_INDEX|broadcast)", llid_node_config,
            "Enter the context of one link\n"
            "LLID_INDEX: index of the link, 0-254, decimal or with 0x hexadecimal; broadcast: the broadcast link\n");

static constinit cmd_element llid_node_mac_config_cmd =
    command("llid llid-mac-address (AA-BB-CC-DD-EE-FF|ff-ff-ff-ff-ff-ff)", llid_node_mac_config,
            "Enter the context of one link\n"
            "The link that belongs to a MAC address\n"
            "AA-BB-CC-DD-EE-FF: MAC address of the ONU, six hexadecimal fields; ff-ff-ff-ff-ff-ff: the broadcast "
            "link\n");

namespace epon {

void install_llid_node()
{
    install({{&llid_node_config_cmd, in(OLT_NODE)}, {&llid_node_mac_config_cmd, in(OLT_NODE)}});
}

} // namespace epon
