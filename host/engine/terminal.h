// SPDX-License-Identifier: Apache-2.0
// One operator at the other end of a connection: greeting, prompt, typing, events, and the end of it.
#pragma once

#include <string>

#include "host/engine/session.h"

namespace engine {

struct Peer {
    bool local = false;
    std::string from;   // as "who" and the audit record show it
    std::string source; // the same for all connections from there
    std::string user;   // local: who the system says it is
    Role role = Role::Operator;
};

// Starts a session on a connected, non-blocking socket, which it owns from then on; or refuses it.
void open_connection(int fd, const Peer& peer);
void refuse_connection(int fd, const Peer& peer, std::string_view why);
// Closes a session with a last line to the operator; the text may be null.
void close_connection(Session& session, const char* last_line);
// Closes it without waiting for the client to take what is left.
void drop_connection(Session& session);
// A session of which the loop says that it has something to do.
int serve_session(thread* work);

// Any thread: what every client is shown first; complete lines.
void set_banner(const std::string& text);

} // namespace engine
