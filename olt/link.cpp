// SPDX-License-Identifier: Apache-2.0
#include "olt/link.h"

#include <cstring>

#include "CLI_GENERAL/output.h"

namespace epon {

namespace {

constexpr int LAST_LINK = ONU_INDEX_LIMIT - 1;

// An index that 16 bits cannot hold names no link, and must not become one that does.
int16_t as_index(int link)
{
    if (link > INT16_MAX) return INT16_MAX;
    if (link < INT16_MIN) return INT16_MIN;
    return static_cast<int16_t>(link);
}

// What a session was brought to: index, unless it was entered by an address.
bool read_target(vty* session, int16_t index, int16_t* target, int* result)
{
    if (session->onu_by_index != 1)
        return read_link_by_mac(session, session->olt_id, session->onu_mac, link_to_enter, target, result);
    *target = index;
    return true;
}

} // namespace

constinit const LinkTerms llid_terms = {"LLID", "llid", "LLID", "llid", "llid", 0, 0};
constinit const LinkTerms onu_terms = {"ONU", "onu", "onu", "ONU id", "ONU", -4, -1007};

bool find_link(vty* session, const LinkTerms& terms, int16_t olt_id, int link, bool* is_warned, int* result)
{
    uint8_t warned = 0;
    const bool is_static = Get_onu_record_static_mode(olt_id, as_index(link)) != 0;
    const int32_t mode = NEP_get_onu_mode_extended(olt_id, as_index(link), &warned);
    *is_warned = !is_static && warned != 0;
    if (link < 0 || link > LAST_LINK) {
        RBX_vty_out(session, "Can't enter %s mode, %s (%d) is out of bounds. %s range: %d - %d%s", terms.context,
                    terms.index, link, terms.range, 0, LAST_LINK, VTY_NEWLINE(session));
        *result = terms.out_of_range;
        return false;
    }
    if (is_static || mode == ONU_MODE_REGISTERED || mode == ONU_MODE_REGISTERED_UNAUTHORIZED) return true;
    RBX_vty_out(session, "Error, %s %d of OLT id %d isn't registered. ", terms.name, link, olt_id);
    RBX_vty_out(session, "Entering to %s mode can be activated only after %s registration.%s", terms.entering,
                terms.name, VTY_NEWLINE(session));
    *result = terms.not_available;
    return false;
}

bool can_enter(vty* session, const LinkTerms& terms, int16_t olt_id, int link, int* result)
{
    bool is_warned;
    if (!find_link(session, terms, olt_id, link, &is_warned, result)) return false;
    if (!is_warned) return true;
    RBX_vty_out(session,
                "%s %d of OLT id %d is warned for mode change. Can't enter %s cli mode, %s mode need to be changed.%s",
                terms.name, link, olt_id, terms.context, terms.name, VTY_NEWLINE(session));
    *result = terms.not_available;
    return false;
}

bool read_session_onu(vty* session, int16_t* onu_id, int* result)
{
    return read_target(session, session->onu_id, onu_id, result);
}

bool read_session_link(vty* session, int16_t* llid, int* result)
{
    return read_target(session, session->llid, llid, result);
}

bool read_link(vty* session, int argc, char** argv, int16_t* olt_id, int16_t* llid, int* result)
{
    *result = -1;
    if (argc == 0) {
        *olt_id = session->olt_id;
        return read_session_link(session, llid, result);
    }
    if (!read_olt_id(session, argv[0], olt_id)) return false;
    if (argc == 1) {
        *llid = BROADCAST_LLID;
        return true;
    }
    // The forms with an index and with an address have as many arguments; the keyword tells them apart.
    if (strstr(session->buf, "llid-mac-address") != nullptr)
        return read_link_by_mac(session, *olt_id, argv[1], link_to_enter, llid, result);
    return read_llid(session, argv[1], llid);
}

int show_link_value(vty* session, int16_t olt_id, int16_t code, const char* label, const WordTable& words,
                    int32_t value)
{
    if (code != 0) return report(session, code);
    print_olt_id(session, olt_id);
    RBX_vty_out(session, "%s: %s %s", label, word_of(words, value), VTY_NEWLINE(session));
    return 0;
}

} // namespace epon
