// SPDX-License-Identifier: Apache-2.0
#include "telnet_filter.h"

namespace console {

namespace {

constexpr std::uint8_t IAC = 255, DONT = 254, DO = 253, WONT = 252, WILL = 251, SB = 250, SE = 240;
constexpr std::uint8_t ECHO_OPTION = 1, SUPPRESS_GO_AHEAD = 3, LOGOUT = 18, WINDOW_SIZE = 31;

void append(std::string* text, std::initializer_list<std::uint8_t> bytes)
{
    for (std::uint8_t byte : bytes)
        *text += static_cast<char>(byte);
}

} // namespace

std::string telnet_greeting(bool has_window)
{
    std::string text;
    append(&text, {IAC, DO, ECHO_OPTION});
    if (has_window) append(&text, {IAC, WILL, WINDOW_SIZE});
    return text;
}

std::string telnet_window_size(WindowSize size)
{
    std::string numbers;
    append(&numbers, {static_cast<std::uint8_t>(size.columns >> 8), static_cast<std::uint8_t>(size.columns & 0xFF),
                      static_cast<std::uint8_t>(size.rows >> 8), static_cast<std::uint8_t>(size.rows & 0xFF)});
    std::string text;
    append(&text, {IAC, SB, WINDOW_SIZE});
    text += telnet_escape(numbers);
    append(&text, {IAC, SE});
    return text;
}

std::string telnet_escape(std::string_view typed)
{
    std::string text;
    for (char letter : typed) {
        text += letter;
        if (static_cast<std::uint8_t>(letter) == IAC) text += letter;
    }
    return text;
}

void TelnetFilter::feed(std::string_view received, std::string* shown, std::string* answer)
{
    for (char letter : received) {
        auto byte = static_cast<std::uint8_t>(letter);
        switch (state) {
        case State::Data:
            if (byte == IAC) {
                state = State::Command;
            } else if (after_cr && byte == 0) {
                after_cr = false; // CR NUL is a carriage return alone
            } else {
                *shown += letter;
                after_cr = letter == '\r';
            }
            break;
        case State::Command:
            state = State::Data;
            if (byte == IAC) {
                *shown += letter;
            } else if (byte == SB) {
                state = State::Subnegotiation;
            } else if (byte >= WILL) {
                verb = byte;
                state = State::Option;
            }
            break;
        case State::Option:
            answer_option(byte, answer);
            state = State::Data;
            break;
        case State::Subnegotiation:
            if (byte == IAC) state = State::SubnegotiationCommand;
            break;
        case State::SubnegotiationCommand:
            state = byte == SE ? State::Data : State::Subnegotiation;
            break;
        }
    }
}

// The console's echo and the window's size were agreed by the greeting, and its going without go-aheads needs no
// answer, nor does its end; everything else is refused.
void TelnetFilter::answer_option(std::uint8_t option, std::string* answer)
{
    if (verb == WILL && option == ECHO_OPTION) answered = true;
    if (verb == WILL && option == LOGOUT) {
        ended = true;
        return;
    }
    if (verb == WILL && option != ECHO_OPTION && option != SUPPRESS_GO_AHEAD) append(answer, {IAC, DONT, option});
    if (verb == DO && option != WINDOW_SIZE) append(answer, {IAC, WONT, option});
}

} // namespace console
