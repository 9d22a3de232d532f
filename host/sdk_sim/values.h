// SPDX-License-Identifier: Apache-2.0
// Arguments and results of the SDK's operations as text, for the journal:
//
//   numbers and codes    decimal: 300, -1
//   texts                "fw0.bin", with \n, \", \\ and \x1b for what cannot be printed
//   MAC addresses        00-1a-2b-3c-4d-5e
//   arrays               octets in hexadecimal (0a1b2c), other numbers as [1,0,3,7]
//   records              {field=value,field=value}; of a record of settings only the fields that change something
//   null pointers        null
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>

namespace sdk_sim {

void append_quoted(std::string* line, std::string_view text);
void append_mac(std::string* line, const std::uint8_t mac[6]);
void append_octets(std::string* line, const std::uint8_t* octets, std::size_t count);

// --- Records -----------------------------------------------------------------------------------------------------

template <class Record, class Member>
struct RecordField {
    const char* name;
    Member Record::*member;
};

template <class Record, class Member>
constexpr RecordField<Record, Member> record_field(const char* name, Member Record::*member)
{
    return {name, member};
}

// A family describes each record that it passes through the gate: a tuple of record_field(...).
template <class Record>
inline constexpr std::nullptr_t record_fields = nullptr;

// True for a record of settings: a field with all bits set means "leave it as it is" and is not shown.
template <class Record>
inline constexpr bool hides_unchanged_fields = false;

template <class Record>
concept DescribedRecord = !std::is_same_v<std::remove_cv_t<decltype(record_fields<Record>)>, std::nullptr_t>;

// --- What an operation passes beside numbers and records ----------------------------------------------------------

struct MacValue {
    const std::uint8_t* octets;
};
struct MacResult {
    std::uint8_t* octets;
};
struct TextValue {
    const char* text;
};
// A buffer of `size` octets that receives a terminated text.
struct TextResult {
    char* buffer;
    std::size_t size;
};
struct OctetsValue {
    const std::uint8_t* octets;
    std::size_t count;
};
struct OctetsResult {
    std::uint8_t* octets;
    std::size_t count;
};

// --- To text -----------------------------------------------------------------------------------------------------

void append_value(std::string* line, MacValue value);
void append_value(std::string* line, MacResult value);
void append_value(std::string* line, TextValue value);
void append_value(std::string* line, TextResult value);
void append_value(std::string* line, OctetsValue value);
void append_value(std::string* line, OctetsResult value);

template <class Number>
requires std::is_arithmetic_v<Number> || std::is_enum_v<Number>
void append_value(std::string* line, Number value)
{
    if constexpr (std::is_enum_v<Number>)
        *line += std::to_string(static_cast<std::underlying_type_t<Number>>(value));
    else
        *line += std::to_string(+value);
}

template <DescribedRecord Record>
void append_value(std::string* line, const Record& record);

template <class Element, std::size_t Size>
void append_array(std::string* line, const Element (&elements)[Size])
{
    if constexpr (std::is_same_v<Element, std::uint8_t> && Size == 6) {
        append_mac(line, elements);
    } else if constexpr (std::is_same_v<Element, std::uint8_t>) {
        append_octets(line, elements, Size);
    } else if constexpr (std::is_same_v<Element, char>) {
        append_quoted(line, std::string_view(elements, strnlen(elements, Size)));
    } else {
        for (std::size_t i = 0; i < Size; ++i) {
            *line += i == 0 ? "[" : ",";
            append_value(line, elements[i]);
        }
        *line += ']';
    }
}

template <class Record, class Member>
void append_field(std::string* line, const Record& record, const RecordField<Record, Member>& field)
{
    const auto& value = record.*field.member;
    if constexpr (hides_unchanged_fields<Record> && std::is_integral_v<Member>) {
        if (value == static_cast<Member>(-1)) return;
    }
    if (line->back() != '{') *line += ',';
    *line += field.name;
    *line += '=';
    if constexpr (std::is_array_v<Member>)
        append_array(line, value);
    else
        append_value(line, value);
}

template <DescribedRecord Record>
void append_value(std::string* line, const Record& record)
{
    *line += '{';
    std::apply([&](const auto&... field) { (append_field(line, record, field), ...); }, record_fields<Record>);
    *line += '}';
}

template <class Value>
void append_value(std::string* line, Value* value)
{
    if (value == nullptr)
        *line += "null";
    else
        append_value(line, *value);
}

// --- Null pointers, and results of a call that never reached the model --------------------------------------------

template <class Value>
bool is_null(const Value&)
{
    return false;
}
template <class Value>
bool is_null(Value* const& value)
{
    return value == nullptr;
}
inline bool is_null(const MacValue& value)
{
    return value.octets == nullptr;
}
inline bool is_null(const MacResult& value)
{
    return value.octets == nullptr;
}
inline bool is_null(const TextValue& value)
{
    return value.text == nullptr;
}
inline bool is_null(const TextResult& value)
{
    return value.buffer == nullptr;
}
// No octets need no address.
inline bool is_null(const OctetsValue& value)
{
    return value.octets == nullptr && value.count != 0;
}
inline bool is_null(const OctetsResult& value)
{
    return value.octets == nullptr && value.count != 0;
}

template <class Value>
void clear_result(Value* value)
{
    if (value != nullptr) *value = Value{};
}
inline void clear_result(const MacResult& value)
{
    if (value.octets != nullptr) std::memset(value.octets, 0, 6);
}
inline void clear_result(const TextResult& value)
{
    if (value.buffer != nullptr) value.buffer[0] = '\0';
}
inline void clear_result(const OctetsResult& value)
{
    if (value.octets != nullptr) std::memset(value.octets, 0, value.count);
}

} // namespace sdk_sim
