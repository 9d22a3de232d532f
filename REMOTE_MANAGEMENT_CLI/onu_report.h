// SPDX-License-Identifier: Apache-2.0
// How the commands of remote management answer.
#pragma once

#include <cstdint>
#include <span>

#include "CLI_GENERAL/onu_target.h"
#include "CLI_GENERAL/output.h"

namespace epon {

// Reports a failed call of remote management. The handler returns 0 all the same.
int report_remote(vty* session, int16_t code);

// The answer of a command that shows a record of an ONU, or the failed call that should have read it. Returns 0.
int show_remote_record(vty* session, int16_t code, const void* record, std::span<const Field> fields);

// The whole of a command that shows what one operation reads, and has no words of its own.
template <class Record>
int show_remote(vty* session, int argc, char** argv, int16_t (*get)(int16_t olt_id, int16_t onu_id, Record* record),
                std::span<const Field> fields)
{
    OnuTarget onu;
    int result;
    if (!read_onu_target(session, argc, argv, &onu, &result)) return result;
    Record record{};
    const int16_t code = get(onu.olt_id, onu.onu_id, &record);
    return show_remote_record(session, code, &record, fields);
}

// The whole of a command that sets one value on the session's ONU: a word of a table, or a number.
template <class Value>
int set_remote_word(vty* session, const char* text, const char* name, const WordTable& table,
                    int16_t (*set)(int16_t olt_id, int16_t onu_id, Value value))
{
    OnuTarget onu;
    int result;
    Value value;
    if (!read_session_target(session, &onu, &result)) return result;
    if (!read_word(session, text, name, table, &value)) return -1;
    return report_remote(session, set(onu.olt_id, onu.onu_id, value));
}

template <class Value>
int set_remote_number(vty* session, const char* text, const NumberRule& rule,
                      int16_t (*set)(int16_t olt_id, int16_t onu_id, Value value))
{
    OnuTarget onu;
    int result;
    Value value;
    if (!read_session_target(session, &onu, &result)) return result;
    if (!read_number(session, text, rule, &value)) return -1;
    return report_remote(session, set(onu.olt_id, onu.onu_id, value));
}

} // namespace epon
