// SPDX-License-Identifier: Apache-2.0
// Texts of one session that may get large: unread output, an answer that waits. A string that grows to the double would
// take twice what its bound says.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace engine {

// From here on a text grows by so much at a time.
constexpr std::size_t GROWTH_STEP = 256 * 1024;

inline void make_room_for(std::size_t more, std::string* text)
{
    std::size_t needed = text->size() + more;
    if (needed <= text->capacity() || needed <= GROWTH_STEP) return;
    std::string larger;
    larger.reserve((needed / GROWTH_STEP + 1) * GROWTH_STEP);
    larger += *text;
    text->swap(larger);
}

inline void append_to_large(std::string_view more, std::string* text)
{
    make_room_for(more.size(), text);
    text->append(more);
}

} // namespace engine
