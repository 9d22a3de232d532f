// SPDX-License-Identifier: Apache-2.0
// One write per line, so that lines of several threads never mix.
#include "host/engine/log.h"

#include <cstdarg>
#include <cstdio>

namespace engine {

void log_line(const char* format, ...)
{
    char text[1024];
    va_list arguments;
    va_start(arguments, format);
    vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    fprintf(stderr, "epon: %s\n", text);
}

} // namespace engine
