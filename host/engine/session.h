// SPDX-License-Identifier: Apache-2.0
// Sessions: a fixed pool of records that are never freed, so that an SDK thread may print to one at any time.
//
// Everything belongs to the console thread, except what stands under "Shared": that is for any thread. A session
// without a connection belongs to the thread that opened it, which acts as its console thread.
#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "host/engine/engine_host.h"
#include "host/engine/event_buffer.h"
#include "host/engine/failure_lines.h"
#include "host/engine/filter.h"
#include "host/engine/large_text.h"
#include "host/engine/line_editor.h"
#include "host/engine/machine_mode.h"
#include "host/engine/pager.h"
#include "host/engine/save_file.h"
#include "host/engine/telnet.h"
#include "host/engine/users.h"

namespace engine {

using Clock = std::chrono::steady_clock;

constexpr unsigned SESSION_LIMIT = 64;
// A client that leaves that many bytes of output unread is cut off.
constexpr std::size_t OUTPUT_LIMIT = 4 * 1024 * 1024;
// Event lines wait in their own buffer while that much other output is unread.
constexpr std::size_t EVENT_HOLD = 64 * 1024;
// What one session holds of the memory at most: output that its client leaves unread, an answer that waits for a key or
// for its file, and the usual amount, with which a session gets by whose client reads.
constexpr std::size_t SESSION_MEMORY_USUAL = 512 * 1024;
constexpr std::size_t SESSION_MEMORY_LIMIT = OUTPUT_LIMIT + PAGER_HOLD + 2 * GROWTH_STEP + SESSION_MEMORY_USUAL;
// What the answer to one command takes while filters and machine mode work on it.
constexpr std::size_t ANSWER_MEMORY_LIMIT = 16 * 1024 * 1024;
// How long a closed session waits for its client to take the rest of the output.
constexpr std::chrono::seconds DRAIN_TIME{10};

enum class Phase {
    Free,     // not in use
    Open,     // an operator works with it
    Draining, // closed, the last output is on its way
    Closed,   // closed, and kept for whoever opened it (sessions without a connection)
};

// Where a session stands with its login, or with the password of "enable".
struct LoginState {
    bool asks_name = false; // else the password
    bool pending = false;   // an answer is looked for or held back: nothing that was typed is looked at
    bool answered = false;  // it is known, and given at answer_at
    bool right = false;
    int failures = 0; // in a row
    Clock::time_point answer_at;
    std::string name; // as it was typed
};

struct Session : vty {
    // Shared.
    std::mutex lock;
    bool takes_output = false; // under lock
    std::thread::id owner;     // under lock: the thread of a session without a connection
    EventBuffer events;        // under lock
    std::atomic<bool> has_events{false};
    std::atomic<bool> flush_wanted{false};
    std::atomic<Phase> phase{Phase::Free};
    std::atomic<bool> connected{false}; // has a client; false for sessions without a connection

    // Console thread.
    unsigned index = 0;
    std::uint64_t serial = 0; // tells this session from an earlier one of the same record
    std::string from;         // the client, as "who" shows it
    std::string source;       // where it comes from, without what changes from one connection to the next
    std::string user;         // who logged in; empty when no names are asked for
    Role role = Role::Admin;
    LoginState login;
    std::string end_reason; // why it ends, when that is not the operator's wish
    Clock::time_point opened, last_input, drain_end;

    std::unique_ptr<Telnet> telnet;
    std::string in; // typed, not yet looked at; CR LF and CR NUL are one CR
    std::size_t in_at = 0;
    bool after_cr = false; // the last byte typed was a CR
    bool in_ended = false; // the client sends nothing more
    std::string out;       // telnet bytes to be sent; for memory sessions the text itself
    std::size_t out_sent = 0;
    bool waits_to_send = false; // the event loop watches for room
    bool queued = false;        // work for this session is queued in the event loop

    LineEditor editor;
    std::vector<std::string_view> words; // of the line being executed
    Match match;
    FailureWatch watch;                   // what the command being executed prints
    std::unique_ptr<FilterChain> filters; // what the answer of the line being executed passes
    Pager pager;
    std::shared_ptr<SaveJob> saving;      // the line is done when it is
    std::optional<unsigned> length_set;   // rows of a page by "terminal length", 0: no pages
    std::optional<unsigned> width_set;    // columns of the screen by "terminal width"
    std::unique_ptr<MachineMode> machine; // null: an operator's session
    bool may_ask_machine = false;         // a local session whose first line has not come yet
    bool local = false;                   // came through the local socket
    bool at_prompt = false;               // the prompt is the last thing on the screen, but for what is being typed
    bool line_open = false;               // a line is being typed, even where pages of help cover it
    bool closing = false;                 // to be closed after the line being executed
    bool cut_off = false;                 // nothing can be sent any more
};

Session* session_of(vty* session);
// Who logged in, as lists and the audit record show it; "-" where no names are asked for, or not yet.
inline std::string_view user_text(const Session& session)
{
    return session.user.empty() ? "-" : std::string_view(session.user);
}
inline std::size_t unsent(const Session& session)
{
    return session.out.size() - session.out_sent;
}

// Whether what was typed has to wait: for a password that is checked, for an answer that is being saved, or, from a
// program in machine mode, until it has read the last answers.
inline bool holds_input(const Session& session)
{
    return session.login.pending || session.saving != nullptr || (session.machine != nullptr && session.waits_to_send);
}
// The size of the operator's screen: what was set, or what the client told; 0 when neither.
std::size_t screen_rows(const Session& session);
std::size_t screen_columns(const Session& session);
constexpr std::size_t PLAIN_WIDTH = 80; // assumed where nobody told
// To be called when one of them has changed.
void adopt_screen_size(Session& session);

// Takes a record from the pool, in the view node; null when all are in use.
Session* take_session(int type);
// Makes it visible to SDK threads, and takes that back.
void publish(Session& session);
void withdraw(Session& session);
// Gives the record back. Its memory stays.
void free_session(Session& session);
Session& session_at(unsigned index);

// Console thread: appends to the session's output. False when the session takes none.
bool append_output(Session& session, std::string_view text);
// The same for a part of an answer, which is shown a page at a time.
bool show_answer(Session& session, std::string_view text);
__attribute__((format(printf, 2, 3))) void print(Session& session, const char* format, ...);
// Sends what can be sent without waiting.
void send_output(Session& session);
// Ends output for good: the client is gone or does not read.
void cut_off(Session& session, const char* reason);
// Moves complete event lines out of the event buffer.
std::string take_event_lines(Session& session);

// Marks the calling thread as executing a command of the session, whose output then goes straight to the session.
class Executing {
  public:
    explicit Executing(Session& session);
    ~Executing();
    Executing(const Executing&) = delete;
    Executing& operator=(const Executing&) = delete;

  private:
    Session* outer;
};

// Whether the calling thread executes a command of the session.
bool is_executing(const Session& session);

// Closes a session logically: leave hook, no more output taken. The connection is another matter (terminal.h).
void retire(Session& session);

} // namespace engine
