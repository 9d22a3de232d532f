// SPDX-License-Identifier: Apache-2.0
// The state of one link: mode, authorization, encryption.
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"
#include "olt/link.h"
#include "olt/onu.h"

using namespace epon;

namespace {

constexpr Word mode_words[] = {{"unregistered", ONU_MODE_UNREGISTERED},
                               {"registered", ONU_MODE_REGISTERED},
                               {"discovered", ONU_MODE_DISCOVERED},
                               {"unauthorized", ONU_MODE_REGISTERED_UNAUTHORIZED}};
constexpr WordTable modes = {"mode", mode_words};

constexpr Word authorization_words[] = {{"authorized", 1}, {"unauthorized", 0}};
constexpr WordTable authorization = {"authorization", authorization_words};

constexpr Word encryption_words[] = {{"off", LLID_ENCRYPTION_OFF},
                                     {"downlink", LLID_ENCRYPTION_DOWNLINK},
                                     {"uplink-downlink", LLID_ENCRYPTION_UPLINK_DOWNLINK}};
constexpr WordTable encryption = {"encryption", encryption_words};

// One of the values that the SDK tells about a link.
int show_parameter(vty* session, int argc, char** argv, const char* label, const WordTable& words,
                   int32_t LLID_parameters::*field)
{
    int16_t olt_id;
    int16_t llid;
    int result;
    if (!read_link(session, argc, argv, &olt_id, &llid, &result)) return result;
    LLID_parameters parameters = {};
    const int16_t code = NEP_get_llid_parameters(olt_id, llid, &parameters);
    return show_link_value(session, olt_id, code, label, words, parameters.*field);
}

} // namespace

int show_llid_mode(cmd_element*, vty* session, int argc, char** argv)
{
    int16_t olt_id;
    int16_t llid;
    int result;
    if (!read_link(session, argc, argv, &olt_id, &llid, &result)) return result;
    int32_t mode = ONU_MODE_UNREGISTERED;
    const int16_t code = NEP_get_onu_mode(olt_id, llid, &mode);
    return show_link_value(session, olt_id, code, "mode", modes, mode);
}

int show_llid_authorize(cmd_element*, vty* session, int argc, char** argv)
{
    return show_parameter(session, argc, argv, "authorization", authorization, &LLID_parameters::authorized);
}

int show_llid_encryption(cmd_element*, vty* session, int argc, char** argv)
{
    return show_parameter(session, argc, argv, "encryption", encryption, &LLID_parameters::encryption);
}

static constinit cmd_element show_llid_mode_by_index_cmd =
    command("show llid mode OLT_INDEX LLID_INDEX", show_llid_mode,
            "Show settings and state\n"
            "One link\n"
            "How far its registration is\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "Index of the link, 0-254, decimal or with 0x hexadecimal\n");

static constinit cmd_element show_llid_mode_cmd = command("show mode", show_llid_mode,
                                                          "Show settings and state\n"
                                                          "How far the registration of this link is\n");

static constinit cmd_element show_llid_mode_by_mac_cmd =
    command("show llid mode OLT_INDEX llid-mac-address AA-BB-CC-DD-EE-FF", show_llid_mode,
            "Show settings and state\n"
            "One link\n"
            "How far its registration is\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "The link that belongs to a MAC address\n"
            "MAC address of the ONU, six hexadecimal fields\n");

static constinit cmd_element show_llid_authorize_by_index_cmd =
    command("show llid authorization OLT_INDEX LLID_INDEX", show_llid_authorize,
            "Show settings and state\n"
            "One link\n"
            "Whether it may carry traffic\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "Index of the link, 0-254, decimal or with 0x hexadecimal\n");

static constinit cmd_element show_llid_authorize_by_mac_cmd =
    command("show llid authorization OLT_INDEX llid-mac-address AA-BB-CC-DD-EE-FF", show_llid_authorize,
            "Show settings and state\n"
            "One link\n"
            "Whether it may carry traffic\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "The link that belongs to a MAC address\n"
            "MAC address of the ONU, six hexadecimal fields\n");

static constinit cmd_element show_llid_authorize_cmd = command("show authorize", show_llid_authorize,
                                                               "Show settings and state\n"
                                                               "Whether this link may carry traffic\n");

static constinit cmd_element show_llid_encryption_by_index_cmd =
    command("show llid encryption OLT_INDEX LLID_INDEX", show_llid_encryption,
            "Show settings and state\n"
            "One link\n"
            "Directions that are encrypted\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "Index of the link, 0-254, decimal or with 0x hexadecimal\n");

static constinit cmd_element show_llid_encryption_by_mac_cmd =
    command("show llid encryption OLT_INDEX llid-mac-address AA-BB-CC-DD-EE-FF", show_llid_encryption,
            "Show settings and state\n"
            "One link\n"
            "Directions that are encrypted\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "The link that belongs to a MAC address\n"
            "MAC address of the ONU, six hexadecimal fields\n");

static constinit cmd_element show_llid_encryption_cmd = command("show encryption", show_llid_encryption,
                                                                "Show settings and state\n"
                                                                "Directions of this link that are encrypted\n");

static constinit cmd_element show_llid_encryption_of_olt_cmd =
    command("show olt-encryption", show_llid_encryption,
            "Show settings and state\n"
            "Directions of this link that the OLT encrypts or decrypts\n");

namespace epon {

void install_show_llid()
{
    install({{&show_llid_mode_by_index_cmd, SHOW_NODES},
             {&show_llid_mode_cmd, in(LLID_NODE)},
             {&show_llid_mode_by_mac_cmd, SHOW_NODES},
             {&show_llid_authorize_by_index_cmd, SHOW_NODES},
             {&show_llid_authorize_by_mac_cmd, SHOW_NODES},
             {&show_llid_authorize_cmd, in(LLID_NODE)},
             {&show_llid_encryption_by_index_cmd, SHOW_NODES},
             {&show_llid_encryption_by_mac_cmd, SHOW_NODES},
             {&show_llid_encryption_cmd, in(LLID_NODE)},
             {&show_llid_encryption_of_olt_cmd, in(LLID_NODE)}});
}

} // namespace epon
