// SPDX-License-Identifier: Apache-2.0
#include "host/engine/listen.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <vector>

#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace engine {
namespace {

constexpr int BACKLOG = 64;

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

// The folder of the socket decides who may replace it. One that is missing is made, for the host's user alone.
bool check_folder(const std::string& path, std::string* error)
{
    std::size_t end = path.rfind('/');
    std::string folder = end == std::string::npos ? "." : end == 0 ? "/" : path.substr(0, end);
    if (mkdir(folder.c_str(), S_IRWXU) != 0 && errno != EEXIST) {
        *error = strerror(errno);
        return false;
    }
    struct stat status {};
    if (stat(folder.c_str(), &status) != 0) {
        *error = strerror(errno);
        return false;
    }
    bool foreign = status.st_uid != 0 && status.st_uid != geteuid();
    bool open_to_all = (status.st_mode & (S_IWGRP | S_IWOTH)) != 0 && (status.st_mode & S_ISVTX) == 0;
    if (foreign || open_to_all) *error = "others may change its folder";
    return !foreign && !open_to_all;
}

bool give_to(const std::string& path, const gid_t* group)
{
    if (group == nullptr) return true;
    constexpr uid_t SAME = static_cast<uid_t>(-1);
    return chown(path.c_str(), SAME, *group) == 0 && chmod(path.c_str(), S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP) == 0;
}

std::vector<gid_t> groups_of_peer(int fd)
{
    std::vector<gid_t> groups(64);
    socklen_t size = static_cast<socklen_t>(groups.size() * sizeof(gid_t));
    int result = getsockopt(fd, SOL_SOCKET, SO_PEERGROUPS, groups.data(), &size);
    if (result != 0 && errno == ERANGE) {
        groups.resize(size / sizeof(gid_t));
        result = getsockopt(fd, SOL_SOCKET, SO_PEERGROUPS, groups.data(), &size);
    }
    groups.resize(result == 0 ? size / sizeof(gid_t) : 0);
    return groups;
}

bool peer_credentials(int fd, ucred* peer)
{
    socklen_t size = sizeof *peer;
    return getsockopt(fd, SOL_SOCKET, SO_PEERCRED, peer, &size) == 0;
}

// All addresses of one network of the newer kind belong to one source: who has one has as many as he likes.
std::string source_text(const sockaddr_storage& address, const char* text)
{
    constexpr std::size_t NETWORK_BYTES = 8;
    if (address.ss_family != AF_INET6) return text;
    const auto& whole = reinterpret_cast<const sockaddr_in6&>(address).sin6_addr;
    if (IN6_IS_ADDR_V4MAPPED(&whole)) return text;
    return std::string("network ") + std::string(reinterpret_cast<const char*>(whole.s6_addr), NETWORK_BYTES);
}

} // namespace

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

int listen_local(const std::string& path, const gid_t* group, std::string* error)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::string reason;
    int fd = -1;
    if (path.size() >= sizeof address.sun_path) {
        reason = "the path is too long";
    } else {
        memcpy(address.sun_path, path.c_str(), path.size() + 1);
        if (check_folder(path, &reason) && make_room(path, address, &reason)) {
            fd = socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
            // The file gets the rights of the unbound socket: its owner's only, from the first moment.
            if (fd < 0 || fchmod(fd, S_IRUSR | S_IWUSR) != 0 ||
                bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 || !give_to(path, group) ||
                listen(fd, BACKLOG) != 0) {
                reason = strerror(errno);
                if (fd >= 0) close(fd);
                fd = -1;
            }
        }
    }
    if (fd < 0) *error = "cannot serve the local socket " + path + ": " + reason;
    return fd;
}

bool is_loopback(int listener)
{
    sockaddr_storage own{};
    socklen_t size = sizeof own;
    if (getsockname(listener, reinterpret_cast<sockaddr*>(&own), &size) != 0) return false;
    if (own.ss_family == AF_INET6) return IN6_IS_ADDR_LOOPBACK(&reinterpret_cast<sockaddr_in6&>(own).sin6_addr);
    constexpr in_addr_t LOOPBACK_NETWORK = 127;
    return ntohl(reinterpret_cast<sockaddr_in&>(own).sin_addr.s_addr) >> 24 == LOOPBACK_NETWORK;
}

SocketFile socket_file(const std::string& path)
{
    struct stat status {};
    if (lstat(path.c_str(), &status) != 0) return {};
    return {status.st_dev, status.st_ino};
}

Peer tcp_peer(int fd)
{
    sockaddr_storage address{};
    socklen_t size = sizeof address;
    char host[NI_MAXHOST], port[NI_MAXSERV];
    if (getpeername(fd, reinterpret_cast<sockaddr*>(&address), &size) != 0 ||
        getnameinfo(reinterpret_cast<sockaddr*>(&address), size, host, sizeof host, port, sizeof port,
                    NI_NUMERICHOST | NI_NUMERICSERV) != 0)
        return {false, "gone", "gone", {}};
    return {false, std::string(host) + " port " + port, source_text(address, host), {}};
}

Peer local_peer(int fd)
{
    Peer peer{true, "local", "local", {}};
    ucred credentials{};
    if (!peer_credentials(fd, &credentials)) return peer;
    std::string uid = std::to_string(credentials.uid);
    peer.from += ", user " + uid + ", process " + std::to_string(credentials.pid);
    peer.user = "uid=" + uid;
    return peer;
}

bool local_peer_may_enter(int fd, const gid_t* group, Peer* who)
{
    ucred peer{};
    if (!peer_credentials(fd, &peer)) return false;
    if (peer.uid == 0 || peer.uid == geteuid()) {
        who->role = Role::Admin;
        return true;
    }
    if (group == nullptr) return false;
    std::vector<gid_t> groups = groups_of_peer(fd);
    return peer.gid == *group || std::find(groups.begin(), groups.end(), *group) != groups.end();
}

} // namespace engine
