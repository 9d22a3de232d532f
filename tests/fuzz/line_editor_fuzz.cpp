// SPDX-License-Identifier: Apache-2.0
// Keys in any order. The first two bytes of the input choose the terminal; the rest is typed, once in one piece and
// once byte by byte: both give the same lines and the same screen text.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/engine/line_editor.h"
#include "tests/fuzz/require.h"

namespace {

constexpr std::string_view PROMPT = "LAB(config)# ";

struct Typed {
    std::vector<std::string> events; // what came of the keys: actions, with the line at that time
    std::string line;
    std::size_t cursor = 0;
};

bool is_continuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xc0U) == 0x80;
}

void check(const engine::LineEditor& editor)
{
    const std::string& line = editor.line();
    require(editor.cursor() <= line.size(), "the cursor is in the line");
    require(line.size() <= engine::LINE_LIMIT, "the line is bounded");
    require(editor.cursor() == line.size() || !is_continuation(line[editor.cursor()]), "between two characters");
    for (char byte : line)
        require((static_cast<unsigned char>(byte) >= 0x20 || byte == '\t') && byte != 0x7f, "the line is text");
    require(editor.history().size() <= engine::HISTORY_LINES, "the history is bounded");
}

void check_echo(const std::string& echo)
{
    for (char byte : echo) {
        auto code = static_cast<unsigned char>(byte);
        bool control = code < 0x20 || code == 0x7f;
        require(!control || code == '\b' || code == '\r' || code == '\n' || code == 0x1b || code == 0x07,
                "the screen gets text, movements and line ends");
    }
    for (std::string_view foreign : {"\x1b]", "\x1bP", "\x1b[6n", "\x1b[c"})
        require(echo.find(foreign) == std::string::npos, "and no sequence that was typed");
}

Typed type(std::string_view keys, std::size_t piece, const engine::LineEditor::Mode& mode, std::size_t width)
{
    engine::LineEditor editor;
    std::string ignored;
    editor.set_width(width, &ignored);
    editor.begin(PROMPT, mode);
    Typed typed;
    while (!keys.empty()) {
        std::string echo;
        auto [taken, action] = editor.feed(keys.substr(0, piece), &echo);
        require(taken > 0 && taken <= std::min(piece, keys.size()), "something is taken");
        keys.remove_prefix(taken);
        check(editor);
        check_echo(echo);
        if (action == engine::LineEditor::Action::None) continue;
        typed.events.push_back(std::to_string(static_cast<int>(action)) + (editor.refused() ? "!" : "") +
                               editor.line());
        echo.clear();
        if (action == engine::LineEditor::Action::Line || action == engine::LineEditor::Action::Interrupt) {
            if (action == engine::LineEditor::Action::Line && !editor.refused() && !editor.too_long() && !mode.secret)
                editor.remember(editor.line());
            editor.begin(PROMPT, mode);
        } else {
            editor.erase(&echo);
            if (action == engine::LineEditor::Action::Complete) editor.complete("tab ", &echo);
            editor.draw(&echo);
            check_echo(echo);
        }
    }
    typed.line = editor.line();
    typed.cursor = editor.cursor();
    return typed;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2) return 0;
    engine::LineEditor::Mode mode;
    mode.echo = (data[0] & 1U) == 0;
    mode.secret = (data[0] & 2U) != 0;
    mode.help = (data[0] & 4U) == 0;
    mode.plain = (data[0] & 8U) != 0;
    std::size_t width = data[1] < 20 ? 0 : data[1];
    std::string_view keys(reinterpret_cast<const char*>(data) + 2, size - 2);
    Typed whole = type(keys, keys.size() + 1, mode, width);
    Typed bytes = type(keys, 1, mode, width);
    require(whole.events == bytes.events, "pieces do not matter for what happens");
    require(whole.line == bytes.line && whole.cursor == bytes.cursor, "nor for the line");
    return 0;
}
