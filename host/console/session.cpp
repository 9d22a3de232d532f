// SPDX-License-Identifier: Apache-2.0
#include "session.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <string_view>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "signals.h"
#include "telnet_filter.h"
#include "terminal.h"

namespace console {

namespace {

constexpr char LEAVE_KEY = 0x1D;          // Ctrl-]
constexpr std::size_t KEYS_LIMIT = 65536; // keys that a console which takes nothing may keep waiting

bool write_all(int descriptor, std::string_view text)
{
    while (!text.empty()) {
        ssize_t written = write(descriptor, text.data(), text.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0 && errno == EAGAIN) { // standard output shared with a program that made it non-blocking
            pollfd wait{descriptor, POLLOUT, 0};
            poll(&wait, 1, -1);
            continue;
        }
        if (written < 0) return false;
        text.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

class Session {
  public:
    Session(int connection_, const std::vector<std::string>& first_lines)
        : connection(connection_), keys(isatty(STDIN_FILENO) != 0), shown_on_terminal(isatty(STDOUT_FILENO) != 0),
          terminal(STDIN_FILENO)
    {
        to_console = telnet_greeting(shown_on_terminal);
        for (const std::string& line : first_lines)
            to_console += telnet_escape(line + "\r");
    }

    Ending run(int* signal_number);

  private:
    bool read_keys();
    bool read_console();
    bool send_pending();
    bool show(std::string_view text);
    bool is_lost() const;
    void handle_stop();

    int connection;
    bool keys;              // standard input is a terminal
    bool shown_on_terminal; // standard output is one
    RawTerminal terminal;
    TelnetFilter filter;
    std::string to_console; // not sent yet
    bool input_open = true;
    bool input_ended = false; // the console was told that no more lines come
    bool left = false;        // Ctrl-]
    bool size_wanted = true;  // the console is to be told the window's size
    char last_sent = '\n';
    bool heard = false; // the console has said something
    char last_shown = '\n';
    bool held_cr = false; // a carriage return that may belong to a line end
};

// False when standard input cannot be read.
bool Session::read_keys()
{
    std::array<char, 4096> buffer;
    ssize_t count = read(STDIN_FILENO, buffer.data(), buffer.size());
    if (count < 0) return errno == EINTR || errno == EAGAIN;
    if (count == 0) {
        input_open = false;
        if (last_sent != '\n') to_console += '\n'; // a last line without an end counts
        return true;
    }
    std::string_view typed(buffer.data(), static_cast<std::size_t>(count));
    if (keys) {
        std::size_t leave = typed.find(LEAVE_KEY);
        left = leave != std::string_view::npos;
        typed = typed.substr(0, leave);
    }
    to_console += telnet_escape(typed);
    if (!typed.empty()) last_sent = typed.back();
    return true;
}

bool Session::show(std::string_view text)
{
    if (text.empty()) return true;
    last_shown = text.back();
    if (shown_on_terminal) return write_all(STDOUT_FILENO, text);
    // Programs and files get plain lines.
    std::string plain;
    for (char letter : text) {
        if (held_cr && letter != '\n') plain += '\r';
        held_cr = letter == '\r';
        if (!held_cr) plain += letter;
    }
    return write_all(STDOUT_FILENO, plain);
}

// False when the session is over: the console has closed it, or nobody reads what it prints.
bool Session::read_console()
{
    std::array<char, 16384> buffer;
    ssize_t count = recv(connection, buffer.data(), buffer.size(), 0);
    if (count < 0) return errno == EINTR || errno == EAGAIN;
    if (count == 0) return false;
    heard = true;
    std::string shown;
    filter.feed({buffer.data(), static_cast<std::size_t>(count)}, &shown, &to_console);
    return show(shown);
}

// Whether the console is gone without a word. One that has not read the greeting yet cannot say goodbye in telnet, but
// the line that refuses a client or ends its session is whole.
bool Session::is_lost() const
{
    if (filter.was_ended()) return false;
    return !heard || filter.was_answered() || last_shown != '\n';
}

// False when the connection is broken.
bool Session::send_pending()
{
    while (!to_console.empty()) {
        ssize_t sent = send(connection, to_console.data(), to_console.size(), MSG_NOSIGNAL);
        if (sent < 0) return errno == EINTR || errno == EAGAIN;
        to_console.erase(0, static_cast<std::size_t>(sent));
    }
    return true;
}

// Stopped from outside: the shell gets its terminal back as it was, and the console its own on return.
void Session::handle_stop()
{
    terminal.restore();
    raise(SIGSTOP);
    if (keys) terminal.enter();
    size_wanted = true;
}

Ending Session::run(int* signal_number)
{
    sigset_t waiting = take_signals();
    for (;;) {
        if (ending_signal() != 0) {
            *signal_number = ending_signal();
            return Ending::BySignal;
        }
        if (take_stop_request()) handle_stop();
        if (take_window_change()) size_wanted = true;
        if (size_wanted) {
            size_wanted = false;
            if (shown_on_terminal) to_console += telnet_window_size(window_size(STDOUT_FILENO));
        }
        // A connection that takes nothing more may still hold the last answers; reading finds its end.
        if (!send_pending()) to_console.clear();
        if (left) return Ending::ByOperator;
        if (!input_open && to_console.empty() && !input_ended) {
            shutdown(connection, SHUT_WR);
            input_ended = true;
        }
        std::array<pollfd, 2> wait{};
        wait[0] = {connection, static_cast<short>(to_console.empty() ? POLLIN : POLLIN | POLLOUT), 0};
        // Piped lines wait until the console has taken the earlier ones; keys are read at once, for Ctrl-].
        bool read_more = input_open && (keys ? to_console.size() < KEYS_LIMIT : to_console.empty());
        wait[1] = {read_more ? STDIN_FILENO : -1, POLLIN, 0};
        if (ppoll(wait.data(), wait.size(), nullptr, &waiting) < 0) {
            if (errno == EINTR) continue;
            return Ending::Broken;
        }
        if ((wait[0].revents & (POLLIN | POLLHUP | POLLERR)) != 0 && !read_console()) {
            bool lost = is_lost();
            if (last_shown != '\n') show("\r\n");
            return lost ? Ending::Lost : Ending::ByConsole;
        }
        if (wait[1].revents != 0 && !read_keys()) return Ending::Broken;
    }
}

} // namespace

int connect_local(const std::string& path, std::string* error)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) {
        *error = "cannot connect to " + path + ": the path is too long";
        return -1;
    }
    path.copy(address.sun_path, path.size());
    int connection = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (connection < 0 || connect(connection, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        bool absent = errno == ENOENT || errno == ECONNREFUSED;
        *error = "cannot connect to " + path + ": " + std::strerror(errno) +
                 (absent ? "; is epon-host running there? (--socket names another place)" : "");
        if (connection >= 0) close(connection);
        return -1;
    }
    fcntl(connection, F_SETFL, fcntl(connection, F_GETFL) | O_NONBLOCK);
    return connection;
}

Ending run_session(int connection, const std::vector<std::string>& first_lines, int* signal_number)
{
    Session session(connection, first_lines);
    Ending ending = session.run(signal_number);
    close(connection);
    return ending;
}

} // namespace console
