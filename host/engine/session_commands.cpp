// SPDX-License-Identifier: Apache-2.0
// Who works at the console, and what was typed in this session.
#include <cstdlib>

#include "host/engine/audit.h"
#include "host/engine/engine_commands.h"
#include "host/engine/log.h"
#include "host/engine/nodes.h"
#include "host/engine/terminal.h"

namespace engine {
namespace {

int show_history(cmd_element*, vty* session, int, char**)
{
    Session& own = *session_of(session);
    std::size_t number = 0;
    for (const std::string& line : own.editor.history())
        print(own, "%4zu  %s%s", ++number, line.c_str(), newline(own));
    return 0;
}

int show_sessions(cmd_element*, vty* session, int, char**)
{
    Session& own = *session_of(session);
    print(own, " %-4s%-10s %-28s %-22s %s%s", "ID", "User", "From", "At", "Idle", newline(own));
    for (unsigned i = 0; i < SESSION_LIMIT; ++i) {
        const Session& other = session_at(i);
        if (&other != &own && (!other.connected || other.phase != Phase::Open)) continue;
        auto idle = std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - other.last_input).count();
        print(own, "%c%-4u%-10s %-28s %-22s %02lld:%02lld:%02lld%s", &other == &own ? '*' : ' ', i,
              std::string(user_text(other)).c_str(), other.from.c_str(), prompt(&other).c_str(),
              static_cast<long long>(idle / 3600), static_cast<long long>(idle / 60 % 60),
              static_cast<long long>(idle % 60), newline(own));
    }
    return 0;
}

// "3 (ann, 192.0.2.9 port 59332)"
std::string name_of(const Session& session)
{
    std::string who = session.user.empty() ? "" : session.user + ", ";
    return std::to_string(session.index) + " (" + who + session.from + ")";
}

void report_kill(const Session& own, const Session& other)
{
    audit(Severity::Notice, "KILL",
          {{"session", std::to_string(own.index)},
           {"user", user_text(own)},
           {"from", own.from},
           {"killed-session", std::to_string(other.index)},
           {"killed-user", user_text(other)},
           {"killed-from", other.from}});
}

int kill_session(cmd_element*, vty* session, int, char** argv)
{
    Session& own = *session_of(session);
    auto index = static_cast<unsigned>(strtoul(argv[0], nullptr, 10));
    Session& other = session_at(index);
    if (&other == &own) {
        print(own, "%% Session %u is this one; \"quit\" closes it.%s", index, newline(own));
        return -1;
    }
    if (!other.connected || other.phase != Phase::Open) {
        print(own, "%% There is no session %u; \"who\" lists them.%s", index, newline(own));
        return -1;
    }
    log_line("session %s closed by session %s", name_of(other).c_str(), name_of(own).c_str());
    report_kill(own, other);
    std::string reason = "% Session " + name_of(own) + " closed this session.";
    close_connection(other, reason.c_str());
    return 0;
}

EngineCommand commands[] = {
    {EVERY_NODE, element("show history", show_history,
                         "Show settings and state\n"
                         "The lines typed in this session, oldest first\n")},
    {EVERY_NODE,
     element("who", show_sessions, "List the open sessions: who, where from, at which prompt, idle for how long\n")},
    {ENABLE_NODE, element("kill session <0-63>", kill_session,
                          "Close something of somebody else's\n"
                          "A session, which is told who closed it\n"
                          "Its ID in the list of \"who\", 0-63\n")},
};
static_assert(SESSION_LIMIT == 64);

} // namespace

std::span<EngineCommand> session_commands()
{
    return commands;
}

} // namespace engine
