// SPDX-License-Identifier: Apache-2.0
// Long answers, a page at a time. Text and keys in, screen text out; it reads and writes nothing itself.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "host/engine/pattern.h"

namespace engine {

// Bytes of an answer that wait for a key; further lines are left out and counted.
constexpr std::size_t PAGER_HOLD = 1024 * 1024;
// What the operator sees below a page.
constexpr std::string_view PAGER_PROMPT = "--More-- (space: page, enter: line, /: search, q: quit) ";
constexpr std::string_view PAGER_SHORT_PROMPT = "--More-- "; // where that does not fit

class Pager {
  public:
    // An answer begins on a screen of that many rows and columns; no rows: nothing is held.
    void begin(std::size_t rows, std::size_t columns);
    // Holds nothing of the answer that has begun.
    void off();
    // The screen has another size from now on.
    void resize(std::size_t rows, std::size_t columns);
    // A piece of the answer; appends what can be shown at once.
    void print(std::string_view text, std::string* screen);
    // The answer is complete: asks for a key when some of it is held.
    void end(std::string* screen);
    // Whether it may hold something.
    bool pages() const
    {
        return page_rows > 0;
    }
    // Whether it waits for a key.
    bool waits() const
    {
        return asked;
    }
    // Takes the bytes of one key: their number. Nothing may be held any more afterwards.
    std::size_t feed(std::string_view bytes, std::string* screen);
    // Nobody will press a key: shows all that is held.
    void release(std::string* screen);

  private:
    void key(char byte, std::string* screen);
    void search_key(char byte, std::string* screen);
    void search(std::string* screen);
    void show_lines(std::size_t count, std::string* screen);
    void ask(std::string* screen);
    void unask(std::string* screen);
    void drop();
    std::size_t rows_of(std::size_t columns) const;

    std::size_t page_rows = 0; // 0: shows everything at once
    std::size_t width = 0;
    std::size_t room = 0;   // rows left on the page
    std::size_t column = 0; // of the line that is being printed
    std::string held;       // the rest of the answer, from held_at on
    std::size_t held_at = 0;
    std::size_t left_out = 0;
    bool asked = false;
    bool in_sequence = false; // of an escape sequence, which is no key here
    std::size_t prompt_size = 0;
    bool searching = false;
    std::string sought; // as typed
    Pattern pattern;
};

} // namespace engine
