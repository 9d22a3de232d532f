// SPDX-License-Identifier: Apache-2.0
// How an answer says that a command failed: a line that begins with "% ", one that the host knows for a refusal, or one
// that ends with an error's code. Filters never take such lines away: an operator who asked for a part of an answer
// must still see that there is none. The audit record and the counters know by them what was refused.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/engine/answer_lines.h"

namespace engine {

bool is_failure_line(std::string_view line);

struct Failure {
    std::string message;
    std::optional<int> code; // of "OLT not exist (error code : -1003)"
};
Failure failure_in(std::string_view line);

// Looks at an answer while it is printed.
class FailureWatch {
  public:
    void begin();
    void write(std::string_view piece);
    // The answer is complete: whether it told a failure.
    bool end();

  private:
    bool told = false;
    AnswerLines lines;
};

} // namespace engine
