// SPDX-License-Identifier: Apache-2.0
// How long texts get in JSON: six times, when they are nothing but control bytes.
#pragma once

#include <cstddef>
#include <string_view>

namespace engine {

// What a byte takes at most. Bytes of UTF-8 are counted as if none belonged to another.
inline std::size_t json_size(char byte)
{
    constexpr std::size_t ESCAPED = 2, NUMBERED = 6; // \n, \u001b
    if (byte == '"' || byte == '\\' || (byte >= '\b' && byte <= '\r' && byte != '\v')) return ESCAPED;
    return byte >= ' ' && byte < 0x7f ? 1 : NUMBERED;
}

inline std::size_t json_size(std::string_view text)
{
    std::size_t size = 0;
    for (char byte : text)
        size += json_size(byte);
    return size;
}

} // namespace engine
