// SPDX-License-Identifier: Apache-2.0
#include "host/engine/login.h"

#include <algorithm>
#include <array>
#include <condition_variable>
#include <utility>
#include <vector>

#include "host/engine/audit.h"
#include "host/engine/event_loop.h"
#include "host/engine/log.h"
#include "host/engine/nodes.h"
#include "host/engine/password_hash.h"
#include "host/engine/statistics.h"
#include "host/engine/terminal.h"

namespace engine {
namespace {

constexpr const char* NAME_PROMPT = "Username: ";
constexpr const char* PASSWORD_PROMPT = "Password: "; // where the command library has no node for it
// Sources whose failures are remembered, and for how long.
constexpr std::size_t SOURCES = 256;
constexpr std::chrono::minutes SOURCE_MEMORY{10};

// --- The thread that checks ---------------------------------------------------------------------------------------

struct Question {
    unsigned index;
    std::uint64_t serial; // of the session, which may be another operator's when the answer comes
    std::string hash, password;
    bool is_known; // false: hashed for the effort only
    bool enables;  // else it is a login
    std::string user, from, source;
};

struct Answer {
    Question to; // without the password
    bool right;
};

struct Checker {
    std::mutex lock;
    std::condition_variable changed;
    std::deque<Question> questions; // under lock; at most one for each session
    std::vector<Answer> answers;    // under lock
    bool started = false;           // under lock
    std::shared_ptr<const Credentials> credentials = std::make_shared<Credentials>(); // under lock
};

Checker& checker()
{
    static Checker& the = *new Checker;
    return the;
}

[[noreturn]] void check_forever()
{
    Checker& at = checker();
    std::unique_lock guard(at.lock);
    for (;;) {
        at.changed.wait(guard, [&] { return !at.questions.empty(); });
        Question question = std::move(at.questions.front());
        at.questions.pop_front();
        guard.unlock();
        bool right = password_matches(question.hash, question.password) && question.is_known;
        wipe(&question.password);
        guard.lock();
        at.answers.push_back({std::move(question), right});
        wake_loop();
    }
}

void ask(Question question)
{
    Checker& at = checker();
    std::lock_guard guard(at.lock);
    if (!std::exchange(at.started, true)) std::thread(check_forever).detach();
    at.questions.push_back(std::move(question));
    at.changed.notify_one();
}

// --- Sources that were wrong --------------------------------------------------------------------------------------

struct Source {
    std::string name;
    unsigned failures = 0;
    Clock::time_point last;
    Clock::time_point answers_at; // not before
};
std::chrono::milliseconds first_delay{1000};

// The record of a source, or the one that is forgotten for it. Console thread.
Source& source_of(const std::string& name)
{
    static auto& sources = *new std::array<Source, SOURCES>;
    auto found = std::find_if(sources.begin(), sources.end(), [&](const Source& one) { return one.name == name; });
    if (found == sources.end()) {
        found = std::min_element(sources.begin(), sources.end(),
                                 [](const Source& a, const Source& b) { return a.last < b.last; });
        *found = {name, 0, {}, {}};
    }
    if (Clock::now() - found->last > SOURCE_MEMORY) found->failures = 0;
    return *found;
}

// A source that was wrong gets no answer for a while, no right one either: nobody learns more by not waiting, or by
// guessing on many connections.
void delay_after_failure(const std::string& name)
{
    Source& source = source_of(name);
    source.last = Clock::now();
    ++source.failures;
    constexpr unsigned DOUBLINGS = 5;
    auto delay = first_delay * (1U << std::min(source.failures - 1, DOUBLINGS));
    source.answers_at = std::min(std::max(source.answers_at, source.last) + delay, source.last + LOGIN_DELAY_LIMIT);
}

void forget_failures(const std::string& name)
{
    source_of(name).failures = 0;
}

// --- Answers ------------------------------------------------------------------------------------------------------

// Who mistakes the first question for the second types a password as a name: unknown names are not written down.
std::string user_to_report(const Session& session)
{
    if (!session.user.empty()) return session.user;
    if (session.login.name.empty()) return "-";
    return credentials()->find(session.login.name) != nullptr ? session.login.name : "unknown";
}

void report_login(const Session& session, const char* event)
{
    audit(Severity::Notice, event,
          {{"session", std::to_string(session.index)}, {"user", user_to_report(session)}, {"from", session.from}});
}

// Even when the client has not waited for its answer.
void report_failure(const Question& asked)
{
    count(asked.enables ? counters().enable_failures : counters().login_failures);
    audit(Severity::Warning, asked.enables ? "ENABLE_FAILED" : "LOGIN_FAILED",
          {{"session", std::to_string(asked.index)}, {"user", asked.user}, {"from", asked.from}});
}

void let_in(Session& session)
{
    auto known = credentials();
    if (const User* user = known->find(session.login.name)) {
        session.user = user->name;
        session.role = user->role;
    }
    session.node = VIEW_NODE;
    session.login.failures = 0;
    count(counters().logins);
    forget_failures(session.source);
    report_login(session, "LOGIN");
}

void let_enable(Session& session)
{
    session.node = ENABLE_NODE;
    session.login.failures = 0;
    forget_failures(session.source);
    report_login(session, "ENABLE");
}

void refuse_login(Session& session)
{
    bool last = ++session.login.failures >= LOGIN_TRIES;
    const char* what = credentials()->users.empty() ? "password" : "name or password";
    if (last)
        print(session, "%% Bad %s, too many tries.%s", what, newline(session));
    else
        print(session, "%% Bad %s.%s", what, newline(session));
    session.login.asks_name = !credentials()->users.empty();
    if (!last) return;
    log_line("session %u (%s): %d bad passwords", session.index, session.from.c_str(), LOGIN_TRIES);
    session.closing = true;
    session.end_reason = "too many bad passwords";
}

void refuse_enable(Session& session)
{
    bool last = ++session.login.failures >= LOGIN_TRIES;
    if (last)
        print(session, "%% Bad password, too many tries.%s", newline(session));
    else
        print(session, "%% Bad password.%s", newline(session));
    if (!last) return;
    session.node = VIEW_NODE;
    session.login.failures = 0;
}

void take_name(Session& session)
{
    LineEditor& editor = session.editor;
    if (editor.line().empty()) return;
    session.login.name = editor.too_long() || editor.refused() ? "?" : editor.line();
    session.login.asks_name = false;
}

// Everyone is made to wait for the same work, whatever was typed.
void take_password(Session& session)
{
    LineEditor& editor = session.editor;
    auto known = credentials();
    Question question{
        session.index,           session.serial, known->nobody_hash, {}, false, session.node == AUTH_ENABLE_NODE,
        user_to_report(session), session.from,   session.source};
    if (!editor.too_long() && !editor.refused()) question.password = editor.line();
    const User* user = known->find(session.login.name);
    if (session.node == AUTH_ENABLE_NODE)
        question.hash = known->enable_hash;
    else if (known->users.empty())
        question.hash = known->password_hash;
    else if (user != nullptr)
        question.hash = user->hash;
    question.is_known = (session.node == AUTH_ENABLE_NODE || known->users.empty() || user != nullptr) &&
                        !editor.too_long() && !editor.refused();
    session.login.pending = true;
    session.login.answered = false;
    watch_session(session);
    ask(std::move(question));
}

} // namespace

void set_credentials(std::shared_ptr<const Credentials> credentials)
{
    std::lock_guard guard(checker().lock);
    checker().credentials = std::move(credentials);
}

std::shared_ptr<const Credentials> credentials()
{
    std::lock_guard guard(checker().lock);
    return checker().credentials;
}

void set_login_delay(std::chrono::milliseconds first)
{
    first_delay = first;
}

bool asks_login(const Session& session)
{
    return session.node == AUTH_NODE || session.node == AUTH_ENABLE_NODE;
}

bool asks_password(const Session& session)
{
    return session.node == AUTH_ENABLE_NODE || (session.node == AUTH_NODE && !session.login.asks_name);
}

std::string login_prompt(const Session& session)
{
    if (session.node == AUTH_NODE && session.login.asks_name) return NAME_PROMPT;
    const Node* node = find_node(session.node);
    return node->record != nullptr ? prompt(&session) : PASSWORD_PROMPT;
}

void begin_login(Session& session)
{
    auto known = credentials();
    if (session.local || !known->asks_at_login()) return;
    session.node = AUTH_NODE;
    session.login.asks_name = !known->users.empty();
}

void take_login_line(Session& session)
{
    if (session.node == AUTH_NODE && session.login.asks_name)
        take_name(session);
    else
        take_password(session);
}

void cancel_login(Session& session)
{
    session.login.asks_name = !credentials()->users.empty();
    if (session.node == AUTH_ENABLE_NODE) session.node = VIEW_NODE;
}

void take_login_results()
{
    std::vector<Answer> answers;
    {
        std::lock_guard guard(checker().lock);
        answers.swap(checker().answers);
    }
    for (const auto& [asked, right] : answers) {
        if (!right) {
            report_failure(asked);
            delay_after_failure(asked.source);
        }
        Session& session = session_at(asked.index);
        if (session.serial != asked.serial || session.phase != Phase::Open || !session.login.pending) continue;
        session.login.answered = true;
        session.login.right = right;
        session.login.answer_at = std::max(Clock::now(), source_of(asked.source).answers_at);
        expect_deadline(session.login.answer_at);
    }
}

bool finish_login(Session& session)
{
    LoginState& login = session.login;
    if (!login.answered || Clock::now() < login.answer_at) return false;
    login.pending = login.answered = false;
    bool enables = session.node == AUTH_ENABLE_NODE;
    auto known = credentials(); // they may have been read again since the password was typed
    bool is_user = enables || known->users.empty() || known->find(login.name) != nullptr;
    if (login.right && is_user)
        enables ? let_enable(session) : let_in(session);
    else
        enables ? refuse_enable(session) : refuse_login(session);
    return true;
}

int enter_enable(Session& session)
{
    if (session.role == Role::Monitor) {
        print(session, "%% User %s may not enable.%s", session.user.c_str(), newline(session));
        return -1;
    }
    bool asks = session.role == Role::Operator && !credentials()->enable_hash.empty();
    session.node = asks ? AUTH_ENABLE_NODE : ENABLE_NODE;
    session.login.failures = 0;
    return 0;
}

void follow_credentials()
{
    auto known = credentials();
    if (known->users.empty()) return;
    for (unsigned i = 0; i < SESSION_LIMIT; ++i) {
        Session& session = session_at(i);
        if (!session.connected || session.phase != Phase::Open || session.local || session.node == AUTH_NODE) continue;
        if (const User* user = known->find(session.user))
            session.role = user->role;
        else
            close_connection(session, "% You are no longer a user of this console.");
    }
}

} // namespace engine
