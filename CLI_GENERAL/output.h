// SPDX-License-Identifier: Apache-2.0
// How answers reach the operator: SDK results in words, records as lines, lines to every session that asked for events.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include <epon/cli.h>

#include "CLI_GENERAL/arguments.h"

namespace epon {

// --- The SDK log -------------------------------------------------------------------------------------------------

// Logs the call of an entry point of the library.
void trace_api_call(const char* module, const char* function);

// --- SDK results -------------------------------------------------------------------------------------------------

using ReturnCodeLookup = const char*(short code);

// Reports a failed SDK call in two lines, in the words of its family. Returns the code, the handler's own result.
int report(vty* session, int16_t code, ReturnCodeLookup* lookup = error_string_lookup);

// The two lines, whatever the code.
void print_sdk_failure(vty* session, int16_t code, ReturnCodeLookup* lookup = error_string_lookup);

// --- Records -----------------------------------------------------------------------------------------------------

// How one field of a record is written.
enum class FieldFormat : uint8_t {
    Uint8,
    Int16,
    Uint16,
    Int32,
    Uint32,
    Uint64,
    Hex16,      // 0x%hx
    Hex32,      // 0x%x
    Hex64,      // 0x%llx
    Counter,    // uint64 as %Lg
    Hundredths, // int32 in hundredths: -12.34
    Mac,        // six bytes, 00-11-22-33-44-55
    HexMac,     // six bytes, "0x%02x-" each
    HexId,      // the same without the last "-"
    Bytes,      // pointer to bytes, whose number is the uint32 at size_offset
    Text,       // text of a device, in an array of size_offset characters
    Uint8Word,  // values of a word table
    Uint16Word,
    Int32Word,
    Name, // int32 index of a name list
};

struct NameList {
    const char* const* names;
    int count;
};

struct Field {
    const char* label;
    FieldFormat format;
    uint16_t offset;
    const WordTable* words = nullptr;
    const NameList* names = nullptr;
    uint16_t size_offset = 0;
};

enum { FIELD_TEXT_SIZE = 300 }; // holds the text of any field

// The value of one field, in words.
void format_field(const Field& field, const void* record, char text[FIELD_TEXT_SIZE]);

// One line "label: value" for each field.
void print_fields(vty* session, const void* record, std::span<const Field> fields);

// The line that begins the answers about one OLT.
void print_olt_id(vty* session, int16_t olt_id);

// --- Text from devices -------------------------------------------------------------------------------------------

// Copies text that came from a device: bytes that are not printable ASCII become "?". At most length bytes are read, up
// to a terminator; text holds size bytes and is always terminated.
void clean_device_text(char* text, size_t size, const char* source, size_t length);

// --- Events ------------------------------------------------------------------------------------------------------

// Prints text and end to every session with event_notify set and flushes it. end null: the session's line end after one
// blank. The last flush's result. Any thread.
int print_to_notified(const char* text, const char* end);

} // namespace epon
