// SPDX-License-Identifier: Apache-2.0
// What the console counts about itself; "show console statistics" prints it. Counting takes no memory.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>

#include "host/engine/session.h"

namespace engine {

struct Counters {
    std::atomic<std::uint64_t> sessions_opened{0}, sessions_refused{0}, sessions_peak{0};
    std::atomic<std::uint64_t> logins{0}, login_failures{0}, enable_failures{0};
    std::atomic<std::uint64_t> timeouts{0}, cut_off{0};
    std::atomic<std::uint64_t> commands{0}, commands_failed{0}, lines_refused{0};
    std::atomic<std::uint64_t> bytes_received{0}, bytes_sent{0};
    std::atomic<std::uint64_t> event_lines_printed{0}, event_lines_dropped{0};
};
Counters& counters();

inline void count(std::atomic<std::uint64_t>& counter, std::uint64_t number = 1)
{
    counter.fetch_add(number, std::memory_order_relaxed);
}

// Console thread: a command ran, and how long it took.
void count_command(const cmd_element* element, bool failed, std::chrono::nanoseconds time);
void clear_statistics();
void print_statistics(Session& session);
void print_command_statistics(Session& session);

} // namespace engine
