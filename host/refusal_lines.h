// SPDX-License-Identifier: Apache-2.0
// The lines by which the library's commands refuse what was asked although their handlers return 0.
#pragma once

#include <string_view>

// Whether a printed line is one of them.
bool is_refusal_line(std::string_view line);
