// SPDX-License-Identifier: Apache-2.0
#include "CLI_GENERAL/onu_target.h"

#include <cstring>

#include "CLI_GENERAL/arguments.h"

namespace epon {

namespace {

enum { LAST_OLT = OLT_INDEX_LIMIT - 1, SHORTEST_MAC_TEXT = 5 };

constexpr const char* BROADCAST_MAC = "ff-ff-ff-ff-ff-ff"; // in these letters only

// An address of an ONU that must be registered on its OLT.
bool find_onu(vty* session, int16_t olt_id, const char* text, int16_t* onu_id, int* result)
{
    *result = 0;
    uint8_t mac[6];
    if (!parse_mac(session, text, "MAC address", mac)) return false;
    if (Mac_address_exist(olt_id, mac, onu_id) != 0) return true;
    RBX_vty_out(session, "There is no %s mac address in the system%s", text, VTY_NEWLINE(session));
    return false;
}

bool read_olt(vty* session, const char* text, int16_t* olt_id, int* result)
{
    *result = -1;
    if (!read_olt_id(session, text, olt_id)) return false;
    if (*olt_id >= 0 && *olt_id <= LAST_OLT) return true;
    // The one line that ends with a bare line feed on every kind of session.
    RBX_vty_out(session, "Error, OLT id (%d) is out of bounds. OLT range: %d - %d\n", *olt_id, 0, LAST_OLT);
    *result = -4;
    return false;
}

bool read_onu(vty* session, int16_t olt_id, const char* text, int16_t* onu_id, int* result)
{
    *result = -1;
    if (strlen(text) < SHORTEST_MAC_TEXT) return read_number(session, text, signed_16("onu_index"), onu_id);
    char mac_text[MAC_TEXT_LENGTH + 1];
    if (!read_mac_text(session, text, mac_text)) return false;
    if (strcmp(mac_text, BROADCAST_MAC) == 0) {
        *onu_id = BROADCAST_LLID;
        return true;
    }
    return find_onu(session, olt_id, mac_text, onu_id, result);
}

} // namespace

bool read_onu_target(vty* session, int argc, char** argv, int own_words, OnuTarget* onu, char*** words, int* result)
{
    *words = argv;
    if (argc != own_words) {
        *words = argv + 2;
        return read_olt(session, argv[0], &onu->olt_id, result) &&
               read_onu(session, onu->olt_id, argv[1], &onu->onu_id, result);
    }
    onu->olt_id = session->olt_id;
    // The session's address has no length of its own to keep, and no short cut to the broadcast ONU.
    if (session->onu_by_index != 1) return find_onu(session, onu->olt_id, session->onu_mac, &onu->onu_id, result);
    onu->onu_id = session->onu_id;
    return true;
}

bool read_onu_target(vty* session, int argc, char** argv, OnuTarget* onu, int* result)
{
    char** words;
    return read_onu_target(session, argc, argv, 0, onu, &words, result);
}

} // namespace epon
