// SPDX-License-Identifier: Apache-2.0
// Bounded buffer of event lines: when it is full, whole lines are lost, never parts of one.
#include "host/engine/event_buffer.h"

#include <algorithm>

namespace engine {

void EventBuffer::add(std::string_view piece)
{
    if (dropping) {
        std::size_t end = piece.find('\n');
        if (end == std::string_view::npos) return;
        dropping = false;
        ++dropped;
        piece.remove_prefix(end + 1);
    }
    if (text.size() + piece.size() > EVENT_LIMIT) {
        text.resize(complete); // the line that this piece would have continued is lost as well
        dropped += static_cast<std::size_t>(std::count(piece.begin(), piece.end(), '\n'));
        dropping = !piece.empty() && piece.back() != '\n';
        return;
    }
    std::size_t end = piece.rfind('\n');
    if (end != std::string_view::npos) complete = text.size() + end + 1;
    text += piece;
}

std::string EventBuffer::take_lines(std::string_view newline)
{
    std::string lines;
    if (complete == text.size()) {
        lines.swap(text);
    } else {
        lines = text.substr(0, complete);
        text.erase(0, complete);
    }
    complete = 0;
    if (dropped > 0) {
        lines += '[' + std::to_string(dropped) + (dropped == 1 ? " event line dropped]" : " event lines dropped]");
        lines += newline;
        dropped = 0;
    }
    return lines;
}

std::string EventBuffer::take_all(std::string_view newline)
{
    std::string all = take_lines(newline);
    all += text;
    text.clear();
    return all;
}

void EventBuffer::clear()
{
    text.clear();
    text.shrink_to_fit();
    complete = 0;
    dropped = 0;
    dropping = false;
}

} // namespace engine
