// SPDX-License-Identifier: Apache-2.0
// Links and ONUs as commands name them, find them and refuse them.
#pragma once

#include <cstdint>

#include "CLI_GENERAL/arguments.h"

namespace epon {

// How a context speaks of its links, and what its commands return when they refuse one.
struct LinkTerms {
    const char* name;     // "LLID"
    const char* context;  // "llid"
    const char* entering; // the context once more, as the line about an unregistered link writes it
    const char* index;
    const char* range;
    int out_of_range;
    int not_available;
};

extern const LinkTerms llid_terms; // refusals are not failed commands
extern const LinkTerms onu_terms;  // refusals are

// Asks the SDK for a link, whatever its index. False for an index out of range and for a link that is neither
// registered nor kept statically: the refusal is printed, and *result is what the handler returns. *is_warned is never
// set for a link that is kept statically.
bool find_link(vty* session, const LinkTerms& terms, int16_t olt_id, int link, bool* is_warned, int* result);

// The same for a link that a session is to enter: one that is warned for a mode change is refused, too.
bool can_enter(vty* session, const LinkTerms& terms, int16_t olt_id, int link, int* result);

// The ONU of a session in the ONU node or below, and the link of one in the LLID node: entered by index, or by an
// address that is looked up again. On false the refusal is printed, and *result is what the handler returns.
bool read_session_onu(vty* session, int16_t* onu_id, int* result);
bool read_session_link(vty* session, int16_t* llid, int* result);

// The link of a command with a global form, "... OLT_INDEX LLID_INDEX", "... OLT_INDEX llid-mac-address MAC" or
// "... OLT_INDEX broadcast-llid", and a short form, which takes OLT and link from the session. On false the refusal is
// printed, and *result is what the handler returns.
bool read_link(vty* session, int argc, char** argv, int16_t* olt_id, int16_t* llid, int* result);

// The answer of a command that shows one value of a link: the OLT and the value in words, or the failed call. Returns
// the code.
int show_link_value(vty* session, int16_t olt_id, int16_t code, const char* label, const WordTable& words,
                    int32_t value);

} // namespace epon
