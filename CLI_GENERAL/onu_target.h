// SPDX-License-Identifier: Apache-2.0
// The ONU that a command of the CTC stack or of remote management acts on, and its own words behind the address.
#pragma once

#include <cstdint>

#include <epon/cli.h>

namespace epon {

// OLT and ONU as the SDK takes them; BROADCAST_LLID is every ONU of the OLT.
struct OnuTarget {
    int16_t olt_id;
    int16_t onu_id;
};

// Reads which ONU is meant. A command with own_words words of its own has a form in the ONU node, whose target is the
// session's, and a global form that begins with the OLT and either the ONU's index or its MAC address: a text of fewer
// than five characters is an index. *words then begins with the command's own words. On false the refusal is printed,
// and *result is what the handler returns.
bool read_onu_target(vty* session, int argc, char** argv, int own_words, OnuTarget* onu, char*** words, int* result);

// The same for a command without words of its own.
bool read_onu_target(vty* session, int argc, char** argv, OnuTarget* onu, int* result);

// The ONU of a command that sets something: the session's.
inline bool read_session_target(vty* session, OnuTarget* onu, int* result)
{
    return read_onu_target(session, 0, nullptr, onu, result);
}

} // namespace epon
