// SPDX-License-Identifier: Apache-2.0
// What ends a session that should not go on: time, number, memory, descriptors.
#include <algorithm>
#include <chrono>
#include <memory>
#include <thread>

#include <fcntl.h>
#include <grp.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include "engine/engine_fixture.h"
#include "engine/passwords.h"

using namespace std::chrono_literals;

namespace {

void enable(Client& client)
{
    client.until("LAB> ");
    client.send("enable\r");
    client.until("LAB# ");
}

std::unique_ptr<ConsoleServer> serve(const std::function<void(engine::Options& options)>& change)
{
    engine::Options options;
    change(options);
    return std::make_unique<ConsoleServer>(options);
}

} // namespace

TEST(ExecTimeout, ClosesASessionInWhichNothingIsTyped)
{
    auto server = serve([](engine::Options& options) { options.exec_timeout = 300ms; });
    Client idle, busy, silent;
    idle.connect_tcp(server->port());
    enable(idle);
    silent.connect_tcp(server->port());
    std::thread types([&] {
        busy.connect_tcp(server->port());
        enable(busy);
        for (int i = 0; i < 40; ++i) {
            busy.send("x\b");
            std::this_thread::sleep_for(25ms);
        }
    });
    std::thread negotiates([&] {
        for (int i = 0; i < 40; ++i) {
            silent.send("\xff\xf1"); // a program keeps the connection alive; nobody types
            std::this_thread::sleep_for(10ms);
        }
    });
    EXPECT_EQ(idle.rest(), "\r\n% Closed: nothing was typed for 0 seconds.\r\n");
    EXPECT_TRUE(silent.rest().ends_with("% Closed: nothing was typed for 0 seconds.\r\n"));
    types.join();
    negotiates.join();
    busy.send("say on\r");
    busy.until("say on:1:on\r\nLAB# ");
}

TEST(ExecTimeout, IsSetAtTheConsole)
{
    auto server = serve([](engine::Options& options) { options.exec_timeout = 10min; });
    Client client, other;
    client.connect_tcp(server->port());
    enable(client);
    client.send("show exec-timeout\r");
    EXPECT_EQ(client.until("LAB# "), "show exec-timeout\r\n10 minutes 0 seconds\r\nLAB# ");
    client.send("configure terminal\rexec-timeout 0\rshow exec-timeout\r");
    client.until("0 minutes 0 seconds (never)\r\nLAB(config)# ");
    other.connect_tcp(server->port());
    enable(other);
    client.send("exec-timeout 0 1\r");
    EXPECT_EQ(other.rest(), "\r\n% Closed: nothing was typed for 1 second.\r\n") << "open sessions follow";
    EXPECT_TRUE(client.rest().ends_with("\r\n% Closed: nothing was typed for 1 second.\r\n"));
}

TEST(LoginGrace, EndsASlowLogin)
{
    PrivateFile users("ann:admin:" + hash_of("first") + "\n");
    auto server = serve([&](engine::Options& options) {
        options.users_file = users.path();
        options.login_grace = 300ms;
    });
    Client slow, quick;
    slow.connect_tcp(server->port());
    quick.connect_tcp(server->port());
    quick.until("Username: ");
    quick.send("ann\rfirst\r");
    quick.until("LAB> ");
    std::thread types([&] {
        for (char byte : std::string("annannannannannannannannannann")) {
            slow.send({&byte, 1}); // a byte now and then keeps no login open
            std::this_thread::sleep_for(20ms);
        }
    });
    EXPECT_TRUE(slow.rest().ends_with("\r\n% Login took too long.\r\n"));
    types.join();
    quick.send("enable\rsay on\r");
    quick.until("say on:1:on\r\nLAB# ");
}

TEST(MaxSessions, KeepsOnePlaceForTheLocalSocket)
{
    auto server = serve([](engine::Options& options) { options.max_sessions = 3; });
    Client first, second, third, local, late;
    first.connect_tcp(server->port());
    first.until("LAB> ");
    second.connect_tcp(server->port());
    second.until("LAB> ");
    third.connect_tcp(server->port());
    EXPECT_EQ(third.rest(), "% Too many sessions.\r\n");
    local.connect_local(server->socket_path());
    local.until("LAB> ");
    late.connect_local(server->socket_path());
    EXPECT_EQ(late.rest(), "% Too many sessions.\r\n");
    first.send("quit\r");
    first.rest();
    Client next;
    next.connect_tcp(server->port());
    next.until("LAB> ");
}

TEST(MaxSessions, WhoHasNotLoggedInMakesRoom)
{
    PrivateFile users("ann:admin:" + hash_of("first") + "\n");
    auto server = serve([&](engine::Options& options) {
        options.users_file = users.path();
        options.max_sessions = 4;
    });
    Client ann;
    ann.connect_tcp(server->port());
    ann.send("ann\rfirst\r");
    ann.until("LAB> ");
    Client strangers[5];
    for (Client& stranger : strangers) {
        stranger.connect_tcp(server->port());
        stranger.until("Username: ");
    }
    for (int i = 0; i < 3; ++i)
        strangers[i].rest(); // the oldest went
    Client bob;
    bob.connect_tcp(server->port());
    bob.until("Username: ");
    bob.send("ann\rfirst\r");
    bob.until("LAB> ");
    ann.send("enable\rsay on\r");
    ann.until("say on:1:on\r\nLAB# ");
}

// The process has no descriptor left, not even the one kept for turning clients away.
TEST(Descriptors, WithoutAnyTheConsoleWaitsAndRecovers)
{
    ConsoleServer server;
    testing::internal::CaptureStderr();
    Client witness;
    witness.connect_tcp(server.port());
    enable(witness);
    rlimit usual{};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &usual), 0);
    // Below what is open: then closing the spare one makes no room, either.
    rlimit none = usual;
    none.rlim_cur = 3;
    Client client;
    client.make_tcp_socket();
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
    client.connect_made(server.port());
    clock_t before = clock();
    for (int i = 0; i < 30; ++i) {
        witness.send("say on\r");
        witness.until("say on:1:on\r\nLAB# ");
        std::this_thread::sleep_for(10ms);
    }
    double busy = static_cast<double>(clock() - before) / CLOCKS_PER_SEC;
    EXPECT_LT(busy, 0.2) << "waiting takes no processor time";
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &usual), 0);
    enable(client); // it was waiting all the time
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "epon: out of descriptors: clients are turned away\n");
}

TEST(LocalSocket, LiesInAFolderThatNobodyElseMayChange)
{
    std::string folder = "/tmp/epon-open-folder-" + std::to_string(getpid());
    ASSERT_EQ(mkdir(folder.c_str(), 0777), 0);
    ASSERT_EQ(chmod(folder.c_str(), 0777), 0);
    testing::internal::CaptureStderr();
    {
        ConsoleServer server({}, {}, folder + "/console");
        EXPECT_EQ(testing::internal::GetCapturedStderr(),
                  "epon: cannot serve the local socket " + folder + "/console: others may change its folder\n");
        EXPECT_NE(access((folder + "/console").c_str(), F_OK), 0);
    }
    rmdir(folder.c_str());
}

TEST(LocalSocket, AMissingFolderIsMadeForTheHostAlone)
{
    std::string folder = "/tmp/epon-new-folder-" + std::to_string(getpid());
    {
        ConsoleServer server({}, {}, folder + "/console");
        struct stat status {};
        ASSERT_EQ(stat(folder.c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777U, 0700U);
        Client client;
        client.connect_local(folder + "/console");
        client.until("LAB> ");
    }
    rmdir(folder.c_str());
}

namespace {

constexpr gid_t STRANGER = 65534; // user and group

// What somebody else sees who connects to the socket. Only root can be somebody else; any other user sees what he sees.
std::string seen_by_a_stranger(const std::string& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    int ends[2];
    EXPECT_EQ(pipe2(ends, O_CLOEXEC), 0);
    pid_t child = fork();
    if (child == 0) {
        bool is_other =
            geteuid() != 0 || (setgroups(0, nullptr) == 0 && setgid(STRANGER) == 0 && setuid(STRANGER) == 0);
        int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        char text[256] = "cannot connect";
        ssize_t size = sizeof "cannot connect" - 1;
        if (is_other && connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0)
            size = recv(fd, text, sizeof text, 0);
        _exit(size > 0 && write(ends[1], text, static_cast<std::size_t>(size)) == size ? 0 : 1);
    }
    close(ends[1]);
    char text[256];
    ssize_t size = read(ends[0], text, sizeof text);
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return {text, size > 0 ? static_cast<std::size_t>(size) : 0};
}

} // namespace

TEST(LocalSocket, IsForRootTheHostsUserAndTheGroup)
{
    bool can_be_other = geteuid() == 0;
    const std::string greeting = "Console of LAB.";
    std::string folder = "/tmp/epon-shared-folder-" + std::to_string(getpid());
    ASSERT_EQ(mkdir(folder.c_str(), 0755), 0);
    std::string path = folder + "/console";
    {
        ConsoleServer server({}, {}, path);
        if (can_be_other) {
            EXPECT_EQ(seen_by_a_stranger(path), "cannot connect");
            ASSERT_EQ(chmod(path.c_str(), 0666), 0); // somebody's mistake
            EXPECT_EQ(seen_by_a_stranger(path), "% Not allowed here.\r\n");
        }
        Client own;
        own.connect_local(path);
        own.until(greeting);
    }
    const group* shared = getgrgid(can_be_other ? STRANGER : getgid());
    ASSERT_NE(shared, nullptr);
    engine::Options options;
    options.socket_group = shared->gr_name;
    path = folder + "/shared";
    {
        ConsoleServer server(options, {}, path);
        EXPECT_TRUE(seen_by_a_stranger(path).starts_with(greeting));
        struct stat status {};
        ASSERT_EQ(stat(path.c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 0777U, 0660U);
    }
    rmdir(folder.c_str());
}
