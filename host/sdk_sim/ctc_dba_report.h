// SPDX-License-Identifier: Apache-2.0
// What an ONU keeps of the thresholds of its queue reports.
#pragma once

#include <array>
#include <cstdint>

#include <epon/sdk/ctc_dba_report.h>

namespace sdk_sim {

struct CtcReportThresholds {
    std::uint8_t number_of_queue_sets = CTC_QUEUE_SETS_MIN;
    std::array<CTC_queue_set_thresholds, CTC_QUEUE_SETS_MAX - 1>
        queue_sets{}; // no queue is reported below the last set
};

} // namespace sdk_sim
