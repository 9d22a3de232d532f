// SPDX-License-Identifier: Apache-2.0
#include "host/sdk_sim/events.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <vector>

#include "host/sdk_sim/event_table.h"
#include "host/sdk_sim/gate.h"

namespace sdk_sim {

namespace {

struct Registration {
    std::uint16_t id;
    std::int32_t kind;
    EventHandler handler;
};

struct Events {
    std::mutex mutex;
    std::condition_variable changed; // something to do for the event thread, or something done by it
    std::deque<QueuedEvent> queue;
    std::uint64_t raised = 0;    // events that were ever queued
    std::uint64_t delivered = 0; // of these, the ones whose handlers have returned
    std::vector<Registration> registrations;
    std::uint16_t last_id = 0;
    Registration running{}; // whose handler is being called; id 0: none
    void (*firmware_console)(const char* text) = nullptr;
    bool firmware_console_runs = false;
    bool timers_changed = false;
    bool stopping = false;
    std::thread thread;
    std::thread::id thread_id; // of the event thread while it runs
};

Events& events()
{
    static Events& instance = *new Events; // never destroyed: the event thread may outlive main
    return instance;
}

bool is_event_thread(const Events& e)
{
    return e.thread_id == std::this_thread::get_id();
}

void call_handlers(Events& e, std::unique_lock<std::mutex>& lock, QueuedEvent& event)
{
    const EventRow* row = find_event_row(event.kind);
    if (row == nullptr) return;
    if (row->point_to != nullptr) row->point_to(event.record, event.octets);
    // Ids rather than rows are remembered: a handler may be removed while another one runs.
    std::vector<std::uint16_t> ids;
    for (const Registration& registration : e.registrations)
        if (registration.kind == event.kind) ids.push_back(registration.id);
    for (const std::uint16_t id : ids) {
        const auto found = std::find_if(e.registrations.begin(), e.registrations.end(),
                                        [&](const Registration& candidate) { return candidate.id == id; });
        if (found == e.registrations.end() || e.stopping) continue;
        const EventHandler handler = found->handler;
        e.running = *found;
        lock.unlock();
        row->call(handler, event.olt_id, event.record);
        lock.lock();
        e.running = {};
        e.changed.notify_all();
    }
}

void print_firmware_line(Events& e, std::unique_lock<std::mutex>& lock, const QueuedEvent& event)
{
    if (e.firmware_console == nullptr) return;
    const auto print = e.firmware_console;
    e.firmware_console_runs = true;
    lock.unlock();
    print(event.octets.c_str());
    lock.lock();
    e.firmware_console_runs = false;
    e.changed.notify_all();
}

void deliver_events()
{
    Events& e = events();
    std::unique_lock lock(e.mutex);
    while (!e.stopping) {
        if (!e.queue.empty()) {
            QueuedEvent event = std::move(e.queue.front());
            e.queue.pop_front();
            if (event.kind == 0)
                print_firmware_line(e, lock, event);
            else
                call_handlers(e, lock, event);
            ++e.delivered;
            e.changed.notify_all();
            continue;
        }
        e.timers_changed = false;
        lock.unlock();
        const double seconds = seconds_to_next_timer();
        lock.lock();
        const auto has_work = [&e] { return e.stopping || !e.queue.empty() || e.timers_changed; };
        if (seconds < 0) {
            e.changed.wait(lock, has_work);
        } else {
            // Timers are due in whole milliseconds; an hour is as good as the end of time.
            const auto wait =
                std::chrono::milliseconds(static_cast<std::int64_t>(std::min(seconds, 3600.0) * 1000) + 1);
            e.changed.wait_for(lock, wait, has_work);
        }
    }
}

// False when there is no id left.
bool add_registration(Events& e, int kind, EventHandler handler, std::uint16_t* id)
{
    if (e.registrations.size() >= UINT16_MAX) return false;
    const auto is_taken = [&e](std::uint16_t candidate) {
        return candidate == 0 || std::any_of(e.registrations.begin(), e.registrations.end(),
                                             [&](const Registration& row) { return row.id == candidate; });
    };
    do {
        ++e.last_id;
    } while (is_taken(e.last_id));
    e.registrations.push_back({e.last_id, kind, handler});
    *id = e.last_id;
    return true;
}

// A handler that removes itself, or another one, is on the event thread and cannot wait for its own return.
template <class Matches>
void wait_for_return(Events& e, std::unique_lock<std::mutex>& lock, const Matches& matches)
{
    if (!is_event_thread(e)) e.changed.wait(lock, [&] { return e.running.id == 0 || !matches(e.running); });
}

// False when there is none. None of them is called any more once this returns.
template <class Matches>
bool remove_handlers(const Matches& matches)
{
    Events& e = events();
    std::unique_lock lock(e.mutex);
    const bool is_removed = std::erase_if(e.registrations, matches) != 0;
    wait_for_return(e, lock, matches);
    return is_removed;
}

const Operation assign_handler_function("NEP_assign_handler_function", GENERAL);
const Operation delete_handler_function("NEP_delete_handler_function", GENERAL);

} // namespace

void queue_event(QueuedEvent event)
{
    Events& e = events();
    const std::lock_guard lock(e.mutex);
    e.queue.push_back(std::move(event));
    ++e.raised;
    e.changed.notify_all();
}

bool set_handler(int kind, EventHandler handler)
{
    Events& e = events();
    std::unique_lock lock(e.mutex);
    const auto is_replaced = [&](const Registration& row) { return row.kind == kind && row.handler != handler; };
    std::erase_if(e.registrations, [kind](const Registration& row) { return row.kind == kind; });
    std::uint16_t id;
    const bool is_set = add_registration(e, kind, handler, &id);
    wait_for_return(e, lock, is_replaced);
    return is_set;
}

void queue_firmware_line(std::int16_t olt_id, std::string line)
{
    QueuedEvent event;
    event.olt_id = olt_id;
    event.octets = std::move(line);
    queue_event(std::move(event));
}

void wake_event_thread()
{
    Events& e = events();
    const std::lock_guard lock(e.mutex);
    e.timers_changed = true;
    e.changed.notify_all();
}

void reset_events()
{
    Events& e = events();
    const std::lock_guard lock(e.mutex);
    e.queue.clear();
    e.raised = e.delivered = 0;
    e.registrations.clear();
    e.last_id = 0;
    e.firmware_console = nullptr;
}

bool register_handler(std::int32_t kind, EventHandler handler, std::uint16_t* id)
{
    Events& e = events();
    const std::lock_guard lock(e.mutex);
    return add_registration(e, kind, handler, id);
}

bool has_handler(std::int32_t kind)
{
    Events& e = events();
    const std::lock_guard lock(e.mutex);
    return std::any_of(e.registrations.begin(), e.registrations.end(),
                       [kind](const Registration& row) { return row.kind == kind; });
}

bool remove_handler(std::uint16_t id, std::int32_t first_kind, std::int32_t last_kind)
{
    return remove_handlers(
        [=](const Registration& row) { return row.id == id && row.kind >= first_kind && row.kind <= last_kind; });
}

void remove_handlers(std::int32_t first_kind, std::int32_t last_kind)
{
    remove_handlers([=](const Registration& row) { return row.kind >= first_kind && row.kind <= last_kind; });
}

void start()
{
    Events& e = events();
    {
        const std::lock_guard lock(e.mutex);
        if (e.thread.joinable()) return;
        e.stopping = false;
        e.thread = std::thread(deliver_events);
        e.thread_id = e.thread.get_id();
    }
    run_clock(true);
    wake_event_thread();
}

void stop()
{
    Events& e = events();
    std::thread finished;
    {
        const std::lock_guard lock(e.mutex);
        e.stopping = true;
        e.changed.notify_all();
        finished = std::move(e.thread);
    }
    if (finished.joinable()) finished.join();
    run_clock(false);
    const std::lock_guard lock(e.mutex);
    e.thread_id = {};
    e.changed.notify_all();
}

void drain_events()
{
    Events& e = events();
    std::unique_lock lock(e.mutex);
    if (is_event_thread(e)) return;
    const std::uint64_t last = e.raised;
    e.changed.wait(lock, [&e, last] { return e.delivered >= last || e.thread_id == std::thread::id() || e.stopping; });
}

void set_firmware_console(void (*print)(const char* text))
{
    Events& e = events();
    std::unique_lock lock(e.mutex);
    e.firmware_console = print;
    if (!is_event_thread(e)) e.changed.wait(lock, [&e] { return !e.firmware_console_runs; });
}

} // namespace sdk_sim

using namespace sdk_sim;

int16_t NEP_assign_handler_function(int32_t event_kind, EventHandler handler, uint16_t* id)
{
    return without_model(assign_handler_function, in(event_kind), out(id), [&] {
        if (handler == nullptr || event_kind >= EVENT_KIND_LIMIT || find_event_row(event_kind) == nullptr)
            return PARAMETER_ERROR;
        return register_handler(event_kind, handler, id) ? SUCCESS : NO_RESOURCES;
    });
}

int16_t NEP_delete_handler_function(uint16_t id)
{
    return without_model(delete_handler_function, in(id), out(), [&] {
        remove_handler(id, 0, EVENT_KIND_LIMIT - 1);
        return SUCCESS;
    });
}
