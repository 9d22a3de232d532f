// SPDX-License-Identifier: Apache-2.0
// Encryption of a link: its directions and its key.
#include <cstdio>

#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"
#include "olt/llid.h"

using namespace epon;

namespace {

constexpr Word direction_words[] = {{"downlink", LLID_ENCRYPTION_DOWNLINK},
                                    {"uplink-downlink", LLID_ENCRYPTION_UPLINK_DOWNLINK}};
constexpr WordTable directions = {"encryption_direction", direction_words};

} // namespace

int start_encryption(cmd_element*, vty* session, int, char** argv)
{
    int32_t direction;
    if (!read_word(session, argv[0], "start", directions, &direction)) return -1;
    return report(session, NEP_start_encryption(session->olt_id, session->llid, direction));
}

int update_encryption(cmd_element*, vty* session, int, char** argv)
{
    uint8_t key[LLID_ENCRYPTION_KEY_SIZE];
    if (!read_encryption_key(session, argv[0], key)) return -1;
    return report(session, NEP_update_encryption_key(session->olt_id, session->llid, key));
}

int stop_encryption(cmd_element*, vty* session, int, char**)
{
    return report(session, NEP_stop_encryption(session->olt_id, session->llid));
}

int get_encryption_key(cmd_element*, vty* session, int, char**)
{
    uint8_t key[LLID_ENCRYPTION_KEY_SIZE];
    const int16_t code = NEP_get_encryption_key(session->olt_id, session->llid, key);
    if (code != 0) return report(session, code);
    char text[2 * sizeof key + 1];
    for (size_t i = 0; i < sizeof key; ++i)
        snprintf(text + 2 * i, 3, "%02x", key[i]);
    print_olt_id(session, session->olt_id);
    RBX_vty_out(session, "%s: %s %s", "encryption key", text, VTY_NEWLINE(session));
    return 0;
}

static constinit cmd_element start_encryption_cmd =
    command("encryption start (downlink|uplink-downlink)", start_encryption,
            "Encryption of this link\n"
            "Encrypt it from now on, with a key of the OLT's making\n"
            "downlink: what the OLT sends; uplink-downlink: both directions\n");

static constinit cmd_element update_encryption_cmd = command("encryption set-key ENCRYPTION_KEY", update_encryption,
                                                             "Encryption of this link\n"
                                                             "Go on with another key\n"
                                                             "128-bit key, 32 hexadecimal digits\n");

static constinit cmd_element stop_encryption_cmd = command("encryption stop", stop_encryption,
                                                           "Encryption of this link\n"
                                                           "Send and receive in clear text\n");

static constinit cmd_element get_encryption_key_cmd = command("show encryption-key", get_encryption_key,
                                                              "Show settings and state\n"
                                                              "Key that this link is encrypted with\n");

namespace epon {

void install_encryption()
{
    install({{&start_encryption_cmd, in(LLID_NODE)},
             {&update_encryption_cmd, in(LLID_NODE)},
             {&stop_encryption_cmd, in(LLID_NODE)},
             {&get_encryption_key_cmd, in(LLID_NODE)}});
}

} // namespace epon
