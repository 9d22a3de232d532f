// SPDX-License-Identifier: Apache-2.0
// Line editing. On a terminal that told its width the cursor may climb rows with escape sequences; any other client
// gets nothing but text, backspaces, blanks and line ends.
#include "host/engine/line_editor.h"

#include <algorithm>
#include <cstdint>

namespace engine {
namespace {

constexpr std::size_t ECHO_STRETCH = 16 * 1024; // redrawing a long line for every byte of a flood stays bounded
constexpr std::size_t UNKNOWN_WIDTH = 80;       // assumed where a client did not tell

constexpr unsigned char ctrl(char letter)
{
    return static_cast<unsigned char>(letter & 0x1f);
}
constexpr unsigned char ESC = 0x1b, DEL = 0x7f;

bool is_continuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xc0) == 0x80;
}

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

std::size_t columns_of(std::string_view text)
{
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return !is_continuation(c); }));
}

void LineEditor::begin(std::size_t prompt_columns, const Mode& new_mode)
{
    mode = new_mode;
    prompt_width = prompt_columns;
    text.clear();
    if (text.capacity() > LINE_LIMIT / 4) text.shrink_to_fit();
    at = 0;
    wrap_pending = screen_width > 0 && prompt_columns > 0 && prompt_columns % screen_width == 0;
    overflow = foreign = discarding = false;
    sequence.clear();
    past_at = past.size();
    draft.clear();
}

void LineEditor::set_echo(bool echo)
{
    mode.echo = echo;
}

void LineEditor::set_width(std::size_t columns)
{
    if (columns == screen_width) return;
    screen_width = columns;
    wrap_pending = columns > 0 && column(at) > 0 && column(at) % columns == 0;
}

void LineEditor::reset()
{
    past.clear();
    past_bytes = 0;
    screen_width = 0;
    escape_state = Escape::None;
    begin(0, Mode{});
    text.shrink_to_fit();
}

LineEditor::Fed LineEditor::feed(std::string_view bytes, std::string* echo)
{
    std::size_t i = 0;
    const std::size_t stretch_end = echo->size() + ECHO_STRETCH;
    while (i < bytes.size()) {
        if (echo->size() >= stretch_end) return {i, Action::None};
        auto byte = static_cast<unsigned char>(bytes[i]);
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
        remove(0, at, echo);
        return Action::None;
    case ctrl('K'):
        remove(at, text.size(), echo);
        return Action::None;
    case ctrl('W'): {
        std::size_t from = at;
        while (from > 0 && text[from - 1] == ' ')
            --from;
        while (from > 0 && text[from - 1] != ' ')
            --from;
        remove(from, at, echo);
        return Action::None;
    }
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
        escape_number = 0;
        escape_state = byte == '[' ? Escape::Csi : byte == 'O' ? Escape::Ss3 : Escape::None;
        return;
    case Escape::Csi:
        if (byte >= '0' && byte <= '9') {
            escape_number = std::min(escape_number * 10 + (byte - '0'), 1000U);
            return;
        }
        if (byte < 0x40) return; // further parameters
        escape_state = Escape::None;
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

void LineEditor::cursor_key(unsigned char final_byte, std::string* echo)
{
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

LineEditor::Action LineEditor::end_line(std::string* echo)
{
    if (!sequence.empty()) foreign = true;
    sequence.clear();
    if (mode.echo) {
        if (shown()) move_to(text.size(), echo);
        *echo += "\r\n";
    }
    if (discarding) {
        text.clear();
        at = 0;
        overflow = foreign = discarding = false;
    }
    return Action::Line;
}

void LineEditor::insert(std::string_view piece, std::string* echo)
{
    if (discarding || piece.empty()) return;
    std::size_t room = LINE_LIMIT - text.size();
    if (piece.size() > room) {
        overflow = true;
        while (room > 0 && is_continuation(piece[room]))
            --room;
        piece = piece.substr(0, room);
        if (piece.empty()) return;
    }
    text.insert(at, piece);
    at += piece.size();
    if (!shown()) return;
    put(piece, column(at), echo);
    if (at == text.size()) return;
    put(std::string_view(text).substr(at), column(text.size()), echo);
    move_back(column(text.size()), column(at), echo);
}

// Takes [from, to) out of the line and leaves the cursor where the gap closed.
void LineEditor::remove(std::size_t from, std::size_t to, std::string* echo)
{
    if (from == to) return;
    std::size_t gone = columns_of(std::string_view(text).substr(from, to - from));
    if (shown() && at > from) move_back(column(at), column(from), echo);
    text.erase(from, to - from);
    at = from;
    if (!shown()) return;
    std::string rest = text.substr(at) + std::string(gone, ' ');
    put(rest, column(text.size()) + gone, echo);
    move_back(column(text.size()) + gone, column(at), echo);
}

void LineEditor::replace(std::string line, std::string* echo)
{
    std::size_t before = columns_of(text);
    if (shown()) move_back(column(at), column(0), echo);
    text = std::move(line);
    at = text.size();
    overflow = foreign = false;
    if (!shown()) return;
    put(text, column(at), echo);
    std::size_t now = columns_of(text);
    if (now >= before) return;
    put(std::string(before - now, ' '), prompt_width + before, echo);
    move_back(prompt_width + before, column(at), echo);
}

void LineEditor::walk_history(int step, std::string* echo)
{
    if (mode.secret || (step < 0 ? past_at == 0 : past_at == past.size())) return;
    if (past_at == past.size()) draft = text;
    past_at += static_cast<std::size_t>(step);
    replace(past_at == past.size() ? draft : past[past_at], echo);
}

void LineEditor::remember(std::string_view line)
{
    if (line.empty() || line.size() > HISTORY_BYTES || (!past.empty() && past.back() == line)) return;
    past.emplace_back(line);
    past_bytes += line.size();
    while (past.size() > HISTORY_LINES || past_bytes > HISTORY_BYTES) {
        past_bytes -= past.front().size();
        past.pop_front();
    }
    past_at = past.size();
}

void LineEditor::erase(std::string* echo)
{
    std::size_t end = column(text.size());
    if (!mode.echo || (screen_width == 0 && end >= UNKNOWN_WIDTH)) {
        *echo += "\r\n";
    } else if (screen_width == 0) {
        *echo += '\r';
        echo->append(mode.secret ? prompt_width : end, ' ');
        *echo += '\r';
    } else {
        move_back(mode.secret ? prompt_width : column(at), 0, echo);
        *echo += "\r\x1b[J";
    }
    wrap_pending = false;
}

void LineEditor::redraw(std::string_view prompt, std::string* echo)
{
    prompt_width = columns_of(prompt);
    put(prompt, prompt_width, echo);
    if (!shown()) return;
    put(text, column(text.size()), echo);
    if (at < text.size()) move_back(column(text.size()), column(at), echo);
}

std::size_t LineEditor::column(std::size_t offset) const
{
    return prompt_width + columns_of(std::string_view(text).substr(0, offset));
}

std::size_t LineEditor::previous(std::size_t offset) const
{
    do
        --offset;
    while (offset > 0 && is_continuation(text[offset]));
    return offset;
}

std::size_t LineEditor::next(std::size_t offset) const
{
    do
        ++offset;
    while (offset < text.size() && is_continuation(text[offset]));
    return offset;
}

// Prints text that ends in the given column, counted from the start of the prompt.
void LineEditor::put(std::string_view piece, std::size_t end_column, std::string* echo)
{
    if (piece.empty()) return;
    *echo += piece;
    wrap_pending = screen_width > 0 && end_column > 0 && end_column % screen_width == 0;
}

void LineEditor::move_back(std::size_t from, std::size_t to, std::string* echo)
{
    if (wrap_pending) *echo += " \r"; // makes the terminal really begin the next row
    wrap_pending = false;
    if (from <= to) return;
    if (screen_width == 0 || from / screen_width == to / screen_width) {
        echo->append(from - to, '\b');
        return;
    }
    *echo += "\r\x1b[" + std::to_string(from / screen_width - to / screen_width) + 'A';
    if (to % screen_width > 0) *echo += "\x1b[" + std::to_string(to % screen_width) + 'C';
}

void LineEditor::move_to(std::size_t offset, std::string* echo)
{
    if (shown()) {
        if (offset < at)
            move_back(column(at), column(offset), echo);
        else if (offset > at)
            put(std::string_view(text).substr(at, offset - at), column(offset), echo);
    }
    at = offset;
}

} // namespace engine
