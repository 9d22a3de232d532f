// SPDX-License-Identifier: Apache-2.0
#include "olt/byte_dump.h"

#include <cinttypes>
#include <cstdio>

namespace epon {

void print_bytes(vty* session, uint32_t offset, const uint8_t* bytes, uint32_t count)
{
    constexpr uint32_t LINE_BYTES = 16;
    for (uint32_t begin = 0; begin < count; begin += LINE_BYTES) {
        char text[3 * LINE_BYTES + 1];
        int length = 0;
        for (uint32_t i = begin; i < count && i < begin + LINE_BYTES; ++i)
            length += snprintf(text + length, sizeof text - length, " %02x", bytes[i]);
        RBX_vty_out(session, "%04" PRIx32 ":%s%s", offset + begin, text, VTY_NEWLINE(session));
    }
}

} // namespace epon
