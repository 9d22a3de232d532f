// SPDX-License-Identifier: Apache-2.0
// The console thread's event loop, as the other parts of the engine use it.
#pragma once

#include "host/engine/session.h"

namespace engine {

// Called by the loop on the console thread.
struct LoopHandlers {
    int (*accept)(thread* work);  // a client waits at the listener work->u.fd
    int (*session)(thread* work); // the session work->arg has something to do
    void (*park)();               // the console ends: close everything
    void (*woken)();              // another thread called wake_loop
    void (*deadlines)();          // the time given to expect_deadline has come
};
void set_loop_handlers(const LoopHandlers& handlers);

void watch_listener(int fd);
void unwatch(int fd);
// Watches the session's connection according to its phase and output; call it after each change.
void watch_session(Session& session);
// The session has more to do than one turn allows, or must be looked at in this turn.
void queue_session(Session& session);

// Calls the deadlines handler then, or earlier.
void expect_deadline(Clock::time_point at);

// Makes the loop look at the sessions that asked for a flush. Any thread.
void wake_loop();
// The next fetch returns null.
void serve_anew();
// The console thread parks as soon as it fetches.
void park_at_once();
// Whether the calling thread runs the loop.
bool on_console_thread();

} // namespace engine
