// SPDX-License-Identifier: Apache-2.0
// How much of a row a text takes. The C library would have to be asked with a locale that a board need not have, so
// the ranges are written down here.
#include "host/engine/columns.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace engine {
namespace {

struct Range {
    char32_t first, last;
    std::uint8_t columns;
};

// In order. Every other character takes one column.
constexpr Range ranges[] = {
    {0x0300, 0x036F, 0},   // combining marks
    {0x0483, 0x0489, 0},   // of Cyrillic
    {0x0591, 0x05BD, 0},   // of Hebrew
    {0x0610, 0x061A, 0},   // of Arabic
    {0x064B, 0x065F, 0},   // of Arabic
    {0x1100, 0x115F, 2},   // Hangul
    {0x200B, 0x200F, 0},   // joiners and marks of direction
    {0x20D0, 0x20F0, 0},   // combining marks of symbols
    {0x231A, 0x231B, 2},   // watches
    {0x2E80, 0x303E, 2},   // radicals and punctuation of Chinese and Japanese
    {0x3041, 0x33FF, 2},   // Hiragana, Katakana and their symbols
    {0x3400, 0x4DBF, 2},   // ideographs
    {0x4E00, 0x9FFF, 2},   // ideographs
    {0xA000, 0xA4CF, 2},   // Yi
    {0xA960, 0xA97F, 2},   // Hangul
    {0xAC00, 0xD7A3, 2},   // Hangul
    {0xF900, 0xFAFF, 2},   // ideographs
    {0xFE00, 0xFE0F, 0},   // selectors of a variant
    {0xFE20, 0xFE2F, 0},   // combining marks
    {0xFE30, 0xFE6F, 2},   // upright and small forms
    {0xFF01, 0xFF60, 2},   // full-width forms
    {0xFFE0, 0xFFE6, 2},   // full-width signs
    {0x1F300, 0x1F64F, 2}, // pictures
    {0x1F680, 0x1F6FF, 2}, // pictures
    {0x1F900, 0x1F9FF, 2}, // pictures
    {0x20000, 0x3FFFD, 2}, // ideographs
    {0xE0100, 0xE01EF, 0}, // selectors of a variant
};

std::size_t columns_of_character(char32_t code)
{
    if (code < ranges[0].first) return 1;
    const Range* at = std::lower_bound(std::begin(ranges), std::end(ranges), code,
                                       [](const Range& range, char32_t sought) { return range.last < sought; });
    return at != std::end(ranges) && code >= at->first ? at->columns : 1;
}

bool is_continuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

static_assert(std::is_sorted(std::begin(ranges), std::end(ranges),
                             [](const Range& a, const Range& b) { return a.last < b.first; }));

// Takes the first character off the text.
char32_t take_character(std::string_view* text)
{
    constexpr unsigned char lead_bits[] = {0x7F, 0x1F, 0x0F, 0x07}; // by the number of bytes that follow
    std::size_t size = 1;
    while (size < text->size() && is_continuation((*text)[size]))
        ++size;
    char32_t code = static_cast<unsigned char>((*text)[0]) & lead_bits[std::min<std::size_t>(size - 1, 3)];
    for (std::size_t i = 1; i < size; ++i)
        code = code << 6 | (static_cast<unsigned char>((*text)[i]) & 0x3FU);
    text->remove_prefix(size);
    return code;
}

// Looks at eight bytes at a time.
std::size_t leading_ascii(std::string_view text)
{
    std::size_t at = 0;
    for (std::uint64_t part; at + sizeof part <= text.size(); at += sizeof part) {
        std::memcpy(&part, text.data() + at, sizeof part);
        if ((part & 0x8080808080808080) != 0) break;
    }
    while (at < text.size() && static_cast<signed char>(text[at]) >= 0)
        ++at;
    return at;
}

} // namespace

std::size_t column_behind(std::size_t column, std::string_view text, std::size_t row)
{
    while (!text.empty()) {
        if (std::size_t size = leading_ascii(text); size > 0) { // most texts are nothing else
            column += size;
            text.remove_prefix(size);
            continue;
        }
        if (is_continuation(text[0])) { // the rest of a character that was counted with the text before
            text.remove_prefix(1);
            continue;
        }
        std::size_t columns = columns_of_character(take_character(&text));
        if (columns == 2 && row > 1 && column % row == row - 1) ++column; // it does not fit, and begins the next row
        column += columns;
    }
    return column;
}

std::size_t columns_of(std::string_view text)
{
    return column_behind(0, text, 0);
}

} // namespace engine
