// SPDX-License-Identifier: Apache-2.0
#include "host/engine/limits.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>

#include "host/engine/event_loop.h"
#include "host/engine/login.h"
#include "host/engine/statistics.h"
#include "host/engine/terminal.h"

namespace engine {
namespace {

using std::chrono::milliseconds;

struct Limits {
    milliseconds exec_timeout{0};
    milliseconds login_grace{0};
    unsigned max_sessions = SESSION_LIMIT;
};
Limits limits; // set before the console is served; then the console thread's

bool is_open(const Session& session)
{
    return session.connected && session.phase == Phase::Open;
}

Clock::time_point after(Clock::time_point start, milliseconds time)
{
    return time.count() == 0 ? Clock::time_point::max() : start + time;
}

std::string in_words(milliseconds time)
{
    long long seconds = std::chrono::duration_cast<std::chrono::seconds>(time).count();
    std::string text;
    if (seconds >= 60) text = std::to_string(seconds / 60) + (seconds / 60 == 1 ? " minute" : " minutes");
    if (seconds % 60 != 0 || seconds == 0)
        text += (text.empty() ? "" : " ") + std::to_string(seconds % 60) + (seconds % 60 == 1 ? " second" : " seconds");
    return text;
}

void close_late(Session& session, const char* why, const std::string& last_line)
{
    count(counters().timeouts);
    session.end_reason = why;
    close_connection(session, last_line.c_str());
}

void act_on_deadline(Session& session)
{
    bool logs_in = session.node == AUTH_NODE;
    if (session.phase == Phase::Draining || session.login.answered) {
        queue_session(session); // the rest of its output, or the answer that was held back
    }
    if (session.phase != Phase::Open) return;
    if (logs_in && Clock::now() >= after(session.opened, limits.login_grace))
        close_late(session, "login took too long", "% Login took too long.");
    else if (!logs_in && Clock::now() >= after(session.last_input, limits.exec_timeout))
        close_late(session, "idle", "% Closed: nothing was typed for " + in_words(limits.exec_timeout) + ".");
}

// The session that makes room for a new one; null when all have logged in.
Session* least_needed()
{
    std::map<std::string, unsigned> waiting;
    for (unsigned i = 0; i < SESSION_LIMIT; ++i)
        if (is_open(session_at(i)) && session_at(i).node == AUTH_NODE) ++waiting[session_at(i).source];
    Session* least = nullptr;
    for (unsigned i = 0; i < SESSION_LIMIT; ++i) {
        Session& session = session_at(i);
        if (!is_open(session) || session.node != AUTH_NODE) continue;
        if (least == nullptr || waiting[session.source] > waiting[least->source] ||
            (session.source == least->source && session.serial < least->serial))
            least = &session;
    }
    return least;
}

} // namespace

void set_limits(const Options& options)
{
    limits.exec_timeout = options.exec_timeout;
    limits.login_grace = options.login_grace;
    limits.max_sessions = std::min(options.max_sessions, SESSION_LIMIT);
}

milliseconds exec_timeout()
{
    return limits.exec_timeout;
}

void set_exec_timeout(milliseconds time)
{
    limits.exec_timeout = time;
    expect_deadline(Clock::now());
}

bool make_room_for(bool local)
{
    unsigned open = 0, remote = 0;
    for (unsigned i = 0; i < SESSION_LIMIT; ++i) {
        if (!session_at(i).connected || session_at(i).phase == Phase::Free) continue;
        ++open;
        if (!session_at(i).local) ++remote;
    }
    if (open < limits.max_sessions && (local || remote + 1 < limits.max_sessions)) return true;
    Session* least = least_needed();
    if (least == nullptr) return false;
    least->end_reason = "made room";
    drop_connection(*least);
    return true;
}

Clock::time_point deadline_of(const Session& session)
{
    if (session.fd < 0) return Clock::time_point::max();
    if (session.phase == Phase::Draining) return session.drain_end;
    Clock::time_point at = session.node == AUTH_NODE ? after(session.opened, limits.login_grace)
                                                     : after(session.last_input, limits.exec_timeout);
    return session.login.answered ? std::min(at, session.login.answer_at) : at;
}

void check_deadlines()
{
    for (unsigned i = 0; i < SESSION_LIMIT; ++i) {
        Session& session = session_at(i);
        if (session.connected && Clock::now() >= deadline_of(session)) act_on_deadline(session);
        if (session.connected && session.fd >= 0) expect_deadline(deadline_of(session));
    }
}

} // namespace engine
