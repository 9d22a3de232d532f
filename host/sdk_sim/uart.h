// SPDX-License-Identifier: Apache-2.0
// What an OLT keeps of its UART.
#pragma once

#include <string>

namespace sdk_sim {

struct Uart {
    bool is_looped = false;
    std::string received; // octets that wait to be read
};

} // namespace sdk_sim
