// SPDX-License-Identifier: Apache-2.0
// What each byte means to the line.
#include <algorithm>
#include <cstdint>
#include <utility>

#include "host/engine/line_editor.h"

namespace engine {
namespace {

constexpr std::size_t ECHO_STRETCH = 16 * 1024; // redrawing a long line for every byte of a flood stays bounded

constexpr unsigned char ctrl(char letter)
{
    return static_cast<unsigned char>(letter & 0x1f);
}
constexpr unsigned char ESC = 0x1b, DEL = 0x7f;

bool is_plain(char byte)
{
    return byte >= 0x20 && byte < 0x7f;
}

// Length of the UTF-8 character that the byte begins; 0 when none does.
std::size_t sequence_length(unsigned char lead)
{
    if (lead >= 0xc2 && lead <= 0xdf) return 2;
    if (lead >= 0xe0 && lead <= 0xef) return 3;
    if (lead >= 0xf0 && lead <= 0xf4) return 4;
    return 0;
}

// Whether a complete sequence is a character that a terminal may be shown: no overlong form, no surrogate, no C1
// control, no mark that is invisible or changes the direction of writing.
bool is_printable(std::string_view sequence)
{
    auto code = static_cast<std::uint32_t>(static_cast<unsigned char>(sequence[0]) & (0x7f >> sequence.size()));
    for (char byte : sequence.substr(1))
        code = code << 6 | (static_cast<unsigned char>(byte) & 0x3f);
    static constexpr std::uint32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    if (code < smallest[sequence.size()] || code > 0x10ffff) return false;
    struct Refused {
        std::uint32_t from, to;
    };
    static constexpr Refused refused[] = {{0x80, 0x9f},     {0xad, 0xad},     {0x61c, 0x61c},    {0x200b, 0x200f},
                                          {0x2028, 0x202e}, {0x2060, 0x206f}, {0xd800, 0xdfff},  {0xfdd0, 0xfdef},
                                          {0xfeff, 0xfeff}, {0xfff9, 0xfffb}, {0xe0000, 0xe0fff}};
    return std::none_of(std::begin(refused), std::end(refused),
                        [code](const Refused& range) { return code >= range.from && code <= range.to; }) &&
           (code & 0xfffe) != 0xfffe;
}

} // namespace

LineEditor::Fed LineEditor::feed(std::string_view bytes, std::string* echo)
{
    std::size_t i = 0;
    const std::size_t stretch_end = echo->size() + ECHO_STRETCH;
    while (i < bytes.size()) {
        if (echo->size() >= stretch_end) return {i, Action::None};
        auto byte = static_cast<unsigned char>(bytes[i]);
        if (search.on && search_key(byte, echo)) {
            ++i;
            continue;
        }
        if (quoted) {
            quoted = false;
            if (is_plain(bytes[i])) {
                insert(bytes.substr(i++, 1), echo);
                continue;
            }
        }
        bool asks_help = mode.help && !mode.secret;
        if (escape_state == Escape::None && sequence.empty() && is_plain(bytes[i]) && !(byte == '?' && asks_help)) {
            std::size_t end = i + 1;
            while (end < bytes.size() && is_plain(bytes[end]) && !(bytes[end] == '?' && asks_help))
                ++end;
            insert(bytes.substr(i, end - i), echo);
            i = end;
            continue;
        }
        ++i;
        Action action = control(byte, echo);
        if (action != Action::None) return {i, action};
    }
    return {i, Action::None};
}

LineEditor::Action LineEditor::control(unsigned char byte, std::string* echo)
{
    if (!sequence.empty() || byte >= 0x80) {
        bool broken = byte < 0x80; // the sequence ends early; the byte keeps its own meaning
        non_ascii(byte, echo);
        if (!broken) return Action::None;
    }
    if (mode.plain && byte != '\r' && byte != '\n' && byte != '\t') {
        foreign = true;
        return Action::None;
    }
    if (escape_state != Escape::None && byte >= 0x20) {
        escape(byte, echo);
        return Action::None;
    }
    escape_state = Escape::None; // a control byte ends a sequence and means what it always means
    if (byte >= 0x20 && byte < DEL) {
        if (byte == '?' && mode.help && !mode.secret) {
            if (discarding) return Action::None;
            discarding = !mode.echo;
            return Action::Help;
        }
        char plain = static_cast<char>(byte);
        insert({&plain, 1}, echo);
        return Action::None;
    }
    switch (byte) {
    case '\r':
    case '\n':
        return end_line(echo);
    case '\t':
        if (mode.echo && !mode.secret) return Action::Complete;
        insert(mode.secret ? "\t" : " ", echo);
        return Action::None;
    case ESC:
        escape_state = Escape::Start;
        return Action::None;
    case ctrl('H'):
    case DEL:
        if (at > 0) remove(previous(at), at, echo);
        return Action::None;
    case ctrl('A'):
        move_to(0, echo);
        return Action::None;
    case ctrl('E'):
        move_to(text.size(), echo);
        return Action::None;
    case ctrl('B'):
        if (at > 0) move_to(previous(at), echo);
        return Action::None;
    case ctrl('F'):
        if (at < text.size()) move_to(next(at), echo);
        return Action::None;
    case ctrl('P'):
        walk_history(-1, echo);
        return Action::None;
    case ctrl('N'):
        walk_history(1, echo);
        return Action::None;
    case ctrl('U'):
        kill(0, at, echo);
        return Action::None;
    case ctrl('K'):
        kill(at, text.size(), echo);
        return Action::None;
    case ctrl('W'):
        kill(word_before(at), at, echo);
        return Action::None;
    case ctrl('Y'):
        insert(killed, echo);
        return Action::None;
    case ctrl('V'):
        quoted = true;
        return Action::None;
    case ctrl('R'):
        begin_search(echo);
        return Action::None;
    case ctrl('C'):
        if (shown()) move_to(text.size(), echo); // the line stays readable
        if (mode.echo) *echo += "^C\r\n";
        return Action::Interrupt;
    case ctrl('D'):
        if (text.empty()) {
            if (mode.echo) *echo += "\r\n";
            return Action::Leave;
        }
        if (at < text.size()) remove(at, next(at), echo);
        return Action::None;
    case ctrl('L'):
        return Action::Redraw;
    default:
        return Action::None;
    }
}

void LineEditor::escape(unsigned char byte, std::string* echo)
{
    switch (escape_state) {
    case Escape::Start:
        escape_number = escape_modifier = 0;
        escape_state = byte == '[' ? Escape::Csi : byte == 'O' ? Escape::Ss3 : Escape::None;
        if (escape_state == Escape::None) word_key(byte, echo);
        return;
    case Escape::Csi:
        if (byte >= '0' && byte <= '9') {
            escape_modifier = std::min(escape_modifier * 10 + (byte - '0'), 1000U);
            return;
        }
        if (byte == ';') {
            escape_number = std::exchange(escape_modifier, 0);
            return;
        }
        if (byte < 0x40) return; // further parameters
        escape_state = Escape::None;
        if (escape_number == 0) std::swap(escape_number, escape_modifier); // there was one number only
        if (byte != '~')
            cursor_key(byte, echo);
        else if (escape_number == 1 || escape_number == 7)
            cursor_key('H', echo);
        else if (escape_number == 4 || escape_number == 8)
            cursor_key('F', echo);
        else if (escape_number == 3 && at < text.size())
            remove(at, next(at), echo);
        return;
    default:
        escape_state = Escape::None;
        cursor_key(byte, echo);
        return;
    }
}

// The keys that terminals send with ESC in front: Alt and a letter.
void LineEditor::word_key(unsigned char byte, std::string* echo)
{
    switch (byte) {
    case 'b':
        move_to(word_before(at), echo);
        return;
    case 'f':
        move_to(word_behind(at), echo);
        return;
    case 'd':
        kill(at, word_behind(at), echo);
        return;
    case DEL:
        kill(word_before(at), at, echo);
        return;
    default:
        return;
    }
}

void LineEditor::cursor_key(unsigned char final_byte, std::string* echo)
{
    constexpr unsigned ALT = 3, CTRL = 5; // "ESC [ 1 ; 5 C" is Ctrl and the right arrow
    unsigned modifier = std::exchange(escape_modifier, 0);
    bool by_word = modifier == CTRL || modifier == ALT;
    if (by_word && (final_byte == 'C' || final_byte == 'D')) {
        word_key(final_byte == 'C' ? 'f' : 'b', echo);
        return;
    }
    static constexpr struct {
        unsigned char final_byte;
        char control;
    } keys[] = {{'A', 'P'}, {'B', 'N'}, {'C', 'F'}, {'D', 'B'}, {'H', 'A'}, {'F', 'E'}};
    for (const auto& key : keys)
        if (key.final_byte == final_byte) control(ctrl(key.control), echo);
}

void LineEditor::non_ascii(unsigned char byte, std::string* echo)
{
    bool continuation = (byte & 0xc0) == 0x80;
    if (!sequence.empty() && !continuation) {
        foreign = true;
        sequence.clear();
    }
    if (byte < 0x80) return;
    if (sequence.empty() && sequence_length(byte) == 0) {
        foreign = true;
        return;
    }
    sequence += static_cast<char>(byte);
    if (sequence.size() < sequence_length(static_cast<unsigned char>(sequence[0]))) return;
    if (is_printable(sequence))
        insert(std::string(sequence), echo);
    else
        foreign = true;
    sequence.clear();
}

} // namespace engine
