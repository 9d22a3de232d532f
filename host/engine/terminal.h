// SPDX-License-Identifier: Apache-2.0
// One operator at the other end of a connection: greeting, prompt, typing, events, and the end of it.
#pragma once

#include <string>

#include "host/engine/session.h"

namespace engine {

// Starts a session on a connected, non-blocking socket, which it owns from then on.
void open_connection(int fd, bool local, const std::string& from);
// Closes a session with a last line to the operator; the text may be null.
void close_connection(Session& session, const char* last_line);
// Closes it without waiting for the client to take what is left.
void drop_connection(Session& session);
// A session of which the loop says that it has something to do.
int serve_session(thread* work);

// The hash that sessions have to log in with; empty: no login.
void set_password_hash(const std::string& hash);

} // namespace engine
