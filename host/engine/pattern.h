// SPDX-License-Identifier: Apache-2.0
// Regular expressions that operators type: POSIX extended syntax, matched in time that grows with the text alone.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace re2 {
class RE2;
}

namespace engine {

// Longest expression, in bytes.
constexpr std::size_t PATTERN_LIMIT = 256;

class Pattern {
  public:
    Pattern();
    ~Pattern();
    Pattern(Pattern&&) noexcept;
    Pattern& operator=(Pattern&&) noexcept;

    // False with a few words in *error: malformed, too long, or too large when its repetitions are written out.
    bool compile(std::string_view text, std::string* error);
    // Whether it matches somewhere in the line. A pattern that was never compiled matches nothing.
    bool found_in(std::string_view line) const;

  private:
    std::unique_ptr<re2::RE2> expression;
};

} // namespace engine
