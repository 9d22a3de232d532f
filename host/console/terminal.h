// SPDX-License-Identifier: Apache-2.0
// The operator's terminal: raw while the console is shown, and as it was before on every way out.
#pragma once

#include <termios.h>

namespace console {

struct WindowSize {
    unsigned short columns = 80;
    unsigned short rows = 24;
};

// Size of the terminal behind a descriptor; 80x24 when it does not say.
WindowSize window_size(int descriptor);

// Keeps a terminal in raw mode for its own lifetime: every key reaches the console, Ctrl-C included.
class RawTerminal {
  public:
    explicit RawTerminal(int descriptor);
    ~RawTerminal();
    RawTerminal(const RawTerminal&) = delete;
    RawTerminal& operator=(const RawTerminal&) = delete;

    void enter();
    void restore();

  private:
    int descriptor;
    termios saved{};
    bool raw = false;
};

} // namespace console
