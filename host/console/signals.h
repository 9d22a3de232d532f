// SPDX-License-Identifier: Apache-2.0
// Signals while the terminal is in another mode: they are looked at between two keys, so that the terminal is put back
// before one of them ends the program.
#pragma once

#include <csignal>

namespace console {

// Blocks the ending signals, SIGWINCH and SIGTSTP, so that they arrive nowhere but inside ppoll. Returns the mask to
// wait with. SIGPIPE is ignored from then on.
sigset_t take_signals();

// The signal that asks the program to end, or 0.
int ending_signal();
// Whether the window changed, or a stop was asked for, since the last look.
bool take_window_change();
bool take_stop_request();

// Ends the program by that signal, as its caller expects.
[[noreturn]] void end_by_signal(int number);

} // namespace console
