// SPDX-License-Identifier: Apache-2.0
// Sessions of programs on the local socket. A program whose first line is "#!machine NONCE" gets one line of JSON for
// everything that an operator would see: an answer for each of its lines, and events. What a command prints stands
// inside a JSON string, so no text of a device can pass for an answer; the nonce tells where the greeting ends.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "host/engine/engine_host.h"

namespace engine {

struct Session;

// Longest nonce, in bytes.
constexpr std::size_t NONCE_LIMIT = 64;
// What the output in one answer takes at most, as it stands there: in JSON a byte may take six. The rest of a longer
// one is lost, and the answer says so.
constexpr std::size_t ANSWER_LIMIT = 2 * 1024 * 1024;

struct MachineMode {
    std::string nonce;      // until it was told
    std::string output;     // printed since the last answer
    std::size_t weight = 0; // what it takes in JSON, at most
    bool truncated = false;
    std::uint64_t requests = 0;          // lines that were taken
    bool owes_answer = false;            // to the last of them
    Outcome outcome{MatchStatus::Empty}; // of that line
};

// The first line of a local session, which alone may ask for machine mode.
enum class FirstLine { Incomplete, Ordinary, Request };
// Looks at the bytes received. A request is taken, and the session is in machine mode from then on.
FirstLine take_first_line(Session& session);

// Printed by a command, instead of sent.
void keep_output(MachineMode& machine, std::string_view text);
// In place of a prompt: the answer to the line just executed, or to the request.
void send_answer(Session& session, std::string_view prompt);
// Event lines, one JSON line each.
void send_events(Session& session, std::string_view lines);
// The last words of a session that closes.
void send_closing(Session& session);

} // namespace engine
