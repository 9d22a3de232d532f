// SPDX-License-Identifier: Apache-2.0
// Lines that the programs inside a device print.
#pragma once

#include <string>

#include <epon/engine.h>

namespace sdk_sim {

// A line of a device's own console; what does not fit into 159 characters is cut off.
std::string printed_line(const char* format, ...) EPON_PRINTF(1, 2);

} // namespace sdk_sim
