// SPDX-License-Identifier: Apache-2.0
// Nodes and commands for the engine's own tests, a console thread that serves them, and clients.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <thread>

#include <gtest/gtest.h>

#include "host/engine/engine_host.h"

// Installs the test nodes once; every test that needs sessions starts with it.
//   enable:  "unit UNIT" (OLT node), "max-rtt <0-65534>", "min-rtt <0-65534>", "max-size <0-9>", "print LINES",
//            "call" (runs call_hook), "say WORD", "notify" (asks for events), "fail"
//   OLT node: "craft" (raw node 21), "onu NUMBER" (node 12, whose prompt is completed), "say WORD"
void install_test_nodes();

extern std::function<void(vty* session)> call_hook;
// What reached the raw node and its leave hook, one line each. Read it only while no command runs.
std::string take_raw_journal();

__attribute__((format(printf, 2, 3))) int print_to(vty* session, const char* format, ...);
// Prints an event line to every session that asked for events, as an SDK thread does.
void print_event(std::string_view line);

// Options with the console's one password, whose hash is in the file; a wrong one hardly has to wait.
engine::Options with_password(const std::string& file);

// Runs the server loop in a thread, as the command library does.
class ConsoleServer {
  public:
    // Options of its own replace name, port and socket. before is called with the path of the local socket, before it
    // is served.
    // The path of the local socket is another one than the usual, when socket_path names one.
    explicit ConsoleServer(engine::Options options = {},
                           const std::function<void(const std::string& path)>& before = {},
                           const std::string& socket_path = "");
    ~ConsoleServer();
    std::uint16_t port() const
    {
        return tcp_port;
    }
    const std::string& socket_path() const
    {
        return local_path;
    }

  private:
    std::string folder, local_path;
    std::uint16_t tcp_port = 0;
    bool ends = false;
    std::thread loop;
};

class Client {
  public:
    Client() = default;
    ~Client();
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;

    void connect_tcp(std::uint16_t port);
    // The same in two steps, for when no descriptor is left for the first one.
    void make_tcp_socket();
    void connect_made(std::uint16_t port) const;
    void connect_local(const std::string& path);
    void send(std::string_view bytes) const;
    // Reads until the text was seen, and returns everything up to its end, without telnet negotiation.
    std::string until(std::string_view text);
    // Reads until the other side closes.
    std::string rest();
    void half_close() const;
    // Ends the connection as a machine does that lost its power and came back.
    void reset();
    void send_urgent(char byte) const;
    // What the next receive gets, at most so many bytes.
    std::string read_some(std::size_t size) const;
    // Takes what is there, and throws it away.
    void skip();
    void disconnect();
    // Makes both windows small, so that unread output piles up at the sender soon.
    void shrink_buffers() const;
    std::string negotiation; // telnet commands received so far

  private:
    bool receive(int timeout_ms);
    int fd = -1;
    std::string received;
};
