// SPDX-License-Identifier: Apache-2.0
// Numbers as operators of the lab type them.
#pragma once

#include <charconv>
#include <string_view>

namespace sdk_sim {

// Decimal, or hexadecimal after "0x". False when the text is no number or does not fit.
template <class Number>
bool read_number(std::string_view text, Number* number)
{
    int base = 10;
    if (text.starts_with("0x")) {
        text.remove_prefix(2);
        base = 16;
        if (text.starts_with('-')) return false;
    }
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), *number, base);
    return error == std::errc() && end == text.data() + text.size();
}

} // namespace sdk_sim
