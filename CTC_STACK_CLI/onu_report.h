// SPDX-License-Identifier: Apache-2.0
// How the commands of the CTC stack answer.
#pragma once

#include <cstdint>
#include <span>

#include "CLI_GENERAL/onu_target.h"
#include "CLI_GENERAL/output.h"

namespace epon {

// Reports a failed call of the CTC stack. Returns the code, the handler's own result.
inline int report_ctc(vty* session, int16_t code)
{
    return report(session, code, ctc_stack_error_string_lookup);
}

// The lines that begin the answers about one ONU.
void print_onu(vty* session, const OnuTarget& onu);

// The answer of a command that shows a record of an ONU, or the failed call that should have read it. Returns the code.
int show_onu_record(vty* session, const OnuTarget& onu, int16_t code, const void* record,
                    std::span<const Field> fields);

// The whole of a command that shows what one operation reads, and has no words of its own.
template <class Record>
int show_ctc(vty* session, int argc, char** argv, int16_t (*get)(int16_t olt_id, int16_t onu_id, Record* record),
             std::span<const Field> fields)
{
    OnuTarget onu;
    int result;
    if (!read_onu_target(session, argc, argv, &onu, &result)) return result;
    Record record{};
    const int16_t code = get(onu.olt_id, onu.onu_id, &record);
    return show_onu_record(session, onu, code, &record, fields);
}

} // namespace epon
