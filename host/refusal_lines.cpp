// SPDX-License-Identifier: Apache-2.0
#include "host/refusal_lines.h"

namespace {

struct Refusal {
    std::string_view begins;
    std::string_view holds; // behind that
};

constexpr Refusal refusals[] = {
    {"Error", ", aborting"}, // arguments
    {"There is no ", " mac address in the system"},
    {"Command return error.", ""}, // remote management returns 0 after a failure, too
    {"OLT id (", ") doesn't exist. Can't enter "},
    {"Error, ", " isn't registered. Entering to "},
    {"Can't enter ", " is out of bounds. "},
    {"", " is warned for mode change. Can't enter "},
};

} // namespace

bool is_refusal_line(std::string_view line)
{
    for (const Refusal& refusal : refusals)
        if (line.substr(0, refusal.begins.size()) == refusal.begins &&
            line.find(refusal.holds, refusal.begins.size()) != std::string_view::npos)
            return true;
    return false;
}
