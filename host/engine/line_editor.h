// SPDX-License-Identifier: Apache-2.0
// The line that an operator types: bytes in, actions and screen text out. It reads and writes nothing itself.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "host/engine/columns.h"
#include "host/engine/history.h"

namespace engine {

// Longest line, in bytes. A longer one is taken to its end and refused as a whole.
constexpr std::size_t LINE_LIMIT = 16384;

// Bytes that mean something: printable ASCII and printable UTF-8 are inserted; CR and LF end the line; BS and DEL
// erase.
//
//   ^A ^E home end  start, end             ^U ^K ^W        erase to the start, to the end, the word before
//   ^B ^F arrows    one character          ^D delete       erase under the cursor; ^D leaves an empty line
//   ESC b, ESC f    one word               ESC d, ESC DEL  erase the word behind, before
//   ^P ^N arrows    earlier, later lines   ^Y              put back what was erased last
//   ^R              look for an earlier one   ^V           type the next key as it is ("?")
//   ^C ^L TAB ?     actions
//
// Every other control byte and escape sequence, and NUL, is ignored. A line with bytes that are no printable UTF-8 is
// marked as refused, so that nothing runs that differs from what was sent.
class LineEditor {
  public:
    enum class Action { None, Line, Help, Complete, Interrupt, Leave, Redraw };

    struct Mode {
        bool echo = true;    // the client shows nothing by itself
        bool secret = false; // a password: no echo, history, help or completion
        bool help = true;    // "?" asks for help
        bool plain = false;  // a program types: no byte is a key, and control bytes spoil the line
    };

    struct Fed {
        std::size_t taken;
        Action action;
    };

    // Starts an empty line behind a prompt, which is on the screen already.
    void begin(std::string_view prompt, const Mode& mode);
    void set_echo(bool echo);
    // Width of the client's terminal; 0 when it did not say, and then nothing but backspaces and blanks moves the
    // cursor. A line that wraps is drawn anew.
    void set_width(std::size_t columns, std::string* echo);

    // Takes bytes up to the first one that asks for an action, or until a stretch of echo is full.
    Fed feed(std::string_view bytes, std::string* echo);

    const std::string& line() const
    {
        return text;
    }
    std::size_t cursor() const
    {
        return at;
    }
    std::size_t prompt_columns() const
    {
        return prompt_width;
    }
    bool echoes() const
    {
        return mode.echo;
    }
    bool hides() const
    {
        return mode.secret;
    }
    bool too_long() const
    {
        return overflow;
    }
    bool refused() const
    {
        return foreign;
    }
    std::size_t width() const
    {
        return screen_width;
    }

    // Inserts at the cursor, as if typed.
    void insert(std::string_view piece, std::string* echo);
    // Takes prompt and line off the screen, to print something in their place.
    void erase(std::string* echo);
    // Puts prompt and line on the screen.
    void draw(std::string* echo);
    // An empty screen with prompt and line at its top; on a client that moves no cursor, the line once more.
    void clear_screen(std::string* echo);
    // Inserts what completion found; a blank that is there already is not typed twice.
    void complete(std::string_view piece, std::string* echo);

    void remember(std::string_view line);
    const std::deque<std::string>& history() const
    {
        return past.lines();
    }
    // Forgets line, history, screen and half-received sequences: a new operator.
    void reset();

  private:
    enum class Escape { None, Start, Csi, Ss3 };

    // Looking for an earlier line (line_search.cpp).
    struct Search {
        bool on = false;
        bool failed = false;
        std::size_t at = 0; // the line found; past.size() before there is one
        std::string sought;
        std::string line; // what was being typed
        std::size_t cursor = 0;
    };

    Action control(unsigned char byte, std::string* echo);
    void escape(unsigned char byte, std::string* echo);
    void cursor_key(unsigned char final_byte, std::string* echo);
    void word_key(unsigned char byte, std::string* echo);
    void non_ascii(unsigned char byte, std::string* echo);
    Action end_line(std::string* echo);
    bool shown() const
    {
        return mode.echo && !mode.secret;
    }
    std::size_t column(std::size_t offset) const;
    std::size_t previous(std::size_t offset) const;
    std::size_t next(std::size_t offset) const;
    std::size_t word_before(std::size_t offset) const;
    std::size_t word_behind(std::size_t offset) const;
    void put(std::string_view piece, std::size_t end_column, std::string* echo);
    std::size_t here() const;
    static void go_to_start(std::size_t rows, std::string* echo);
    void move_back(std::size_t from, std::size_t to, std::string* echo);
    void move_to(std::size_t offset, std::string* echo);
    void remove(std::size_t from, std::size_t to, std::string* echo);
    void replace(std::string line, std::string* echo);
    void kill(std::size_t from, std::size_t to, std::string* echo);
    void walk_history(int step, std::string* echo);
    void begin_search(std::string* echo);
    bool search_key(unsigned char byte, std::string* echo);
    void look_back(std::size_t end);
    void end_search(bool given_up, std::string* echo);
    std::string shown_prompt() const;

    Mode mode;
    std::string prompt_text;
    std::size_t prompt_width = 0;
    std::size_t screen_width = 0;
    std::string text;
    std::size_t at = 0;
    bool wrap_pending = false; // the cursor hangs behind the last column of a row
    bool overflow = false;
    bool foreign = false;
    bool discarding = false; // line mode: the rest of a line that asked for help
    Escape escape_state = Escape::None;
    unsigned escape_number = 0, escape_modifier = 0;
    bool quoted = false;  // the next byte is meant as it is
    std::string sequence; // bytes of an unfinished UTF-8 character
    std::string killed;   // taken out last, for Ctrl-Y
    Search search;
    History past;
    std::size_t past_at = 0; // past.size(): the line being typed
    std::string draft;       // that line, while the operator looks at older ones
};

} // namespace engine
