// SPDX-License-Identifier: Apache-2.0
#include "CLI_GENERAL/arguments.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace epon {

namespace {

bool is_hexadecimal(const char* text)
{
    return strncmp(text, "0x", 2) == 0;
}

// Ranges are those of the board, where a long has 32 bits: what does not fit is out of range on every host.
int64_t convert(const char* text, const char** end)
{
    char* stop;
    int64_t value;
    errno = 0;
    if (is_hexadecimal(text)) {
        const unsigned long long number = strtoull(text, &stop, 16);
        if (number > UINT32_MAX) errno = ERANGE;
        value = static_cast<int64_t>(number);
    } else {
        value = strtoll(text, &stop, 10);
        if (value < INT32_MIN || value > INT32_MAX) errno = ERANGE;
    }
    *end = stop;
    return value;
}

bool is_control(char c)
{
    return static_cast<unsigned char>(c) <= 31;
}

// Whether errno and where the conversion stopped say that the whole text was a number. If not, its line is printed.
bool is_converted(vty* session, const char* text, const char* end, const char* name)
{
    if (errno != ERANGE && is_control(*end) && !is_control(*text)) return true;
    RBX_vty_out(session, "Error reading %s parameter for command from input, aborting%s", name, VTY_NEWLINE(session));
    errno = 0;
    return false;
}

bool is_not_negative(vty* session, const char* text, const char* name)
{
    if (is_hexadecimal(text) || strchr(text, '-') == nullptr) return true;
    RBX_vty_out(session, "Error reading negative value of %s parameter from input, aborting%s", name,
                VTY_NEWLINE(session));
    return false;
}

bool is_space(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// The first word of a text. False when there is none.
bool scan_word(const char** text, size_t* length)
{
    while (is_space(**text))
        ++*text;
    *length = 0;
    while ((*text)[*length] != '\0' && !is_space((*text)[*length]))
        ++*length;
    return *length != 0;
}

constexpr Word enable_disable_words[] = {{"enable", 1}, {"disable", 0}};
constexpr Word enable_disable_capital_words[] = {{"Enable", 1}, {"Disable", 0}};
constexpr Word true_false_words[] = {{"true", 1}, {"false", 0}};

} // namespace

constinit const WordTable enable_disable = {"enable_disable", enable_disable_words, room_for(enable_disable_words)};
constinit const WordTable enable_disable_capital = {"enable_disable", enable_disable_capital_words};
constinit const WordTable true_false = {"true_false", true_false_words, room_for(true_false_words)};

bool read_number(vty* session, const char* text, const NumberRule& rule, int64_t* value)
{
    const char* end;
    const int64_t number = convert(text, &end);
    if (!is_converted(session, text, end, rule.name)) return false;
    if (rule.is_unsigned && !is_not_negative(session, text, rule.name)) return false;
    if (number < rule.min || number > rule.max) {
        RBX_vty_out(session, "Error in range of %s parameter for command from input min:%d max:%d, aborting%s",
                    rule.name, static_cast<int>(rule.min), static_cast<int>(rule.max), VTY_NEWLINE(session));
        return false;
    }
    *value = number;
    return true;
}

bool read_unsigned_64(vty* session, const char* text, const char* name, uint64_t* value)
{
    char* end;
    errno = 0;
    const unsigned long long number = strtoull(text, &end, is_hexadecimal(text) ? 16 : 10);
    if (!is_converted(session, text, end, name) || !is_not_negative(session, text, name)) return false;
    *value = number;
    return true;
}

int32_t read_bounded_decimal(const char* text)
{
    const long long value = strtoll(text, nullptr, 10);
    if (value > INT32_MAX) return INT32_MAX;
    if (value < INT32_MIN) return INT32_MIN;
    return static_cast<int32_t>(value);
}

bool read_word(vty* session, const char* text, const char* name, const WordTable& table, int32_t* value)
{
    size_t length = strlen(text);
    if (table.room != 0) {
        if (length >= table.room) {
            RBX_vty_out(session, "Error reading %s parameter, internal buffer is too short, aborting!%s", name,
                        VTY_NEWLINE(session));
            return false;
        }
        if (!scan_word(&text, &length)) {
            RBX_vty_out(session, "Error reading %s parameter for command from input, aborting%s", name,
                        VTY_NEWLINE(session));
            return false;
        }
    }
    for (const Word& word : table.words) {
        if (strlen(word.text) == length && memcmp(word.text, text, length) == 0) {
            *value = word.value;
            return true;
        }
    }
    RBX_vty_out(session, "Error reading %s parameter (of the type %s), aborting%s", name, table.type_name,
                VTY_NEWLINE(session));
    return false;
}

const char* word_of(const WordTable& table, int32_t value)
{
    for (const Word& word : table.words) {
        if (word.value == value) return word.text;
    }
    return "Invalid value";
}

bool read_encryption_key(vty* session, const char* text, uint8_t key[16])
{
    if (CLI_convert_encryption_string_to_ascii_array(text, key) == 0) return true;
    RBX_vty_out(session, "Error reading ENCRYPTION_KEY parameter for command from input, aborting%s",
                VTY_NEWLINE(session));
    return false;
}

bool read_olt_id(vty* session, const char* text, int16_t* olt_id)
{
    return read_number(session, text, signed_16("OLT_id"), olt_id);
}

bool read_llid(vty* session, const char* text, int16_t* llid)
{
    return read_number(session, text, signed_16("LLID_INDEX"), llid);
}

bool read_text(vty* session, const char* text, const char* name, char* copy, size_t size)
{
    size_t length;
    if (!scan_word(&text, &length)) {
        RBX_vty_out(session, "Error reading %s parameter for command from input, aborting%s", name,
                    VTY_NEWLINE(session));
        return false;
    }
    if (length >= size) {
        RBX_vty_out(session, "Error reading %s has wrong length, aborting%s", name, VTY_NEWLINE(session));
        return false;
    }
    memcpy(copy, text, length);
    copy[length] = '\0';
    return true;
}

bool read_mac_text(vty* session, const char* text, char copy[MAC_TEXT_LENGTH + 1])
{
    return read_text(session, text, "mac_address", copy, MAC_TEXT_LENGTH + 1);
}

bool parse_mac(vty* session, const char* text, const char* what, uint8_t mac[6])
{
    char copy[VTY_MAC_TEXT_SIZE]; // the parser splits its text in place
    const size_t length = strnlen(text, sizeof copy - 1);
    memcpy(copy, text, length);
    copy[length] = '\0';
    if (CLI_parse_mac_addr_from_string(copy, mac) == 0) return true;
    RBX_vty_out(session, "Error reading %s parameter from the MAC address string, aborting%s", what,
                VTY_NEWLINE(session));
    return false;
}

MacResult read_mac(vty* session, const char* text, const char* what, uint8_t mac[6])
{
    char word[MAC_TEXT_LENGTH + 1];
    if (!read_mac_text(session, text, word)) return MacResult::NotAWord;
    return parse_mac(session, word, what, mac) ? MacResult::Read : MacResult::NotAnAddress;
}

bool read_link_by_mac(vty* session, int16_t olt_id, const char* text, const AddressTerms& terms, int16_t* link,
                      int* result)
{
    uint8_t mac[6];
    switch (read_mac(session, text, "MAC address", mac)) {
    case MacResult::Read:
        break;
    case MacResult::NotAWord:
        *result = -1;
        return false;
    case MacResult::NotAnAddress:
        *result = terms.malformed;
        return false;
    }
    if (Mac_address_exist(olt_id, mac, link) != 0) return true;
    RBX_vty_out(session, "There is no %s%s mac address in the system%s", terms.which, text, VTY_NEWLINE(session));
    *result = 0;
    return false;
}

} // namespace epon
