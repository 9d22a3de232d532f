// SPDX-License-Identifier: Apache-2.0
// How many sessions there may be, and how long each may take.
#pragma once

#include <chrono>

#include "host/engine/engine_host.h"
#include "host/engine/session.h"

namespace engine {

void set_limits(const Options& options);

// How long an operator may type nothing; 0: for ever. Console thread.
std::chrono::milliseconds exec_timeout();
void set_exec_timeout(std::chrono::milliseconds time);

// Whether one more client may have a session. One place is kept for the local socket. When all are taken, a client that
// has not logged in yet makes room: the oldest of the source that has the most of them.
bool make_room_for(bool local);

// The next moment at which the session's time is over.
Clock::time_point deadline_of(const Session& session);
// Acts on every session whose time is over.
void check_deadlines();

} // namespace engine
