// SPDX-License-Identifier: Apache-2.0
// "name: value" lines, of which most answers consist.
#pragma once

#include <optional>
#include <string_view>

namespace engine {

struct NameAndValue {
    std::string_view name;
    std::string_view value; // may be empty
};

// The parts of a line without the blanks around them; nothing when the line is not of that form. The first colon that
// a blank or the line's end follows is the separator, so that times and addresses with colons are values.
std::optional<NameAndValue> name_and_value(std::string_view line);

} // namespace engine
