// SPDX-License-Identifier: Apache-2.0
// What must hold for every input.
#pragma once

#include <cstdio>
#include <cstdlib>

inline void require(bool holds, const char* what)
{
    if (holds) return;
    std::fprintf(stderr, "violated: %s\n", what);
    std::abort();
}
