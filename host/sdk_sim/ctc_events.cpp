// SPDX-License-Identifier: Apache-2.0
// Events of the CTC stack: their handlers, how these are called, and what becomes of their answers.
#include "host/sdk_sim/ctc_events.h"

#include <algorithm>
#include <fstream>

#include "host/sdk_sim/event_table.h"
#include "host/sdk_sim/events.h"
#include "host/sdk_sim/gate.h"

namespace sdk_sim {

namespace {

const Operation assign_handler_function("CTC_STACK_assign_handler_function", CTC_STACK);
const Operation delete_handler_function("CTC_STACK_delete_handler_function", CTC_STACK);

constexpr std::int16_t TFTP_FAIL = -17005;
constexpr std::int16_t ALREADY_EXIST = -17007;
constexpr std::uint32_t RECORDS_LIMIT = 255;

// An event whose record ends in the length of what it points to, and the pointer.
template <class Record>
void raise_with_octets(int type, std::int16_t olt_id, Record record, std::string octets)
{
    QueuedEvent event;
    event.kind = ctc_event_kind(type);
    event.olt_id = olt_id;
    record.length = static_cast<std::uint32_t>(octets.size());
    static_assert(sizeof(record) <= EVENT_RECORD_SIZE);
    std::memcpy(event.record, &record, sizeof(record));
    event.octets = std::move(octets);
    queue_event(std::move(event));
}

const char* as_characters(const std::uint8_t* octets)
{
    return octets == nullptr ? "" : reinterpret_cast<const char*>(octets);
}

// The stack sends the file that the host named.
void send_update(std::int16_t olt_id, std::int16_t onu_id, const char* name)
{
    const std::ifstream file(name, std::ios::binary);
    if (!file) raise_ctc_update_error(olt_id, onu_id, TFTP_FAIL, std::string("cannot read ") + name);
}

} // namespace

void call_encryption_handler(EventHandler handler, std::int16_t olt_id, const void* record)
{
    const auto& event = *static_cast<const CtcEncryptionEvent*>(record);
    reinterpret_cast<CtcUpdateEncryptionHandler*>(handler)(olt_id, event.llid, event.state);
}

void call_discovery_handler(EventHandler handler, std::int16_t olt_id, const void* record)
{
    const auto& event = *static_cast<const CtcDiscoveryEvent*>(record);
    const auto count = static_cast<std::uint8_t>(std::min<std::uint32_t>(event.length / 4, RECORDS_LIMIT));
    std::vector<CTC_oui_version> records(count);
    for (std::size_t i = 0; i < count; ++i) {
        std::copy_n(event.records + 4 * i, 3, records[i].oui);
        records[i].version = event.records[4 * i + 3];
    }
    reinterpret_cast<CtcExtendedOamDiscoveryHandler*>(handler)(olt_id, event.llid, event.state, count,
                                                               count == 0 ? nullptr : records.data());
}

void call_update_error_handler(EventHandler handler, std::int16_t olt_id, const void* record)
{
    const auto& event = *static_cast<const CtcUpdateErrorEvent*>(record);
    reinterpret_cast<CtcUpdateOnuErrorHandler*>(handler)(olt_id, event.onu_id, event.code,
                                                         as_characters(event.message));
}

void call_update_request_handler(EventHandler handler, std::int16_t olt_id, const void* record)
{
    const auto& event = *static_cast<const CtcUpdateRequestEvent*>(record);
    std::uint8_t handled = 0;
    CTC_update_file file{};
    std::int16_t result = 0;
    const char* name = reinterpret_cast<CtcUpdateOnuRequestHandler*>(handler)(
        olt_id, event.onu_id, as_characters(event.information), &handled, &file, &result);
    if (handled != 1 || name == nullptr) return;
    NEPLOG_print(NEPLOG_SEVERITY_INFO, "ctc-stack", NEPLOG_LEVEL_TRACE, "onu-update", olt_id, event.onu_id,
                 "answered with %s, result %d\n", name, result);
    if (result == SUCCESS) send_update(olt_id, event.onu_id, name);
}

void call_notification_handler(EventHandler handler, std::int16_t olt_id, const void* record)
{
    const auto& event = *static_cast<const CtcNotificationEvent*>(record);
    const CTC_management_object_index object = {event.frame_number, event.slot_number, event.port_number,
                                                event.port_type};
    reinterpret_cast<CtcEventNotificationHandler*>(handler)(olt_id, event.onu_id, event.leaf, &object, event.raised,
                                                            event.value, event.alarm_id);
}

void raise_ctc_discovery(std::int16_t olt_id, std::int16_t llid, std::int32_t state,
                         const std::vector<CTC_oui_version>& records)
{
    std::string octets;
    for (const CTC_oui_version& record : records) {
        octets.append(reinterpret_cast<const char*>(record.oui), sizeof(record.oui));
        octets += static_cast<char>(record.version);
    }
    raise_with_octets(CTC_EVENT_EXTENDED_OAM_DISCOVERY, olt_id, CtcDiscoveryEvent{llid, state, 0, nullptr},
                      std::move(octets));
}

void raise_ctc_update_error(std::int16_t olt_id, std::int16_t onu_id, std::int32_t code, const std::string& message)
{
    raise_with_octets(CTC_EVENT_UPDATE_ONU_ERROR, olt_id, CtcUpdateErrorEvent{onu_id, code, 0, nullptr}, message);
}

void raise_ctc_update_request(std::int16_t olt_id, std::int16_t onu_id, const std::string& information)
{
    raise_with_octets(CTC_EVENT_UPDATE_ONU_REQUEST, olt_id, CtcUpdateRequestEvent{onu_id, 0, nullptr}, information);
}

} // namespace sdk_sim

using namespace sdk_sim;

int16_t CTC_STACK_assign_handler_function(int32_t event_type, EventHandler handler, uint16_t* id)
{
    return without_model(assign_handler_function, in(event_type), out(id), [&] {
        const bool is_type = event_type >= 0 && event_type <= CTC_EVENT_NOTIFICATION;
        if (handler == nullptr || !is_type || find_event_row(ctc_event_kind(event_type)) == nullptr)
            return PARAMETER_ERROR;
        {
            const ModelLock model;
            model->ctc_stack.has_ended = false;
        }
        if (has_handler(ctc_event_kind(event_type))) return ALREADY_EXIST;
        return register_handler(ctc_event_kind(event_type), handler, id) ? SUCCESS : NO_RESOURCES;
    });
}

int16_t CTC_STACK_delete_handler_function(uint16_t id)
{
    return without_model(delete_handler_function, in(id), out(), [&] {
        return remove_handler(id, CTC_EVENT_KINDS, LAST_CTC_EVENT_KIND) ? SUCCESS : PARAMETER_ERROR;
    });
}
