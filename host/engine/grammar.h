// SPDX-License-Identifier: Apache-2.0
// The grammar of one command: its string and help lines parsed once into a compact list of tokens, and the rule of
// what a typed word may be for each kind of token.
//
//   keyword            set, 10g, cni_dp0-tx-pkt   has a lower-case letter or begins with a digit
//   variable           OLT_INDEX                  any one word
//   range              <0-255> <-5-10> <0x0-0xff>
//   address            A.B.C.D  A:B:C:D  A:B:C:D:E:F:G:H  XXXX:XXXX:... (8)  AA-BB-CC-DD-EE-FF
//   alternatives       (enable|<0-62>|VALUE)      one word; blanks and tabs beside its members do not count
//
// Words are separated by blanks and tabs. A word glued to a closing parenthesis is the next word.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include <epon/engine.h>

namespace engine {

enum class WordKind : std::uint8_t {
    Keyword,
    Variable,
    Decimal,     // decimal text only: a handler that converts decimally never sees "0x10"
    Hexadecimal, // "0x" text and decimal text: a handler that insists on "0x" says so itself
    Ipv4,
    HexGroups4,
    HexGroups8,
    Mac // any one word, the handler explains what is wrong with it
};

// How closely a typed word fits a token; a smaller value is the closer fit.
enum class Fit : std::uint8_t { ExactKeyword, KeywordPrefix, Value, Variable, None };

// One keyword, variable, range or address: a word of its own or one alternative of a group. Offsets count from the
// element's own string, which is neither copied nor changed.
struct Token {
    std::uint16_t offset;
    std::uint8_t length;
    WordKind kind;
    bool in_group;
    bool last_of_word;
};

// Who brought a command: the command library, the engine itself or the host ("simulate ...").
enum class Origin : std::uint8_t { Library, Engine, Host };

// The parsed form of one element, shared by all nodes it is installed in and kept for the life of the process. The
// tokens follow the record.
struct Grammar {
    cmd_element* element;
    const char* text; // element->string
    std::uint16_t token_count;
    std::uint16_t word_count;
    Origin origin;

    const Token* tokens() const
    {
        return reinterpret_cast<const Token*>(this + 1);
    }
    const Token& token(std::size_t index) const
    {
        return tokens()[index];
    }
    std::string_view form(std::size_t index) const
    {
        const Token& at = token(index);
        return {text + at.offset, at.length};
    }
    // Its help: the line of its word, or what that says about this alternative.
    std::string_view help(std::size_t index) const;
    // First token after the word that the token belongs to.
    std::size_t after_word(std::size_t index) const
    {
        while (!token(index).last_of_word)
            index++;
        return index + 1;
    }
    // First token of the word that the token belongs to.
    std::size_t word_start(std::size_t index) const
    {
        while (index > 0 && !token(index - 1).last_of_word)
            index--;
        return index;
    }
    // Whether a variable is among the alternatives that the keyword belongs to. Then it is typed in full: "no" is a
    // password, even where "none" may be typed instead of one.
    bool stands_beside_variable(std::size_t index) const
    {
        std::size_t end = after_word(index);
        for (index = word_start(index); index < end; index++)
            if (token(index).kind == WordKind::Variable) return true;
        return false;
    }
};

// Parses the element on its first installation, fills its cmdsize and strvec, and returns the parsed form. Null with a
// text when the grammar is malformed or its help lines do not match its words; the element is then left as it was.
const Grammar* grammar_of(cmd_element* element, Origin origin, std::string* error);

// Whether a keyword is a number or a MAC address: the beginning of one is another value, not a short spelling of it.
bool is_only_typed_in_full(std::string_view form);

// Words are short: looking at them here costs less than a call.
inline bool same_text(std::string_view a, std::string_view b)
{
    if (a.size() != b.size()) return false;
    std::size_t at = 0;
    for (std::uint32_t part_a, part_b; at + sizeof part_a <= a.size(); at += sizeof part_a) {
        std::memcpy(&part_a, a.data() + at, sizeof part_a);
        std::memcpy(&part_b, b.data() + at, sizeof part_b);
        if (part_a != part_b) return false;
    }
    for (; at < a.size(); at++)
        if (a[at] != b[at]) return false;
    return true;
}

inline Fit keyword_fit(std::string_view form, std::string_view word)
{
    if (word.empty() || !same_text(form.substr(0, word.size()), word)) return Fit::None;
    if (form.size() == word.size()) return Fit::ExactKeyword;
    return is_only_typed_in_full(form) ? Fit::None : Fit::KeywordPrefix;
}

// Whether the word is a number within the range.
bool in_decimal_range(std::string_view form, std::string_view word);

// How a typed word fits a variable, an address or a hexadecimal range.
Fit text_fit(WordKind kind, std::string_view form, std::string_view word);

// The same as for keywords for variables, ranges and addresses.
inline Fit value_fit(WordKind kind, std::string_view form, std::string_view word)
{
    if (kind != WordKind::Decimal) return text_fit(kind, form, word);
    return in_decimal_range(form, word) ? Fit::Value : Fit::None;
}

// How a typed word fits a token. An empty word and one that holds a NUL fit nothing.
inline Fit fit_of(WordKind kind, std::string_view form, std::string_view word)
{
    return kind == WordKind::Keyword ? keyword_fit(form, word) : value_fit(kind, form, word);
}

// The same for a token of a grammar.
inline Fit fit_of(const Grammar& grammar, std::size_t token, std::string_view word)
{
    Fit fit = fit_of(grammar.token(token).kind, grammar.form(token), word);
    return fit == Fit::KeywordPrefix && grammar.stands_beside_variable(token) ? Fit::None : fit;
}

// Whether more typing can still make a fitting word of `partial`.
bool may_become(WordKind kind, std::string_view form, std::string_view partial);

} // namespace engine
