// SPDX-License-Identifier: Apache-2.0
#include "signals.h"

#include <array>
#include <cstdlib>

namespace console {

namespace {

constexpr std::array ENDING_SIGNALS = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};

volatile std::sig_atomic_t ending = 0;
volatile std::sig_atomic_t window_changed = 0;
volatile std::sig_atomic_t stop_asked = 0;

void note_signal(int number)
{
    if (number == SIGWINCH)
        window_changed = 1;
    else if (number == SIGTSTP)
        stop_asked = 1;
    else
        ending = number;
}

bool take(volatile std::sig_atomic_t& flag)
{
    bool was = flag != 0;
    flag = 0;
    return was;
}

} // namespace

sigset_t take_signals()
{
    struct sigaction action {};
    action.sa_handler = note_signal;
    sigset_t blocked;
    sigset_t waiting;
    sigemptyset(&blocked);
    for (int number : ENDING_SIGNALS)
        sigaddset(&blocked, number);
    for (int number : {SIGWINCH, SIGTSTP})
        sigaddset(&blocked, number);
    sigprocmask(SIG_BLOCK, &blocked, &waiting);
    // A shell may have started this program with some of them blocked; while waiting none of them is.
    for (int number = 1; number < NSIG; ++number) {
        if (sigismember(&blocked, number) != 1) continue;
        sigaction(number, &action, nullptr);
        sigdelset(&waiting, number);
    }
    signal(SIGPIPE, SIG_IGN);
    return waiting;
}

int ending_signal()
{
    return ending;
}

bool take_window_change()
{
    return take(window_changed);
}

bool take_stop_request()
{
    return take(stop_asked);
}

void end_by_signal(int number)
{
    signal(number, SIG_DFL);
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, number);
    sigprocmask(SIG_UNBLOCK, &set, nullptr);
    raise(number);
    std::_Exit(1);
}

} // namespace console
