// SPDX-License-Identifier: Apache-2.0
// One epoll set for listeners, connections and an eventfd by which other threads wake the console thread. Work is
// handed out in the order in which it became ready, so that no session waits behind a busy one for more than its turn.
#include "host/engine/event_loop.h"

#include <algorithm>
#include <cerrno>
#include <condition_variable>
#include <cstdlib>
#include <cstring>
#include <vector>

#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include "host/engine/log.h"
#include "host/engine/nodes.h"

struct thread_master {
    int epoll = -1;
    int wakeup = -1;
    std::atomic<bool> wake_pending{false};
    std::atomic<bool> running{false};
    std::atomic<bool> stopping{false};
    std::mutex lock;
    std::condition_variable parked_changed;
    bool parked = false; // under lock
    // Console thread.
    engine::LoopHandlers handlers{};
    std::deque<thread> ready;
    std::vector<engine::Session*> busy; // sessions with more to do in the next turn
    engine::Clock::time_point deadline = engine::Clock::time_point::max();
    bool serve_anew = false;
};

namespace engine {
namespace {

// What an epoll entry stands for, in the upper half of its data; the lower half is a descriptor or a session's index.
constexpr std::uint64_t LISTENER = 1ULL << 32, CONNECTION = 2ULL << 32, WAKEUP = 3ULL << 32;
constexpr std::uint64_t LOWER_HALF = 0xffffffff;

thread_local bool console_thread = false;

thread_master& master()
{
    static thread_master& loop = *[] {
        auto* made = new thread_master;
        made->epoll = epoll_create1(EPOLL_CLOEXEC);
        made->wakeup = eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
        epoll_event entry{};
        entry.events = EPOLLIN;
        entry.data.u64 = WAKEUP;
        if (made->epoll < 0 || made->wakeup < 0 || epoll_ctl(made->epoll, EPOLL_CTL_ADD, made->wakeup, &entry) != 0) {
            log_line("event loop: %s", strerror(errno));
            abort();
        }
        return made;
    }();
    return loop;
}

void watch(int fd, std::uint32_t events, std::uint64_t data)
{
    epoll_event entry{};
    entry.events = events;
    entry.data.u64 = data;
    if (epoll_ctl(master().epoll, EPOLL_CTL_MOD, fd, &entry) == 0) return;
    if (errno != ENOENT || epoll_ctl(master().epoll, EPOLL_CTL_ADD, fd, &entry) != 0)
        log_line("event loop: %s", strerror(errno));
}

void push_session(thread_master& loop, Session& session)
{
    if (session.queued) return;
    session.queued = true;
    thread work{};
    work.func = loop.handlers.session;
    work.arg = static_cast<vty*>(&session);
    work.u.fd = session.fd;
    work.master = &loop;
    loop.ready.push_back(work);
}

int nothing(thread*)
{
    return 0;
}

// Sessions that other threads printed to; and the server loop, when all sessions are to be closed.
void take_wakeups(thread_master& loop)
{
    if (loop.handlers.woken != nullptr) loop.handlers.woken();
    for (unsigned i = 0; i < SESSION_LIMIT; ++i) {
        Session& session = session_at(i);
        if (session.flush_wanted.load() && session.connected && session.fd >= 0) push_session(loop, session);
    }
    if (__atomic_load_n(&RBX_vty_kill_all_flag, __ATOMIC_ACQUIRE) != 0) {
        thread work{};
        work.func = nothing; // the server loop looks at the flag after every piece of work
        work.master = &loop;
        loop.ready.push_back(work);
    }
}

// Calls the handler when it is time. Milliseconds until the next time; -1 when none is expected.
int meet_deadline(thread_master& loop)
{
    constexpr Clock::time_point NEVER = Clock::time_point::max();
    constexpr std::chrono::hours LONGEST{1}; // the timeout is an int
    if (loop.deadline == NEVER) return -1;
    Clock::time_point now = Clock::now();
    if (now >= loop.deadline) {
        loop.deadline = NEVER;
        if (loop.handlers.deadlines != nullptr) loop.handlers.deadlines();
        if (loop.deadline == NEVER) return -1;
    }
    auto left = std::clamp<Clock::duration>(loop.deadline - now, Clock::duration::zero(), LONGEST);
    return static_cast<int>(std::chrono::ceil<std::chrono::milliseconds>(left).count());
}

void collect(thread_master& loop)
{
    if (loop.wake_pending.exchange(false)) take_wakeups(loop);
    int timeout = meet_deadline(loop);
    if (!loop.busy.empty() || !loop.ready.empty()) timeout = 0;
    epoll_event events[64];
    int count = epoll_wait(loop.epoll, events, sizeof events / sizeof events[0], timeout);
    if (count < 0 && errno != EINTR) {
        log_line("event loop: %s", strerror(errno));
        abort();
    }
    for (int i = 0; i < count; ++i) {
        std::uint64_t kind = events[i].data.u64 & ~LOWER_HALF;
        auto value = static_cast<unsigned>(events[i].data.u64 & LOWER_HALF);
        if (kind == WAKEUP) {
            std::uint64_t ignored;
            if (read(loop.wakeup, &ignored, sizeof ignored) < 0 && errno != EAGAIN && errno != EINTR)
                log_line("event loop: %s", strerror(errno));
        } else if (kind == CONNECTION) {
            push_session(loop, session_at(value));
        } else {
            thread work{};
            work.func = loop.handlers.accept;
            work.u.fd = static_cast<int>(value);
            work.master = &loop;
            loop.ready.push_back(work);
        }
    }
    for (Session* session : loop.busy)
        if (session->fd >= 0) push_session(loop, *session);
    loop.busy.clear();
}

[[noreturn]] void park(thread_master& loop)
{
    if (loop.handlers.park != nullptr) loop.handlers.park();
    {
        std::lock_guard guard(loop.lock);
        loop.parked = true;
    }
    loop.parked_changed.notify_all();
    for (;;)
        pause();
}

} // namespace

void set_loop_handlers(const LoopHandlers& handlers)
{
    master().handlers = handlers;
}

void watch_listener(int fd)
{
    watch(fd, EPOLLIN, LISTENER | static_cast<unsigned>(fd));
}

void unwatch(int fd)
{
    epoll_ctl(master().epoll, EPOLL_CTL_DEL, fd, nullptr);
}

void expect_deadline(Clock::time_point at)
{
    master().deadline = std::min(master().deadline, at);
}

void watch_session(Session& session)
{
    bool reads = session.phase == Phase::Open && !session.in_ended && !holds_input(session);
    std::uint32_t events = reads ? EPOLLIN : 0U;
    if (session.waits_to_send) events |= EPOLLOUT;
    if (session.login.pending && events == 0) {
        unwatch(session.fd); // the end of a connection would be reported again and again
        return;
    }
    watch(session.fd, events, CONNECTION | session.index);
}

void park_at_once()
{
    master().stopping.store(true);
}

void queue_session(Session& session)
{
    master().busy.push_back(&session);
}

void wake_loop()
{
    thread_master& loop = master();
    if (loop.wake_pending.exchange(true) || console_thread) return;
    std::uint64_t one = 1;
    if (write(loop.wakeup, &one, sizeof one) < 0 && errno != EAGAIN) log_line("event loop: %s", strerror(errno));
}

void serve_anew()
{
    master().serve_anew = true;
}

bool on_console_thread()
{
    return console_thread;
}

void kill_all()
{
    __atomic_store_n(&RBX_vty_kill_all_flag, 1, __ATOMIC_RELEASE);
    wake_loop();
}

void stop()
{
    thread_master& loop = master();
    loop.stopping.store(true);
    wake_loop();
    if (console_thread || !loop.running.load()) return;
    std::unique_lock guard(loop.lock);
    loop.parked_changed.wait(guard, [&] { return loop.parked; });
}

} // namespace engine

int RBX_vty_kill_all_flag = 0;

thread_master* RBX_thread_master_create(void)
{
    return &engine::master();
}

thread* RBX_thread_fetch(thread_master* loop, thread* out)
{
    engine::console_thread = true;
    loop->running.store(true);
    for (;;) {
        if (loop->stopping.load()) engine::park(*loop);
        if (loop->serve_anew) {
            loop->serve_anew = false;
            return nullptr;
        }
        if (!loop->ready.empty()) {
            *out = loop->ready.front();
            loop->ready.pop_front();
            return out;
        }
        engine::collect(*loop);
    }
}

int RBX_thread_call(thread* work)
{
    return work->func(work);
}

int RBX_vty_flush(thread* work)
{
    engine::Session& session = *engine::session_of(static_cast<vty*>(work->arg));
    {
        std::lock_guard guard(session.lock);
        if (!session.takes_output) return -1;
    }
    if (engine::is_executing(session)) {
        engine::send_output(session);
    } else if (session.connected && !session.flush_wanted.exchange(true)) {
        engine::wake_loop();
    }
    return 0;
}
