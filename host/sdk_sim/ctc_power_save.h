// SPDX-License-Identifier: Apache-2.0
// How an ONU saves power.
#pragma once

#include <cstdint>

#include <epon/sdk/ctc_power_save.h>

namespace sdk_sim {

struct PowerSave {
    CTC_power_save_config config{0, {}, CTC_SLEEP_TIME_MAX};
    std::int32_t sleep = CTC_SLEEP_NONE; // how it sleeps by turns; none: it stays awake
};

} // namespace sdk_sim
