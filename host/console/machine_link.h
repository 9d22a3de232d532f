// SPDX-License-Identifier: Apache-2.0
// The console's machine mode, as a program on the local socket speaks it: a line in, an answer with its result out.
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>

#include <nlohmann/json.hpp>

namespace console {

using Json = nlohmann::ordered_json;

class MachineLink {
  public:
    // Owns the connection. on_event gets every event line as it comes; a limit of 0 waits for ever.
    MachineLink(int connection, std::chrono::seconds limit, std::function<void(const Json&)> on_event);
    ~MachineLink();
    MachineLink(const MachineLink&) = delete;
    MachineLink& operator=(const MachineLink&) = delete;

    // Asks for machine mode. What the console says of its prompt, or nothing with one clear line in *error.
    std::optional<Json> start(std::string* error);
    // Sends one line and waits for its answer. Nothing with a line in *error when there is none.
    std::optional<Json> ask(const std::string& line, std::string* error);
    // Takes events for so long. False when the console closes the session before.
    bool follow(std::chrono::seconds time);

  private:
    using Clock = std::chrono::steady_clock;
    enum class Reading { Line, Closed, TooLate };

    Clock::time_point deadline() const;
    Reading read_line(Clock::time_point until, std::string* line);
    bool send_line(const std::string& line, std::string* error);
    std::optional<Json> read_answer(std::string* error);

    int connection;
    std::chrono::seconds limit;
    std::function<void(const Json&)> on_event;
    std::uint64_t requests = 0;
    std::string received;
    std::size_t looked_at = 0; // received bytes that hold no line end
};

} // namespace console
