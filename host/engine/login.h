// SPDX-License-Identifier: Apache-2.0
// Logging in and enabling: what is asked, checked on a thread of its own, and answered the later the more often a
// source was wrong.
#pragma once

#include <memory>
#include <string>

#include "host/engine/session.h"
#include "host/engine/users.h"

namespace engine {

// Wrong passwords of one connection, and of one "enable", before it ends.
constexpr int LOGIN_TRIES = 3;
// The longest that a wrong password waits for its answer.
constexpr std::chrono::seconds LOGIN_DELAY_LIMIT{30};

// Any thread: what passwords are checked against from now on.
void set_credentials(std::shared_ptr<const Credentials> credentials);
std::shared_ptr<const Credentials> credentials();
void set_login_delay(std::chrono::milliseconds first);

// Whether what is typed now is a name or password, and no command.
bool asks_login(const Session& session);
// Whether it must not be seen.
bool asks_password(const Session& session);
std::string login_prompt(const Session& session);

// Console thread. Puts a new session where it has to log in, or lets it in.
void begin_login(Session& session);
// Takes the line that answers the login's question. The session is pending while the answer is looked for.
void take_login_line(Session& session);
// The operator gave up the question: Ctrl-C asks anew, and takes back "enable".
void cancel_login(Session& session);
// Answers of the thread that checks; they lie in the sessions until they are due.
void take_login_results();
// Gives the answer of a session that is no longer to wait. False while it is not known or held back.
bool finish_login(Session& session);
// "enable" in the view node. 0 or -1, with a line to the operator.
int enter_enable(Session& session);

// Ends the sessions of users who are no longer known, and gives the others their role of now.
void follow_credentials();

} // namespace engine
