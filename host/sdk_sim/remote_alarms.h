// SPDX-License-Identifier: Apache-2.0
// Which of its events an ONU sends, and how its errors are counted in windows.
#pragma once

#include <cstdint>
#include <map>

#include <epon/sdk/remote_alarms.h>

namespace sdk_sim {

struct Olt;
struct Onu;

struct AlarmSetting {
    std::uint8_t enable_hook = 0;
    std::uint64_t window = 0;
    std::uint64_t threshold = 0;
    std::uint64_t window_ends_at = 0; // virtual milliseconds; 0: no window is open
    std::uint64_t errors_before = 0;  // the ONU's errors when the window was opened
};

struct OnuAlarms {
    std::map<std::int32_t, AlarmSetting> settings; // by alarm; one that is not listed is as it is delivered
    std::uint32_t events = (1U << REMOTE_ALARM_COUNT) - 1;
};

// Whether the host is told of an event of an ONU: the ONU sends it, and its hook is enabled.
bool tells_of(const Onu& onu, RemoteAlarm alarm);

// Raises an alarm of an ONU (index of CLI_alarm_s) that stands for one of its events, if the host is told of that.
void raise_remote_alarm(const Olt& olt, const Onu& onu, RemoteAlarm alarm, std::int32_t as, std::uint32_t value);

} // namespace sdk_sim
