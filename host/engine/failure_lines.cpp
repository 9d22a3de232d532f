// SPDX-License-Identifier: Apache-2.0
#include "host/engine/failure_lines.h"

#include <charconv>

#include "host/engine/engine_host.h"

namespace engine {
namespace {

constexpr std::string_view ENGINE_ERROR = "% ";
constexpr std::string_view CODE = " (error code : ";

bool (*is_refusal)(std::string_view line) = nullptr;

// The code that the line ends with: "OLT not exist (error code : -1003)".
std::optional<int> code_in(std::string_view line)
{
    if (!line.ends_with(')')) return {};
    std::size_t at = line.rfind(CODE);
    if (at == std::string_view::npos) return {};
    int code = 0;
    const char* end = line.data() + line.size() - 1;
    auto [stop, fault] = std::from_chars(line.data() + at + CODE.size(), end, code);
    if (fault != std::errc() || stop != end) return {};
    return code;
}

} // namespace

void set_refusal_check(bool (*check)(std::string_view line))
{
    is_refusal = check;
}

bool is_failure_line(std::string_view line)
{
    return line.starts_with(ENGINE_ERROR) || (is_refusal != nullptr && is_refusal(line)) || code_in(line).has_value();
}

Failure failure_in(std::string_view line)
{
    std::optional<int> code = code_in(line);
    if (code) return {std::string(line.substr(0, line.rfind(CODE))), code};
    return {std::string(line.substr(line.starts_with(ENGINE_ERROR) ? ENGINE_ERROR.size() : 0)), {}};
}

void FailureWatch::begin()
{
    told = false;
    lines.clear();
}

void FailureWatch::write(std::string_view piece)
{
    if (told) return;
    lines.write(piece, [this](std::string_view line) { told = told || is_failure_line(line); });
}

bool FailureWatch::end()
{
    lines.end([this](std::string_view line) { told = told || is_failure_line(line); });
    return told;
}

} // namespace engine
