// SPDX-License-Identifier: Apache-2.0
// How an answer says that a command failed: a line that begins with "% ", one that the host knows for a refusal, or one
// that ends with an error's code. Filters never take such lines away: an operator who asked for a part of an answer
// must still see that there is none.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace engine {

bool is_failure_line(std::string_view line);

struct Failure {
    std::string message;
    std::optional<int> code; // of "OLT not exist (error code : -1003)"
};
Failure failure_in(std::string_view line);

} // namespace engine
