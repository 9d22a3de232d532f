// SPDX-License-Identifier: Apache-2.0
// Where the SDK's log and its journal are kept.
#pragma once

namespace sdk_sim {

// Forgets what was recorded, stops recording and closes the log.
void reset_log();

} // namespace sdk_sim
