// SPDX-License-Identifier: Apache-2.0
// The pool of sessions, their output, and sessions without a connection.
#include "host/engine/session.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>

#include <sys/socket.h>

#include "host/engine/dispatch.h"
#include "host/engine/event_loop.h"
#include "host/engine/log.h"
#include "host/engine/nodes.h"
#include "host/engine/statistics.h"

namespace engine {
namespace {

// The largest output buffer that an idle session keeps.
constexpr std::size_t KEPT_CAPACITY = 256 * 1024;
// While a command prints, output is sent as soon as there is that much.
constexpr std::size_t SEND_EARLY = 64 * 1024;

struct Pool {
    std::array<Session, SESSION_LIMIT> sessions{};
    std::array<vty*, SESSION_LIMIT> slots{};
    vty_vector vector{SESSION_LIMIT, slots.data()};
    std::mutex lock;
    std::deque<Session*> free; // the longest unused first: a thread that still knows the old session finds it closed
};

Pool& pool()
{
    static Pool& all = *[] {
        auto* made = new Pool;
        for (unsigned i = 0; i < SESSION_LIMIT; ++i) {
            made->sessions[i].index = i;
            made->sessions[i].fd = -1;
            made->sessions[i].buf = "";
            made->free.push_back(&made->sessions[i]);
        }
        return made;
    }();
    return all;
}

thread_local Session* executing = nullptr;

// Text from any thread: the output of the command that this thread executes, or an event.
int take_text(Session& session, std::string_view text)
{
    if (executing != &session) {
        std::lock_guard guard(session.lock);
        if (!session.takes_output) return -1;
        if (session.owner != std::this_thread::get_id()) {
            session.events.add(text);
            session.has_events.store(true, std::memory_order_relaxed);
            return static_cast<int>(text.size());
        }
    }
    bool taken = true;
    if (executing != &session) {
        taken = append_output(session, text);
    } else {
        session.watch.write(text);
        if (session.filters)
            session.filters->write(text);
        else
            taken = show_answer(session, text);
    }
    return taken ? static_cast<int>(text.size()) : -1;
}

} // namespace

Session* session_of(vty* session)
{
    return static_cast<Session*>(session);
}

Session& session_at(unsigned index)
{
    return pool().sessions[index];
}

std::size_t screen_rows(const Session& session)
{
    return session.length_set ? *session.length_set : session.telnet ? session.telnet->rows : 0;
}

std::size_t screen_columns(const Session& session)
{
    return session.width_set ? *session.width_set : session.telnet ? session.telnet->columns : 0;
}

void adopt_screen_size(Session& session)
{
    // Only a client that told its size is taken for a terminal that escape sequences move about on.
    bool told = session.telnet && session.telnet->columns > 0;
    std::string echo;
    session.editor.set_width(told ? screen_columns(session) : 0, &echo);
    if (session.at_prompt) append_output(session, echo);
    if (session.pager.waits()) session.pager.resize(screen_rows(session), screen_columns(session));
}

Session* take_session(int type)
{
    Session* session;
    {
        std::lock_guard guard(pool().lock);
        if (pool().free.empty()) return nullptr;
        session = pool().free.front();
        pool().free.pop_front();
    }
    // SDK threads that found the earlier session in this record may still look at type and event_notify.
    if (session->type != type) session->type = type;
    __atomic_store_n(&session->event_notify, 0, __ATOMIC_RELAXED);
    session->node = VIEW_NODE;
    session->fd = -1;
    session->buf = "";
    session->olt_id = session->llid = session->onu_id = 0;
    memset(session->onu_mac, 0, sizeof session->onu_mac);
    session->onu_by_index = session->event_notify_saved = 0;

    session->phase = Phase::Open;
    session->opened = session->last_input = Clock::now();
    session->in_ended = session->waits_to_send = session->queued = false;
    session->may_ask_machine = session->after_cr = false;
    session->local = session->at_prompt = session->line_open = session->closing = session->cut_off = false;
    session->connected = false;
    static std::atomic<std::uint64_t> serials{0};
    session->serial = ++serials;
    session->role = Role::Admin;
    session->login = LoginState{};
    session->editor.reset();
    session->pager.begin(0, 0);
    session->length_set.reset();
    session->width_set.reset();
    session->flush_wanted.store(false);
    return session;
}

void publish(Session& session)
{
    {
        std::lock_guard guard(session.lock);
        session.takes_output = true;
        session.owner = session.connected ? std::thread::id() : std::this_thread::get_id();
    }
    __atomic_store_n(&pool().slots[session.index], static_cast<vty*>(&session), __ATOMIC_RELEASE);
    if (__atomic_load_n(&vtyvec, __ATOMIC_ACQUIRE) == nullptr) RBX_vty_init(nullptr);
}

void withdraw(Session& session)
{
    __atomic_store_n(&session.event_notify, 0, __ATOMIC_RELAXED);
    __atomic_store_n(&pool().slots[session.index], static_cast<vty*>(nullptr), __ATOMIC_RELEASE);
    std::lock_guard guard(session.lock);
    session.takes_output = false;
    session.owner = std::thread::id();
    session.events.clear();
    session.has_events.store(false, std::memory_order_relaxed);
}

void free_session(Session& session)
{
    session.telnet.reset();
    session.machine.reset();
    for (std::string* text :
         {&session.in, &session.out, &session.from, &session.source, &session.user, &session.end_reason})
        std::string().swap(*text);
    session.in_at = session.out_sent = 0;
    session.editor.reset();
    session.match = Match{};
    std::vector<std::string_view>().swap(session.words);
    session.pager.begin(0, 0);
    session.saving.reset();
    session.phase = Phase::Free;
    std::lock_guard guard(pool().lock);
    pool().free.push_back(&session);
}

namespace {

// In front of an addition: what was sent already makes room before the buffer grows.
void reserve_output(Session& session, std::string_view text)
{
    if (session.out.size() + 2 * text.size() <= session.out.capacity()) return; // even if every byte is doubled
    session.out.erase(0, session.out_sent);
    session.out_sent = 0;
    make_room_for(telnet_text_size(text), &session.out);
}

} // namespace

bool append_output(Session& session, std::string_view text)
{
    if (session.cut_off || session.phase != Phase::Open) return false;
    if (!session.connected) {
        session.out += text;
        return true;
    }
    if (session.machine) {
        keep_output(*session.machine, text);
        return true;
    }
    reserve_output(session, text);
    append_telnet_text(text, &session.out);
    if (executing == &session && unsent(session) >= SEND_EARLY) send_output(session);
    if (unsent(session) > OUTPUT_LIMIT) cut_off(session, "it left too much output unread");
    return !session.cut_off;
}

bool show_answer(Session& session, std::string_view text)
{
    if (!session.pager.pages()) return append_output(session, text);
    std::string screen;
    session.pager.print(text, &screen);
    return append_output(session, screen);
}

void print(Session& session, const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    Executing scope(session);
    RBX_vty_out_internal(&session, format, arguments);
    va_end(arguments);
}

void send_output(Session& session)
{
    if (session.fd < 0 || session.cut_off) return;
    while (unsent(session) > 0) {
        ssize_t sent = send(session.fd, session.out.data() + session.out_sent, unsent(session), MSG_NOSIGNAL);
        if (sent >= 0) {
            session.out_sent += static_cast<std::size_t>(sent);
            count(counters().bytes_sent, static_cast<std::uint64_t>(sent));
        } else if (errno == EAGAIN || errno == EWOULDBLOCK) {
            break;
        } else if (errno != EINTR) {
            cut_off(session, nullptr);
            return;
        }
    }
    if (unsent(session) == 0) {
        session.out.clear();
        session.out_sent = 0;
        if (session.out.capacity() > KEPT_CAPACITY) session.out.shrink_to_fit();
    } else if (session.out_sent > session.out.size() / 2) {
        session.out.erase(0, session.out_sent);
        session.out_sent = 0;
    }
    if (session.waits_to_send != (unsent(session) > 0)) {
        session.waits_to_send = !session.waits_to_send;
        watch_session(session);
    }
}

void cut_off(Session& session, const char* reason)
{
    if (session.cut_off) return;
    session.cut_off = true;
    session.end_reason = reason != nullptr ? reason : "the connection broke";
    if (reason != nullptr) count(counters().cut_off);
    if (reason != nullptr) log_line("session %u (%s) cut off: %s", session.index, session.from.c_str(), reason);
    std::string().swap(session.out);
    session.out_sent = 0;
}

namespace {

// Some events end with a bare line feed. On a screen the next line begins at its left all the same.
void return_after_bare_feeds(std::string* lines)
{
    for (std::size_t at = 0; (at = lines->find('\n', at)) != std::string::npos; ++at)
        if (at == 0 || (*lines)[at - 1] != '\r') lines->insert(++at, 1, '\r');
}

} // namespace

std::string take_event_lines(Session& session)
{
    if (!session.has_events.load(std::memory_order_relaxed)) return {};
    std::lock_guard guard(session.lock);
    count(counters().event_lines_dropped, session.events.lost());
    std::string lines = session.events.take_lines(newline(session));
    count(counters().event_lines_printed, static_cast<std::uint64_t>(std::count(lines.begin(), lines.end(), '\n')));
    session.has_events.store(session.events.has_lines(), std::memory_order_relaxed);
    if (session.connected && session.editor.echoes()) return_after_bare_feeds(&lines);
    return lines;
}

Executing::Executing(Session& session) : outer(executing)
{
    executing = &session;
}

Executing::~Executing()
{
    executing = outer;
}

bool is_executing(const Session& session)
{
    return executing == &session;
}

void retire(Session& session)
{
    if (auto* leave = rules_of(session.node).leave) {
        Executing scope(session);
        leave(&session);
    }
    withdraw(session);
}

// --- Sessions without a connection --------------------------------------------------------------------------------

vty* open_memory_session(int type)
{
    Session* session = take_session(type);
    if (session == nullptr) return nullptr;
    session->from = "memory";
    session->editor.begin("", LineEditor::Mode{});
    publish(*session);
    return session;
}

Outcome execute(vty* handle, std::string_view line)
{
    Session& session = *session_of(handle);
    if (session.phase != Phase::Open) return {MatchStatus::Empty};
    session.last_input = Clock::now();
    Outcome outcome = run_line(session, line);
    if (session.saving) {
        session.saving->wait();
        finish_saving(session);
    }
    if (session.has_events.load(std::memory_order_relaxed)) append_output(session, take_event_lines(session));
    if (session.closing) {
        retire(session);
        session.phase = Phase::Closed;
    }
    return outcome;
}

std::string take_output(vty* handle)
{
    Session& session = *session_of(handle);
    std::string text;
    text.swap(session.out);
    std::lock_guard guard(session.lock);
    text += session.events.take_all(newline(session));
    session.has_events.store(false, std::memory_order_relaxed);
    return text;
}

void close_session(vty* handle)
{
    Session& session = *session_of(handle);
    if (session.connected || session.phase == Phase::Free) return;
    if (session.phase == Phase::Open) retire(session);
    free_session(session);
}

} // namespace engine

vty_vector* vtyvec = nullptr;

void RBX_vty_init(thread_master*)
{
    __atomic_store_n(&vtyvec, &engine::pool().vector, __ATOMIC_RELEASE);
}

int RBX_vty_shell(vty* session)
{
    return session->type == VTY_TYPE_TERMINAL ? 0 : 1;
}

int RBX_vty_out_internal(vty* session, const char* format, va_list arguments)
{
    if (session == nullptr) return -1;
    char text[1024];
    va_list again;
    va_copy(again, arguments);
    int length = vsnprintf(text, sizeof text, format, arguments);
    int result = -1;
    if (length >= 0 && static_cast<std::size_t>(length) < sizeof text) {
        result = engine::take_text(*engine::session_of(session), {text, static_cast<std::size_t>(length)});
    } else if (length >= 0) {
        std::string longer(static_cast<std::size_t>(length) + 1, '\0');
        vsnprintf(longer.data(), longer.size(), format, again);
        longer.pop_back();
        result = engine::take_text(*engine::session_of(session), longer);
    }
    va_end(again);
    return result;
}
