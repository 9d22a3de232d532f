// SPDX-License-Identifier: Apache-2.0
// Octets as lines of sixteen, for readings of registers and lines.
#pragma once

#include <cstdint>

#include <epon/cli.h>

namespace epon {

// "0010: 53 46 50 ...": each line begins with the offset of its first octet; offset is that of bytes[0].
void print_bytes(vty* session, uint32_t offset, const uint8_t* bytes, uint32_t count);

} // namespace epon
