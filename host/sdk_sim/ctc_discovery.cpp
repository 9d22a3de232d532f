// SPDX-License-Identifier: Apache-2.0
// Discovery of extended OAM: the ONU tells which versions it speaks, and the stack looks for one of its own.
#include "host/sdk_sim/ctc_discovery.h"

#include <algorithm>
#include <cstring>

#include "host/sdk_sim/ctc_events.h"
#include "host/sdk_sim/events.h"
#include "host/sdk_sim/link_operation.h"
#include "host/sdk_sim/scenario_reader.h"

namespace sdk_sim {

namespace {

constexpr Milliseconds EXCHANGE_TIME_MS = 100; // of the frames that a discovery takes
constexpr std::size_t UPDATE_REQUEST_LENGTH = 255;

bool is_spoken(const std::vector<CTC_oui_version>& versions, const CTC_oui_version& wanted)
{
    return std::any_of(versions.begin(), versions.end(), [&](const CTC_oui_version& version) {
        return std::memcmp(version.oui, wanted.oui, sizeof(wanted.oui)) == 0 && version.version == wanted.version;
    });
}

bool have_a_common_version(const CtcStack& stack, const CtcDevice& device)
{
    if (stack.records.empty()) return is_spoken(device.versions, oui_version(stack.oui, stack.version));
    return std::any_of(stack.records.begin(), stack.records.end(),
                       [&](const CTC_oui_version& record) { return is_spoken(device.versions, record); });
}

void complete(const CtcStack& stack, const Olt& olt, Onu& onu)
{
    onu.configuration.ctc.discovery = CtcDiscovery::Complete;
    if (stack.configures) onu.configuration.ctc.settings = onu.remembered_ctc_settings;
    raise_ctc_discovery(olt.id, onu.id, CTC_DISCOVERY_COMPLETE, onu.ctc_device.versions);
    if (!onu.ctc_device.update_request.empty()) raise_ctc_update_request(olt.id, onu.id, onu.ctc_device.update_request);
}

void fail(const Olt& olt, Onu& onu, const std::vector<CTC_oui_version>& told)
{
    onu.configuration.ctc.discovery = CtcDiscovery::Failed;
    raise_ctc_discovery(olt.id, onu.id, CTC_DISCOVERY_FAILED, told);
}

// in_time: the ONU told its versions before the stack gave up.
void end(Network& network, const Olt& olt, Onu& onu, bool in_time)
{
    const CtcOnu& ctc = onu.configuration.ctc;
    if (ctc.discovery != CtcDiscovery::Running || ctc.discovery_ends_at != network.now) return;
    if (!in_time)
        fail(olt, onu, {});
    else if (have_a_common_version(network.ctc_stack, onu.ctc_device))
        complete(network.ctc_stack, olt, onu);
    else
        fail(olt, onu, onu.ctc_device.versions);
}

void begin(Network& network, const Olt& olt, Onu& onu)
{
    const CtcStack& stack = network.ctc_stack;
    if (stack.has_ended || !stack.discovers) return;
    CtcOnu& ctc = onu.configuration.ctc;
    ctc.discovery = CtcDiscovery::Running;
    const Milliseconds limit = stack.discovery_timeout;
    const bool answers = onu.extended_oam == OamAnswer::Answers;
    const bool in_time = answers && (limit == 0 || EXCHANGE_TIME_MS <= limit);
    if (!in_time && limit == 0) return; // it waits for ever
    const Milliseconds duration = in_time ? EXCHANGE_TIME_MS : limit;
    ctc.discovery_ends_at = network.now + duration;
    after_on_link(network, olt, onu.id, duration, [in_time](Network& later, const Olt& of_onu, Onu& discovered) {
        end(later, of_onu, discovered, in_time);
    });
}

struct NotifiedAlarm {
    std::int32_t alarm; // as the OLT's events number it
    std::uint16_t leaf;
    CTC_management_object_index object;
    std::uint16_t id;
};

constexpr NotifiedAlarm notified_alarms[] = {
    {3, CTC_LEAF_PORT, {0, 0, 1, CTC_PORT_ETHERNET}, CTC_ALARM_ETHERNET_PORT_LOSS_OF_SIGNAL}, // local-link
    {4, CTC_LEAF_ONU, {0, 0, 0, CTC_PORT_IRRELEVANT}, CTC_ALARM_POWER},                       // dying-gasp
    {19, CTC_LEAF_ONU, {0, 0, 0, CTC_PORT_IRRELEVANT}, CTC_ALARM_RECEIVED_POWER_LOW},         // onu-signal-degradation
};

} // namespace

void read_ctc_device(ScenarioReader& reader, CtcDevice* device)
{
    reader.oui_versions("ctc_versions", &device->versions);
    reader.flag("ctc_gives_keys", &device->gives_keys);
    reader.text("ctc_update_request", UPDATE_REQUEST_LENGTH, &device->update_request);
}

void follow_oam_link(Network& network, const Olt& olt, Onu& onu)
{
    if (oam_is_up(onu)) {
        begin(network, olt, onu);
        return;
    }
    stop_ctc_encryption(olt, onu);
    onu.configuration.ctc.discovery = CtcDiscovery::Idle;
}

void settle_ctc_discoveries(Network& network)
{
    if (!network.ctc_stack.discovers) return;
    for (Olt& olt : network.olts) {
        for (auto& [id, onu] : olt.onus) {
            if (!olt.is_present || !oam_is_up(onu)) continue;
            const bool is_found =
                onu.extended_oam == OamAnswer::Answers && have_a_common_version(network.ctc_stack, onu.ctc_device);
            onu.configuration.ctc.discovery = is_found ? CtcDiscovery::Complete : CtcDiscovery::Failed;
        }
    }
}

bool is_foreign(const Onu& onu)
{
    return onu.configuration.ctc.discovery == CtcDiscovery::Failed;
}

void remember_ctc_settings(Onu& onu)
{
    onu.remembered_ctc_settings = onu.configuration.ctc.settings;
}

void notify_of_alarm(std::int16_t olt_id, const Onu& onu, std::int32_t alarm, bool raised, std::uint32_t value)
{
    if (onu.configuration.ctc.discovery != CtcDiscovery::Complete) return;
    const auto row = std::find_if(std::begin(notified_alarms), std::end(notified_alarms),
                                  [alarm](const NotifiedAlarm& candidate) { return candidate.alarm == alarm; });
    if (row == std::end(notified_alarms)) return;
    const CTC_management_object_index& object = row->object;
    raise(ctc_event_kind(CTC_EVENT_NOTIFICATION), olt_id,
          CtcNotificationEvent{onu.id, row->leaf, object.frame_number, object.slot_number, object.port_number,
                               object.port_type, static_cast<std::uint8_t>(raised ? 1 : 0), value, row->id});
}

} // namespace sdk_sim
