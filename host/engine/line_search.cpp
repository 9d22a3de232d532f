// SPDX-License-Identifier: Apache-2.0
// Looking for an earlier line while typing a part of it: Ctrl-R, and once more for an older one. Enter executes what
// was found, Ctrl-G gives up; any other key takes the line and does to it what it always does.
#include "host/engine/line_editor.h"

namespace engine {
namespace {

constexpr std::size_t SOUGHT_LIMIT = 200;
constexpr unsigned char CTRL_G = 0x07, CTRL_H = 0x08, CTRL_R = 0x12, DEL = 0x7f;

} // namespace

void LineEditor::begin_search(std::string* echo)
{
    if (!shown()) return;
    erase(echo);
    search = Search{true, false, past.size(), "", text, at};
    draw(echo);
}

// True when the byte was for the search.
bool LineEditor::search_key(unsigned char byte, std::string* echo)
{
    std::size_t from = search.at == past.size() ? past.size() : search.at + 1;
    if (byte == CTRL_R) {
        from = search.at; // an older one
    } else if (byte >= 0x20 && byte < DEL) {
        if (search.sought.size() >= SOUGHT_LIMIT) return true;
        search.sought += static_cast<char>(byte);
    } else if ((byte == CTRL_H || byte == DEL) && !search.sought.empty()) {
        search.sought.pop_back();
        from = past.size();
    } else {
        bool given_up = byte == CTRL_G || byte == CTRL_H || byte == DEL;
        end_search(given_up, echo);
        return given_up;
    }
    erase(echo);
    look_back(from);
    draw(echo);
    return true;
}

// Shows the newest line before `end` that holds what is sought; when there is none, what is shown stays.
void LineEditor::look_back(std::size_t end)
{
    if (search.sought.empty()) {
        search.failed = false;
        return;
    }
    std::size_t found = past.find_back(search.sought, end);
    search.failed = found == past.size();
    if (search.failed) return;
    search.at = found;
    text = past[found];
    at = text.find(search.sought);
    overflow = foreign = false;
}

void LineEditor::end_search(bool given_up, std::string* echo)
{
    erase(echo);
    if (given_up) {
        text = search.line;
        at = search.cursor;
    } else if (search.at < past.size()) {
        past_at = search.at; // the vertical arrows go on from there
        draft = search.line;
    }
    search = Search{};
    draw(echo);
}

std::string LineEditor::shown_prompt() const
{
    if (!search.on) return prompt_text;
    return (search.failed ? "(no line with `" : "(search)`") + search.sought + (search.failed ? "') " : "': ");
}

} // namespace engine
