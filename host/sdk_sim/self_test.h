// SPDX-License-Identifier: Apache-2.0
// What an OLT keeps of its self-test.
#pragma once

namespace sdk_sim {

struct SelfTest {
    bool is_running = false;
};

} // namespace sdk_sim
