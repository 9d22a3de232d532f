// SPDX-License-Identifier: Apache-2.0
// Events of the CTC stack, as they wait in the queue. A handler of the stack takes its values one by one.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <epon/sdk/ctc_events.h>

namespace sdk_sim {

// Kinds of the queue, a block of their own.
inline constexpr std::int32_t CTC_EVENT_KINDS = 200;
inline constexpr std::int32_t LAST_CTC_EVENT_KIND = CTC_EVENT_KINDS + CTC_EVENT_NOTIFICATION;

constexpr int ctc_event_kind(std::int32_t type)
{
    return CTC_EVENT_KINDS + type;
}

struct CtcEncryptionEvent {
    std::int16_t llid;
    std::int32_t state;
};
struct CtcDiscoveryEvent {
    std::int16_t llid;
    std::int32_t state;
    std::uint32_t length;        // octets, four a record
    const std::uint8_t* records; // as CTC_oui_version
};
struct CtcUpdateErrorEvent {
    std::int16_t onu_id;
    std::int32_t code;
    std::uint32_t length;
    const std::uint8_t* message; // terminated
};
struct CtcUpdateRequestEvent {
    std::int16_t onu_id;
    std::uint32_t length;
    const std::uint8_t* information; // terminated
};
struct CtcNotificationEvent {
    std::int16_t onu_id;
    std::uint16_t leaf;
    std::uint8_t frame_number, slot_number;
    std::uint16_t port_number;
    std::int32_t port_type;
    std::uint8_t raised;
    std::uint32_t value;
    std::uint16_t alarm_id;
};

// How the handlers are called.
void call_encryption_handler(EventHandler handler, std::int16_t olt_id, const void* record);
void call_discovery_handler(EventHandler handler, std::int16_t olt_id, const void* record);
void call_update_error_handler(EventHandler handler, std::int16_t olt_id, const void* record);
// What the host answers is logged; a file that cannot be read raises an error event.
void call_update_request_handler(EventHandler handler, std::int16_t olt_id, const void* record);
void call_notification_handler(EventHandler handler, std::int16_t olt_id, const void* record);

// --- Raising them ------------------------------------------------------------------------------------------------

void raise_ctc_discovery(std::int16_t olt_id, std::int16_t llid, std::int32_t state,
                         const std::vector<CTC_oui_version>& records);
void raise_ctc_update_error(std::int16_t olt_id, std::int16_t onu_id, std::int32_t code, const std::string& message);
void raise_ctc_update_request(std::int16_t olt_id, std::int16_t onu_id, const std::string& information);

} // namespace sdk_sim
