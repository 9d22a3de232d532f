// SPDX-License-Identifier: Apache-2.0
// The command line of the OLTs' own firmware.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/sdk_sim/model.h"

namespace sdk_sim {

// Runs one line as the firmware would and returns what it prints. The caller holds the model's lock.
std::vector<std::string> run_firmware_command(const Network& network, Olt& olt, std::string_view line);

} // namespace sdk_sim
