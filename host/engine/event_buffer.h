// SPDX-License-Identifier: Apache-2.0
// Event text that waits for a good moment to be shown to one operator.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace engine {

// Bytes of event text that one session keeps; lines beyond are dropped and counted.
constexpr std::size_t EVENT_LIMIT = 64 * 1024;

// Lines may arrive in pieces; only complete ones are handed on. The caller locks.
class EventBuffer {
  public:
    void add(std::string_view piece);
    bool has_lines() const
    {
        return complete > 0 || dropped > 0;
    }
    // Lines dropped since lines were last taken.
    std::size_t lost() const
    {
        return dropped;
    }
    // Moves the complete lines out, followed by the count of dropped ones, if any.
    std::string take_lines(std::string_view newline);
    // Moves everything out, an unfinished line included.
    std::string take_all(std::string_view newline);
    void clear();

  private:
    std::string text;
    std::size_t complete = 0; // bytes up to and including the last line end
    std::size_t dropped = 0;
    bool dropping = false; // the line being printed lost its beginning
};

} // namespace engine
