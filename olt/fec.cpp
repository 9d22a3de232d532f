// SPDX-License-Identifier: Apache-2.0
// Forward error correction of a link.
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"
#include "olt/link.h"
#include "olt/onu.h"

using namespace epon;

namespace {

constexpr Word fec_words[] = {
    {"off", LLID_FEC_OFF}, {"downlink", LLID_FEC_DOWNLINK}, {"uplink-downlink", LLID_FEC_UPLINK_DOWNLINK}};
constexpr WordTable fec = {"fec", fec_words};

int set_mode(vty* session, int32_t mode)
{
    int16_t llid;
    int result;
    if (!read_session_link(session, &llid, &result)) return result;
    return report(session, NEP_set_llid_fec_mode(session->olt_id, llid, mode));
}

} // namespace

int set_fec_mode(cmd_element*, vty* session, int, char**)
{
    return set_mode(session, LLID_FEC_DOWNLINK);
}

int no_fec_mode(cmd_element*, vty* session, int, char**)
{
    return set_mode(session, LLID_FEC_OFF);
}

int show_llid_fec(cmd_element*, vty* session, int argc, char** argv)
{
    int16_t olt_id;
    int16_t llid;
    int result;
    if (!read_link(session, argc, argv, &olt_id, &llid, &result)) return result;
    int32_t mode = LLID_FEC_OFF;
    const int16_t code = NEP_get_llid_fec_mode(olt_id, llid, &mode);
    return show_link_value(session, olt_id, code, "fec", fec, mode);
}

static constinit cmd_element set_fec_mode_cmd = command("set fec downlink", set_fec_mode,
                                                        "Change a setting\n"
                                                        "Forward error correction of this link\n"
                                                        "Correct what the OLT sends to the ONU\n");

static constinit cmd_element no_fec_mode_cmd = command("no fec", no_fec_mode,
                                                       "Turn a setting off, or take an object away\n"
                                                       "Forward error correction of this link\n");

static constinit cmd_element show_llid_fec_by_index_cmd =
    command("show llid fec OLT_INDEX LLID_INDEX", show_llid_fec,
            "Show settings and state\n"
            "One link\n"
            "Directions whose errors are corrected\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "Index of the link, 0-254, decimal or with 0x hexadecimal\n");

static constinit cmd_element show_llid_fec_by_mac_cmd =
    command("show llid fec OLT_INDEX llid-mac-address AA-BB-CC-DD-EE-FF", show_llid_fec,
            "Show settings and state\n"
            "One link\n"
            "Directions whose errors are corrected\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "The link that belongs to a MAC address\n"
            "MAC address of the ONU, six hexadecimal fields\n");

static constinit cmd_element show_llid_fec_broadcast_cmd =
    command("show llid fec OLT_INDEX broadcast-llid", show_llid_fec,
            "Show settings and state\n"
            "One link\n"
            "Directions whose errors are corrected\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "The broadcast link\n");

static constinit cmd_element show_llid_fec_cmd = command("show fec", show_llid_fec,
                                                         "Show settings and state\n"
                                                         "Directions whose errors are corrected on this link\n");

namespace epon {

void install_fec()
{
    install({{&set_fec_mode_cmd, in(LLID_NODE)},
             {&no_fec_mode_cmd, in(LLID_NODE)},
             {&show_llid_fec_by_index_cmd, in(VIEW_NODE, ENABLE_NODE, LLID_NODE)},
             {&show_llid_fec_by_mac_cmd, in(VIEW_NODE, ENABLE_NODE, LLID_NODE)},
             {&show_llid_fec_broadcast_cmd, in(VIEW_NODE, ENABLE_NODE, LLID_NODE, BC_LLID_NODE)},
             {&show_llid_fec_cmd, in(VIEW_NODE, LLID_NODE)}});
}

} // namespace epon
