// SPDX-License-Identifier: Apache-2.0
#include "host/engine/name_value.h"

namespace engine {
namespace {

constexpr std::string_view BLANKS = " \t";

std::string_view trimmed(std::string_view text)
{
    std::size_t from = text.find_first_not_of(BLANKS);
    if (from == std::string_view::npos) return {};
    return text.substr(from, text.find_last_not_of(BLANKS) + 1 - from);
}

} // namespace

std::optional<NameAndValue> name_and_value(std::string_view line)
{
    for (std::size_t colon = line.find(':'); colon != std::string_view::npos; colon = line.find(':', colon + 1)) {
        if (colon + 1 < line.size() && BLANKS.find(line[colon + 1]) == std::string_view::npos) continue;
        std::string_view name = trimmed(line.substr(0, colon));
        if (name.empty()) return std::nullopt;
        return NameAndValue{name, trimmed(line.substr(colon + 1))};
    }
    return std::nullopt;
}

} // namespace engine
