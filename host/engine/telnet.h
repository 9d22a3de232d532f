// SPDX-License-Identifier: Apache-2.0
// The telnet layer of one connection: bytes of the client in, what the operator typed and answers to the client out.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

struct telnet_t;
union telnet_event_t;

namespace engine {

// A client that sends a longer subnegotiation is disconnected.
constexpr std::size_t SUBNEGOTIATION_LIMIT = 4096;
// One that has made the console answer with so many bytes as well: all options of telnet, asked for and taken back,
// take a third of it.
constexpr std::size_t NEGOTIATION_LIMIT = 8192;

class Telnet {
  public:
    // One that negotiates offers echo and character mode and asks for the window size at once. Another one waits for
    // the client to ask, so that programs that know no telnet see clean text.
    explicit Telnet(bool negotiates);
    ~Telnet();
    Telnet(const Telnet&) = delete;
    Telnet& operator=(const Telnet&) = delete;

    // False when the client broke the rules and is to be disconnected; fault() says why.
    bool receive(std::string_view bytes);

    // Says that the console ends the session, so that the client can tell it from a console that is gone.
    void announce_end();

    std::string typed;    // what the operator typed, since it was last cleared
    std::string answer;   // what goes to the client, since it was last cleared
    bool echo = false;    // the client asked for echo
    bool asked = false;   // whether somebody is there ("are you there"), since it was last cleared
    unsigned columns = 0; // width of its window, 0 when it did not say
    unsigned rows = 0;    // and its height
    const char* fault() const
    {
        return broken;
    }

  private:
    static void on_event(telnet_t* state, telnet_event_t* event, void* self);
    void handle(const telnet_event_t& event);
    void window_size(std::string_view data);

    struct Free {
        void operator()(telnet_t* state) const;
    };
    std::unique_ptr<telnet_t, Free> state;
    const char* broken = nullptr;
    std::size_t answered = 0; // bytes, in all
    std::size_t quiet = 0;    // bytes taken since the last one that meant something: those of an open subnegotiation
};

// Doubles the bytes of a text that telnet would take for commands; appends to *out.
void append_telnet_text(std::string_view text, std::string* out);
std::size_t telnet_text_size(std::string_view text);

} // namespace engine
