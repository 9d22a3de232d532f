// SPDX-License-Identifier: Apache-2.0
#include "host/engine/accounting.h"

#include "host/engine/audit.h"
#include "host/engine/dispatch.h"
#include "host/engine/filter.h"
#include "host/engine/secrets.h"
#include "host/engine/statistics.h"

namespace engine {
namespace {

const char* status_text(const Outcome& outcome)
{
    switch (outcome.status) {
    case MatchStatus::Matched:
        return outcome.result != 0 ? "failed" : outcome.told_failure ? "refused" : "done";
    case MatchStatus::Incomplete:
        return "incomplete";
    case MatchStatus::Ambiguous:
        return "ambiguous";
    default:
        return "unknown";
    }
}

// The prompt without the blank behind it.
std::string place(const Session& session)
{
    std::string text = prompt(&session);
    while (!text.empty() && text.back() == ' ')
        text.pop_back();
    return text;
}

void report(const Session& session, std::string_view at, std::string_view line, std::string_view status, int result,
            std::chrono::nanoseconds time)
{
    auto us = std::chrono::duration_cast<std::chrono::microseconds>(time).count();
    audit(Severity::Informational, "COMMAND",
          {{"session", std::to_string(session.index)},
           {"user", user_text(session)},
           {"from", session.from},
           {"at", at},
           {"command", line},
           {"status", status},
           {"result", std::to_string(result)},
           {"us", std::to_string(us)}});
}

} // namespace

Account::Account(Session& its_session, std::string_view its_line)
    : session(its_session), audited(audits()), start(Clock::now())
{
    if (!audited) return;
    line = its_line;
    at = place(session);
}

void Account::settle(const Outcome& outcome)
{
    Clock::duration time = Clock::now() - start;
    bool ran = outcome.status == MatchStatus::Matched && outcome.element != nullptr; // else a raw node's line, or none
    if (ran)
        count_command(outcome.element, outcome.result != 0 || outcome.told_failure, time);
    else if (outcome.status != MatchStatus::Matched && outcome.status != MatchStatus::Empty)
        count(counters().lines_refused);
    if (!audited || outcome.status == MatchStatus::Empty) return;
    std::string shown, hidden;
    if (ran) {
        shown = without_secrets(session, session.match.line, split_words(session.match.line), &hidden);
        std::string_view filters = std::string_view(line).substr(split_filters(line).command.size());
        if (!filters.empty()) shown += " " + std::string(filters);
    }
    report(session, at, ran ? shown : line, status_text(outcome), outcome.result, time);
}

void account_refused(const Session& session, std::string_view reason)
{
    count(counters().lines_refused);
    if (audits()) report(session, place(session), {}, reason, 0, {});
}

} // namespace engine
