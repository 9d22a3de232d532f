// SPDX-License-Identifier: Apache-2.0
// Where the console is served: a TCP port and a local socket for the host's own users.
#include <atomic>
#include <cctype>
#include <cerrno>
#include <condition_variable>
#include <cstring>
#include <fstream>
#include <mutex>
#include <utility>

#include <fcntl.h>
#include <grp.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include "host/engine/audit.h"
#include "host/engine/event_loop.h"
#include "host/engine/limits.h"
#include "host/engine/listen.h"
#include "host/engine/log.h"
#include "host/engine/login.h"
#include "host/engine/nodes.h"
#include "host/engine/save_file.h"
#include "host/engine/statistics.h"
#include "host/engine/terminal.h"

namespace engine {
namespace {

constexpr int ACCEPTS_PER_TURN = 16;
constexpr const char* USUAL_ADDRESS = "127.0.0.1";
// While there is no descriptor left at all, not even to turn a client away, so long nobody is accepted.
constexpr std::chrono::milliseconds ACCEPT_PAUSE{100};
constexpr std::size_t BANNER_LIMIT = 4096;

struct Server {
    Options options;
    std::shared_ptr<const Credentials> known; // as prepare found them

    int tcp = -1;
    std::string tcp_address;     // as it was asked for
    std::uint16_t tcp_port = 0;  // as it was asked for; 0: any free one
    std::uint16_t tcp_bound = 0; // as it is
    int local = -1;
    std::string local_path;
    SocketFile local_file;     // ours to remove
    std::string complaint;     // the last one, so that it is not repeated
    bool is_exhausted = false; // out of descriptors, and said so
    bool has_group = false;
    gid_t group = 0;            // may use the local socket, when the options name one
    bool accepts_later = false; // the listeners are looked at again at accept_at
    Clock::time_point accept_at;
    std::atomic<bool> reloaded{false};
    int spare = -1; // given up for a moment when descriptors run out, to turn clients away

    std::mutex lock;
    std::string served_at; // under lock
    bool is_open = false;  // under lock
    std::condition_variable opened;
};

Server& server()
{
    static Server& the = *new Server;
    return the;
}

void close_tcp(Server& at)
{
    if (at.tcp < 0) return;
    unwatch(at.tcp);
    close(at.tcp);
    at.tcp = -1;
}

void close_local(Server& at)
{
    if (at.local < 0) return;
    unwatch(at.local);
    close(at.local);
    at.local = -1;
    SocketFile now = socket_file(at.local_path);
    if (now.device == at.local_file.device && now.inode == at.local_file.inode) unlink(at.local_path.c_str());
}

const gid_t* socket_group(const Server& at)
{
    return at.has_group ? &at.group : nullptr;
}

void complain(Server& at, const std::string& text)
{
    if (at.complaint == text) return;
    at.complaint = text;
    log_line("%s", text.c_str());
}

void serve_tcp(Server& at, const std::string& address, std::uint16_t port)
{
    bool same = address == at.tcp_address && (port == at.tcp_port || port == at.tcp_bound);
    if (at.tcp < 0 || !same) {
        close_tcp(at);
        std::string error;
        at.tcp = listen_tcp(address, port, &at.tcp_bound, &error);
        at.tcp_address = address;
        at.tcp_port = port;
        if (at.tcp < 0) complain(at, error);
    }
    if (at.tcp >= 0) watch_listener(at.tcp);
}

void serve_local(Server& at, const std::string& path)
{
    if (path.empty() || (at.local >= 0 && path == at.local_path)) return;
    close_local(at);
    std::string error;
    at.local = listen_local(path, socket_group(at), &error);
    at.local_path = path;
    if (at.local < 0) {
        complain(at, error);
        return;
    }
    at.local_file = socket_file(path);
    watch_listener(at.local);
}

void pause_accepting(Server& at)
{
    for (int listener : {at.tcp, at.local})
        if (listener >= 0) unwatch(listener);
    at.accepts_later = true;
    at.accept_at = Clock::now() + ACCEPT_PAUSE;
    expect_deadline(at.accept_at);
}

void keep_spare(Server& at)
{
    at.spare = open("/dev/null", O_RDONLY | O_CLOEXEC);
}

int accept_one(Server& at, int listener)
{
    int fd = accept4(listener, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
    if (fd >= 0 && std::exchange(at.is_exhausted, false) && at.spare < 0) keep_spare(at);
    if (fd >= 0 || (errno != EMFILE && errno != ENFILE && errno != ENOBUFS && errno != ENOMEM)) return fd;
    // Without a descriptor the client cannot even be turned away, and would be reported for ever.
    if (!std::exchange(at.is_exhausted, true)) log_line("out of descriptors: clients are turned away");
    if (at.spare >= 0) close(at.spare);
    fd = accept4(listener, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
    if (fd >= 0) close(fd);
    keep_spare(at);
    if (fd >= 0) {
        count(counters().sessions_refused);
        audit(Severity::Warning, "REFUSED", {{"reason", "out of descriptors"}});
    } else {
        pause_accepting(at);
    }
    return -1;
}

void turn_on(int fd, int level, int option)
{
    int on = 1;
    setsockopt(fd, level, option, &on, sizeof on);
}

void greet(const Server& at, int fd, bool local)
{
    Peer peer = local ? local_peer(fd) : tcp_peer(fd);
    if (local && !local_peer_may_enter(fd, socket_group(at), &peer)) {
        refuse_connection(fd, peer, "Not allowed here.");
        return;
    }
    if (!local) {
        turn_on(fd, IPPROTO_TCP, TCP_NODELAY);
        turn_on(fd, SOL_SOCKET, SO_KEEPALIVE);
        turn_on(fd, SOL_SOCKET, SO_OOBINLINE); // urgent bytes keep their place among the others
    }
    open_connection(fd, peer);
}

int accept_clients(thread* work)
{
    Server& at = server();
    int listener = work->u.fd;
    if (listener != at.tcp && listener != at.local) return 0;
    bool local = listener == at.local;
    for (int i = 0; i < ACCEPTS_PER_TURN; ++i) {
        int fd = accept_one(at, listener);
        if (fd < 0) break;
        greet(at, fd, local);
    }
    return 0;
}

void meet_deadlines()
{
    Server& at = server();
    if (at.accepts_later && Clock::now() >= at.accept_at) {
        at.accepts_later = false;
        for (int listener : {at.tcp, at.local})
            if (listener >= 0) watch_listener(listener);
    }
    if (at.accepts_later) expect_deadline(at.accept_at);
    check_deadlines();
}

void take_results()
{
    take_login_results();
    if (server().reloaded.exchange(false)) follow_credentials();
}

void close_sessions()
{
    for (unsigned i = 0; i < SESSION_LIMIT; ++i) {
        Session& session = session_at(i);
        if (session.connected && session.phase == Phase::Open)
            close_connection(session, "% The host closed this session.");
    }
}

void close_everything()
{
    Server& at = server();
    {
        std::lock_guard guard(at.lock);
        at.served_at.clear();
    }
    close_tcp(at);
    close_local(at);
    close_sessions();
    for (unsigned i = 0; i < SESSION_LIMIT; ++i)
        if (session_at(i).phase == Phase::Draining) drop_connection(session_at(i));
}

bool check_host_name(const std::string& name, std::string* error)
{
    if (name.empty()) *error = "the host's name is empty";
    for (char c : name)
        if (iscntrl(static_cast<unsigned char>(c)) != 0) *error = "the host's name holds a control character";
    return error->empty();
}

bool load_banner(const std::string& path, std::string* text, std::string* error)
{
    if (path.empty()) return true;
    std::ifstream file(path, std::ios::binary);
    char c;
    while (error->empty() && file.get(c)) {
        if (c == '\r') continue;
        if (c == '\n') *text += '\r';
        if (c != '\n' && c != '\t' && iscntrl(static_cast<unsigned char>(c)) != 0) *error = "it holds a control byte";
        *text += c;
        if (text->size() > BANNER_LIMIT) *error = "it is longer than " + std::to_string(BANNER_LIMIT) + " bytes";
    }
    if (error->empty() && !file.eof()) *error = strerror(errno);
    if (!error->empty()) *error = "banner file " + path + ": " + *error;
    if (!text->empty() && text->back() != '\n') *text += "\r\n";
    return error->empty();
}

bool find_group(const std::string& name, Server* at, std::string* error)
{
    at->has_group = !name.empty();
    if (name.empty()) return true;
    const group* found = getgrnam(name.c_str());
    if (found == nullptr) *error = "there is no group " + name;
    at->group = found != nullptr ? found->gr_gid : 0;
    return found != nullptr;
}

} // namespace

bool prepare(const Options& options, std::string* error)
{
    Server& at = server();
    error->clear();
    std::string banner;
    if (!check_host_name(options.host_name, error) || !find_group(options.socket_group, &at, error) ||
        !load_banner(options.banner_file, &banner, error))
        return false;
    auto known = load_credentials(options, error);
    if (known == nullptr || !open_audit(options.audit, error)) return false;
    if (!set_save_directory(options.save_directory, error)) return false;
    std::uint16_t bound = 0;
    int fd = options.serve ? listen_tcp(options.listen_address, options.port, &bound, error) : -1;
    if (options.serve && fd < 0) return false;
    if (options.serve && !is_loopback(fd) && !known->asks_at_login()) {
        close(fd);
        *error = "cannot listen on " + options.listen_address +
                 ": without users or a password, whoever reaches it could " + "use the console";
        return false;
    }
    close_tcp(at);
    at.tcp = fd;
    at.tcp_address = options.listen_address;
    at.tcp_port = options.port;
    at.tcp_bound = bound;
    at.options = options;
    at.known = known;
    set_login_delay(options.login_delay);
    set_limits(options);
    set_banner(banner);
    set_host_name(options.host_name);
    if (!options.serve) park_at_once();
    return true;
}

std::uint16_t bound_port()
{
    Server& at = server();
    return at.tcp >= 0 ? at.tcp_bound : 0;
}

void open_console()
{
    Server& at = server();
    {
        std::lock_guard guard(at.lock);
        at.is_open = true;
    }
    at.opened.notify_all();
}

bool reload(std::string* error)
{
    Server& at = server();
    error->clear();
    reopen_audit();
    std::string banner;
    auto known = load_credentials(at.options, error);
    bool good = known != nullptr && load_banner(at.options.banner_file, &banner, error);
    audit(good ? Severity::Notice : Severity::Warning, "RELOAD", {{"status", good ? "done" : *error}});
    if (!good) return false;
    set_credentials(known);
    set_banner(banner);
    at.reloaded = true;
    wake_loop();
    return true;
}

std::string served_at()
{
    Server& at = server();
    std::lock_guard guard(at.lock);
    return at.served_at;
}

} // namespace engine

void RBX_vty_config_password(void)
{
    if (engine::server().known != nullptr) engine::set_credentials(engine::server().known);
}

void RBX_vty_serv_sock(const char* addr, unsigned short port, const char* path)
{
    engine::Server& at = engine::server();
    if (!at.options.serve) return;
    if (at.options.starts_closed) {
        std::unique_lock guard(at.lock);
        at.opened.wait(guard, [&] { return at.is_open; });
    }
    engine::set_loop_handlers({engine::accept_clients, engine::serve_session, engine::close_everything,
                               engine::take_results, engine::meet_deadlines});
    if (at.spare < 0) engine::keep_spare(at);
    std::string address = addr != nullptr ? addr : at.options.listen_address;
    std::string local = !at.options.socket_path.empty() ? at.options.socket_path : path != nullptr ? path : "";
    engine::serve_tcp(at, address.empty() ? engine::USUAL_ADDRESS : address, port);
    engine::serve_local(at, local);
    std::string text;
    if (at.tcp >= 0) text = at.tcp_address + " port " + std::to_string(at.tcp_bound);
    if (at.local >= 0) text += (text.empty() ? "" : " and ") + at.local_path;
    std::lock_guard guard(at.lock);
    at.served_at = text;
}

void RBX_vty_kill_all(void)
{
    __atomic_store_n(&RBX_vty_kill_all_flag, 0, __ATOMIC_RELEASE);
    engine::close_sessions();
    engine::serve_anew();
}
