// SPDX-License-Identifier: Apache-2.0
#include "host/sdk_sim/printed_line.h"

#include <cstdarg>
#include <cstdio>

namespace sdk_sim {

std::string printed_line(const char* format, ...)
{
    char text[160];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(text, sizeof(text), format, arguments);
    va_end(arguments);
    return text;
}

} // namespace sdk_sim
