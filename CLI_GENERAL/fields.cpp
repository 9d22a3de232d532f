// SPDX-License-Identifier: Apache-2.0
// Fields of records as text.
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "CLI_GENERAL/output.h"

namespace epon {

namespace {

constexpr int MAC_BYTES = 6;
constexpr uint32_t SHOWN_BYTES = 128;

template <class T>
T value_of(const Field& field, const void* record)
{
    T value;
    memcpy(&value, static_cast<const char*>(record) + field.offset, sizeof value);
    return value;
}

// Two hexadecimal digits a byte; of more than SHOWN_BYTES the rest is only counted.
void format_bytes(char* text, const uint8_t* bytes, uint32_t length)
{
    const uint32_t shown = length < SHOWN_BYTES ? length : SHOWN_BYTES;
    for (uint32_t i = 0; i < shown; ++i)
        text += snprintf(text, 3, "%02x", bytes[i]);
    *text = '\0';
    if (length > shown) snprintf(text, 24, "... (%" PRIu32 " more)", length - shown);
}

void format_hundredths(char* text, int32_t value)
{
    const int64_t magnitude = llabs(value);
    snprintf(text, FIELD_TEXT_SIZE, "%s%d.%02d", value < 0 ? "-" : "", static_cast<int>(magnitude / 100),
             static_cast<int>(magnitude % 100));
}

} // namespace

static_assert(2 * SHOWN_BYTES + 24 < FIELD_TEXT_SIZE);

void format_field(const Field& field, const void* record, char text[FIELD_TEXT_SIZE])
{
    const char* at = static_cast<const char*>(record) + field.offset;
    const auto* bytes = reinterpret_cast<const uint8_t*>(at);
    switch (field.format) {
    case FieldFormat::Uint8:
        snprintf(text, FIELD_TEXT_SIZE, "%u", value_of<uint8_t>(field, record));
        break;
    case FieldFormat::Int16:
        snprintf(text, FIELD_TEXT_SIZE, "%d", value_of<int16_t>(field, record));
        break;
    case FieldFormat::Uint16:
        snprintf(text, FIELD_TEXT_SIZE, "%u", value_of<uint16_t>(field, record));
        break;
    case FieldFormat::Int32:
        snprintf(text, FIELD_TEXT_SIZE, "%" PRId32, value_of<int32_t>(field, record));
        break;
    case FieldFormat::Uint32:
        snprintf(text, FIELD_TEXT_SIZE, "%" PRIu32, value_of<uint32_t>(field, record));
        break;
    case FieldFormat::Uint64:
        snprintf(text, FIELD_TEXT_SIZE, "%" PRIu64, value_of<uint64_t>(field, record));
        break;
    case FieldFormat::Counter:
        snprintf(text, FIELD_TEXT_SIZE, "%Lg", static_cast<long double>(value_of<uint64_t>(field, record)));
        break;
    case FieldFormat::Hex16:
        snprintf(text, FIELD_TEXT_SIZE, "0x%hx", value_of<uint16_t>(field, record));
        break;
    case FieldFormat::Hex32:
        snprintf(text, FIELD_TEXT_SIZE, "0x%" PRIx32, value_of<uint32_t>(field, record));
        break;
    case FieldFormat::Hex64:
        snprintf(text, FIELD_TEXT_SIZE, "0x%" PRIx64, value_of<uint64_t>(field, record));
        break;
    case FieldFormat::Hundredths:
        format_hundredths(text, value_of<int32_t>(field, record));
        break;
    case FieldFormat::Mac:
        snprintf(text, FIELD_TEXT_SIZE, "%02x-%02x-%02x-%02x-%02x-%02x", bytes[0], bytes[1], bytes[2], bytes[3],
                 bytes[4], bytes[5]);
        break;
    case FieldFormat::HexMac:
    case FieldFormat::HexId:
        for (int i = 0; i < MAC_BYTES; ++i)
            text += snprintf(text, 6, "0x%02x-", bytes[i]);
        if (field.format == FieldFormat::HexId) text[-1] = '\0';
        break;
    case FieldFormat::Bytes: {
        uint32_t length;
        memcpy(&length, static_cast<const char*>(record) + field.size_offset, sizeof length);
        format_bytes(text, value_of<const uint8_t*>(field, record), length);
        break;
    }
    case FieldFormat::Text:
        clean_device_text(text, FIELD_TEXT_SIZE, at, field.size_offset);
        break;
    case FieldFormat::Uint8Word:
        snprintf(text, FIELD_TEXT_SIZE, "%s", word_of(*field.words, value_of<uint8_t>(field, record)));
        break;
    case FieldFormat::Uint16Word:
        snprintf(text, FIELD_TEXT_SIZE, "%s", word_of(*field.words, value_of<uint16_t>(field, record)));
        break;
    case FieldFormat::Int32Word:
        snprintf(text, FIELD_TEXT_SIZE, "%s", word_of(*field.words, value_of<int32_t>(field, record)));
        break;
    case FieldFormat::Name: {
        const auto index = value_of<int32_t>(field, record);
        const bool is_known = index >= 0 && index < field.names->count;
        snprintf(text, FIELD_TEXT_SIZE, "%s", is_known ? field.names->names[index] : "Invalid value");
        break;
    }
    }
}

} // namespace epon
