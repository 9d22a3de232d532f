// SPDX-License-Identifier: Apache-2.0
#include "host/sdk_sim/values.h"

namespace sdk_sim {

namespace {

constexpr char HEX_DIGITS[] = "0123456789abcdef";

void append_octet(std::string* line, std::uint8_t octet)
{
    *line += HEX_DIGITS[octet >> 4];
    *line += HEX_DIGITS[octet & 15];
}

} // namespace

void append_quoted(std::string* line, std::string_view text)
{
    *line += '"';
    for (const char character : text) {
        const auto octet = static_cast<std::uint8_t>(character);
        if (character == '\n') {
            *line += "\\n";
        } else if (character == '\r') {
            *line += "\\r";
        } else if (character == '\t') {
            *line += "\\t";
        } else if (character == '"' || character == '\\') {
            *line += '\\';
            *line += character;
        } else if (octet < 0x20 || octet > 0x7E) {
            *line += "\\x";
            append_octet(line, octet);
        } else {
            *line += character;
        }
    }
    *line += '"';
}

void append_mac(std::string* line, const std::uint8_t mac[6])
{
    for (int i = 0; i < 6; ++i) {
        if (i != 0) *line += '-';
        append_octet(line, mac[i]);
    }
}

void append_octets(std::string* line, const std::uint8_t* octets, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        append_octet(line, octets[i]);
}

void append_value(std::string* line, MacValue value)
{
    if (value.octets == nullptr)
        *line += "null";
    else
        append_mac(line, value.octets);
}

void append_value(std::string* line, MacResult value)
{
    append_value(line, MacValue{value.octets});
}

void append_value(std::string* line, TextValue value)
{
    if (value.text == nullptr)
        *line += "null";
    else
        append_quoted(line, value.text);
}

void append_value(std::string* line, TextResult value)
{
    if (value.buffer == nullptr)
        *line += "null";
    else
        append_quoted(line, std::string_view(value.buffer, strnlen(value.buffer, value.size)));
}

void append_value(std::string* line, OctetsValue value)
{
    if (value.octets == nullptr)
        *line += "null";
    else
        append_octets(line, value.octets, value.count);
}

void append_value(std::string* line, OctetsResult value)
{
    append_value(line, OctetsValue{value.octets, value.count});
}

} // namespace sdk_sim
