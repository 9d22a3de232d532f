// SPDX-License-Identifier: Apache-2.0
// Where the console is served: a TCP port and a local socket for the host's own users.
#include <cctype>
#include <cerrno>
#include <condition_variable>
#include <cstring>
#include <mutex>

#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include "host/engine/event_loop.h"
#include "host/engine/log.h"
#include "host/engine/login.h"
#include "host/engine/nodes.h"
#include "host/engine/terminal.h"

namespace engine {
namespace {

constexpr int BACKLOG = 64;
constexpr int ACCEPTS_PER_TURN = 16;
constexpr const char* USUAL_ADDRESS = "127.0.0.1";

struct Server {
    Options options;
    std::string password_hash;

    int tcp = -1;
    std::string tcp_address;     // as it was asked for
    std::uint16_t tcp_port = 0;  // as it was asked for; 0: any free one
    std::uint16_t tcp_bound = 0; // as it is
    int local = -1;
    std::string local_path;
    dev_t local_device = 0; // the socket file that is ours to remove
    ino_t local_inode = 0;
    std::string complaint; // the last one, so that it is not repeated
    int spare = -1;        // given up for a moment when descriptors run out, to turn clients away

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

// Binds and listens. -1 with a text when that fails.
int listen_tcp(const std::string& address, std::uint16_t port, std::uint16_t* bound, std::string* error)
{
    std::string where = address + " port " + std::to_string(port);
    addrinfo hints{};
    hints.ai_flags = AI_NUMERICHOST | AI_NUMERICSERV | AI_PASSIVE;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    int result = getaddrinfo(address.c_str(), std::to_string(port).c_str(), &hints, &found);
    if (result != 0) {
        *error = "cannot listen on " + where + ": " + gai_strerror(result) + " (a numeric address is expected)";
        return -1;
    }
    int fd = socket(found->ai_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    int on = 1;
    bool listens = fd >= 0 && setsockopt(fd, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on) == 0 &&
                   bind(fd, found->ai_addr, found->ai_addrlen) == 0 && listen(fd, BACKLOG) == 0;
    int reason = errno;
    freeaddrinfo(found);
    if (!listens) {
        if (fd >= 0) close(fd);
        *error = "cannot listen on " + where + ": " + strerror(reason);
        return -1;
    }
    sockaddr_storage own{};
    socklen_t size = sizeof own;
    getsockname(fd, reinterpret_cast<sockaddr*>(&own), &size);
    *bound = ntohs(own.ss_family == AF_INET6 ? reinterpret_cast<sockaddr_in6&>(own).sin6_port
                                             : reinterpret_cast<sockaddr_in&>(own).sin_port);
    return fd;
}

// A socket file that nobody listens at any more is removed; anything else stays, with the reason in *error.
bool make_room(const std::string& path, const sockaddr_un& address, std::string* error)
{
    struct stat status {};
    if (lstat(path.c_str(), &status) != 0) {
        if (errno == ENOENT) return true;
        *error = strerror(errno);
        return false;
    }
    if (!S_ISSOCK(status.st_mode)) {
        *error = "a file of that name is in the way";
        return false;
    }
    int probe = socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    int result = probe < 0 ? -1 : connect(probe, reinterpret_cast<const sockaddr*>(&address), sizeof address);
    int reason = errno;
    if (probe >= 0) close(probe);
    if (result == 0 || reason == EAGAIN) {
        *error = "another process serves it";
        return false;
    }
    if (reason != ECONNREFUSED || unlink(path.c_str()) != 0) {
        *error = strerror(reason != ECONNREFUSED ? reason : errno);
        return false;
    }
    return true;
}

int listen_local(const std::string& path, std::string* error)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::string reason;
    int fd = -1;
    if (path.size() >= sizeof address.sun_path) {
        reason = "the path is too long";
    } else {
        memcpy(address.sun_path, path.c_str(), path.size() + 1);
        if (make_room(path, address, &reason)) {
            fd = socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
            // The file gets the rights of the unbound socket: its owner's only, from the first moment.
            if (fd < 0 || fchmod(fd, S_IRUSR | S_IWUSR) != 0 ||
                bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 || listen(fd, BACKLOG) != 0) {
                reason = strerror(errno);
                if (fd >= 0) close(fd);
                fd = -1;
            }
        }
    }
    if (fd < 0) *error = "cannot serve the local socket " + path + ": " + reason;
    return fd;
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
    struct stat status {};
    if (lstat(at.local_path.c_str(), &status) == 0 && status.st_dev == at.local_device &&
        status.st_ino == at.local_inode)
        unlink(at.local_path.c_str());
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
    at.local = listen_local(path, &error);
    at.local_path = path;
    if (at.local < 0) {
        complain(at, error);
        return;
    }
    struct stat status {};
    if (lstat(path.c_str(), &status) == 0) {
        at.local_device = status.st_dev;
        at.local_inode = status.st_ino;
    }
    watch_listener(at.local);
}

std::string peer_name(int fd, bool local)
{
    if (local) {
        ucred peer{};
        socklen_t size = sizeof peer;
        if (getsockopt(fd, SOL_SOCKET, SO_PEERCRED, &peer, &size) != 0) return "local";
        return "local, user " + std::to_string(peer.uid) + ", process " + std::to_string(peer.pid);
    }
    sockaddr_storage peer{};
    socklen_t size = sizeof peer;
    char host[NI_MAXHOST], port[NI_MAXSERV];
    if (getpeername(fd, reinterpret_cast<sockaddr*>(&peer), &size) != 0 ||
        getnameinfo(reinterpret_cast<sockaddr*>(&peer), size, host, sizeof host, port, sizeof port,
                    NI_NUMERICHOST | NI_NUMERICSERV) != 0)
        return "gone";
    return std::string(host) + " port " + port;
}

int accept_one(Server& at, int listener)
{
    int fd = accept4(listener, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
    if (fd >= 0 || (errno != EMFILE && errno != ENFILE)) return fd;
    // Without a descriptor the client cannot even be turned away, and would be reported for ever.
    complain(at, "out of descriptors: a client was turned away");
    if (at.spare >= 0) close(at.spare);
    fd = accept4(listener, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
    if (fd >= 0) close(fd);
    at.spare = open("/dev/null", O_RDONLY | O_CLOEXEC);
    return -1;
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
        int on = 1;
        if (!local) {
            setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
            setsockopt(fd, SOL_SOCKET, SO_KEEPALIVE, &on, sizeof on);
        }
        open_connection(fd, local, peer_name(fd, local));
    }
    return 0;
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

} // namespace

bool prepare(const Options& options, std::string* error)
{
    Server& at = server();
    if (options.host_name.empty()) {
        *error = "the host's name is empty";
        return false;
    }
    for (char c : options.host_name)
        if (iscntrl(static_cast<unsigned char>(c)) != 0) {
            *error = "the host's name holds a control character";
            return false;
        }
    std::string hash;
    if (!options.password_file.empty() && !load_password(options.password_file, &hash, error)) return false;
    std::uint16_t bound = 0;
    int fd = options.serve ? listen_tcp(options.listen_address, options.port, &bound, error) : -1;
    if (options.serve && fd < 0) return false;
    close_tcp(at);
    at.tcp = fd;
    at.tcp_address = options.listen_address;
    at.tcp_port = options.port;
    at.tcp_bound = bound;
    at.options = options;
    at.password_hash = hash;
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

std::string served_at()
{
    Server& at = server();
    std::lock_guard guard(at.lock);
    return at.served_at;
}

} // namespace engine

void RBX_vty_config_password(void)
{
    engine::set_password_hash(engine::server().password_hash);
}

void RBX_vty_serv_sock(const char* addr, unsigned short port, const char* path)
{
    engine::Server& at = engine::server();
    if (!at.options.serve) return;
    if (at.options.starts_closed) {
        std::unique_lock guard(at.lock);
        at.opened.wait(guard, [&] { return at.is_open; });
    }
    engine::set_loop_handlers({engine::accept_clients, engine::serve_session, engine::close_everything});
    if (at.spare < 0) at.spare = open("/dev/null", O_RDONLY | O_CLOEXEC);
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
