// SPDX-License-Identifier: Apache-2.0
// How handlers read their words. A reader that refuses a word has printed its one line; the handler only returns.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include <epon/cli.h>

namespace epon {

// --- Numbers -----------------------------------------------------------------------------------------------------

// What a numeric parameter accepts. Words that begin with "0x" are hexadecimal, all others decimal.
struct NumberRule {
    const char* name; // as the messages call it
    int64_t min;
    int64_t max;
    bool is_unsigned; // a decimal word with a minus sign is refused as negative
};

// The lower bound is -32767 on purpose.
constexpr NumberRule signed_16(const char* name)
{
    return {name, -32767, 32767, false};
}

constexpr NumberRule unsigned_16(const char* name)
{
    return {name, 0, 65535, true};
}

// Any value of 32 bits; only the conversion can fail.
constexpr NumberRule unsigned_32(const char* name)
{
    return {name, 0, UINT32_MAX, true};
}

constexpr NumberRule unsigned_range(const char* name, int32_t min, int32_t max)
{
    return {name, min, max, true};
}

// Reads one number by its rule. T is wide enough for the rule's bounds.
bool read_number(vty* session, const char* text, const NumberRule& rule, int64_t* value);

template <class T>
bool read_number(vty* session, const char* text, const NumberRule& rule, T* value)
{
    int64_t number;
    if (!read_number(session, text, rule, &number)) return false;
    *value = static_cast<T>(number);
    return true;
}

// The same for any unsigned value of 64 bits.
bool read_unsigned_64(vty* session, const char* text, const char* name, uint64_t* value);

// A decimal number whose text the grammar has bounded already; nothing is refused, excess saturates at 32 bits.
int32_t read_bounded_decimal(const char* text);

// --- Words -------------------------------------------------------------------------------------------------------

struct Word {
    const char* text;
    int32_t value;
};

// The words of one type of parameter; they are read and printed through the same table.
struct WordTable {
    const char* type_name; // as the refusal calls it
    std::span<const Word> words;
    uint8_t room = 0; // a text of that many characters or more is refused before it is compared; 0: any length
};

// The room that every word of a type fits in, with its end: ten characters, or more in steps of ten.
constexpr uint8_t room_for(std::span<const Word> words)
{
    size_t room = 10;
    for (const Word& word : words) {
        size_t length = 0;
        while (word.text[length] != '\0')
            ++length;
        while (length >= room)
            room += 10;
    }
    return static_cast<uint8_t>(room);
}

extern const WordTable enable_disable;         // "enable" 1, "disable" 0
extern const WordTable enable_disable_capital; // the same as listings print it
extern const WordTable true_false;             // "true" 1, "false" 0

// The first equal word of the table wins.
bool read_word(vty* session, const char* text, const char* name, const WordTable& table, int32_t* value);

// T holds every value of the table.
template <class T>
bool read_word(vty* session, const char* text, const char* name, const WordTable& table, T* value)
{
    int32_t number;
    if (!read_word(session, text, name, table, &number)) return false;
    *value = static_cast<T>(number);
    return true;
}

// The word of a value, or "Invalid value".
const char* word_of(const WordTable& table, int32_t value);

// The one word of a text, copied. False with its line when there is none, or when it has size characters or more.
bool read_text(vty* session, const char* text, const char* name, char* copy, size_t size);

// --- Keys --------------------------------------------------------------------------------------------------------

// An encryption key of 128 bits, 32 hexadecimal digits; what follows them is not looked at.
bool read_encryption_key(vty* session, const char* text, uint8_t key[16]);

// --- Targets and addresses ---------------------------------------------------------------------------------------

// An OLT index. Whether that OLT exists is left to the SDK.
bool read_olt_id(vty* session, const char* text, int16_t* olt_id);

// A link's index, by the same rule.
bool read_llid(vty* session, const char* text, int16_t* llid);

enum { MAC_TEXT_LENGTH = 17 }; // "AA-BB-CC-DD-EE-FF"

enum class MacResult { Read, NotAWord, NotAnAddress };

// The one word of a text that is to be a MAC address, copied. False with its line when there is none, or when it is
// longer than an address.
bool read_mac_text(vty* session, const char* text, char copy[MAC_TEXT_LENGTH + 1]);

// The address that a text holds; what names it in the refusal of a malformed one. The text itself stays as it is.
bool parse_mac(vty* session, const char* text, const char* what, uint8_t mac[6]);

// Both. what names it in the refusal of a malformed one ("MAC address"). The text itself stays as typed.
MacResult read_mac(vty* session, const char* text, const char* what, uint8_t mac[6]);

// How commands refuse a link that is named by its ONU's MAC address.
struct AddressTerms {
    const char* which; // begins the line about an unknown address
    int malformed;     // what a handler returns for a malformed one
};

constexpr AddressTerms link_to_enter = {"", 0}; // a refusal is not a failed command
constexpr AddressTerms onu_to_enter = {"ONU with ", 0};
constexpr AddressTerms link_to_act_on = {"", -1};
constexpr AddressTerms onu_to_act_on = {"ONU with ", -1};

// The link that belongs to an ONU's MAC address on an OLT. On false the refusal is printed, naming the address as
// typed, and *result is what the handler returns.
bool read_link_by_mac(vty* session, int16_t olt_id, const char* text, const AddressTerms& terms, int16_t* link,
                      int* result);

// The arguments of a command with a global form, which begins with an OLT index, and a short form, which takes the OLT
// from the session. The forms differ in their number of arguments.
class OltArguments {
  public:
    OltArguments(vty* session, int argc, char** argv, int global_form_argc)
        : session_(session), words_(argv), is_global_(argc == global_form_argc)
    {
    }

    // False when the index could not be read; its line is printed.
    bool read_olt(int16_t* olt_id)
    {
        if (is_global_) return read_olt_id(session_, next(), olt_id);
        *olt_id = session_->olt_id;
        return true;
    }

    const char* next()
    {
        return *words_++;
    }

  private:
    vty* session_;
    char** words_;
    bool is_global_;
};

} // namespace epon
