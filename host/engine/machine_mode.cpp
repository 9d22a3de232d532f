// SPDX-License-Identifier: Apache-2.0
#include "host/engine/machine_mode.h"

#include <algorithm>
#include <utility>

#include <nlohmann/json.hpp>

#include "host/engine/failure_lines.h"
#include "host/engine/json_size.h"
#include "host/engine/large_text.h"
#include "host/engine/session.h"

namespace engine {
namespace {

constexpr std::string_view REQUEST = "#!machine ";
constexpr int VERSION = 1;
// What an answer takes beside its output, about.
constexpr std::size_t ANSWER_FRAME = 1024;

// Members keep their order: what a reader wants first comes first.
using Json = nlohmann::ordered_json;

// Nothing but printable ASCII leaves; bytes that are no UTF-8 become U+FFFD.
std::string as_text(const Json& json)
{
    return json.dump(-1, ' ', true, Json::error_handler_t::replace);
}

void send_json(Session& session, const Json& json)
{
    append_to_large(as_text(json) + '\n', &session.out);
}

// Calls visit(line) for each line, without its end.
template <class Visit>
void for_each_line(std::string_view text, Visit visit)
{
    while (!text.empty()) {
        std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        visit(line);
    }
}

bool tells_failure(std::string_view output)
{
    bool failed = false;
    for_each_line(output, [&](std::string_view line) { failed |= is_failure_line(line); });
    return failed;
}

bool succeeded(const MachineMode& machine)
{
    const Outcome& outcome = machine.outcome;
    bool executed = outcome.status == MatchStatus::Empty || outcome.status == MatchStatus::Matched;
    return executed && outcome.result == 0 && !outcome.told_failure && !machine.truncated &&
           !tells_failure(machine.output);
}

// The lines, with "\n" for their ends, as a member: line by line, since an answer may be large.
void send_output_member(Session& session, std::string_view output)
{
    session.out += ",\"output\":\"";
    const char* line_end = "";
    for_each_line(output, [&](std::string_view line) {
        session.out += line_end;
        if (std::all_of(line.begin(), line.end(), [](char byte) { return json_size(byte) == 1; })) {
            session.out += line;
        } else {
            std::string text = as_text(line);
            session.out.append(text, 1, text.size() - 2);
        }
        line_end = "\\n";
    });
    session.out.append(output.ends_with('\n') ? line_end : "").append("\"");
}

// The members of an answer that come before its output, and those behind it.
void send_answer_members(Session& session, Json front, const Json& back)
{
    MachineMode& machine = *session.machine;
    if (machine.owes_answer) front["request"] = machine.requests;
    front["ok"] = succeeded(machine);
    if (machine.outcome.status == MatchStatus::Matched) front["result"] = machine.outcome.result;
    std::string text = as_text(front);
    make_room_for(machine.weight + ANSWER_FRAME, &session.out);
    session.out.append(text, 0, text.size() - 1);
    send_output_member(session, machine.output);
    if (machine.truncated) session.out += ",\"truncated\":true";
    text = as_text(back);
    if (!back.empty()) session.out.append(",").append(text, 1, text.size() - 2);
    session.out += "}\n";
    std::string().swap(machine.output);
    machine.weight = 0;
    machine.truncated = machine.owes_answer = false;
    machine.outcome = {MatchStatus::Empty};
}

bool is_nonce(std::string_view text)
{
    return !text.empty() && text.size() <= NONCE_LIMIT &&
           std::all_of(text.begin(), text.end(), [](char c) { return c > ' ' && c < 0x7f; });
}

} // namespace

FirstLine take_first_line(Session& session)
{
    std::string_view typed = std::string_view(session.in).substr(session.in_at);
    std::string_view begin = typed.substr(0, REQUEST.size());
    if (session.telnet->echo || REQUEST.substr(0, begin.size()) != begin) return FirstLine::Ordinary;
    std::size_t end = typed.find_first_of("\r\n");
    if (end == std::string_view::npos)
        return typed.size() > REQUEST.size() + NONCE_LIMIT ? FirstLine::Ordinary : FirstLine::Incomplete;
    std::string_view nonce = typed.substr(REQUEST.size(), end - REQUEST.size());
    if (!is_nonce(nonce)) return FirstLine::Ordinary;
    session.machine = std::make_unique<MachineMode>();
    session.machine->nonce = nonce;
    session.in_at += end + 1;
    session.out += "\r\n"; // ends the greeting's prompt
    return FirstLine::Request;
}

void keep_output(MachineMode& machine, std::string_view text)
{
    std::size_t taken = 0;
    for (; taken < text.size() && !machine.truncated; ++taken) {
        std::size_t weight = json_size(text[taken]);
        machine.truncated = machine.weight + weight > ANSWER_LIMIT;
        if (machine.truncated) break;
        machine.weight += weight;
    }
    append_to_large(text.substr(0, taken), &machine.output);
}

void send_answer(Session& session, std::string_view prompt)
{
    MachineMode& machine = *session.machine;
    Json place;
    place["prompt"] = prompt;
    place["node"] = session.node;
    if (session.editor.hides()) place["secret"] = true;
    if (machine.nonce.empty()) {
        send_answer_members(session, Json::object(), place);
        return;
    }
    Json json;
    json["machine"] = VERSION;
    json["nonce"] = std::exchange(machine.nonce, {});
    json.update(place);
    send_json(session, json);
}

void send_events(Session& session, std::string_view lines)
{
    for_each_line(lines, [&](std::string_view line) {
        Json json;
        json["event"] = line;
        send_json(session, json);
    });
}

void send_closing(Session& session)
{
    send_answer_members(session, Json{{"closed", true}}, Json::object());
}

} // namespace engine
