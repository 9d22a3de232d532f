// SPDX-License-Identifier: Apache-2.0
#include "engine/engine_fixture.h"

#include <cstdarg>
#include <cstdlib>
#include <mutex>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

std::function<void(vty* session)> call_hook;

int print_to(vty* session, const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    int result = RBX_vty_out_internal(session, format, arguments);
    va_end(arguments);
    return result;
}

namespace {

std::string raw_journal;

int enter_unit(cmd_element*, vty* session, int, char** argv)
{
    session->olt_id = static_cast<int16_t>(atoi(argv[0]));
    session->node = OLT_NODE;
    return 0;
}

int enter_craft(cmd_element*, vty* session, int, char**)
{
    session->event_notify_saved = session->event_notify;
    __atomic_store_n(&session->event_notify, 1, __ATOMIC_RELAXED);
    session->node = OLT_FW_CRAFT_NODE;
    return 0;
}

int enter_onu(cmd_element*, vty* session, int, char** argv)
{
    session->onu_id = static_cast<int16_t>(atoi(argv[0]));
    session->node = ONU_NODE;
    return 0;
}

int say(cmd_element*, vty* session, int argc, char** argv)
{
    print_to(session, "%s:%d:%s\r\n", session->buf, argc, argv[0]);
    return 0;
}

int print_lines(cmd_element*, vty* session, int, char** argv)
{
    for (int i = 0; i < atoi(argv[0]); ++i)
        print_to(session, "line %06d of a long answer that nobody may ever read to its end\r\n", i);
    return 0;
}

int run_hook(cmd_element*, vty* session, int, char**)
{
    call_hook(session);
    return 0;
}

int notify(cmd_element*, vty* session, int, char**)
{
    __atomic_store_n(&session->event_notify, 1, __ATOMIC_RELAXED);
    return 0;
}

int fail(cmd_element*, vty*, int, char**)
{
    return -1007;
}

int craft_line(vty* session, const char* line)
{
    raw_journal += std::string("line ") + line + "\n";
    print_to(session, "sent %s\r\n", line);
    return 7;
}

void craft_left(vty* session)
{
    raw_journal += "left node " + std::to_string(session->node) + "\n";
    __atomic_store_n(&session->event_notify, session->event_notify_saved, __ATOMIC_RELAXED);
}

void onu_prompt(const vty& session, std::string* prompt)
{
    *prompt += std::to_string(session.onu_id) + ")# ";
}

cmd_node node_records[] = {
    {AUTH_NODE, "Password: ", 0, nullptr, nullptr},
    {VIEW_NODE, "%s> ", 0, nullptr, nullptr},
    {ENABLE_NODE, "%s# ", 0, nullptr, nullptr},
    {CONFIG_NODE, "%s(config)# ", 1, nullptr, nullptr},
    {OLT_NODE, "%s(OLT%d)# ", 0, nullptr, nullptr},
    {ONU_NODE, "%s(OLT%d ONU", 0, nullptr, nullptr},
    {OLT_FW_CRAFT_NODE, "%s(OLT%d FW_CRAFT)%x%# ", 0, nullptr, nullptr},
};

constexpr cmd_element element(const char* grammar, cmd_handler* handler, const char* help)
{
    return {grammar, handler, help, 0, nullptr, 0, nullptr, nullptr, 0};
}

cmd_element unit_cmd = element("unit UNIT", enter_unit, "Go to a unit\nIts number\n");
cmd_element max_rtt_cmd = element("max-rtt <0-65534>", say, "Longest round trip\nIn time quanta of 16 ns\n");
cmd_element min_rtt_cmd = element("min-rtt <0-65534>", say, "Shortest round trip\nIn time quanta of 16 ns\n");
cmd_element max_size_cmd = element("max-size <0-9>", say, "Largest size\nIn units\n");
cmd_element print_cmd = element("print LINES", print_lines, "Print lines\nHow many\n");
cmd_element call_cmd = element("call", run_hook, "Run the test's own code\n");
cmd_element say_cmd = element("say WORD", say, "Repeat what was typed\nAny word\n");
cmd_element notify_cmd = element("notify", notify, "Print events here\n");
cmd_element fail_cmd = element("fail", fail, "Return a code\n");
cmd_element craft_cmd = element("craft", enter_craft, "Talk to the firmware\n");
cmd_element onu_cmd = element("onu NUMBER", enter_onu, "Go to an ONU\nIts number\n");

} // namespace

void install_test_nodes()
{
    static bool installed = false;
    if (installed) return;
    installed = true;
    RBX_cmd_init();
    for (cmd_node& record : node_records) {
        RBX_install_node(&record, nullptr);
        RBX_install_default(record.node);
    }
    for (cmd_element* command : {&unit_cmd, &max_rtt_cmd, &min_rtt_cmd, &max_size_cmd, &print_cmd, &call_cmd, &say_cmd,
                                 &notify_cmd, &fail_cmd})
        RBX_install_element(ENABLE_NODE, command);
    for (cmd_element* command : {&craft_cmd, &onu_cmd, &say_cmd})
        RBX_install_element(OLT_NODE, command);
    engine::set_node_rules({.node = OLT_NODE, .parent = CONFIG_NODE, .title = "the context of a unit"});
    engine::set_node_rules({.node = ONU_NODE, .parent = OLT_NODE, .prompt_tail = onu_prompt});
    engine::set_node_rules({.node = OLT_FW_CRAFT_NODE,
                            .parent = OLT_NODE,
                            .raw_line = craft_line,
                            .raw_help = "Lines go to the firmware.\n\"exit\" comes back.\n",
                            .leave = craft_left});
}

std::string take_raw_journal()
{
    return std::exchange(raw_journal, {});
}

void print_event(std::string_view line)
{
    vty_vector* open = __atomic_load_n(&vtyvec, __ATOMIC_ACQUIRE);
    for (unsigned i = 0; open != nullptr && i < open->count; ++i) {
        vty* session = __atomic_load_n(&open->sessions[i], __ATOMIC_ACQUIRE);
        if (session == nullptr || __atomic_load_n(&session->event_notify, __ATOMIC_RELAXED) != 1) continue;
        print_to(session, "%.*s\r\n", static_cast<int>(line.size()), line.data());
        thread work{};
        work.func = RBX_vty_flush;
        work.arg = session;
        work.u.fd = static_cast<int>(i);
        RBX_thread_call(&work);
    }
}

// --- The server ---------------------------------------------------------------------------------------------------

engine::Options with_password(const std::string& file)
{
    engine::Options options;
    options.password_file = file;
    options.login_delay = std::chrono::milliseconds(10);
    return options;
}

ConsoleServer::ConsoleServer(engine::Options options, const std::function<void(const std::string& path)>& before,
                             const std::string& socket_path)
{
    install_test_nodes();
    char name[] = "/tmp/epon-engine-test-XXXXXX";
    folder = mkdtemp(name);
    local_path = socket_path.empty() ? folder + "/console.sock" : socket_path;
    if (before) before(local_path);
    options.host_name = "LAB";
    options.port = 0;
    options.socket_path = local_path;
    std::string error;
    EXPECT_TRUE(engine::prepare(options, &error)) << error;
    tcp_port = engine::bound_port();

    thread_master* master = RBX_thread_master_create();
    RBX_vty_init(master);
    RBX_vty_config_password();
    RBX_vty_serv_sock(nullptr, tcp_port, "/nowhere/console.sock");
    loop = std::thread([this, master] {
        while (!__atomic_load_n(&ends, __ATOMIC_ACQUIRE)) {
            RBX_vty_serv_sock(nullptr, tcp_port, "/nowhere/console.sock");
            thread work;
            while (RBX_thread_fetch(master, &work) != nullptr) {
                RBX_thread_call(&work);
                if (__atomic_load_n(&RBX_vty_kill_all_flag, __ATOMIC_ACQUIRE) != 0) RBX_vty_kill_all();
            }
        }
    });
}

ConsoleServer::~ConsoleServer()
{
    __atomic_store_n(&ends, true, __ATOMIC_RELEASE);
    engine::kill_all();
    loop.join();
    unlink(local_path.c_str());
    rmdir(folder.c_str());
}

// --- Clients ------------------------------------------------------------------------------------------------------

Client::~Client()
{
    disconnect();
}

void Client::make_tcp_socket()
{
    fd = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
}

void Client::connect_tcp(std::uint16_t port)
{
    make_tcp_socket();
    connect_made(port);
}

void Client::connect_made(std::uint16_t port) const
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    ASSERT_EQ(connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    int on = 1;
    setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on); // what is sent is on its way
}

void Client::connect_local(const std::string& path)
{
    fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
}

void Client::send(std::string_view bytes) const
{
    while (!bytes.empty()) {
        ssize_t sent = ::send(fd, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent <= 0) return; // the tests see it by what is missing in the answer
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
}

bool Client::receive(int timeout_ms)
{
    pollfd entry{fd, POLLIN, 0};
    if (poll(&entry, 1, timeout_ms) <= 0) return false;
    char bytes[65536];
    ssize_t size = recv(fd, bytes, sizeof bytes, 0);
    if (size <= 0) return false;
    for (ssize_t i = 0; i < size; ++i) {
        // Three-byte negotiation is all that the engine sends; it never splits it from the start of a segment.
        if (static_cast<unsigned char>(bytes[i]) == 0xff && i + 2 < size &&
            static_cast<unsigned char>(bytes[i + 1]) >= 0xfb && static_cast<unsigned char>(bytes[i + 1]) <= 0xfe) {
            negotiation.append(bytes + i, 3);
            i += 2;
        } else {
            received += bytes[i];
        }
    }
    return true;
}

std::string Client::until(std::string_view text)
{
    constexpr int TIMEOUT_MS = 10000;
    std::size_t looked_at = 0;
    for (;;) {
        std::size_t at = received.find(text, looked_at);
        if (at != std::string::npos) {
            std::string part = received.substr(0, at + text.size());
            received.erase(0, at + text.size());
            return part;
        }
        looked_at = received.size() > text.size() ? received.size() - text.size() : 0;
        if (!receive(TIMEOUT_MS)) {
            ADD_FAILURE() << "never saw \"" << text << "\" but: " << received.substr(0, 2000);
            return std::exchange(received, {});
        }
    }
}

std::string Client::rest()
{
    constexpr int TIMEOUT_MS = 10000;
    while (receive(TIMEOUT_MS)) {
    }
    return std::exchange(received, {});
}

void Client::half_close() const
{
    shutdown(fd, SHUT_WR);
}

void Client::reset()
{
    linger at_once{1, 0};
    setsockopt(fd, SOL_SOCKET, SO_LINGER, &at_once, sizeof at_once);
    disconnect();
}

void Client::send_urgent(char byte) const
{
    EXPECT_EQ(::send(fd, &byte, 1, MSG_OOB | MSG_NOSIGNAL), 1);
}

std::string Client::read_some(std::size_t size) const
{
    std::string bytes(size, '\0');
    ssize_t got = recv(fd, bytes.data(), bytes.size(), 0);
    bytes.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
    return bytes;
}

void Client::skip()
{
    char bytes[65536];
    while (recv(fd, bytes, sizeof bytes, MSG_DONTWAIT) > 0) {
    }
    received.clear();
}

void Client::disconnect()
{
    if (fd >= 0) close(fd);
    fd = -1;
}

void Client::shrink_buffers() const
{
    int size = 4096;
    setsockopt(fd, SOL_SOCKET, SO_RCVBUF, &size, sizeof size);
}
