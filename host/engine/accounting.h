// SPDX-License-Identifier: Apache-2.0
// What becomes of every line that is executed: it is counted, and written to the audit record.
#pragma once

#include <string>
#include <string_view>

#include "host/engine/session.h"

namespace engine {

// One line, from before it runs to after it. The line has no secrets any more.
class Account {
  public:
    Account(Session& session, std::string_view line);
    // The line came to an end.
    void settle(const Outcome& outcome);

  private:
    Session& session;
    bool audited; // from its beginning
    std::string line;
    std::string at; // the prompt: the node may be another one afterwards
    Clock::time_point start;
};

// A line that was not even looked at.
void account_refused(const Session& session, std::string_view reason);

} // namespace engine
