// SPDX-License-Identifier: Apache-2.0
#include "host/engine/pattern.h"

#include <re2/re2.h>

namespace engine {
namespace {

// Memory for one compiled expression and its matching; one that needs more is refused.
constexpr int PATTERN_MEMORY = 1 << 20;

} // namespace

Pattern::Pattern() = default;
Pattern::~Pattern() = default;
Pattern::Pattern(Pattern&&) noexcept = default;
Pattern& Pattern::operator=(Pattern&&) noexcept = default;

bool Pattern::compile(std::string_view text, std::string* error)
{
    if (text.size() > PATTERN_LIMIT) {
        *error = "more than " + std::to_string(PATTERN_LIMIT) + " characters";
        return false;
    }
    re2::RE2::Options options;
    options.set_posix_syntax(true);
    options.set_perl_classes(true); // \d, \s and \w, which operators are used to
    options.set_word_boundary(true);
    options.set_log_errors(false);
    options.set_max_mem(PATTERN_MEMORY);
    auto compiled = std::make_unique<re2::RE2>(re2::StringPiece(text.data(), text.size()), options);
    if (!compiled->ok()) {
        *error = compiled->error();
        return false;
    }
    expression = std::move(compiled);
    return true;
}

bool Pattern::found_in(std::string_view line) const
{
    return expression && re2::RE2::PartialMatch(re2::StringPiece(line.data(), line.size()), *expression);
}

} // namespace engine
