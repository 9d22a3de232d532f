// SPDX-License-Identifier: Apache-2.0
// What an operator sees. One turn of a session takes what was received, executes a bounded number of lines, and sends
// all answers at once.
#include "host/engine/terminal.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <mutex>
#include <utility>

#include <sys/socket.h>
#include <unistd.h>

#include "host/engine/accounting.h"
#include "host/engine/audit.h"
#include "host/engine/dispatch.h"
#include "host/engine/event_loop.h"
#include "host/engine/limits.h"
#include "host/engine/login.h"
#include "host/engine/nodes.h"
#include "host/engine/statistics.h"

namespace engine {
namespace {

// What one session may take of a turn while others wait.
constexpr std::size_t RECEIVE_SIZE = 64 * 1024;
constexpr int LINES_PER_TURN = 256;
constexpr std::chrono::milliseconds TIME_PER_TURN{20};

// What stands in front of the line being typed.
std::string prompt_of(const Session& session)
{
    return asks_login(session) ? login_prompt(session) : prompt(&session);
}

void show_prompt(Session& session)
{
    const NodeRules& rules = rules_of(session.node);
    LineEditor::Mode mode;
    mode.echo = session.local ? session.telnet->echo : true;
    mode.secret = asks_password(session);
    mode.help = !asks_login(session) && (rules.raw_line == nullptr || rules.raw_help != nullptr);
    if (session.machine) {
        mode.echo = mode.help = false;
        mode.plain = true;
    }
    std::string text = prompt_of(session);
    session.editor.begin(text, mode);
    if (session.machine)
        send_answer(session, text);
    else
        append_output(session, text);
    session.at_prompt = session.line_open = true;
}

// Prompt and typed text once more, below what was printed meanwhile.
void restore_line(Session& session)
{
    std::string text;
    session.editor.draw(&text);
    append_output(session, text);
}

// Starts an answer. What was typed ahead is meant as commands, not as keys: then no page waits.
void begin_answer(Session& session)
{
    bool unread = session.machine || session.in_at < session.in.size() || session.in_ended;
    session.pager.begin(unread ? 0 : screen_rows(session), screen_columns(session));
}

void end_answer(Session& session)
{
    std::string text;
    session.pager.end(&text);
    append_output(session, text);
}

// The answer to a line is complete: events that waited, and a new prompt.
void finish_answer(Session& session)
{
    if (!asks_login(session) && !session.machine) append_output(session, take_event_lines(session));
    if (!session.closing) show_prompt(session);
}

// Goes on when nothing holds the answer back any more: with the line that asked for help, or with a new prompt.
void finish_if_complete(Session& session)
{
    if (session.pager.waits() || session.login.pending) return;
    if (session.line_open) {
        session.at_prompt = true;
        if (session.editor.echoes()) restore_line(session); // without echo the rest of the line is dropped
        return;
    }
    if (session.saving) {
        if (!session.saving->is_done()) return;
        finish_saving(session);
        watch_session(session);
    }
    finish_answer(session);
}

void show_all_pages(Session& session)
{
    std::string text;
    session.pager.release(&text);
    append_output(session, text);
    finish_if_complete(session);
}

// Event lines appear above the line that is being typed.
void show_events(Session& session)
{
    if (!session.at_prompt || asks_login(session) || unsent(session) > EVENT_HOLD) return;
    std::string lines = take_event_lines(session);
    if (lines.empty()) return;
    if (session.machine) {
        send_events(session, lines);
        return;
    }
    std::string erased;
    session.editor.erase(&erased);
    append_output(session, erased);
    append_output(session, lines);
    restore_line(session);
}

void finish_line(Session& session)
{
    LineEditor& editor = session.editor;
    if (session.machine) {
        ++session.machine->requests;
        session.machine->owes_answer = true;
    }
    if (asks_login(session)) {
        take_login_line(session);
    } else if (editor.too_long()) {
        print(session, LINE_TOO_LONG, LINE_LIMIT, newline(session));
        account_refused(session, "too long");
    } else if (editor.refused()) {
        print(session, LINE_REFUSED, newline(session));
        account_refused(session, "not text");
    } else {
        std::string line = editor.line();
        begin_answer(session);
        Outcome outcome = run_line(session, line);
        end_answer(session);
        if (session.machine) session.machine->outcome = outcome;
    }
}

// Shows something below the line that is being typed, and the line again.
void show_below(Session& session, std::string_view text)
{
    bool echoes = session.editor.echoes();
    begin_answer(session);
    if (echoes) append_output(session, "\r\n");
    show_answer(session, text);
    end_answer(session);
    session.at_prompt = false;
    finish_if_complete(session);
}

void show_help(Session& session)
{
    show_below(session, help_text(session, std::string_view(session.editor.line()).substr(0, session.editor.cursor())));
}

void complete_word(Session& session)
{
    Completion completion =
        complete(session, std::string_view(session.editor.line()).substr(0, session.editor.cursor()));
    std::string text;
    if (!completion.insert.empty()) session.editor.complete(completion.insert, &text);
    append_output(session, text);
    if (completion.listing.empty()) return;
    show_below(session, completion.listing);
}

void leave(Session& session)
{
    if (session.node == AUTH_NODE)
        session.closing = true;
    else if (session.node == AUTH_ENABLE_NODE)
        cancel_login(session);
    else
        leave_node(session);
}

// Acts on what was typed. True when the line is done with and a new prompt is due.
bool act(Session& session, LineEditor::Action action)
{
    switch (action) {
    case LineEditor::Action::None:
        return false;
    case LineEditor::Action::Line:
        session.at_prompt = false;
        finish_line(session);
        return true;
    case LineEditor::Action::Help:
        show_help(session);
        return false;
    case LineEditor::Action::Complete:
        complete_word(session);
        return false;
    case LineEditor::Action::Interrupt:
        if (asks_login(session)) cancel_login(session);
        return true;
    case LineEditor::Action::Leave:
        session.at_prompt = false;
        leave(session);
        return true;
    case LineEditor::Action::Redraw: {
        std::string text;
        session.editor.clear_screen(&text);
        append_output(session, text);
        return false;
    }
    }
    return false;
}

// What a local session begins with tells what sits at its other end.
void look_at_first_line(Session& session)
{
    FirstLine first = take_first_line(session);
    if (first == FirstLine::Incomplete) return;
    session.may_ask_machine = false;
    if (first == FirstLine::Request) show_prompt(session);
}

void process_input(Session& session)
{
    if (session.may_ask_machine) look_at_first_line(session);
    if (session.may_ask_machine) return;
    Clock::time_point start = Clock::now();
    int lines = 0;
    std::string echo;
    while (session.in_at < session.in.size() && !session.closing && !session.cut_off && !holds_input(session)) {
        echo.clear();
        std::string_view rest = std::string_view(session.in).substr(session.in_at);
        if (session.pager.waits()) {
            session.in_at += session.pager.feed(rest, &echo);
            append_output(session, echo);
            finish_if_complete(session);
            continue;
        }
        auto [taken, action] = session.editor.feed(rest, &echo);
        session.in_at += taken;
        append_output(session, echo);
        if (act(session, action)) {
            session.line_open = false;
            if (session.saving) watch_session(session);
            finish_if_complete(session);
            if (session.machine) send_output(session);
            if (++lines >= LINES_PER_TURN) break;
        }
        if (Clock::now() - start > TIME_PER_TURN) break;
    }
    if (session.in_at == session.in.size()) {
        session.in.clear();
        session.in_at = 0;
        if (session.in.capacity() > RECEIVE_SIZE) session.in.shrink_to_fit();
    }
}

// The second byte of a line end must not be taken for a key.
void take_typed(Session& session, std::string_view bytes)
{
    for (char byte : bytes) {
        bool second = session.after_cr && (byte == '\n' || byte == '\0');
        session.after_cr = byte == '\r';
        if (!second) session.in += byte;
    }
}

// The answer to telnet's "are you there".
void say_yes(Session& session)
{
    append_output(session, "\r\n[Yes]\r\n");
    if (session.at_prompt) restore_line(session);
}

void take_telnet(Session& session, std::string_view bytes)
{
    if (session.machine) { // no telnet any more
        take_typed(session, bytes);
        session.last_input = Clock::now();
        return;
    }
    Telnet& telnet = *session.telnet;
    bool sound = telnet.receive(bytes);
    take_typed(session, telnet.typed);
    if (!telnet.typed.empty()) session.last_input = Clock::now();
    telnet.typed.clear();
    session.out += telnet.answer;
    telnet.answer.clear();
    adopt_screen_size(session);
    if (session.local) session.editor.set_echo(telnet.echo);
    if (std::exchange(telnet.asked, false)) say_yes(session);
    if (!sound) cut_off(session, telnet.fault());
    if (unsent(session) > OUTPUT_LIMIT) cut_off(session, "it left too much output unread");
}

void receive(Session& session)
{
    static thread_local std::array<char, RECEIVE_SIZE> bytes;
    ssize_t size = recv(session.fd, bytes.data(), bytes.size(), 0);
    if (size > 0) {
        count(counters().bytes_received, static_cast<std::uint64_t>(size));
        take_telnet(session, {bytes.data(), static_cast<std::size_t>(size)});
    } else if (size == 0) {
        session.in_ended = true;
        watch_session(session);
    } else if (errno != EAGAIN && errno != EWOULDBLOCK && errno != EINTR) {
        cut_off(session, nullptr);
    }
}

// Gives connection and record back.
void release(Session& session)
{
    if (session.cut_off) {
        // The system forgets at once what the client did not take.
        linger at_once{1, 0};
        setsockopt(session.fd, SOL_SOCKET, SO_LINGER, &at_once, sizeof at_once);
    } else {
        // What the client still sent must not become a reset that destroys the last lines on their way to it.
        char rest[4096];
        for (int i = 0; i < 256 && recv(session.fd, rest, sizeof rest, MSG_DONTWAIT) > 0; ++i) {
        }
    }
    unwatch(session.fd);
    close(session.fd);
    session.fd = -1;
    free_session(session);
}

void drain(Session& session)
{
    if (session.cut_off || unsent(session) == 0 || Clock::now() >= session.drain_end)
        release(session);
    else
        watch_session(session);
}

struct Banner {
    std::mutex lock;
    std::string text; // under lock
};

Banner& shared_banner()
{
    static Banner& the = *new Banner;
    return the;
}

std::string banner()
{
    std::lock_guard guard(shared_banner().lock);
    return shared_banner().text;
}

void count_opened()
{
    std::uint64_t open = 0;
    for (unsigned i = 0; i < SESSION_LIMIT; ++i)
        if (session_at(i).connected && session_at(i).phase == Phase::Open) ++open;
    count(counters().sessions_opened);
    if (open > counters().sessions_peak) counters().sessions_peak = open;
}

// A client of the local socket that speaks telnet is told that this is the end. Programs that do not get clean text,
// and telnet on TCP says by itself that the connection was closed.
void announce_end(Session& session)
{
    if (!session.local || session.machine || session.cut_off || !session.telnet->echo) return;
    session.telnet->announce_end();
    session.out += session.telnet->answer;
    session.telnet->answer.clear();
}

void report_end(const Session& session, const char* last_line)
{
    std::string reason = session.end_reason;
    if (reason.empty() && last_line != nullptr) reason = std::string_view(last_line).substr(2);
    if (reason.empty()) reason = session.closing ? "logout" : "disconnected";
    auto seconds = std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - session.opened).count();
    audit(Severity::Informational, "CLOSE",
          {{"session", std::to_string(session.index)},
           {"user", user_text(session)},
           {"from", session.from},
           {"reason", reason},
           {"seconds", std::to_string(seconds)}});
}

} // namespace

void refuse_connection(int fd, const Peer& peer, std::string_view why)
{
    std::string line = "% " + std::string(why) + "\r\n";
    send(fd, line.data(), line.size(), MSG_NOSIGNAL);
    close(fd);
    count(counters().sessions_refused);
    audit(Severity::Warning, "REFUSED", {{"from", peer.from}, {"reason", why}});
}

void open_connection(int fd, const Peer& peer)
{
    Session* taken = make_room_for(peer.local) ? take_session(VTY_TYPE_TERMINAL) : nullptr;
    if (taken == nullptr) {
        refuse_connection(fd, peer, "Too many sessions.");
        return;
    }
    Session& session = *taken;
    session.fd = fd;
    session.connected = true;
    session.local = session.may_ask_machine = peer.local;
    session.from = peer.from;
    session.source = peer.source;
    session.user = peer.user;
    session.role = peer.role;
    session.telnet = std::make_unique<Telnet>(!peer.local);
    begin_login(session);
    publish(session);
    count_opened();
    audit(Severity::Informational, "OPEN",
          {{"session", std::to_string(session.index)}, {"user", user_text(session)}, {"from", session.from}});
    take_telnet(session, {});
    append_output(session, banner());
    print(session, "Console of %s. Type ? for the commands, help for a first tour.%s", host_name().c_str(),
          newline(session));
    show_prompt(session);
    watch_session(session);
    expect_deadline(deadline_of(session));
    send_output(session);
}

void close_connection(Session& session, const char* last_line)
{
    if (session.phase == Phase::Open) {
        session.pager.begin(0, 0);
        if (last_line != nullptr) print(session, "%s%s%s", newline(session), last_line, newline(session));
        report_end(session, last_line);
        retire(session);
        if (session.machine && !session.cut_off) send_closing(session);
        announce_end(session);
        send_output(session);
        session.phase = Phase::Draining;
        session.drain_end = Clock::now() + DRAIN_TIME;
        expect_deadline(session.drain_end);
    }
    drain(session);
}

void drop_connection(Session& session)
{
    session.drain_end = Clock::now();
    close_connection(session, nullptr);
    if (session.phase == Phase::Draining) release(session);
}

int serve_session(thread* work)
{
    Session& session = *session_of(static_cast<vty*>(work->arg));
    session.queued = false;
    if (session.fd < 0) return 0;
    if (session.waits_to_send) send_output(session);
    if (session.phase == Phase::Draining) {
        drain(session);
        return 0;
    }
    session.flush_wanted.store(false);
    if (session.saving) finish_if_complete(session);
    if (session.login.pending && finish_login(session)) {
        watch_session(session);
        finish_if_complete(session);
    }
    bool all_taken = session.in_at == session.in.size() || session.may_ask_machine;
    if (all_taken && !session.in_ended && !session.cut_off && !holds_input(session)) receive(session);
    if (session.in_ended && session.pager.waits()) show_all_pages(session); // nobody will press a key
    process_input(session);
    bool input_left = session.in_at < session.in.size() && !session.may_ask_machine;
    bool ended = session.in_ended && !input_left && !session.saving && !session.login.pending && !session.pager.waits();
    if (session.closing || session.cut_off || ended) {
        close_connection(session, nullptr);
        return 0;
    }
    show_events(session);
    send_output(session);
    if (session.cut_off || (input_left && !holds_input(session))) queue_session(session);
    return 0;
}

void set_banner(const std::string& text)
{
    std::lock_guard guard(shared_banner().lock);
    shared_banner().text = text;
}

} // namespace engine
