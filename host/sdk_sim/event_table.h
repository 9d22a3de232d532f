// SPDX-License-Identifier: Apache-2.0
// The kinds of events: names, fields and how a handler is called.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include <epon/sdk/events.h>

namespace sdk_sim {

struct EventFieldRow {
    const char* name;
    const char* meaning;
    // Sets the field from text; null, or what was expected. Octets go to *octets, their number to the record.
    const char* (*assign)(void* record, std::string_view text, std::string* octets);
};

struct EventRow {
    int kind;
    const char* name;
    std::span<const EventFieldRow> fields;
    std::size_t record_size;
    void (*call)(EventHandler handler, std::int16_t olt_id, const void* record);
    void (*point_to)(void* record, const std::string& octets); // null when the record points to nothing
};

std::span<const EventRow> event_rows();
// Null for a reserved kind.
const EventRow* find_event_row(std::int32_t kind);

} // namespace sdk_sim
