// SPDX-License-Identifier: Apache-2.0
// A file on its way to an ONU.
#pragma once

#include <cstdint>
#include <string>

#include <epon/sdk/remote_device_mgmt.h>

namespace sdk_sim {

struct FileTransfer {
    std::int32_t state = REMOTE_FILE_NONE;
    std::string name;
    std::uint32_t size = 0;
    std::uint32_t done = 0;
    std::uint64_t next_at = 0; // virtual milliseconds
};

} // namespace sdk_sim
