// SPDX-License-Identifier: Apache-2.0
// The line editor: bytes in; line, cursor, actions and screen text out.
#include "host/engine/line_editor.h"

#include <gtest/gtest.h>

using engine::LineEditor;
using Action = LineEditor::Action;

namespace {

struct Typed {
    std::string line, echo;
    std::size_t cursor = 0;
    std::vector<Action> actions;
};

// Types bytes in pieces of the given size; after a complete line the editor is left as it is.
Typed type(LineEditor& editor, std::string_view bytes, std::size_t piece = 1000)
{
    Typed result;
    while (!bytes.empty()) {
        std::string_view part = bytes.substr(0, piece);
        auto [taken, action] = editor.feed(part, &result.echo);
        bytes.remove_prefix(taken);
        if (action != Action::None) result.actions.push_back(action);
        if (action == Action::Line) break;
    }
    result.line = editor.line();
    result.cursor = editor.cursor();
    return result;
}

LineEditor editor_with(const LineEditor::Mode& mode = {}, std::size_t width = 0)
{
    LineEditor editor;
    editor.reset();
    std::string ignored;
    editor.set_width(width, &ignored);
    editor.begin("> ", mode);
    return editor;
}

// A screen of endless width, or one that wraps as terminals do, to see what the operator sees.
std::string screen(std::string_view text, std::size_t width = 0)
{
    std::vector<std::string> rows(1);
    std::size_t row = 0, column = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char c = text[i];
        if (c == '\r') {
            column = 0;
        } else if (c == '\n') {
            if (++row == rows.size()) rows.emplace_back();
        } else if (c == '\b') {
            if (width > 0 && column == width) column = width - 1;
            if (column > 0) --column;
        } else if (c == 0x1b) {
            std::size_t end = text.find_first_of("ACHJ", i);
            std::size_t count = std::max(1, atoi(std::string(text.substr(i + 2, end - i - 2)).c_str()));
            if (text[end] == 'A') row -= std::min(row, count);
            if (text[end] == 'C') column += count;
            if (text[end] == 'H') row = column = 0;
            if (text[end] == 'J') {
                rows[row].resize(std::min(rows[row].size(), column));
                rows.resize(row + 1);
            }
            i = end;
        } else {
            if (width > 0 && column == width) {
                column = 0;
                if (++row == rows.size()) rows.emplace_back();
            }
            if (rows[row].size() <= column) rows[row].resize(column + 1, ' ');
            rows[row][column++] = c;
        }
    }
    std::string all;
    for (std::string& line : rows) {
        while (!line.empty() && line.back() == ' ')
            line.pop_back();
        all += line + '\n';
    }
    while (all.ends_with("\n\n"))
        all.pop_back();
    return all;
}

struct Row {
    const char* name;
    std::string_view bytes;
    const char* line;
    std::size_t cursor;
    const char* seen; // the screen behind the prompt "> "
};

using namespace std::string_view_literals;

const Row rows[] = {
    {"plain", "show olt"sv, "show olt", 8, "> show olt\n"},
    {"backspace", "shoe\bw"sv, "show", 4, "> show\n"},
    {"delete byte", "shoe\x7fw"sv, "show", 4, "> show\n"},
    {"backspace at start", "\b\bx"sv, "x", 1, "> x\n"},
    {"insert in the middle", "shw\x1b[Do"sv, "show", 3, "> show\n"},
    {"remove in the middle", "shxow\x1b[D\x1b[D\b"sv, "show", 2, "> show\n"},
    {"left beyond start", "a\x1b[D\x1b[D\x1b[Db"sv, "ba", 1, "> ba\n"},
    {"right beyond end", "a\x1b[C\x1b[C"sv, "a", 1, "> a\n"},
    {"home and end", "bc\x1b[Ha\x1b[Fd"sv, "abcd", 4, "> abcd\n"},
    {"home and end, other terminals", "bc\x1bOHa\x1bOFd\x1b[1~_\x1b[4~."sv, "_abcd.", 6, "> _abcd.\n"},
    {"ctrl-A and ctrl-E",
     "bc\x01"
     "a\x05"
     "d"sv,
     "abcd", 4, "> abcd\n"},
    {"ctrl-B and ctrl-F",
     "ac\x02"
     "b\x06"
     "d"sv,
     "abcd", 4, "> abcd\n"},
    {"delete key", "abc\x1b[D\x1b[D\x1b[3~"sv, "ac", 1, "> ac\n"},
    {"ctrl-D inside", "abc\x01\x04"sv, "bc", 0, "> bc\n"},
    {"ctrl-U", "some thing\x15next"sv, "next", 4, "> next\n"},
    {"ctrl-U in the middle", "abcd\x1b[D\x15"sv, "d", 0, "> d\n"},
    {"ctrl-K", "abcd\x01\x06\x0b"sv, "a", 1, "> a\n"},
    {"ctrl-W", "show olt  one  \x17"sv, "show olt  ", 10, "> show olt\n"},
    {"word moves",
     "one two three\x1b"
     "b\x1b"
     "bX\x1b"
     "fY"sv,
     "one XtwoY three", 9, "> one XtwoY three\n"},
    {"word moves by arrows", "one two three\x1b[1;5D\x1b[1;5DX\x1b[1;5CY\x1b[1;3C\x1b[1;3CZ"sv, "one XtwoY threeZ", 16,
     "> one XtwoY threeZ\n"},
    {"words erased",
     "one two three\x1b"
     "b\x1b"
     "b\x1b"
     "d\x1b\x7fx"sv,
     "x three", 1, "> x three\n"},
    {"what was erased comes back", "one two\x17\x01\x19 "sv, "two one ", 4, "> two one\n"},
    {"ctrl-V makes a key a character", "ab\x16?c\x16?"sv, "ab?c?", 5, "> ab?c?\n"},
    {"ctrl-V before a control byte", "ab\x16\bc"sv, "ac", 2, "> ac\n"},
    {"ctrl-W on one word", "show\x17"sv, "", 0, ">\n"},
    {"NUL ignored", "sh\0ow"sv, "show", 4, "> show\n"},
    {"control bytes ignored", "s\x07h\x0eo\x1dw"sv, "show", 4, "> show\n"},
    {"unknown sequences ignored", "s\x1b[200~h\x1b[1;5Xo\x1bqw\x1b[15~"sv, "show", 4, "> show\n"},
    {"sequence cut by a control byte", "ab\x1b[\bc"sv, "ac", 2, "> ac\n"},
    {"UTF-8", "\xc3\xa4x\x1b[D\bb"sv, "bx", 1, "> bx\n"},
};

} // namespace

TEST(LineEditor, EditsAsTheTableSays)
{
    for (const Row& row : rows) {
        for (std::size_t piece : {1000, 1}) {
            SCOPED_TRACE(std::string(row.name) + ", pieces of " + std::to_string(piece));
            LineEditor editor = editor_with();
            Typed typed = type(editor, row.bytes, piece);
            EXPECT_EQ(typed.line, row.line);
            EXPECT_EQ(typed.cursor, row.cursor);
            EXPECT_FALSE(editor.refused());
            EXPECT_TRUE(typed.actions.empty());
            if (row.bytes.find('\xc3') == std::string_view::npos) {
                EXPECT_EQ(screen("> " + typed.echo), row.seen);
            }
        }
    }
}

TEST(LineEditor, NeedsNoEscapeSequencesWithoutTerminal)
{
    for (const Row& row : rows) {
        LineEditor editor = editor_with();
        Typed typed = type(editor, row.bytes);
        std::string more;
        editor.erase(&more);
        editor.draw(&more);
        EXPECT_EQ((typed.echo + more).find('\x1b'), std::string::npos) << row.name;
    }
}

TEST(LineEditor, EndsLinesInEveryWay)
{
    LineEditor editor = editor_with();
    for (std::string_view ends : {"\r"sv, "\n"sv}) {
        std::string bytes = "a" + std::string(ends) + "b" + std::string(ends);
        std::string lines, echo;
        for (std::string_view rest = bytes; !rest.empty();) {
            auto [taken, action] = editor.feed(rest, &echo);
            rest.remove_prefix(taken);
            if (action != Action::Line) continue;
            lines += editor.line() + ';';
            editor.begin("> ", {});
        }
        EXPECT_EQ(lines, "a;b;");
        EXPECT_EQ(echo, "a\r\nb\r\n");
    }
}

TEST(LineEditor, TakesAnEmptyLineForEachLineEnd)
{
    LineEditor editor = editor_with();
    std::string echo;
    int lines = 0;
    for (std::string_view rest = "\r\r\n"sv; !rest.empty();) {
        auto [taken, action] = editor.feed(rest, &echo);
        rest.remove_prefix(taken);
        lines += action == Action::Line;
    }
    EXPECT_EQ(lines, 3);
}

TEST(LineEditor, AsksForActions)
{
    struct {
        std::string_view bytes;
        Action action;
    } const cases[] = {{"sh?", Action::Help},   {"sh\t", Action::Complete}, {"sh\x03", Action::Interrupt},
                       {"\x04", Action::Leave}, {"sh\x0c", Action::Redraw}, {"sh\r", Action::Line}};
    for (const auto& row : cases) {
        LineEditor editor = editor_with();
        Typed typed = type(editor, row.bytes);
        ASSERT_EQ(typed.actions.size(), 1U);
        EXPECT_EQ(typed.actions[0], row.action);
        EXPECT_EQ(typed.line, row.bytes.starts_with("sh") ? "sh" : "");
    }
}

TEST(LineEditor, LeavesAnInterruptedLineReadable)
{
    LineEditor editor = editor_with();
    Typed typed = type(editor, "show\x1b[D\x1b[D\x03"sv);
    EXPECT_EQ(typed.actions, std::vector<Action>{Action::Interrupt});
    EXPECT_EQ(screen("> " + typed.echo), "> show^C\n");
}

TEST(LineEditor, KeepsAPasswordFromTheScreenAndTheHistory)
{
    LineEditor editor = editor_with({.secret = true});
    editor.remember("earlier");
    editor.begin("Password: ", {.secret = true});
    Typed typed = type(editor, "a?b\x1b[A\b\bc\tx\r"sv);
    EXPECT_EQ(typed.line, "ac\tx");
    EXPECT_EQ(typed.echo, "\r\n");
    EXPECT_EQ(typed.actions, std::vector<Action>{Action::Line});
}

TEST(LineEditor, StaysSilentWithoutEcho)
{
    LineEditor editor = editor_with({.echo = false});
    Typed typed = type(editor, "show\tolt\n"sv);
    EXPECT_EQ(typed.line, "show olt");
    EXPECT_EQ(typed.echo, "");

    editor.begin("> ", {.echo = false});
    typed = type(editor, "show ?more?\n"sv);
    EXPECT_EQ(typed.actions, (std::vector<Action>{Action::Help, Action::Line}));
    EXPECT_EQ(typed.line, "") << "a line that asked for help is not executed";
}

TEST(LineEditor, WalksTheHistory)
{
    LineEditor editor = editor_with();
    for (const char* line : {"first", "second", "second", ""})
        editor.remember(line);
    ASSERT_EQ(editor.history().size(), 2U);
    struct {
        std::string_view bytes;
        const char* line;
    } const steps[] = {{"draft\x1b[A", "second"}, {"\x1b[A", "first"}, {"\x1b[A", "first"},
                       {"\x1b[B", "second"},      {"\x1b[B", "draft"}, {"\x1b[B", "draft"},
                       {"\x10", "second"},        {"!\x10", "first"},  {"\x0e\x0e", "draft"}};
    std::string echo = "> ";
    for (const auto& step : steps) {
        Typed typed = type(editor, step.bytes);
        echo += typed.echo;
        EXPECT_EQ(typed.line, step.line);
        EXPECT_EQ(screen(echo), std::string("> ") + step.line + "\n");
    }
}

TEST(LineEditor, BoundsTheHistory)
{
    LineEditor editor = editor_with();
    for (int i = 0; i < 300; ++i)
        editor.remember("line " + std::to_string(i));
    EXPECT_EQ(editor.history().size(), engine::HISTORY_LINES);
    EXPECT_EQ(editor.history().front(), "line 100");
    for (int i = 0; i < 10; ++i)
        editor.remember(std::string(engine::LINE_LIMIT, static_cast<char>('a' + i)));
    EXPECT_EQ(editor.history().size(), engine::HISTORY_BYTES / engine::LINE_LIMIT);
}

TEST(LineEditor, MarksALineThatIsTooLong)
{
    LineEditor editor = editor_with();
    Typed typed = type(editor, std::string(engine::LINE_LIMIT, 'a') + "\r");
    EXPECT_FALSE(editor.too_long());
    EXPECT_EQ(typed.line.size(), engine::LINE_LIMIT);
    editor.begin("> ", {});
    typed = type(editor, std::string(engine::LINE_LIMIT + 1, 'a') + "\r");
    EXPECT_TRUE(editor.too_long());
    editor.begin("> ", {});
    type(editor, std::string(engine::LINE_LIMIT - 1, 'a') + "\xc3\xa4\r");
    EXPECT_TRUE(editor.too_long());
    EXPECT_EQ(editor.line().size(), engine::LINE_LIMIT - 1) << "no half characters";
    editor.begin("> ", {});
    type(editor, "b\r");
    EXPECT_FALSE(editor.too_long());
}

TEST(LineEditor, RefusesBytesThatAreNoPrintableText)
{
    for (std::string_view bytes : {"a\xff"sv, "a\x80z"sv, "\xc3("sv, "\xc0\xaf"sv, "\xc2\x9b[A"sv, "\xed\xa0\x80"sv,
                                   "\xe2\x80\xae"sv, "\xf4\x90\x80\x80"sv, "\xf5\x80\x80\x80"sv, "\xe0\x80\x80"sv,
                                   "\xe2\x82\r"sv, "\xef\xbf\xbf"sv, "\xef\xbb\xbf"sv}) {
        for (std::size_t piece : {1, 100}) {
            LineEditor editor = editor_with();
            Typed typed = type(editor, bytes, piece);
            EXPECT_TRUE(editor.refused());
            for (char c : typed.echo)
                EXPECT_LT(static_cast<unsigned char>(c), 0x80);
        }
    }
    for (std::string_view bytes : {"\xc3\xa4"sv, "\xe2\x82\xac"sv, "\xf0\x9f\x98\x80"sv}) {
        LineEditor editor = editor_with();
        EXPECT_EQ(type(editor, bytes, 1).echo, bytes);
        EXPECT_FALSE(editor.refused());
        EXPECT_EQ(type(editor, "\b").line, "");
    }
}

TEST(LineEditor, TakesTheLineOffTheScreenAndPutsItBack)
{
    for (std::size_t width : {0, 20}) {
        for (std::size_t length : {0, 3, 17, 18, 19, 38, 45}) {
            for (std::size_t left : {0, 1, 5, 30}) {
                if (width == 0 && length > 38) continue;
                SCOPED_TRACE(std::to_string(width) + " " + std::to_string(length) + " " + std::to_string(left));
                LineEditor editor = editor_with({}, width);
                std::string text(length, 'x');
                for (std::size_t i = 0; i < length; ++i)
                    text[i] = static_cast<char>('a' + i % 26);
                std::string keys = text;
                for (std::size_t i = 0; i < left; ++i)
                    keys += "\x1b[D";
                std::string seen = "> " + type(editor, keys).echo;
                editor.erase(&seen);
                EXPECT_EQ(screen(seen, width), "\n");
                seen += "event\r\n";
                editor.draw(&seen);
                seen += type(editor, "*").echo;
                std::string expected = text;
                expected.insert(length - std::min(left, length), "*");
                expected = "> " + expected;
                std::string wrapped = "event\n";
                for (std::size_t i = 0; i<expected.size(); i += width> 0 ? width : expected.size())
                    wrapped += expected.substr(i, width > 0 ? width : std::string::npos) + "\n";
                if (length == 0) wrapped = "event\n> *\n";
                EXPECT_EQ(screen(seen, width), wrapped);
            }
        }
    }
}

TEST(LineEditor, EditsAcrossRows)
{
    LineEditor editor = editor_with({}, 20);
    std::string seen = "> " + type(editor, "abcdefghijklmnopqrstuvwxyz").echo;
    seen += type(editor, "\x01_\x05\b!\x01\x06\x06\x04\x02.").echo;
    EXPECT_EQ(editor.line(), "_.acdefghijklmnopqrstuvwxy!");
    EXPECT_EQ(screen(seen, 20), "> _.acdefghijklmnopq\nrstuvwxy!\n");
    seen += type(editor, "\x05\x15short").echo;
    EXPECT_EQ(screen(seen, 20), "> short\n");
}

TEST(LineEditor, BoundsTheEchoOfOneCall)
{
    LineEditor editor = editor_with();
    type(editor, std::string(10000, 'a'));
    std::string keys, echo;
    for (int i = 0; i < 1000; ++i)
        keys += "\x01"
                "b";
    auto [taken, action] = editor.feed(keys, &echo);
    EXPECT_LT(taken, 10U);
    EXPECT_EQ(action, Action::None);
    EXPECT_LT(echo.size(), 100000U);
}

// --- Looking for an earlier line ----------------------------------------------------------------------------------

namespace {

LineEditor editor_with_history(std::size_t width = 0)
{
    LineEditor editor = editor_with({}, width);
    for (const char* line : {"show olt version", "olt 0", "show history", "exit"})
        editor.remember(line);
    editor.begin("> ", {});
    return editor;
}

} // namespace

TEST(LineSearch, FindsEarlierLines)
{
    struct {
        std::string_view bytes;
        const char* line;
        std::size_t cursor;
        const char* seen;
    } const cases[] = {
        {"\x12", "", 0, "(search)`':\n"},
        {"typed\x12", "typed", 5, "(search)`': typed\n"},
        {"\x12sh", "show history", 0, "(search)`sh': show history\n"},
        {"\x12hist", "show history", 5, "(search)`hist': show history\n"},
        {"\x12show\x12", "show olt version", 0, "(search)`show': show olt version\n"},
        {"\x12show\x12\x12", "show olt version", 0, "(no line with `show') show olt version\n"},
        {"\x12olt", "olt 0", 0, "(search)`olt': olt 0\n"},
        {"\x12olt v", "show olt version", 5, "(search)`olt v': show olt version\n"},
        {"\x12olt v\b\b", "olt 0", 0, "(search)`olt': olt 0\n"},
        {"x\x12zzz", "x", 1, "(no line with `zzz') x\n"},
        {"\x12hist\x1b[Cx", "show hxistory", 7, "> show hxistory\n"},
        {"\x12hist\x05x", "show historyx", 13, "> show historyx\n"},
        {"typed\x12hist\x07", "typed", 5, "> typed\n"},
        {"typed\x02\x12hist\x07x", "typexd", 5, "> typexd\n"},
        {"typed\x12\x7f", "typed", 5, "> typed\n"},
        {"\x12olt v\x1b[B", "olt 0", 5, "> olt 0\n"}, // the arrows go on from there
    };
    for (const auto& row : cases) {
        for (std::size_t width : {0, 80, 12}) {
            LineEditor editor = editor_with_history(width);
            Typed typed = type(editor, row.bytes, 1);
            EXPECT_EQ(typed.line, row.line) << row.seen;
            EXPECT_EQ(typed.cursor, row.cursor) << row.seen;
            EXPECT_TRUE(typed.actions.empty());
            if (width == 12) continue; // wrapped; its rows are looked at below
            EXPECT_EQ(screen("> " + typed.echo, width), row.seen) << width;
        }
    }
}

TEST(LineSearch, ExecutesWhatItFound)
{
    LineEditor editor = editor_with_history();
    Typed typed = type(editor, "\x12show o\r");
    EXPECT_EQ(typed.actions, std::vector<Action>{Action::Line});
    EXPECT_EQ(typed.line, "show olt version");
    EXPECT_EQ(screen("> " + typed.echo), "> show olt version\n") << "behind the prompt, as if typed";
    editor.begin("> ", {});
    typed = type(editor, "\x12show o\t");
    EXPECT_EQ(typed.actions, std::vector<Action>{Action::Complete});
    editor.begin("> ", {});
    typed = type(editor, "\x12show?");
    EXPECT_TRUE(typed.actions.empty()) << "\"?\" is looked for, too";
    editor.begin("> ", {});
    EXPECT_EQ(type(editor, "\x12show\x03").actions, std::vector<Action>{Action::Interrupt});
}

TEST(LineSearch, IsNotForPasswordsNorForPrograms)
{
    for (LineEditor::Mode mode : {LineEditor::Mode{.secret = true}, LineEditor::Mode{.echo = false}}) {
        LineEditor editor = editor_with_history();
        editor.begin("> ", mode);
        Typed typed = type(editor, "a\x12show");
        EXPECT_EQ(typed.line, "ashow");
        EXPECT_EQ(typed.echo, "");
    }
}

TEST(LineSearch, DrawsWrappedRows)
{
    for (std::size_t width = 5; width < 40; ++width) {
        LineEditor editor = editor_with_history(width);
        std::string seen = "above\r\n> ";
        seen += type(editor, "\x12show", 1).echo;
        std::string expected = "above\r\n(search)`show': show history\r" + std::string(0, ' ');
        EXPECT_EQ(screen(seen, width), screen(expected, width)) << width;
        seen += type(editor, "\x07", 1).echo;
        EXPECT_EQ(screen(seen, width), screen("above\r\n> ", width)) << width;
    }
}

// --- The screen ---------------------------------------------------------------------------------------------------

TEST(LineScreen, FollowsTheWidthOfTheTerminal)
{
    // A terminal whose rows stay as they are when it grows.
    LineEditor editor = editor_with({}, 20);
    std::string seen = "above\r\n> ";
    seen += type(editor, "a line that is longer than twenty").echo;
    std::string before = screen(seen, 20);
    std::string redrawn;
    editor.set_width(60, &redrawn);
    EXPECT_EQ(redrawn, "\r\x1b[J> a line that is longer than twenty") << "nothing above may be lost";
    redrawn.clear();
    editor.set_width(60, &redrawn);
    EXPECT_EQ(redrawn, "") << "no change";
    // From then on the new width counts.
    std::string more = "> a line that is longer than twenty" + type(editor, "\x01").echo;
    EXPECT_EQ(more.find('\x1b'), std::string::npos) << "one row";
    redrawn.clear();
    editor.set_width(30, &redrawn);
    EXPECT_TRUE(redrawn.starts_with("\r\x1b[J> a line")) << redrawn;
    redrawn.clear();
    editor.begin("> ", {});
    type(editor, "short");
    editor.set_width(10, &redrawn);
    EXPECT_EQ(redrawn, "") << "a short line stays where it is";
    editor.set_width(0, &redrawn);
    EXPECT_EQ(redrawn, "");
}

TEST(LineScreen, IsCleared)
{
    LineEditor editor = editor_with({}, 20);
    std::string echo = "rows\r\nabove\r\n> " + type(editor, "abc\x02").echo;
    editor.clear_screen(&echo);
    EXPECT_EQ(screen(echo, 20), "> abc\n");
    LineEditor plain = editor_with();
    type(plain, "abc");
    echo.clear();
    plain.clear_screen(&echo);
    EXPECT_EQ(echo.find('\x1b'), std::string::npos) << "no sequences for who did not tell a size";
}

TEST(LineScreen, TakesCompletionsInTheMiddle)
{
    LineEditor editor = editor_with();
    std::string echo;
    type(editor, "sh olt\x1b[D\x1b[D\x1b[D\x1b[D");
    editor.complete("ow ", &echo);
    EXPECT_EQ(editor.line(), "show olt") << "one blank only";
    EXPECT_EQ(editor.cursor(), 5U);
    editor.complete("my", &echo);
    EXPECT_EQ(editor.line(), "show myolt");
}
