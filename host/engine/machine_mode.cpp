// SPDX-License-Identifier: Apache-2.0
#include "host/engine/machine_mode.h"

#include <algorithm>
#include <utility>

#include <nlohmann/json.hpp>

#include "host/engine/failure_lines.h"
#include "host/engine/session.h"

namespace engine {
namespace {

constexpr std::string_view REQUEST = "#!machine ";
constexpr int VERSION = 1;

// Members keep their order: what a reader wants first comes first.
using Json = nlohmann::ordered_json;

// Nothing but printable ASCII leaves; bytes that are no UTF-8 become U+FFFD.
void send_json(Session& session, const Json& json)
{
    session.out += json.dump(-1, ' ', true, Json::error_handler_t::replace);
    session.out += '\n';
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

// The lines with "\n" for their ends.
std::string plain_lines(std::string_view output)
{
    std::string text;
    for_each_line(output, [&](std::string_view line) {
        text += line;
        text += '\n';
    });
    if (!output.empty() && output.back() != '\n') text.pop_back();
    return text;
}

void add_answer(MachineMode& machine, Json* json)
{
    if (machine.owes_answer) (*json)["request"] = machine.requests;
    (*json)["ok"] = succeeded(machine);
    if (machine.outcome.status == MatchStatus::Matched) (*json)["result"] = machine.outcome.result;
    (*json)["output"] = plain_lines(machine.output);
    if (machine.truncated) (*json)["truncated"] = true;
    std::string().swap(machine.output);
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
    std::size_t room = ANSWER_LIMIT - machine.output.size();
    machine.output += text.substr(0, room);
    if (text.size() <= room) return;
    machine.truncated = true;
}

void send_answer(Session& session, std::string_view prompt)
{
    MachineMode& machine = *session.machine;
    Json json;
    if (!machine.nonce.empty()) {
        json["machine"] = VERSION;
        json["nonce"] = std::exchange(machine.nonce, {});
    } else {
        add_answer(machine, &json);
    }
    json["prompt"] = prompt;
    json["node"] = session.node;
    if (session.editor.hides()) json["secret"] = true;
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
    Json json;
    json["closed"] = true;
    add_answer(*session.machine, &json);
    send_json(session, json);
}

} // namespace engine
