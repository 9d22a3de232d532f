// SPDX-License-Identifier: Apache-2.0
#include "machine_link.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <poll.h>
#include <sys/random.h>
#include <sys/socket.h>
#include <unistd.h>

namespace console {

namespace {

// What a console says before machine mode, at most: its greeting, a banner and a prompt.
constexpr std::size_t GREETING_LIMIT = 1024 * 1024;

std::string make_nonce()
{
    std::array<unsigned char, 16> bytes{};
    if (getrandom(bytes.data(), bytes.size(), 0) < 0) return {};
    std::string text;
    for (unsigned char byte : bytes) {
        char digits[3];
        std::snprintf(digits, sizeof digits, "%02x", byte);
        text += digits;
    }
    return text;
}

std::optional<Json> parse(const std::string& line)
{
    Json json = Json::parse(line, nullptr, false);
    if (!json.is_object()) return {};
    return json;
}

// The last line that says something; of a greeting the one that says why there is no session.
std::string last_line(const std::string& text)
{
    std::size_t end = text.find_last_not_of(" \r\n");
    if (end == std::string::npos) return {};
    std::size_t from = text.find_last_of("\r\n", end);
    return text.substr(from + 1, end - from);
}

} // namespace

MachineLink::MachineLink(int connection_, std::chrono::seconds limit_, std::function<void(const Json&)> on_event_)
    : connection(connection_), limit(limit_), on_event(std::move(on_event_))
{
}

MachineLink::~MachineLink()
{
    close(connection);
}

MachineLink::Clock::time_point MachineLink::deadline() const
{
    return limit.count() > 0 ? Clock::now() + limit : Clock::time_point::max();
}

MachineLink::Reading MachineLink::read_line(Clock::time_point until, std::string* line)
{
    for (;;) {
        std::size_t end = received.find('\n', looked_at);
        if (end != std::string::npos) {
            *line = received.substr(0, end);
            received.erase(0, end + 1);
            looked_at = 0;
            return Reading::Line;
        }
        looked_at = received.size();
        int timeout = -1;
        if (until != Clock::time_point::max()) {
            auto left = std::chrono::ceil<std::chrono::milliseconds>(until - Clock::now()).count();
            if (left <= 0) return Reading::TooLate;
            timeout = static_cast<int>(std::min<long long>(left, 1000LL * 3600));
        }
        pollfd wait{connection, POLLIN, 0};
        if (poll(&wait, 1, timeout) <= 0) continue;
        std::array<char, 65536> buffer;
        ssize_t count = recv(connection, buffer.data(), buffer.size(), 0);
        if (count < 0 && (errno == EINTR || errno == EAGAIN)) continue;
        if (count <= 0) {
            *line = received;
            return Reading::Closed;
        }
        received.append(buffer.data(), static_cast<std::size_t>(count));
    }
}

bool MachineLink::send_line(const std::string& line, std::string* error)
{
    std::string text = line + '\n';
    for (std::size_t at = 0; at < text.size();) {
        ssize_t sent = send(connection, text.data() + at, text.size() - at, MSG_NOSIGNAL);
        if (sent >= 0) {
            at += static_cast<std::size_t>(sent);
        } else if (errno == EAGAIN) {
            pollfd wait{connection, POLLOUT, 0};
            poll(&wait, 1, -1);
        } else if (errno != EINTR) {
            *error = "the console is gone";
            return false;
        }
    }
    return true;
}

std::optional<Json> MachineLink::start(std::string* error)
{
    std::string nonce = make_nonce();
    if (nonce.empty()) {
        *error = "the system gives no random number";
        return {};
    }
    if (!send_line("#!machine " + nonce, error)) return {};
    std::string greeting, line;
    for (auto until = deadline(); greeting.size() < GREETING_LIMIT;) {
        Reading reading = read_line(until, &line);
        if (reading == Reading::Line) {
            std::optional<Json> json = parse(line);
            if (json && json->value("nonce", Json()) == nonce) return json;
        }
        greeting += line + '\n';
        if (reading == Reading::TooLate) break;
        if (reading == Reading::Closed) {
            std::string said = last_line(greeting);
            *error = "the console closed the connection" + (said.empty() ? "" : ": " + said);
            return {};
        }
    }
    *error = "the console does not answer as one";
    return {};
}

std::optional<Json> MachineLink::read_answer(std::string* error)
{
    auto until = deadline();
    for (;;) {
        std::string line;
        Reading reading = read_line(until, &line);
        if (reading == Reading::TooLate) *error = "no answer within " + std::to_string(limit.count()) + " s";
        if (reading == Reading::Closed) *error = "the console is gone";
        if (reading != Reading::Line) return {};
        std::optional<Json> json = parse(line);
        if (!json) {
            *error = "the console sent something that is no answer";
            return {};
        }
        if (!json->contains("event")) return json;
        on_event(*json);
    }
}

std::optional<Json> MachineLink::ask(const std::string& line, std::string* error)
{
    if (!send_line(line, error)) return {};
    std::optional<Json> answer = read_answer(error);
    if (!answer || answer->value("request", std::uint64_t{0}) == ++requests) return answer;
    if (answer->value("closed", false))
        *error = "the console closed the session: " + last_line(answer->value("output", ""));
    else
        *error = "the console sent an answer to another line";
    return {};
}

bool MachineLink::follow(std::chrono::seconds time)
{
    for (auto until = Clock::now() + time;;) {
        std::string line;
        Reading reading = read_line(until, &line);
        if (reading == Reading::TooLate) return true;
        std::optional<Json> json = reading == Reading::Line ? parse(line) : std::nullopt;
        if (!json || json->contains("closed")) return false;
        if (json->contains("event")) on_event(*json);
    }
}

} // namespace console
