// SPDX-License-Identifier: Apache-2.0
// The queue of events and the one thread that delivers them, in the order in which they were raised.
//
// The queue's lock is the innermost one: events may be raised with the model's lock held. Handlers run with no lock.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <type_traits>

#include <epon/sdk/events.h>

namespace sdk_sim {

inline constexpr std::size_t EVENT_RECORD_SIZE = 40;

struct QueuedEvent {
    int kind = 0; // 0: a line of the firmware's console, in octets
    std::int16_t olt_id = 0;
    alignas(std::max_align_t) std::byte record[EVENT_RECORD_SIZE] = {};
    std::string octets; // what the record points to
};

void queue_event(QueuedEvent event);

// Raises an event whose record points to nothing.
template <class Record>
void raise(int kind, std::int16_t olt_id, const Record& record)
{
    static_assert(std::is_trivially_copyable_v<Record> && sizeof(Record) <= EVENT_RECORD_SIZE);
    QueuedEvent event;
    event.kind = kind;
    event.olt_id = olt_id;
    std::memcpy(event.record, &record, sizeof(record));
    queue_event(std::move(event));
}

// --- Events of the stacks above the SDK --------------------------------------------------------------------------

// Kinds of events whose handlers are registered with an operation of their own.
enum StackEventKind { EVENT_REMOTE_RSTP_LOOP = 100 };

// Part of EVENT_REMOTE_RSTP_LOOP, which is handed over value by value.
struct RemoteRstpLoopEvent {
    std::int16_t onu_id;
    std::int32_t port;
    std::int32_t loop;
    std::int32_t link;
};

// The handler of a kind that has one at most, in place of the one before, which is not called any more once this
// returns. False when there are too many handlers.
bool set_handler(int kind, EventHandler handler);
// Handlers of one kind of events. The id is that of no other handler; false when there is none left.
bool register_handler(std::int32_t kind, EventHandler handler, std::uint16_t* id);
bool has_handler(std::int32_t kind);
// Removes a handler of one of these kinds; it is not called any more once this returns. The caller does not hold the
// model's lock. False when there is none with that id.
bool remove_handler(std::uint16_t id, std::int32_t first_kind, std::int32_t last_kind);
void remove_handlers(std::int32_t first_kind, std::int32_t last_kind);

void queue_firmware_line(std::int16_t olt_id, std::string line);

// Makes the event thread look at the timers again.
void wake_event_thread();

// Forgets events that wait, handlers and the firmware console's printer. The event thread must not run.
void reset_events();

} // namespace sdk_sim
