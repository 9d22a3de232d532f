// SPDX-License-Identifier: Apache-2.0
// Parsers of MAC and IPv6 addresses, encryption keys and OLT lists. A result of -1 means that the text was refused.
#include <cstring>

#include <epon/cli.h>

#include "CLI_GENERAL/arguments.h"

namespace {

int digit_value(char c)
{
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

bool is_hex_text(const char* text, char separator)
{
    for (; *text != '\0'; ++text) {
        if (*text != separator && digit_value(*text) < 0) return false;
    }
    return true;
}

// Any number of digits; the low 16 bits count.
uint16_t hex_value(const char* digits)
{
    uint32_t value = 0;
    for (; *digits != '\0'; ++digits)
        value = value << 4 | static_cast<uint32_t>(digit_value(*digits));
    return static_cast<uint16_t>(value);
}

// The groups fill the address from its end backwards, each with its low byte first.
int parse_ipv6_groups(char* text, uint8_t* out, int size)
{
    if (!is_hex_text(text, ':')) return -1;
    char* rest = nullptr;
    int at = size;
    for (const char* group = strtok_r(text, ":", &rest); group != nullptr; group = strtok_r(nullptr, ":", &rest)) {
        if (at == 0) return -1;
        const uint16_t value = hex_value(group);
        at -= 2;
        out[at] = static_cast<uint8_t>(value);
        out[at + 1] = static_cast<uint8_t>(value >> 8);
    }
    return at == 0 ? 0 : -1;
}

int convert_key(const char* text, uint8_t* key, int size)
{
    for (int i = 0; i < size; ++i) {
        const int high = digit_value(text[2 * i]);
        if (high < 0) return -1;
        const int low = digit_value(text[2 * i + 1]);
        if (low < 0) return -1;
        key[i] = static_cast<uint8_t>(high * 16 + low);
    }
    return 0;
}

} // namespace

int CLI_parse_mac_addr_from_string(char* text, uint8_t mac[6])
{
    if (!is_hex_text(text, '-')) return -1;
    char* rest = nullptr;
    const char* field = strtok_r(text, "-", &rest);
    for (int i = 0; i < 6; ++i) {
        if (field == nullptr) return -1;
        mac[i] = static_cast<uint8_t>(hex_value(field)); // only the low byte is kept: 1ff is ff
        field = strtok_r(nullptr, "-", &rest);
    }
    return 0;
}

int CLI_parse_ipv6_short_addr_from_string(char* text, uint8_t out[10])
{
    return parse_ipv6_groups(text, out, 10);
}

int CLI_parse_ipv6_addr_from_string(char* text, uint8_t out[16])
{
    return parse_ipv6_groups(text, out, 16);
}

int CLI_convert_encryption_string_to_ascii_array(const char* text, uint8_t key[16])
{
    return convert_key(text, key, 16);
}

int CLI_convert_binary_encryption_string_to_ascii_array(const char* text, uint8_t key[32])
{
    return convert_key(text, key, 32);
}

int Parse_OLTs_id_array(char* text, uint16_t pairs[4][2], uint8_t* count, vty* session)
{
    enum { MAX_PAIRS = 4, MIN_PAIRS = 2 };
    char* rest = nullptr;
    const char* token = strtok_r(text, ";", &rest);
    int members = 0;
    for (; token != nullptr && members < 2 * MAX_PAIRS; ++members) {
        uint16_t* member = &pairs[members / 2][members % 2];
        *member = 0;
        if (!epon::read_number(session, token, epon::signed_16("olt_id"), member)) return -1;
        token = strtok_r(nullptr, ";", &rest);
    }
    // Both messages misspell "elements" and end with a bare line feed.
    if (members % 2 != 0) {
        RBX_vty_out(session, "Error, The list must contain an even number of elementst.\n");
        return -1;
    }
    if (members < 2 * MIN_PAIRS) {
        RBX_vty_out(session, "Error, The list must contain at least 4 elementst.\n");
        return -1;
    }
    *count = static_cast<uint8_t>(members / 2);
    return 0;
}
