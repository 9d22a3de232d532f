// SPDX-License-Identifier: Apache-2.0
// The served console: what clients send and what they see, over TCP and the local socket.
#include <atomic>
#include <chrono>
#include <fstream>
#include <thread>

#include <crypt.h>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include "engine/engine_fixture.h"

using namespace std::string_view_literals;

namespace {

class ServerTest : public ::testing::Test {
  protected:
    // Logs in on the enable node; what was printed so far is read.
    void connect(Client& client) const
    {
        client.connect_tcp(server.port());
        client.until("LAB> ");
        client.send("enable\r");
        client.until("LAB# ");
    }

    ConsoleServer server;
};

std::string repeated(std::string_view text, int count)
{
    std::string all;
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

} // namespace

TEST_F(ServerTest, GreetsAndEchoes)
{
    Client client;
    client.connect_tcp(server.port());
    EXPECT_EQ(client.until("LAB> "), "Console of LAB. Type ? for the commands, help for a first tour.\r\nLAB> ");
    EXPECT_EQ(client.negotiation, "\xff\xfb\x01\xff\xfb\x03\xff\xfd\x1f");
    client.send("enable\r\n");
    EXPECT_EQ(client.until("LAB# "), "enable\r\nLAB# ");
    client.send("say hi\r\0say ho\nsay hu\r"sv);
    EXPECT_EQ(client.until("hu\r\nLAB# "), "say hi\r\nsay hi:1:hi\r\nLAB# say ho\r\nsay ho:1:ho\r\nLAB# "
                                           "say hu\r\nsay hu:1:hu\r\nLAB# ");
    client.send("\r\n");
    EXPECT_EQ(client.until("LAB# "), "\r\nLAB# ");
    client.send("a b\r");
    EXPECT_EQ(client.until("LAB# "), "a b\r\n     ^\r\n% Unknown command.\r\nLAB# ");
    client.send("quit\r");
    EXPECT_EQ(client.rest(), "quit\r\n");
}

TEST_F(ServerTest, IgnoresTelnetOptionsInsideALine)
{
    Client client;
    connect(client);
    for (char byte : "sa\xff\xfd\x01y a\xff\xfb\x1f\xff\xfa\x1f\x00\x50\x00\x18\xff\xf0"
                     "b\r"sv) {
        client.send({&byte, 1});
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    EXPECT_EQ(client.until("LAB# "), "say ab\r\nsay ab:1:ab\r\nLAB# ");
}

TEST_F(ServerTest, RefusesALineWithForeignBytes)
{
    Client client;
    connect(client);
    client.send("say a\xff\xff"
                "b\r");
    EXPECT_EQ(client.until("LAB# "), "say ab\r\n% Line refused: it holds bytes that are not printable text.\r\nLAB# ");
    client.send("say b\r");
    EXPECT_EQ(client.until("LAB# "), "say b\r\nsay b:1:b\r\nLAB# ");
}

TEST_F(ServerTest, RefusesALineThatIsTooLong)
{
    Client client;
    connect(client);
    client.send("say " + std::string(100000, 'x') + "\rsay b\r");
    std::string answer = client.until("say b:1:b\r\nLAB# ");
    EXPECT_NE(answer.find("x\r\n% Line too long (more than 16384 characters).\r\nLAB# say b\r\n"), std::string::npos);
    EXPECT_LT(answer.size(), 17000U);
}

TEST_F(ServerTest, HelpsAndCompletes)
{
    Client client;
    connect(client);
    client.send("max-rtt ?");
    EXPECT_EQ(client.until("LAB# max-rtt "), "max-rtt \r\n  <0-65534>  In time quanta of 16 ns\r\nLAB# max-rtt ");
    client.send("\x15mi\t5\r");
    EXPECT_EQ(client.until("5\r\nLAB# "),
              "\b\b\b\b\b\b\b\b        \b\b\b\b\b\b\b\bmin-rtt 5\r\nmin-rtt 5:1:5\r\nLAB# ");
    client.send("m\t");
    EXPECT_EQ(client.until("LAB# m"), "m\r\nmax-rtt   max-size  min-rtt\r\nLAB# m");
    client.send("a\t");
    EXPECT_EQ(client.until("ax-"), "ax-");
    client.send("\x03");
    EXPECT_EQ(client.until("LAB# "), "^C\r\nLAB# ");
    client.send("zzz ?\x15");
    EXPECT_NE(client.until("LAB# zzz ").find("% No command continues like this.\r\n"), std::string::npos);
    client.send("unit 1\rcraft\r?");
    EXPECT_NE(client.until("comes back.\r\n").find("\r\nLines go to the firmware.\r\n"), std::string::npos);
    client.send("exit\rshow history\r");
    std::string history = client.until("show history\r\nLAB(OLT1)# ");
    EXPECT_EQ(history.find("?"), std::string::npos);
}

TEST_F(ServerTest, WrapsHelpToTheWindow)
{
    Client client;
    connect(client);
    client.send("\xff\xfb\x1f\xff\xfa\x1f\x00\x28\x00\x60\xff\xf0?"sv);
    std::string help = client.until("LAB# ");
    std::size_t longest = 0, column = 0;
    for (char c : help) {
        column = c == '\r' || c == '\n' ? 0 : column + 1;
        longest = std::max(longest, column);
    }
    EXPECT_LT(longest, 40U);
    EXPECT_GT(longest, 30U);
}

TEST_F(ServerTest, RecallsLines)
{
    Client client;
    connect(client);
    client.send("say one\r");
    client.until("LAB# ");
    client.send("\x1b[A\b\b\btwo\r");
    EXPECT_NE(client.until("LAB# ").find("say two:1:two\r\n"), std::string::npos);
}

TEST_F(ServerTest, LeavesAtCtrlD)
{
    Client client;
    connect(client);
    client.send("unit 1\r");
    client.until("(OLT1)# ");
    client.send("\x04");
    EXPECT_EQ(client.until("# "), "\r\nLAB(config)# ");
    client.send("\x04\x04");
    EXPECT_EQ(client.rest(), "\r\nLAB# \r\n");
}

TEST_F(ServerTest, ExecutesAThousandPastedLinesInOrder)
{
    Client client;
    connect(client);
    std::string lines, expected;
    for (int i = 0; i < 1000; ++i) {
        std::string line = "say " + std::to_string(i);
        lines += line + "\r\n";
        expected += line + "\r\n" + line + ":1:" + std::to_string(i) + "\r\nLAB# ";
    }
    client.send(lines);
    EXPECT_EQ(client.until("999:1:999\r\nLAB# "), expected);
}

TEST_F(ServerTest, ABusyClientDoesNotStopAnother)
{
    Client busy, other;
    connect(busy);
    connect(other);
    std::thread sender([&] { busy.send(repeated("say busy\r", 20000)); });
    std::thread reader([&] {
        for (int i = 0; i < 20000; ++i)
            busy.until("LAB# ");
    });
    auto slowest = std::chrono::steady_clock::duration::zero();
    for (int i = 0; i < 20; ++i) {
        auto start = std::chrono::steady_clock::now();
        other.send("say me\r");
        other.until("LAB# ");
        slowest = std::max(slowest, std::chrono::steady_clock::now() - start);
    }
    EXPECT_LT(slowest, std::chrono::seconds(2));
    sender.join();
    reader.join();
}

TEST_F(ServerTest, RunsWhatWasSentBeforeTheEnd)
{
    Client client;
    client.connect_tcp(server.port());
    client.send("enable\nprint 20000\nsay half");
    client.half_close();
    std::string all = client.rest();
    EXPECT_NE(all.find("line 019999"), std::string::npos);
    EXPECT_EQ(all.find("half:1"), std::string::npos) << "half a line is not executed";
}

TEST_F(ServerTest, OutlivesClientsThatVanish)
{
    for (int i = 0; i < 30; ++i) {
        Client client;
        client.connect_tcp(server.port());
        client.send(i % 3 == 0 ? "enab" : i % 3 == 1 ? "enable\rprint 5000\r" : "\xff\xfa\x1f");
    }
    Client client;
    connect(client);
    client.send("say still\r");
    client.until("say still:1:still\r\nLAB# ");
}

TEST_F(ServerTest, CutsOffAClientThatDoesNotRead)
{
    Client lazy, other;
    connect(lazy);
    lazy.shrink_buffers();
    connect(other);
    testing::internal::CaptureStderr();
    lazy.send("print 300000\r"); // about 20 MB
    other.send("say me\r");
    other.until("say me:1:me\r\nLAB# ");
    other.send("who\r");
    std::string sessions = other.until("\r\nLAB# ");
    EXPECT_EQ(std::count(sessions.begin(), sessions.end(), '\n'), 3) << sessions;
    std::string log = testing::internal::GetCapturedStderr();
    EXPECT_NE(log.find("cut off: it left too much output unread\n"), std::string::npos) << log;
    EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 1);
    EXPECT_LT(lazy.rest().size(), 10U << 20);
}

TEST_F(ServerTest, TurnsClientsAwayWhenFull)
{
    std::vector<std::unique_ptr<Client>> clients;
    for (int i = 0; i < 63; ++i) { // the last one is kept for the local socket
        clients.push_back(std::make_unique<Client>());
        clients.back()->connect_tcp(server.port());
        clients.back()->until("LAB> ");
    }
    Client late;
    late.connect_tcp(server.port());
    EXPECT_EQ(late.rest(), "% Too many sessions.\r\n");
    Client local;
    local.connect_local(server.socket_path());
    local.until("LAB> ");
    clients.front()->send("quit\r");
    clients.front()->rest();
    Client next;
    next.connect_tcp(server.port());
    next.until("LAB> ");
}

TEST_F(ServerTest, TurnsClientsAwayWithoutDescriptors)
{
    testing::internal::CaptureStderr();
    rlimit usual{};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &usual), 0);
    std::vector<int> taken; // all low ones, so that the limit is above the console's own
    for (int i = 0; i < 64; ++i)
        taken.push_back(dup(STDIN_FILENO));
    rlimit tight = usual;
    tight.rlim_cur = static_cast<rlim_t>(taken.back()) + 2; // one more, for the client's own end
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &tight), 0);
    for (int i = 0; i < 3; ++i) {
        Client client;
        client.connect_tcp(server.port());
        EXPECT_EQ(client.rest(), "");
    }
    setrlimit(RLIMIT_NOFILE, &usual);
    for (int fd : taken)
        close(fd);
    Client client;
    connect(client);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "epon: out of descriptors: clients are turned away\n");
}

TEST_F(ServerTest, ShowsEventsAboveTheTypedLine)
{
    Client client;
    connect(client);
    client.send("notify\r");
    client.until("LAB# ");
    client.send("say typ");
    client.until("say typ");
    std::thread([] {
        print_event("event one");
        print_event("event two");
    }).join();
    // Both in one batch or in two, as the threads happen to run; each time the line is taken away first.
    std::string seen = client.until("event two\r\nLAB# say typ");
    EXPECT_TRUE(seen == "\r            \revent one\r\nevent two\r\nLAB# say typ" ||
                seen == "\r            \revent one\r\nLAB# say typ\r            \revent two\r\nLAB# say typ")
        << seen;
    client.send("\x1b[D\x1b[D");
    client.until("\b\b");
    print_event("event three");
    EXPECT_EQ(client.until("typ\b\b"), "\r            \revent three\r\nLAB# say typ\b\b");
    client.send("\r");
    EXPECT_EQ(client.until("LAB# "), "yp\r\nsay typ:1:typ\r\nLAB# ");
}

TEST_F(ServerTest, EventsWaitForTheEndOfACommand)
{
    Client client;
    connect(client);
    client.send("notify\r");
    client.until("LAB# ");
    std::atomic<int> step{0};
    call_hook = [&](vty* session) {
        print_to(session, "begin\r\n");
        thread work{};
        work.func = RBX_vty_flush;
        work.arg = session;
        RBX_thread_call(&work);
        step = 1;
        while (step != 2)
            std::this_thread::yield();
        print_to(session, "end\r\n");
    };
    client.send("call\r");
    EXPECT_EQ(client.until("begin\r\n"), "call\r\nbegin\r\n") << "a flush inside a command sends at once";
    while (step != 1)
        std::this_thread::yield();
    print_event("meanwhile");
    step = 2;
    EXPECT_EQ(client.until("LAB# "), "end\r\nmeanwhile\r\nLAB# ");
}

TEST_F(ServerTest, CallsTheLeaveHookWhenTheClientVanishes)
{
    take_raw_journal();
    Client client, other;
    connect(client);
    connect(other);
    client.send("unit 1\rcraft\rhello\r");
    client.until("sent hello\r\n");
    client.disconnect();
    // The next answer comes after the end of the vanished session was noticed.
    std::string sessions;
    for (int i = 0; i < 100 && std::count(sessions.begin(), sessions.end(), '\n') != 3; ++i) {
        other.send("who\r");
        sessions = other.until("\r\nLAB# ");
    }
    EXPECT_EQ(take_raw_journal(), "line hello\nleft node 21\n");
}

TEST_F(ServerTest, ServesTheLocalSocketAsPlainText)
{
    struct stat status {};
    ASSERT_EQ(stat(server.socket_path().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
    Client client;
    client.connect_local(server.socket_path());
    client.send("enable\nsay a\nsay ?\nsay b\n");
    client.half_close();
    EXPECT_EQ(client.rest(), "Console of LAB. Type ? for the commands, help for a first tour.\r\n"
                             "LAB> LAB# say a:1:a\r\nLAB#   WORD  Any word\r\nLAB# say b:1:b\r\nLAB# ");
    EXPECT_EQ(client.negotiation, "");
}

TEST_F(ServerTest, EchoesOnTheLocalSocketWhenAsked)
{
    Client client;
    client.connect_local(server.socket_path());
    client.until("LAB> ");
    client.send("\xff\xfd\x01");
    client.send("enable\r");
    EXPECT_EQ(client.until("LAB# "), "enable\r\nLAB# ");
    EXPECT_EQ(client.negotiation, "\xff\xfb\x01");
    client.send("say a?");
    client.until("LAB# say a");
    client.send("\xff\xfe\x01");
    client.send("b\r");
    EXPECT_EQ(client.until("LAB# "), "say ab:1:ab\r\nLAB# ");
}

TEST_F(ServerTest, DropsAClientThatBreaksTelnet)
{
    testing::internal::CaptureStderr();
    Client client;
    client.connect_tcp(server.port());
    client.until("LAB> ");
    client.send("\xff\xfa\x18" + std::string(8000, 'x'));
    EXPECT_EQ(client.rest(), "");
    EXPECT_NE(testing::internal::GetCapturedStderr().find("cut off: telnet subnegotiation too long\n"),
              std::string::npos);
}

TEST_F(ServerTest, KillsAllSessionsAndServesOn)
{
    Client first, second;
    connect(first);
    second.connect_local(server.socket_path());
    second.until("LAB> ");
    engine::kill_all();
    EXPECT_EQ(first.rest(), "\r\n% The host closed this session.\r\n");
    EXPECT_EQ(second.rest(), "\r\n% The host closed this session.\r\n");
    Client third;
    connect(third);
    EXPECT_EQ(engine::served_at(), "127.0.0.1 port " + std::to_string(server.port()) + " and " + server.socket_path());
}

TEST(ServerPassword, AsksThreeTimes)
{
    std::string path = "/tmp/epon-engine-password-" + std::to_string(getpid());
    crypt_data data{};
    std::ofstream(path) << crypt_r("open sesame", "$5$saltsalt", &data) << "\n";
    {
        ConsoleServer server(with_password(path));
        Client client;
        client.connect_tcp(server.port());
        EXPECT_TRUE(client.until("Password: ").starts_with("Console of LAB."));
        client.send("wrong?\r");
        EXPECT_EQ(client.until("Password: "), "\r\n% Bad password.\r\nPassword: ");
        client.send("open sesam\b me\x15open sesame\r");
        EXPECT_EQ(client.until("> "), "\r\nLAB> ");

        Client guesser;
        testing::internal::CaptureStderr();
        guesser.connect_tcp(server.port());
        guesser.send("a\rb\r");
        for (int i = 0; i < 3; ++i)
            guesser.until("Password: ");
        guesser.send("c\renable\r");
        EXPECT_EQ(guesser.rest(), "\r\n% Bad password, too many tries.\r\n");
        EXPECT_NE(testing::internal::GetCapturedStderr().find(": 3 bad passwords\n"), std::string::npos);
        Client shy;
        shy.connect_tcp(server.port());
        shy.until("Password: ");
        shy.send("\x04");
        EXPECT_EQ(shy.rest(), "\r\n");
    }
    unlink(path.c_str());
    ConsoleServer open; // the next one asks for none
}

TEST(ServerOptions, AreCheckedBeforeAnythingStarts)
{
    std::string error;
    engine::Options options;
    options.port = 0;
    options.host_name = "";
    EXPECT_FALSE(engine::prepare(options, &error));
    options.host_name = "two\nlines";
    EXPECT_FALSE(engine::prepare(options, &error));
    options.host_name = "LAB";
    options.listen_address = "no.such.host.example";
    EXPECT_FALSE(engine::prepare(options, &error));
    EXPECT_NE(error.find("no.such.host.example port 0: "), std::string::npos) << error;
    options.listen_address = "127.0.0.1";
    options.listen_address = "0.0.0.0";
    EXPECT_FALSE(engine::prepare(options, &error));
    EXPECT_EQ(error, "cannot listen on 0.0.0.0: without users or a password, whoever reaches it could use the console");
    options.listen_address = "127.0.0.1";
    options.password_file = "/no/such/file";
    EXPECT_FALSE(engine::prepare(options, &error));
    EXPECT_EQ(error, "password file /no/such/file: No such file or directory");
    options.password_file = "/etc/hostname";
    EXPECT_FALSE(engine::prepare(options, &error));
    EXPECT_NE(error.find("no crypt(3) hash"), std::string::npos) << error;
    options.password_file = "";
    ASSERT_TRUE(engine::prepare(options, &error)) << error;
    options.port = engine::bound_port();
    EXPECT_FALSE(engine::prepare(options, &error)) << "the port is taken";
    EXPECT_EQ(error, "cannot listen on 127.0.0.1 port " + std::to_string(options.port) + ": Address already in use");
}

// In a process of its own, because the console thread never comes back from being parked.
TEST(ServerStop, ClosesParksAndRemovesTheSocket)
{
    int pipe_ends[2];
    ASSERT_EQ(pipe2(pipe_ends, O_CLOEXEC), 0);
    pid_t child = fork();
    if (child == 0) {
        static ConsoleServer& server = *new ConsoleServer;
        Client client, local;
        client.connect_tcp(server.port());
        client.until("LAB> ");
        local.connect_local(server.socket_path());
        local.until("LAB> ");
        engine::stop();
        bool good = client.rest() == "\r\n% The host closed this session.\r\n" &&
                    local.rest() == "\r\n% The host closed this session.\r\n" &&
                    access(server.socket_path().c_str(), F_OK) != 0 && engine::served_at().empty();
        engine::stop(); // once more changes nothing
        char result = good ? 'y' : 'n';
        if (write(pipe_ends[1], &result, 1) != 1) _exit(2);
        _exit(0);
    }
    close(pipe_ends[1]);
    char result = '?';
    EXPECT_EQ(read(pipe_ends[0], &result, 1), 1);
    EXPECT_EQ(result, 'y');
    close(pipe_ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
}

namespace {

int bind_socket(const std::string& path)
{
    int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    EXPECT_EQ(bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(listen(fd, 1), 0);
    return fd;
}

} // namespace

TEST(ServerSocket, ReplacesAStaleSocket)
{
    ConsoleServer server({}, [](const std::string& path) { close(bind_socket(path)); });
    Client client;
    client.connect_local(server.socket_path());
    client.until("LAB> ");
}

TEST(ServerSocket, LeavesALiveOneAndServesTheRest)
{
    int live = -1;
    testing::internal::CaptureStderr();
    {
        ConsoleServer server({}, [&](const std::string& path) { live = bind_socket(path); });
        Client client;
        client.connect_tcp(server.port());
        client.until("LAB> ");
        engine::kill_all(); // served anew: the complaint is not repeated
        client.rest();
        Client again;
        again.connect_tcp(server.port());
        again.until("LAB> ");
        EXPECT_EQ(engine::served_at(), "127.0.0.1 port " + std::to_string(server.port()));
        EXPECT_EQ(testing::internal::GetCapturedStderr(),
                  "epon: cannot serve the local socket " + server.socket_path() + ": another process serves it\n");
        EXPECT_EQ(access(server.socket_path().c_str(), F_OK), 0);
    }
    close(live);
}

TEST(ServerSocket, LeavesFilesAlone)
{
    testing::internal::CaptureStderr();
    ConsoleServer server({}, [](const std::string& path) { std::ofstream(path) << "text\n"; });
    EXPECT_NE(testing::internal::GetCapturedStderr().find(": a file of that name is in the way\n"), std::string::npos);
    std::ifstream file(server.socket_path());
    std::string text;
    EXPECT_TRUE(getline(file, text) && text == "text");
}
