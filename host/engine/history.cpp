// SPDX-License-Identifier: Apache-2.0
#include "host/engine/history.h"

#include <algorithm>
#include <utility>

namespace engine {

void History::add(std::string_view line)
{
    if (line.empty() || line.size() > HISTORY_BYTES || (!kept.empty() && kept.back() == line)) return;
    if (kept.size() < HISTORY_LINES) {
        kept.emplace_back(line);
    } else { // in the memory of the oldest one
        bytes -= kept.front().size();
        std::string text = std::move(kept.front());
        kept.pop_front();
        kept.push_back(std::move(text.assign(line)));
    }
    bytes += line.size();
    while (bytes > HISTORY_BYTES) {
        bytes -= kept.front().size();
        kept.pop_front();
    }
}

void History::clear()
{
    kept.clear();
    bytes = 0;
}

std::size_t History::find_back(std::string_view text, std::size_t end) const
{
    for (std::size_t i = std::min(end, kept.size()); i-- > 0;)
        if (kept[i].find(text) != std::string::npos) return i;
    return kept.size();
}

} // namespace engine
