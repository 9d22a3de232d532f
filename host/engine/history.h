// SPDX-License-Identifier: Apache-2.0
// The lines typed in one session, oldest first.
#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>

namespace engine {

constexpr std::size_t HISTORY_LINES = 200;
constexpr std::size_t HISTORY_BYTES = 64 * 1024;

class History {
  public:
    // Empty lines, and a line that was the last one already, are not kept twice.
    void add(std::string_view line);
    void clear();
    const std::deque<std::string>& lines() const
    {
        return kept;
    }
    std::size_t size() const
    {
        return kept.size();
    }
    const std::string& operator[](std::size_t index) const
    {
        return kept[index];
    }
    // The newest line before `end` that holds the text; size() when there is none.
    std::size_t find_back(std::string_view text, std::size_t end) const;

  private:
    std::deque<std::string> kept;
    std::size_t bytes = 0;
};

} // namespace engine
