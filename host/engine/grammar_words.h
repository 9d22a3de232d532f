// SPDX-License-Identifier: Apache-2.0
// The bounds of a range such as "<0-255>", "<-5-10>" or "<0x0-0xff>".
#pragma once

#include <cstdint>
#include <string_view>

namespace engine {

struct Bounds {
    std::int64_t min;
    std::int64_t max;
    bool hexadecimal; // written with "0x"
};

// False when the text is not a range.
bool read_bounds(std::string_view form, Bounds* bounds);

} // namespace engine
