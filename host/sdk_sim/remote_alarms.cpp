// SPDX-License-Identifier: Apache-2.0
// Events of ONUs: which are sent, and the windows in which errors are counted.
#include "host/sdk_sim/remote_alarms.h"

#include <algorithm>

#include "host/sdk_sim/events.h"
#include "host/sdk_sim/link_operation.h"
#include "host/sdk_sim/remote_operation.h"

namespace sdk_sim {

namespace {

const Operation get_alarm_configuration("REMOTE_NEPONU_get_alarm_configuration", REMOTE_MANAGEMENT);
const Operation set_alarm_configuration("REMOTE_NEPONU_set_alarm_configuration", REMOTE_MANAGEMENT);
const Operation set_event_configuration("REMOTE_NEPONU_set_event_configuration", REMOTE_MANAGEMENT);

constexpr Milliseconds SHORTEST_WINDOW_MS = 1000; // an ONU looks at its counters once a second
constexpr std::uint64_t SYMBOLS_PER_MS_1G = 1250000;
constexpr std::uint64_t SYMBOLS_PER_MS_10G = 10312500;
constexpr std::uint64_t SYMBOLS_OF_A_FRAME = 2; // that go wrong in a frame that does

bool counts_errors(std::int32_t alarm)
{
    return alarm <= REMOTE_ALARM_SECOND_SUMMARY;
}

// As an ONU is delivered: the four that count errors have the windows of the standard, and wait to be asked for.
AlarmSetting delivered(std::int32_t alarm)
{
    switch (alarm) {
    case REMOTE_ALARM_ERRORED_SYMBOLS_PERIOD:
        return {0, SYMBOLS_PER_MS_1G * 1000, 1};
    case REMOTE_ALARM_ERRORED_FRAME:
        return {0, 10, 1};
    case REMOTE_ALARM_ERRORED_FRAME_PERIOD:
        return {0, 1488100, 1};
    case REMOTE_ALARM_SECOND_SUMMARY:
        return {0, 600, 1};
    default:
        return {1, 0, 0};
    }
}

AlarmSetting setting_of(const Onu& onu, std::int32_t alarm)
{
    const auto found = onu.configuration.alarms.settings.find(alarm);
    return found == onu.configuration.alarms.settings.end() ? delivered(alarm) : found->second;
}

struct Limits {
    std::uint64_t min_window, max_window, max_threshold;
};

// Of the alarms that count errors, by alarm.
constexpr Limits limits[] = {
    {1, UINT64_MAX, UINT64_MAX}, {10, 600, UINT32_MAX}, {1, UINT32_MAX, UINT32_MAX}, {100, 9000, UINT16_MAX}};

bool is_possible(std::int32_t alarm, const AlarmSetting& setting)
{
    const Limits& limit = limits[alarm];
    return setting.window >= limit.min_window && setting.window <= limit.max_window &&
           setting.threshold <= limit.max_threshold;
}

Milliseconds duration_of(const Network& network, const Onu& onu, std::int32_t alarm, std::uint64_t window)
{
    const auto at_least = [](std::uint64_t duration) { return std::max(duration, SHORTEST_WINDOW_MS); };
    switch (alarm) {
    case REMOTE_ALARM_ERRORED_SYMBOLS_PERIOD:
        return at_least(window / (onu.rate == OnuRate::Rate1G ? SYMBOLS_PER_MS_1G : SYMBOLS_PER_MS_10G));
    case REMOTE_ALARM_ERRORED_FRAME_PERIOD:
        return at_least(window * 1000 / std::max<std::uint64_t>(frames_per_second(network, onu), 1));
    default:
        return at_least(window * 100);
    }
}

// What errored frames mean in the unit of an alarm.
std::uint64_t errors_of(std::int32_t alarm, std::uint64_t errored_frames, std::uint64_t window)
{
    switch (alarm) {
    case REMOTE_ALARM_ERRORED_SYMBOLS_PERIOD:
        return errored_frames * SYMBOLS_OF_A_FRAME;
    case REMOTE_ALARM_SECOND_SUMMARY:
        return std::min(errored_frames, window / 10); // they come evenly
    default:
        return errored_frames;
    }
}

std::uint32_t saturated(std::uint64_t value)
{
    return static_cast<std::uint32_t>(std::min<std::uint64_t>(value, UINT32_MAX));
}

void open_window(Network& network, const Olt& olt, Onu& onu, std::int32_t alarm);

void end_window(Network& network, Olt& olt, Onu& onu, std::int32_t alarm)
{
    const auto found = onu.configuration.alarms.settings.find(alarm);
    // The ONU left meanwhile, or the alarm was set anew.
    if (found == onu.configuration.alarms.settings.end() || found->second.window_ends_at != network.now) return;
    const AlarmSetting& setting = found->second;
    const std::uint64_t errored_frames = current_count(network, onu, ONU_CHECK_SEQUENCE_ERRORS) - setting.errors_before;
    const std::uint64_t errors = errors_of(alarm, errored_frames, setting.window);
    if (errors >= setting.threshold && oam_is_up(onu) && tells_of(onu, static_cast<RemoteAlarm>(alarm))) {
        ++onu.configuration.statistics.counts[ONU_EVENT_NOTIFICATIONS].whole;
        raise(EVENT_OAM_ERRORS_REPORTED, olt.id,
              OamErrorsReportedEvent{onu.id, alarm + 1, saturated(setting.window), saturated(setting.threshold),
                                     saturated(errors)});
    }
    open_window(network, olt, onu, alarm);
}

void open_window(Network& network, const Olt& olt, Onu& onu, std::int32_t alarm)
{
    AlarmSetting& setting = onu.configuration.alarms.settings.at(alarm);
    const Milliseconds duration = duration_of(network, onu, alarm, setting.window);
    setting.errors_before = current_count(network, onu, ONU_CHECK_SEQUENCE_ERRORS);
    setting.window_ends_at = network.now + duration;
    after_on_link(network, olt, onu.id, duration,
                  [alarm](Network& later, Olt& of_onu, Onu& counting) { end_window(later, of_onu, counting, alarm); });
}

bool is_alarm(std::int32_t alarm)
{
    return alarm >= 0 && alarm < REMOTE_ALARM_COUNT;
}

} // namespace

bool tells_of(const Onu& onu, RemoteAlarm alarm)
{
    return (onu.configuration.alarms.events >> alarm & 1) != 0 && setting_of(onu, alarm).enable_hook != 0;
}

void raise_remote_alarm(const Olt& olt, const Onu& onu, RemoteAlarm alarm, std::int32_t as, std::uint32_t value)
{
    if (tells_of(onu, alarm)) raise(EVENT_ALARM, olt.id, AlarmEvent{onu.id, as, 1, value});
}

} // namespace sdk_sim

using namespace sdk_sim;

int16_t REMOTE_NEPONU_get_alarm_configuration(int16_t olt_id, int16_t onu_id, int32_t alarm, uint8_t* enable_hook,
                                              uint64_t* window, uint64_t* threshold)
{
    return ask_remote(get_alarm_configuration, olt_id, onu_id, in(olt_id, onu_id, alarm),
                      out(enable_hook, window, threshold), [&](Network&, Olt&, const Onu& onu) {
                          if (!is_alarm(alarm)) return PARAMETER_ERROR;
                          const AlarmSetting setting = setting_of(onu, alarm);
                          *enable_hook = setting.enable_hook;
                          *window = setting.window;
                          *threshold = setting.threshold;
                          return SUCCESS;
                      });
}

int16_t REMOTE_NEPONU_set_alarm_configuration(int16_t olt_id, int16_t onu_id, int32_t alarm, uint8_t enable_hook,
                                              uint64_t window, uint64_t threshold)
{
    const auto arguments = in(olt_id, onu_id, alarm, enable_hook, window, threshold);
    return set_remote(set_alarm_configuration, olt_id, onu_id, arguments, [&](Network& network, Olt& olt, Onu& onu) {
        if (!is_alarm(alarm) || enable_hook > 1) return PARAMETER_ERROR;
        const AlarmSetting setting = {enable_hook, window, threshold};
        const bool counts = counts_errors(alarm) && enable_hook == 1;
        if (counts && !is_possible(alarm, setting)) return BAD_CONFIGURATION;
        onu.configuration.alarms.settings[alarm] = setting;
        if (counts) open_window(network, olt, onu, alarm);
        return SUCCESS;
    });
}

int16_t REMOTE_NEPONU_set_event_configuration(int16_t olt_id, int16_t onu_id, int32_t alarm, uint8_t enable)
{
    const auto arguments = in(olt_id, onu_id, alarm, enable);
    return set_remote(set_event_configuration, olt_id, onu_id, arguments, [&](Network&, Olt&, Onu& onu) {
        if (!is_alarm(alarm) || enable > 1) return PARAMETER_ERROR;
        std::uint32_t& events = onu.configuration.alarms.events;
        events = (events & ~(1U << alarm)) | static_cast<std::uint32_t>(enable) << alarm;
        return SUCCESS;
    });
}
