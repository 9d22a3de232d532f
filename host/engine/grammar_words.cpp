// SPDX-License-Identifier: Apache-2.0
// What a typed word may be for each kind of token: whole words when a line is matched, beginnings for completion.
#include "host/engine/grammar.h"

#include <algorithm>

#include "host/engine/grammar_words.h"

namespace engine {

namespace {

// Beyond every bound that a grammar may have; longer numbers stay here instead of overflowing.
constexpr std::uint64_t HUGE_NUMBER = std::uint64_t{1} << 59;
constexpr std::size_t DECIMAL_DIGITS = 18; // numbers of fewer digits stay below it

bool is_hex_digit(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

bool is_digit(char c)
{
    return c >= '0' && c <= '9';
}

unsigned digit_value(char c)
{
    if (is_digit(c)) return static_cast<unsigned>(c - '0');
    return static_cast<unsigned>((c | 0x20) - 'a') + 10;
}

// One or more digits of the base and nothing else.
inline bool read_digits(std::string_view digits, unsigned base, std::uint64_t* value)
{
    if (digits.empty()) return false;
    std::uint64_t result = 0;
    if (base == 10 && digits.size() < DECIMAL_DIGITS) {
        for (char c : digits) {
            if (!is_digit(c)) return false;
            result = result * 10 + static_cast<unsigned>(c - '0');
        }
        *value = result;
        return true;
    }
    for (char c : digits) {
        if (!(base == 10 ? is_digit(c) : is_hex_digit(c))) return false;
        result = std::min(result * base + digit_value(c), HUGE_NUMBER);
    }
    *value = result;
    return true;
}

bool is_negative(std::string_view text)
{
    return !text.empty() && text[0] == '-';
}

bool has_hex_mark(std::string_view text)
{
    return text.size() >= 2 && text[0] == '0' && text[1] == 'x';
}

// A bound of a range that read_bounds has accepted once; *at is then behind the character that ends it.
std::int64_t known_decimal(const char** at)
{
    const char* digit = *at;
    bool negative = *digit == '-';
    if (negative) digit++;
    std::int64_t value = 0;
    for (; is_digit(*digit); digit++)
        value = value * 10 + (*digit - '0');
    *at = digit + 1;
    return negative ? -value : value;
}

std::int64_t known_hexadecimal(const char** at)
{
    if ((*at)[1] != 'x') return known_decimal(at);
    std::int64_t value = 0;
    const char* digit = *at + 2;
    for (; is_hex_digit(*digit); digit++)
        value = value * 16 + digit_value(*digit);
    *at = digit + 1;
    return value;
}

Bounds known_bounds(WordKind kind, std::string_view form)
{
    const char* at = form.data() + 1;
    auto bound = kind == WordKind::Hexadecimal ? known_hexadecimal : known_decimal;
    std::int64_t min = bound(&at);
    return {min, bound(&at), kind == WordKind::Hexadecimal};
}

bool in_hexadecimal_range(std::string_view form, std::string_view word)
{
    Bounds bounds = known_bounds(WordKind::Hexadecimal, form);
    bool marked = has_hex_mark(word);
    std::uint64_t magnitude;
    if (!read_digits(word.substr(marked ? 2 : 0), marked ? 16 : 10, &magnitude)) return false;
    auto value = static_cast<std::int64_t>(magnitude);
    return value >= bounds.min && value <= bounds.max;
}

// Whether the digits typed so far, or more digits behind them, make a number of min..max.
bool digits_may_reach(std::string_view digits, unsigned base, std::int64_t min, std::int64_t max)
{
    min = std::max<std::int64_t>(min, 0);
    if (max < min) return false;
    if (digits.empty()) return true;
    std::uint64_t value;
    if (!read_digits(digits, base, &value)) return false;
    std::uint64_t lowest = value;
    std::uint64_t highest = value;
    while (lowest <= static_cast<std::uint64_t>(max)) {
        if (highest >= static_cast<std::uint64_t>(min)) return true;
        lowest *= base;
        highest = highest * base + base - 1;
    }
    return false;
}

bool may_become_number(WordKind kind, std::string_view form, std::string_view partial)
{
    Bounds bounds = known_bounds(kind, form);
    if (kind == WordKind::Hexadecimal) {
        if (partial == "0") return true;
        if (has_hex_mark(partial)) return digits_may_reach(partial.substr(2), 16, bounds.min, bounds.max);
    }
    if (is_negative(partial)) {
        return bounds.min < 0 && digits_may_reach(partial.substr(1), 10, -bounds.max, -bounds.min);
    }
    return digits_may_reach(partial, 10, bounds.min, bounds.max);
}

bool is_byte(std::string_view field)
{
    std::uint64_t value = 0;
    if (field.size() > 3 || (field.size() > 1 && field[0] == '0')) return false;
    return read_digits(field, 10, &value) && value <= 255;
}

bool is_hex_field(std::string_view field, std::size_t digits)
{
    return !field.empty() && field.size() <= digits && std::all_of(field.begin(), field.end(), is_hex_digit);
}

// `count` fields between separators. Of a word that is still being typed the last field may be empty and the fields
// after it missing.
template <typename FieldTest>
bool is_fields(std::string_view word, std::size_t count, char separator, bool whole, FieldTest field_test)
{
    for (std::size_t field = 1;; field++) {
        std::size_t end = word.find(separator);
        if (end == std::string_view::npos) {
            if (!whole && word.empty()) return true;
            return field_test(word) && (!whole || field == count);
        }
        if (field == count || !field_test(word.substr(0, end))) return false;
        word.remove_prefix(end + 1);
    }
}

bool is_ipv4(std::string_view word, bool whole)
{
    return is_fields(word, 4, '.', whole, is_byte);
}

bool is_hex_groups(std::string_view word, std::size_t count, bool whole)
{
    return is_fields(word, count, ':', whole, [](std::string_view field) { return is_hex_field(field, 4); });
}

bool is_mac(std::string_view word)
{
    return is_fields(word, 6, '-', true, [](std::string_view field) { return is_hex_field(field, 2); });
}

bool has_nul(std::string_view word)
{
    return word.find('\0') != std::string_view::npos;
}

Fit fit_when(bool fits)
{
    return fits ? Fit::Value : Fit::None;
}

} // namespace

bool read_bounds(std::string_view form, Bounds* bounds)
{
    if (form.size() < 5 || form.front() != '<' || form.back() != '>') return false;
    form = form.substr(1, form.size() - 2);
    std::size_t dash = form.find('-', 1);
    if (dash == std::string_view::npos) return false;
    auto read_bound = [bounds](std::string_view text, std::int64_t* value) {
        std::uint64_t magnitude;
        bool hexadecimal = has_hex_mark(text);
        bool negative = is_negative(text);
        bounds->hexadecimal |= hexadecimal;
        if (!read_digits(text.substr(hexadecimal ? 2 : negative ? 1 : 0), hexadecimal ? 16 : 10, &magnitude))
            return false;
        *value = negative ? -static_cast<std::int64_t>(magnitude) : static_cast<std::int64_t>(magnitude);
        return magnitude < HUGE_NUMBER;
    };
    bounds->hexadecimal = false;
    return read_bound(form.substr(0, dash), &bounds->min) && read_bound(form.substr(dash + 1), &bounds->max) &&
           bounds->min <= bounds->max;
}

bool is_only_typed_in_full(std::string_view form)
{
    constexpr std::string_view DIGITS = "0123456789";
    constexpr std::string_view MAC_CHARACTERS = "0123456789abcdefABCDEF-";
    constexpr std::size_t MAC_LENGTH = 17;
    if (form.find_first_not_of(DIGITS) == std::string_view::npos) return true;
    return form.size() == MAC_LENGTH && form[2] == '-' && form.find_first_not_of(MAC_CHARACTERS) == form.npos;
}

bool in_decimal_range(std::string_view form, std::string_view word)
{
    const char* at = form.data() + 1;
    std::int64_t min = known_decimal(&at);
    std::int64_t max = known_decimal(&at);
    bool negative = min < 0 && is_negative(word);
    if (negative) word.remove_prefix(1);
    std::uint64_t magnitude = 0;
    if (!read_digits(word, 10, &magnitude)) return false;
    auto value = static_cast<std::int64_t>(magnitude);
    if (negative) value = -value;
    return value >= min && value <= max;
}

Fit text_fit(WordKind kind, std::string_view form, std::string_view word)
{
    if (word.empty()) return Fit::None;
    switch (kind) {
    case WordKind::Keyword:
    case WordKind::Decimal:
        break;
    case WordKind::Variable:
        return has_nul(word) ? Fit::None : Fit::Variable;
    case WordKind::Hexadecimal:
        return fit_when(in_hexadecimal_range(form, word));
    case WordKind::Ipv4:
        return fit_when(is_ipv4(word, true));
    case WordKind::HexGroups4:
        return fit_when(is_hex_groups(word, 4, true));
    case WordKind::HexGroups8:
        return fit_when(is_hex_groups(word, 8, true));
    case WordKind::Mac:
        if (is_mac(word)) return Fit::Value;
        return has_nul(word) ? Fit::None : Fit::Variable;
    }
    return Fit::None;
}

bool may_become(WordKind kind, std::string_view form, std::string_view partial)
{
    if (partial.empty()) return true;
    switch (kind) {
    case WordKind::Keyword:
        return form.starts_with(partial);
    case WordKind::Variable:
    case WordKind::Mac:
        return !has_nul(partial);
    case WordKind::Decimal:
    case WordKind::Hexadecimal:
        return may_become_number(kind, form, partial);
    case WordKind::Ipv4:
        return is_ipv4(partial, false);
    case WordKind::HexGroups4:
        return is_hex_groups(partial, 4, false);
    case WordKind::HexGroups8:
        return is_hex_groups(partial, 8, false);
    }
    return false;
}

} // namespace engine
