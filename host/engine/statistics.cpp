// SPDX-License-Identifier: Apache-2.0
#include "host/engine/statistics.h"

#include <algorithm>
#include <array>
#include <cinttypes>
#include <string>
#include <vector>

#include "host/engine/audit.h"
#include "host/engine/nodes.h"

namespace engine {
namespace {

// Commands that are counted one by one; what is typed beyond that many different ones is counted together.
constexpr std::size_t COMMAND_SLOTS = 1024;
constexpr std::size_t SLOTS_USED = COMMAND_SLOTS * 3 / 4;

struct CommandCount {
    const cmd_element* element;
    std::uint32_t count, failures;
    std::uint64_t total_ns, longest_ns;
};

struct CommandCounts {
    std::array<CommandCount, COMMAND_SLOTS> slots;
    CommandCount others;
    std::size_t used;
};
CommandCounts commands; // console thread

CommandCount& slot_of(const cmd_element* element)
{
    // Elements are records next to each other; their low address bits say little.
    auto hash = reinterpret_cast<std::uintptr_t>(element) / sizeof(cmd_element) * 2654435761U;
    for (std::size_t at = hash % COMMAND_SLOTS;; at = (at + 1) % COMMAND_SLOTS) {
        CommandCount& slot = commands.slots[at];
        if (slot.element == element) return slot;
        if (slot.element != nullptr) continue;
        if (commands.used >= SLOTS_USED) return commands.others;
        ++commands.used;
        slot.element = element;
        return slot;
    }
}

struct CounterRow {
    const char* label;
    std::atomic<std::uint64_t> Counters::*counter;
};
constexpr CounterRow counter_rows[] = {
    {"Sessions opened", &Counters::sessions_opened},
    {"Most sessions at a time", &Counters::sessions_peak},
    {"Sessions refused", &Counters::sessions_refused},
    {"Sessions closed by a time limit", &Counters::timeouts},
    {"Sessions cut off", &Counters::cut_off},
    {"Logins", &Counters::logins},
    {"Failed logins", &Counters::login_failures},
    {"Failed enable passwords", &Counters::enable_failures},
    {"Commands", &Counters::commands},
    {"Failed commands", &Counters::commands_failed},
    {"Lines that were no command", &Counters::lines_refused},
    {"Bytes received", &Counters::bytes_received},
    {"Bytes sent", &Counters::bytes_sent},
    {"Event lines printed", &Counters::event_lines_printed},
    {"Event lines dropped", &Counters::event_lines_dropped},
};

void print_number(Session& session, const char* label, std::uint64_t value)
{
    print(session, "%-32s: %" PRIu64 "%s", label, value, newline(session));
}

void print_row(Session& session, const CommandCount& row, const char* grammar)
{
    print(session, "%10" PRIu32 " %10" PRIu32 " %12.3f %12.3f  %s%s", row.count, row.failures,
          static_cast<double>(row.total_ns) / 1e6, static_cast<double>(row.longest_ns) / 1e6, grammar,
          newline(session));
}

} // namespace

Counters& counters()
{
    static Counters& the = *new Counters;
    return the;
}

void count_command(const cmd_element* element, bool failed, std::chrono::nanoseconds time)
{
    CommandCount& slot = slot_of(element);
    auto ns = static_cast<std::uint64_t>(time.count());
    ++slot.count;
    slot.failures += failed ? 1 : 0;
    slot.total_ns += ns;
    slot.longest_ns = std::max(slot.longest_ns, ns);
    count(counters().commands);
    if (failed) count(counters().commands_failed);
}

void clear_statistics()
{
    for (const CounterRow& row : counter_rows)
        counters().*row.counter = 0;
    commands = {};
}

void print_statistics(Session& session)
{
    std::uint64_t open = 0;
    for (unsigned i = 0; i < SESSION_LIMIT; ++i)
        if (session_at(i).connected && session_at(i).phase == Phase::Open) ++open;
    print_number(session, "Sessions open", open);
    for (const CounterRow& row : counter_rows)
        print_number(session, row.label, counters().*row.counter);
    if (audits()) print_number(session, "Audit records lost", audit_dropped());
}

void print_command_statistics(Session& session)
{
    std::vector<const CommandCount*> rows;
    for (const CommandCount& slot : commands.slots)
        if (slot.count > 0) rows.push_back(&slot);
    std::sort(rows.begin(), rows.end(), [](const CommandCount* a, const CommandCount* b) {
        return a->count != b->count ? a->count > b->count : std::string_view(a->element->string) < b->element->string;
    });
    print(session, "%10s %10s %12s %12s  Command%s", "Count", "Failures", "Total ms", "Longest ms", newline(session));
    for (const CommandCount* row : rows)
        print_row(session, *row, row->element->string);
    if (commands.others.count > 0) print_row(session, commands.others, "(other commands)");
}

} // namespace engine
