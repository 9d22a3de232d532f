// SPDX-License-Identifier: Apache-2.0
#include "host/engine/pager.h"

#include <algorithm>

#include "host/engine/large_text.h"
#include "host/engine/line_editor.h"

namespace engine {
namespace {

constexpr char CTRL_C = 0x03, CTRL_D = 0x04, BACKSPACE = 0x08, CTRL_U = 0x15, ESC = 0x1b, DEL = 0x7f;
constexpr std::string_view SEARCH_PROMPT = "/";

std::string_view without_end(std::string_view line)
{
    return line.substr(0, std::min(line.find_first_of("\r\n"), line.size()));
}

std::size_t columns_of_line(std::string_view line)
{
    return columns_of(without_end(line));
}

} // namespace

void Pager::begin(std::size_t rows, std::size_t columns)
{
    drop();
    page_rows = 0;
    resize(rows, columns);
    room = page_rows;
}

void Pager::off()
{
    page_rows = 0;
}

// The last row is for the prompt.
void Pager::resize(std::size_t rows, std::size_t columns)
{
    page_rows = rows == 0 ? 0 : std::max<std::size_t>(rows - 1, 1);
    width = columns;
}

void Pager::print(std::string_view text, std::string* screen)
{
    if (page_rows == 0) {
        *screen += text;
        return;
    }
    while (held.empty() && !text.empty()) {
        std::size_t size = std::min(text.find('\n'), text.size() - 1) + 1;
        std::string_view piece = text.substr(0, size);
        if (column == 0 && rows_of(columns_of_line(piece)) > room && room < page_rows) break;
        screen->append(piece);
        column += columns_of_line(piece);
        if (piece.back() == '\n') {
            room -= std::min(room, rows_of(column));
            column = 0;
        }
        text.remove_prefix(size);
    }
    if (text.empty()) return;
    if (left_out > 0 || held.size() + text.size() > PAGER_HOLD) {
        left_out += static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
        return;
    }
    append_to_large(text, &held);
}

void Pager::end(std::string* screen)
{
    if (held_at < held.size()) ask(screen);
}

std::size_t Pager::feed(std::string_view bytes, std::string* screen)
{
    std::size_t taken = 0;
    while (asked && taken < bytes.size()) {
        char byte = bytes[taken++];
        if (in_sequence) {
            // The introducers "[" and "O" are part of the sequence, its final byte is the first other letter or "~".
            in_sequence = byte == '[' || byte == 'O' || byte == ';' || (byte >= '0' && byte <= '9');
        } else if (searching) {
            search_key(byte, screen);
        } else {
            key(byte, screen);
        }
    }
    return taken;
}

void Pager::key(char byte, std::string* screen)
{
    switch (byte) {
    case ' ':
    case 'f':
        unask(screen);
        show_lines(page_rows, screen);
        return;
    case '\r':
    case '\n':
        unask(screen);
        show_lines(1, screen);
        return;
    case 'q':
    case 'Q':
    case CTRL_C:
    case CTRL_D:
        unask(screen);
        drop();
        return;
    case '/':
        unask(screen);
        searching = asked = true;
        sought.clear();
        *screen += SEARCH_PROMPT;
        prompt_size = SEARCH_PROMPT.size();
        return;
    case ESC:
        in_sequence = true;
        return;
    default:
        return;
    }
}

void Pager::search_key(char byte, std::string* screen)
{
    bool has_text = !sought.empty();
    switch (byte) {
    case '\r':
    case '\n':
        unask(screen);
        search(screen);
        return;
    case BACKSPACE:
    case DEL:
        if (has_text) {
            sought.pop_back();
            *screen += "\b \b";
            --prompt_size;
            return;
        }
        [[fallthrough]];
    case CTRL_C:
    case CTRL_U:
        unask(screen);
        ask(screen);
        return;
    case ESC:
        in_sequence = true;
        return;
    default:
        if (byte < ' ' || byte > '~' || sought.size() >= PATTERN_LIMIT || (width > 0 && prompt_size + 1 >= width))
            return;
        sought += byte;
        *screen += byte;
        ++prompt_size;
    }
}

// Goes on with the first held line that matches. Without a text it looks for the last one again.
void Pager::search(std::string* screen)
{
    std::string reason;
    if (!sought.empty() && !pattern.compile(sought, &reason)) {
        screen->append("% Wrong regular expression: ").append(reason).append(".\r\n");
        ask(screen);
        return;
    }
    std::size_t at = held_at;
    while (at < held.size()) {
        std::size_t size = std::min(held.find('\n', at), held.size() - 1) + 1 - at;
        std::string_view line = std::string_view(held).substr(at, size);
        if (pattern.found_in(without_end(line))) break;
        at += size;
    }
    if (at >= held.size()) {
        *screen += "% Not found in what is left.\r\n";
        ask(screen);
        return;
    }
    if (at > held_at) *screen += "...\r\n";
    held_at = at;
    show_lines(page_rows, screen);
}

void Pager::release(std::string* screen)
{
    if (!asked) return;
    unask(screen);
    page_rows = 0;
    show_lines(0, screen);
}

// Shows lines that take up to that many rows, at least one line, and asks again when more are held.
void Pager::show_lines(std::size_t rows, std::string* screen)
{
    std::size_t from = held_at;
    std::size_t shown = 0;
    while (held_at < held.size()) {
        std::size_t size = std::min(held.find('\n', held_at), held.size() - 1) + 1 - held_at;
        shown += rows_of(columns_of_line(std::string_view(held).substr(held_at, size)));
        if (page_rows > 0 && shown > rows && held_at > from) break;
        held_at += size;
    }
    screen->append(held, from, held_at - from);
    if (held_at < held.size()) {
        ask(screen);
        return;
    }
    if (left_out > 0)
        screen->append("% The answer is too long to wait for keys: ")
            .append(std::to_string(left_out))
            .append(left_out == 1 ? " more line was left out.\r\n" : " more lines were left out.\r\n");
    drop();
}

void Pager::ask(std::string* screen)
{
    asked = true;
    searching = false;
    std::string_view text = width == 0 || width > PAGER_PROMPT.size() ? PAGER_PROMPT : PAGER_SHORT_PROMPT;
    *screen += text;
    prompt_size = text.size();
}

void Pager::unask(std::string* screen)
{
    *screen += '\r';
    screen->append(prompt_size, ' ');
    *screen += '\r';
    asked = searching = false;
}

void Pager::drop()
{
    std::string().swap(held);
    held_at = left_out = column = prompt_size = 0;
    asked = searching = in_sequence = false;
}

std::size_t Pager::rows_of(std::size_t columns) const
{
    return width == 0 || columns == 0 ? 1 : (columns + width - 1) / width;
}

} // namespace engine
