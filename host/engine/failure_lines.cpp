// SPDX-License-Identifier: Apache-2.0
#include "host/engine/failure_lines.h"

#include <charconv>

#include "host/engine/engine_host.h"

namespace engine {
namespace {

constexpr std::string_view ENGINE_ERROR = "% ";
constexpr std::string_view CODE = " (error code : ";

bool (*is_refusal)(std::string_view line) = nullptr;

} // namespace

void set_refusal_check(bool (*check)(std::string_view line))
{
    is_refusal = check;
}

bool is_failure_line(std::string_view line)
{
    return line.starts_with(ENGINE_ERROR) || (is_refusal != nullptr && is_refusal(line)) ||
           failure_in(line).code.has_value();
}

Failure failure_in(std::string_view line)
{
    Failure failure;
    failure.message = line.substr(line.starts_with(ENGINE_ERROR) ? ENGINE_ERROR.size() : 0);
    std::size_t at = line.rfind(CODE);
    if (at == std::string_view::npos || !line.ends_with(')')) return failure;
    int code = 0;
    const char* end = line.data() + line.size() - 1;
    auto [stop, fault] = std::from_chars(line.data() + at + CODE.size(), end, code);
    if (fault == std::errc() && stop == end) failure = {std::string(line.substr(0, at)), code};
    return failure;
}

} // namespace engine
