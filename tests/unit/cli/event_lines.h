// SPDX-License-Identifier: Apache-2.0
// What events print.
#pragma once

#include <cstdint>
#include <string>

#include "console_fixture.h"

// The lines that events print on a session of their own, with an event thread that runs while this lives.
class EventLines {
  public:
    EventLines();
    ~EventLines();
    EventLines(const EventLines&) = delete;
    EventLines& operator=(const EventLines&) = delete;

    // What was printed since the last look, virtual time having moved on.
    std::string after(uint64_t milliseconds = 0);

  private:
    vty* listener;
};
