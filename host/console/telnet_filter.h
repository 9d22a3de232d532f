// SPDX-License-Identifier: Apache-2.0
// The client's side of the telnet protocol on the local socket: the console echoes and learns the window's size.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "terminal.h"

namespace console {

// What the client says first: the console is to echo, and the window's size will be told if there is a window.
std::string telnet_greeting(bool has_window);
// The window's size as a subnegotiation.
std::string telnet_window_size(WindowSize size);
// Typed bytes as they go over the connection.
std::string telnet_escape(std::string_view typed);

// Takes telnet commands out of what the console sends.
class TelnetFilter {
  public:
    // Appends the data among the received bytes to *shown, and what must be answered to *answer.
    void feed(std::string_view received, std::string* shown, std::string* answer);
    // The console speaks telnet with this client.
    bool was_answered() const
    {
        return answered;
    }
    // The console has said that it ends the session.
    bool was_ended() const
    {
        return ended;
    }

  private:
    enum class State { Data, Command, Option, Subnegotiation, SubnegotiationCommand };

    void answer_option(std::uint8_t option, std::string* answer);

    State state = State::Data;
    std::uint8_t verb = 0;
    bool after_cr = false;
    bool answered = false;
    bool ended = false;
};

} // namespace console
