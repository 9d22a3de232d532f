// SPDX-License-Identifier: Apache-2.0
// Whatever a client sends, from the bytes on the wire down to the simulated SDK. The first byte of the input chooses
// how the client comes (telnet or local socket) and how far it has gone before; the rest is sent, with marks that stand
// for whole commands (typed_commands.h), then the sending side is closed. The session must come to its end, and what it
// sent must be well-formed.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include <fcntl.h>
#include <stdlib.h>
#include <sys/socket.h>
#include <unistd.h>

#include <epon/cli.h>

#include "host/engine/engine_host.h"
#include "host/engine/event_loop.h"
#include "host/engine/terminal.h"
#include "host/network_values.h"
#include "host/node_rules.h"
#include "host/refusal_lines.h"
#include "host/sdk_sim/sdk_sim.h"
#include "host/secret_words.h"
#include "tests/fuzz/require.h"
#include "tests/fuzz/typed_commands.h"

namespace {

constexpr std::string_view BEGINNINGS[] = {
    "",
    "enable\r",
    "enable\rconfigure terminal\r",
    "enable\rconfigure terminal\rolt 0\r",
    "enable\rconfigure terminal\rolt 0\ronu 0\r",
    "enable\rconfigure terminal\rolt 0\rllid 0\r",
    "enable\rconfigure terminal\rolt 0\rfw-craft\r",
    "enable\rconfigure terminal\rolt 0\rpon\r",
};
constexpr std::size_t INPUT_LIMIT = 64 * 1024;

// Small, because every input begins with it: ONUs of several kinds, and one OLT more.
constexpr std::string_view NETWORK = R"(
name = "FUZZ"
[clock]
speed = 0
[life]
leave_interval = 3
absence = 1
alarm_interval = 1
[[olt]]
id = 0
mac = "02-4e-50-40-00-00"
[[olt.onu]]
id = 0
mac = "02-4e-50-50-00-00"
loid = "elm"
loid_password = "1"
[[olt.onu]]
id = 1
mac = "02-4e-50-50-00-01"
rate = "10g"
extended_oam = "none"
[[olt.onu]]
id = 2
mac = "02-4e-50-50-00-02"
extended_oam = "silent"
remote_management = "silent"
[[olt.onu]]
id = 3
mac = "02-4e-50-50-00-03"
mode = "unregistered"
[[olt]]
id = 1
mac = "02-4e-50-40-00-01"
)";
constexpr std::uint64_t START_MS = 3000; // until all that come by themselves are there
constexpr std::uint64_t TURN_MS = 500;   // that pass in the network while the console does one piece of work

// The console thread of the library waits for good: this thread does its work.
bool start_console()
{
    // Relative file names of commands stay in a folder of our own.
    char folder[] = "/tmp/epon-session-fuzz-XXXXXX";
    require(mkdtemp(folder) != nullptr && chdir(folder) == 0 && rmdir(folder) == 0, "a folder to work in");
    engine::Options options;
    options.port = 0;
    options.starts_closed = true;
    std::string error;
    require(engine::prepare(options, &error), error.c_str());
    require(init_epon_driver() == 0, "the driver starts");
    install_node_rules();
    install_secret_words();
    install_network_values();
    engine::set_refusal_check(is_refusal_line);
    CLI_activate();
    init_packages();
    engine::set_loop_handlers({[](thread*) { return 0; }, engine::serve_session, [] {}, [] {}, [] {}});
    return true;
}

// Takes what the console sent. False when it closed the connection.
bool take(int fd, std::string* received)
{
    char bytes[65536];
    for (;;) {
        ssize_t size = recv(fd, bytes, sizeof bytes, MSG_DONTWAIT);
        if (size == 0) return false;
        if (size < 0) return true;
        received->append(bytes, static_cast<std::size_t>(size));
    }
}

// A local session is over when its client reads the end; everything until then is done on this thread.
std::string run_session(bool local, const std::string& input)
{
    int ends[2];
    require(socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0, ends) == 0, "a pair of sockets");
    std::string received;
    std::size_t sent = 0;
    bool ended = false;
    engine::open_connection(ends[0], {local, "fuzzer", "fuzzer", {}});
    thread_master* loop = RBX_thread_master_create();
    while (take(ends[1], &received)) {
        while (sent < input.size()) {
            ssize_t size = send(ends[1], input.data() + sent, input.size() - sent, MSG_NOSIGNAL);
            if (size <= 0) break;
            sent += static_cast<std::size_t>(size);
        }
        if (sent == input.size() && !ended) {
            shutdown(ends[1], SHUT_WR);
            ended = true;
        }
        thread work;
        if (RBX_thread_fetch(loop, &work) != nullptr) RBX_thread_call(&work);
        sdk_sim::advance_clock(TURN_MS);
        sdk_sim::drain_events();
        if (__atomic_load_n(&RBX_vty_kill_all_flag, __ATOMIC_ACQUIRE) != 0) RBX_vty_kill_all();
        if (received.size() > (64U << 20)) break; // a command that prints without end shows itself as a slow input
    }
    close(ends[1]);
    return received;
}

// Escape sequences of the console's own are the only ones: nothing that was typed comes back as one.
void check(const std::string& received)
{
    for (std::string_view foreign : {"\x1b]", "\x1bP", "\x1b_", "\x1b^", "\x1b[6n", "\x1b[c", "\x1b[>"})
        require(received.find(foreign) == std::string::npos, "no sequence that makes a terminal answer");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const bool started = start_console();
    if (!started || size == 0 || size > INPUT_LIMIT) return 0;
    std::string error;
    require(sdk_sim::load_scenario_text(NETWORK, "fuzz", &error), error.c_str());
    sdk_sim::start();
    sdk_sim::advance_clock(START_MS);
    bool local = (data[0] & 0x80U) != 0;
    std::string input(BEGINNINGS[data[0] % (sizeof BEGINNINGS / sizeof BEGINNINGS[0])]);
    input += TypedCommands::typed({reinterpret_cast<const char*>(data) + 1, size - 1});
    check(run_session(local, input));
    sdk_sim::stop();
    return 0;
}
