// SPDX-License-Identifier: Apache-2.0
// The record of who did what: one RFC 5424 line for each login, command, refusal and end of a session. A thread of its
// own writes; whoever reports never waits, and when the writer cannot keep up, records are dropped and counted.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace engine {

constexpr std::size_t AUDIT_QUEUE_BYTES = 1024 * 1024; // what waits to be written, at most

enum class Severity { Warning = 4, Notice = 5, Informational = 6 }; // as RFC 5424 numbers them

struct AuditField {
    std::string_view name;
    std::string_view value;
};

// Begins writing to a file (appending), or to the system's log: "syslog", or "syslog:SOCKET" where the log listens on
// another datagram socket than the usual one. An empty target ends it.
// False with one clear line in *error.
bool open_audit(const std::string& target, std::string* error);
// Opens the file anew, because it was renamed. Any thread.
void reopen_audit();
// Waits until everything is written, but not for long.
void flush_audit();
bool audits();

// Reports one event. Any thread; does nothing when no record is kept.
void audit(Severity severity, std::string_view event, std::initializer_list<AuditField> fields);
// Records that were lost so far.
std::uint64_t audit_dropped();

// The value of a field, such that no text can end it or the line early: '"', '\' and ']' get a backslash, control
// bytes become their pictures (U+2400 and on), and bytes that are no text become U+FFFD.
std::string audit_value(std::string_view text);

} // namespace engine
