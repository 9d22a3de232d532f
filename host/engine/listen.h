// SPDX-License-Identifier: Apache-2.0
// The sockets that the console listens at, and who is at the other end of a connection.
#pragma once

#include <cstdint>
#include <string>

#include <sys/types.h>

#include "host/engine/terminal.h"

namespace engine {

// Binds and listens. -1 with a text when that fails.
int listen_tcp(const std::string& address, std::uint16_t port, std::uint16_t* bound, std::string* error);
// Whether nobody but this machine can reach the listener.
bool is_loopback(int listener);
// The socket's file is for the host's user, and for a group when one is given.
int listen_local(const std::string& path, const gid_t* group, std::string* error);

// Whether the path is still the file that this process made; otherwise another one's, and not to be removed.
struct SocketFile {
    dev_t device = 0;
    ino_t inode = 0;
};
SocketFile socket_file(const std::string& path);

Peer tcp_peer(int fd);
Peer local_peer(int fd);
// Whether the process at the other end of a local connection may use the console: those of root and of the host's own
// user as administrators, those of the group as operators.
bool local_peer_may_enter(int fd, const gid_t* group, Peer* who);

} // namespace engine
