// SPDX-License-Identifier: Apache-2.0
// Telnet with as few options as a line-oriented console needs: ECHO and SUPPRESS-GO-AHEAD from us, NAWS from the
// client.
#include "host/engine/telnet.h"

#include <algorithm>

#include <libtelnet.h>

namespace engine {
namespace {

constexpr telnet_telopt_t options[] = {
    {TELNET_TELOPT_ECHO, TELNET_WILL, TELNET_DONT},
    {TELNET_TELOPT_SGA, TELNET_WILL, TELNET_DO},
    {TELNET_TELOPT_NAWS, TELNET_WONT, TELNET_DO},
    {-1, 0, 0},
};

// Telnet's own keys, as the control bytes that the line editor knows.
char editing_key(unsigned char command)
{
    switch (command) {
    case TELNET_IP:
    case TELNET_BREAK:
        return 0x03;
    case TELNET_EC:
        return 0x08;
    case TELNET_EL:
        return 0x15;
    case TELNET_EOF:
        return 0x04;
    default:
        return 0;
    }
}

constexpr char COMMAND_BYTE = static_cast<char>(TELNET_IAC);
constexpr std::size_t SLICE = 512; // how exactly the length of an unfinished subnegotiation is known
// Sizes outside of these are no sizes: clients that do not know theirs send zeros.
constexpr unsigned NARROWEST = 4, LOWEST = 2, LARGEST = 1000;

unsigned window_side(std::string_view octets, unsigned least)
{
    unsigned side = static_cast<unsigned char>(octets[0]) * 256U + static_cast<unsigned char>(octets[1]);
    return side >= least && side <= LARGEST ? side : 0;
}

} // namespace

void Telnet::Free::operator()(telnet_t* telnet) const
{
    telnet_free(telnet);
}

Telnet::Telnet(bool negotiates) : state(telnet_init(options, &Telnet::on_event, 0, this))
{
    if (!state) {
        broken = "out of memory";
    } else if (negotiates) {
        telnet_negotiate(state.get(), TELNET_WILL, TELNET_TELOPT_ECHO);
        telnet_negotiate(state.get(), TELNET_WILL, TELNET_TELOPT_SGA);
        telnet_negotiate(state.get(), TELNET_DO, TELNET_TELOPT_NAWS);
    }
}

Telnet::~Telnet() = default;

bool Telnet::receive(std::string_view bytes)
{
    while (!bytes.empty() && broken == nullptr) {
        std::string_view slice = bytes.substr(0, SLICE);
        bytes.remove_prefix(slice.size());
        quiet += slice.size();
        telnet_recv(state.get(), slice.data(), slice.size());
        if (quiet > SUBNEGOTIATION_LIMIT) broken = "telnet subnegotiation too long";
    }
    return broken == nullptr;
}

void Telnet::announce_end()
{
    telnet_negotiate(state.get(), TELNET_WILL, TELNET_TELOPT_LOGOUT);
}

void Telnet::on_event(telnet_t*, telnet_event_t* event, void* self)
{
    static_cast<Telnet*>(self)->handle(*event);
}

void Telnet::handle(const telnet_event_t& event)
{
    quiet = 0;
    if (broken != nullptr) return;
    switch (event.type) {
    case TELNET_EV_DATA:
        typed.append(event.data.buffer, event.data.size);
        break;
    case TELNET_EV_SEND:
        answer.append(event.data.buffer, event.data.size);
        answered += event.data.size;
        if (answered > NEGOTIATION_LIMIT) broken = "telnet negotiation without end";
        break;
    case TELNET_EV_IAC:
        if (char key = editing_key(event.iac.cmd)) typed += key;
        if (event.iac.cmd == TELNET_AYT) asked = true;
        break;
    case TELNET_EV_DO:
    case TELNET_EV_DONT:
        if (event.neg.telopt == TELNET_TELOPT_ECHO) echo = event.type == TELNET_EV_DO;
        break;
    case TELNET_EV_SUBNEGOTIATION:
        if (event.sub.telopt == TELNET_TELOPT_NAWS && event.sub.size == 4) window_size({event.sub.buffer, 4});
        break;
    case TELNET_EV_COMPRESS:
        broken = "compressed telnet is not served"; // a few bytes could unpack to gigabytes
        break;
    case TELNET_EV_ERROR:
        broken = "telnet protocol error";
        break;
    default:
        break;
    }
}

void Telnet::window_size(std::string_view data)
{
    columns = window_side(data.substr(0, 2), NARROWEST);
    rows = window_side(data.substr(2), LOWEST);
}

std::size_t telnet_text_size(std::string_view text)
{
    return text.size() + static_cast<std::size_t>(std::count(text.begin(), text.end(), COMMAND_BYTE));
}

void append_telnet_text(std::string_view text, std::string* out)
{
    for (std::size_t end; (end = text.find(COMMAND_BYTE)) != std::string_view::npos; text.remove_prefix(end + 1)) {
        out->append(text.substr(0, end + 1));
        *out += COMMAND_BYTE;
    }
    out->append(text);
}

} // namespace engine
