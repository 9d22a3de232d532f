// SPDX-License-Identifier: Apache-2.0
// The line and its picture on the screen. On a terminal that told its width the cursor may climb rows with escape
// sequences; any other client gets nothing but text, backspaces, blanks and line ends.
#include "host/engine/line_editor.h"

#include <algorithm>

namespace engine {
namespace {

constexpr std::size_t UNKNOWN_WIDTH = 80; // assumed where a client did not tell

bool is_continuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xc0) == 0x80;
}

} // namespace

void LineEditor::begin(std::string_view prompt, const Mode& new_mode)
{
    mode = new_mode;
    prompt_text = prompt;
    prompt_width = columns_of(prompt);
    text.clear();
    if (text.capacity() > LINE_LIMIT / 4) text.shrink_to_fit();
    at = 0;
    wrap_pending = screen_width > 0 && prompt_width > 0 && prompt_width % screen_width == 0;
    overflow = foreign = discarding = quoted = false;
    sequence.clear();
    search = Search{};
    past_at = past.size();
    draft.clear();
}

void LineEditor::set_echo(bool echo)
{
    mode.echo = echo;
}

void LineEditor::set_width(std::size_t columns, std::string* echo)
{
    if (columns == screen_width) return;
    std::size_t longest = column(text.size());
    bool wraps = screen_width > 0 && columns > 0 && longest >= std::min(screen_width, columns);
    if (!shown() || !wraps) {
        screen_width = columns;
        wrap_pending = columns > 0 && column(at) > 0 && column(at) % columns == 0;
        return;
    }
    // Some terminals lay their rows out anew, others do not. Of the rows that the line may reach up, only those are
    // taken that are its own on both kinds, so that nothing above is lost.
    go_to_start(std::min(here() / screen_width, here() / columns), echo);
    screen_width = columns;
    draw(echo);
}

void LineEditor::reset()
{
    past.clear();
    killed.clear();
    screen_width = 0;
    escape_state = Escape::None;
    begin("", Mode{});
    text.shrink_to_fit();
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
    std::size_t end = column(text.size());
    if (shown() && at > from) move_back(column(at), column(from), echo);
    text.erase(from, to - from);
    at = from;
    if (!shown()) return;
    std::string rest = text.substr(at);
    rest.append(end - column(text.size()), ' ');
    put(rest, end, echo);
    move_back(end, column(at), echo);
}

// The same, to be put back by Ctrl-Y.
void LineEditor::kill(std::size_t from, std::size_t to, std::string* echo)
{
    if (from == to) return;
    if (!mode.secret) killed = text.substr(from, to - from);
    remove(from, to, echo);
}

void LineEditor::replace(std::string line, std::string* echo)
{
    std::size_t before = column(text.size());
    if (shown()) move_back(column(at), column(0), echo);
    text = std::move(line);
    at = text.size();
    overflow = foreign = false;
    if (!shown()) return;
    put(text, column(at), echo);
    std::size_t now = column(text.size());
    if (now >= before) return;
    put(std::string(before - now, ' '), before, echo);
    move_back(before, column(at), echo);
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
    past.add(line);
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
        go_to_start(std::min(here(), mode.secret ? prompt_width : here()) / screen_width, echo);
    }
    wrap_pending = false;
}

void LineEditor::draw(std::string* echo)
{
    std::string prompt = shown_prompt();
    prompt_width = columns_of(prompt);
    put(prompt, prompt_width, echo);
    if (!shown()) return;
    put(text, column(text.size()), echo);
    if (at < text.size()) move_back(column(text.size()), column(at), echo);
}

void LineEditor::clear_screen(std::string* echo)
{
    if (screen_width > 0)
        *echo += "\x1b[H\x1b[2J";
    else
        erase(echo);
    draw(echo);
}

void LineEditor::complete(std::string_view piece, std::string* echo)
{
    bool has_blank = at < text.size() && text[at] == ' ';
    bool skips = has_blank && piece.ends_with(' ');
    insert(skips ? piece.substr(0, piece.size() - 1) : piece, echo);
    if (skips) move_to(at + 1, echo);
}

std::size_t LineEditor::column(std::size_t offset) const
{
    return column_behind(prompt_width, std::string_view(text).substr(0, offset), screen_width);
}

std::size_t LineEditor::previous(std::size_t offset) const
{
    do
        --offset;
    while (offset > 0 && is_continuation(text[offset]));
    return offset;
}

std::size_t LineEditor::word_before(std::size_t offset) const
{
    while (offset > 0 && text[offset - 1] == ' ')
        --offset;
    while (offset > 0 && text[offset - 1] != ' ')
        --offset;
    return offset;
}

std::size_t LineEditor::word_behind(std::size_t offset) const
{
    while (offset < text.size() && text[offset] == ' ')
        ++offset;
    while (offset < text.size() && text[offset] != ' ')
        ++offset;
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

// Where the cursor is, counted from the start of the prompt; behind a full row it hangs on that row's last column.
std::size_t LineEditor::here() const
{
    return column(at) - (wrap_pending ? 1 : 0);
}

// Climbs to the row of the prompt and clears the screen from there.
void LineEditor::go_to_start(std::size_t rows, std::string* echo)
{
    *echo += '\r';
    if (rows > 0) *echo += "\x1b[" + std::to_string(rows) + 'A';
    *echo += "\x1b[J";
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
