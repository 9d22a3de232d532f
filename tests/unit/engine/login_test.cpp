// SPDX-License-Identifier: Apache-2.0
// Logging in and enabling as an operator sees it, and what the audit record says about it.
#include <atomic>
#include <chrono>
#include <fstream>
#include <iterator>
#include <regex>
#include <thread>

#include <crypt.h>

#include "engine/engine_fixture.h"
#include "engine/passwords.h"
#include "host/engine/audit.h"

using namespace std::chrono_literals;

namespace {

// Three users, an enable password, an audit record, and short times.
class LoginTest : public ::testing::Test {
  protected:
    ~LoginTest() override
    {
        server.reset();
        std::string error;
        engine::open_audit("", &error);
    }

    void serve(const std::function<void(engine::Options& options)>& change = {})
    {
        engine::Options options;
        options.users_file = users.path();
        options.enable_password_file = enable.path();
        options.audit = record.path();
        options.login_delay = 10ms;
        if (change) change(options);
        server = std::make_unique<ConsoleServer>(options);
    }

    void log_in(Client& client, const std::string& name, const std::string& password) const
    {
        client.connect_tcp(server->port());
        client.until("Username: ");
        client.send(name + "\r" + password + "\r");
        client.until("LAB> ");
    }

    // What the record says, once it says that.
    std::string recorded(const std::string& wanted) const
    {
        std::string text;
        for (int i = 0; i < 500 && text.find(wanted) == std::string::npos; ++i) {
            engine::flush_audit();
            std::ifstream file(record.path());
            text.assign(std::istreambuf_iterator<char>(file), {});
            std::this_thread::sleep_for(10ms);
        }
        return text;
    }

    PrivateFile users{"ann:admin:" + hash_of("first") + "\nbob:operator:" + hash_of("second") +
                      "\nkim:monitor:" + hash_of("third") + "\n"};
    PrivateFile enable{hash_of("higher") + "\n"};
    PrivateFile record{""};
    std::unique_ptr<ConsoleServer> server;
};

std::size_t occurrences(const std::string& text, std::string_view part)
{
    std::size_t count = 0;
    for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; at += part.size())
        ++count;
    return count;
}

} // namespace

TEST_F(LoginTest, AsksForNameAndPasswordAndShowsOnlyTheName)
{
    serve();
    Client client;
    client.connect_tcp(server->port());
    client.until("Username: ");
    client.send("ann\r");
    EXPECT_EQ(client.until("Password: "), "ann\r\nPassword: ");
    client.send("first\r");
    EXPECT_EQ(client.until("> "), "\r\nLAB> ");
    client.send("enable\r");
    EXPECT_EQ(client.until("# "), "enable\r\nLAB# ") << "an administrator is asked for no enable password";
    client.send("show history\r");
    std::string history = client.until("LAB# ");
    EXPECT_EQ(history.find("first"), std::string::npos) << history;
    EXPECT_EQ(history.find("ann"), std::string::npos) << history;
}

TEST_F(LoginTest, TheSameRefusalForAWrongNameAndAWrongPassword)
{
    serve();
    for (std::string name : {"ann", "nobody"}) {
        Client client;
        client.connect_tcp(server->port());
        client.until("Username: ");
        client.send(name + "\rwrong\r");
        EXPECT_EQ(client.until("Username: "), name + "\r\nPassword: \r\n% Bad name or password.\r\nUsername: ");
    }
    std::string log = recorded("user=\"unknown\"");
    EXPECT_EQ(occurrences(log, " LOGIN_FAILED ["), 2U) << log;
    EXPECT_EQ(occurrences(log, " user=\"ann\" from=\"127.0.0.1 port "), 1U) << log;
    EXPECT_EQ(log.find("nobody"), std::string::npos) << "it may be a password, typed too early";
    EXPECT_EQ(log.find("wrong"), std::string::npos);
}

TEST_F(LoginTest, EndsTheConnectionAfterThreeTries)
{
    serve();
    testing::internal::CaptureStderr();
    Client client;
    client.connect_tcp(server->port());
    client.send("ann\ra\rann\rb\rann\rc\rann\rfirst\renable\r");
    std::string all = client.rest();
    EXPECT_TRUE(all.ends_with("% Bad name or password, too many tries.\r\n")) << all;
    EXPECT_EQ(occurrences(all, "% Bad name or password"), 3U);
    EXPECT_EQ(all.find("LAB"), all.find("LAB. Type")) << all;
    EXPECT_NE(testing::internal::GetCapturedStderr().find(": 3 bad passwords\n"), std::string::npos);
    EXPECT_NE(recorded("CLOSE").find("reason=\"too many bad passwords\""), std::string::npos);
}

TEST_F(LoginTest, WhatIsPastedBehindAPasswordIsCarriedOut)
{
    serve();
    Client client;
    client.connect_tcp(server->port());
    client.send("bob\rsecond\renable\rhigher\rsay a\rsay b\r");
    std::string all = client.until("say b:1:b\r\nLAB# ");
    EXPECT_NE(all.find("LAB> enable\r\nPassword: \r\nLAB# say a\r\nsay a:1:a\r\nLAB# say b\r\n"), std::string::npos)
        << all;
}

TEST_F(LoginTest, AnOperatorIsAskedForTheEnablePassword)
{
    serve();
    Client client;
    log_in(client, "bob", "second");
    client.send("enable\rwrong\r");
    EXPECT_EQ(client.until("Password: "), "enable\r\nPassword: ");
    EXPECT_EQ(client.until("Password: "), "\r\n% Bad password.\r\nPassword: ");
    client.send("\x03");
    EXPECT_EQ(client.until("> "), "^C\r\nLAB> ") << "Ctrl-C takes the command back";
    client.send("enable\r\x04");
    EXPECT_EQ(client.until("> "), "enable\r\nPassword: \r\nLAB> ") << "and so does Ctrl-D";
    client.send("enable\ra\rb\rc\r");
    EXPECT_TRUE(client.until("> ").ends_with("% Bad password, too many tries.\r\nLAB> "));
    client.send("enable\rhigher\r");
    client.until("LAB# ");
    client.send("disable\renable\rhigher\rshow history\r");
    std::string history = client.until("show history\r\nLAB# ");
    EXPECT_EQ(history.find("higher"), std::string::npos) << history;
    std::string log = recorded(" ENABLE [");
    EXPECT_EQ(occurrences(log, " ENABLE_FAILED ["), 4U) << log;
    EXPECT_EQ(log.find("higher"), std::string::npos);
}

TEST_F(LoginTest, AMonitorStaysInTheViewNode)
{
    serve();
    Client client;
    log_in(client, "kim", "third");
    client.send("enable\r");
    EXPECT_EQ(client.until("> "), "enable\r\n% User kim may not enable.\r\nLAB> ");
    EXPECT_NE(recorded("COMMAND").find("user=\"kim\" from=\"127.0.0.1 port "), std::string::npos);
    EXPECT_NE(recorded("COMMAND").find("at=\"LAB>\" command=\"enable\" status=\"failed\" result=\"-1\""),
              std::string::npos);
}

TEST_F(LoginTest, ATypoInThePasswordCanBeErased)
{
    serve();
    Client client;
    client.connect_tcp(server->port());
    client.send("an\b\x7f"
                "ann\rxx\x15"
                "firsu\bt\r");
    EXPECT_TRUE(client.until("> ").ends_with("\r\nPassword: \r\nLAB> "));
}

TEST_F(LoginTest, CtrlCAsksForTheNameAgain)
{
    serve();
    Client client;
    client.connect_tcp(server->port());
    client.send("bob\r\x03"
                "ann\rfirst\r");
    EXPECT_TRUE(client.until("LAB> ").ends_with("Password: ^C\r\nUsername: ann\r\nPassword: \r\nLAB> "));
}

TEST_F(LoginTest, NamesAndPasswordsThatAreNoTextAreWrong)
{
    serve();
    Client client;
    client.connect_tcp(server->port());
    client.send("an\x01\xc3n\rfirst\r");
    client.until("% Bad name or password.\r\n");
    client.send("ann\r" + std::string(20000, 'x') + "\r");
    client.until("% Bad name or password.\r\n");
}

TEST_F(LoginTest, EachFailureOfASourceWaitsLongerThanTheOneBefore)
{
    // Tests before this one left failures of the same source behind; the longest wait is 32 times the first one.
    serve([](engine::Options& options) { options.login_delay = 2ms; });
    Client right;
    log_in(right, "ann", "first"); // forgets them
    Client client;
    client.connect_tcp(server->port());
    auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 2; ++i) {
        client.send("ann\rwrong\r");
        client.until("% Bad name or password.\r\n");
    }
    Client other; // the source is what counts, not the connection
    other.connect_tcp(server->port());
    for (int i = 0; i < 2; ++i) {
        other.send("ann\rwrong\r");
        other.until("% Bad name or password.\r\n");
    }
    EXPECT_GE(std::chrono::steady_clock::now() - start, 2ms + 4ms + 8ms + 16ms);
}

TEST_F(LoginTest, WhoDoesNotWaitForARefusalGainsNothing)
{
    serve([](engine::Options& options) { options.login_delay = 300ms; });
    {
        Client right;
        log_in(right, "ann", "first"); // forgets failures of tests before this one
    }
    {
        Client hasty;
        hasty.connect_tcp(server->port());
        hasty.send("ann\rguess\r");
        std::string log = recorded("LOGIN_FAILED");
        EXPECT_EQ(occurrences(log, " LOGIN_FAILED ["), 1U) << "it is on record before it is answered";
    }
    auto start = std::chrono::steady_clock::now();
    {
        Client gone; // before its password is even checked
        gone.connect_tcp(server->port());
        gone.send("ann\rguess\r");
    }
    std::string log;
    for (int i = 0; i < 100 && occurrences(log, " LOGIN_FAILED [") < 2; ++i)
        log = recorded("session");
    EXPECT_EQ(occurrences(log, " LOGIN_FAILED ["), 2U) << log;
    Client right;
    log_in(right, "ann", "first");
    EXPECT_GE(std::chrono::steady_clock::now() - start, 600ms)
        << "a right password waits for the end of the delay, too";
    right.send("enable\rshow console statistics\r");
    right.until("Failed logins");
}

TEST_F(LoginTest, TheConsoleServesOnWhilePasswordsAreChecked)
{
    // A hash that takes a good while.
    crypt_data data{};
    PrivateFile slow("ann:admin:" + std::string(crypt_r("first", "$5$rounds=400000$saltsalt", &data)) + "\n");
    serve([&](engine::Options& options) { options.users_file = slow.path(); });
    Client local;
    local.connect_local(server->socket_path());
    local.send("enable\n");
    local.until("LAB# ");
    std::atomic<bool> logged_in{false};
    Client client;
    client.connect_tcp(server->port());
    client.until("Username: ");
    client.send("ann\rfirst\r");
    std::thread waiter([&] {
        client.until("LAB> ");
        logged_in = true;
    });
    int answers = 0;
    for (; !logged_in; ++answers) {
        local.send("say x\n");
        local.until("LAB# ");
    }
    waiter.join();
    EXPECT_GT(answers, 20) << "many commands fit into one check";
}

TEST_F(LoginTest, AClientThatVanishesDuringTheCheckLeavesNothingBehind)
{
    serve([](engine::Options& options) { options.login_delay = 1ms; });
    for (int i = 0; i < 20; ++i) {
        Client client;
        client.connect_tcp(server->port());
        client.send("ann\rfirst\rsay x\r");
    }
    for (int i = 0; i < 20; ++i) {
        Client client;
        client.connect_tcp(server->port());
        client.send("ann\rwrong\r");
        client.half_close();
        client.rest();
    }
    Client client;
    log_in(client, "ann", "first");
}

TEST_F(LoginTest, WhoNamesTheUsersAndAKilledSessionIsOnRecord)
{
    serve();
    testing::internal::CaptureStderr();
    Client bob, stranger, ann;
    log_in(bob, "bob", "second");
    stranger.connect_tcp(server->port());
    stranger.until("Username: ");
    log_in(ann, "ann", "first");
    ann.send("enable\rwho\r");
    ann.until("Idle\r\n");
    std::string listed = ann.until("\r\nLAB# "); // its own line holds its prompt
    auto line = [&listed](const std::string& begins, const std::string& place) {
        std::smatch found;
        std::regex wanted(begins + " +127\\.0\\.0\\.1 port \\d+ +" + place + " +00:00:0\\d\r\n");
        EXPECT_TRUE(std::regex_search(listed, found, wanted)) << listed;
        return found[1].str();
    };
    std::string victim = line("(?:^|\n) (\\d+) +bob", "LAB>");
    line("(?:^|\n) (\\d+) +-", "Password:");
    line("(?:^|\n)\\*(\\d+) +ann", "LAB#");
    ann.send("kill session " + victim + "\r");
    ann.until("LAB# ");
    std::regex told("\r\n% Session \\d+ \\(ann, 127\\.0\\.0\\.1 port \\d+\\) closed this session\\.\r\n");
    EXPECT_TRUE(std::regex_match(bob.rest(), told));
    std::string log = recorded("command=\"kill session");
    EXPECT_TRUE(std::regex_search(log, std::regex("<109>1 [^\n]* KILL \\[console@32473 session=\"\\d+\" user=\"ann\" "
                                                  "from=\"127[^\"]*\" killed-session=\"" +
                                                  victim + "\" killed-user=\"bob\" killed-from=\"127[^\"]*\"\\]\n")))
        << log;
    EXPECT_TRUE(
        std::regex_search(log, std::regex(" CLOSE \\[[^\n]* user=\"bob\" [^\n]* reason=\"Session \\d+ \\(ann, ")))
        << log;
    EXPECT_TRUE(std::regex_search(testing::internal::GetCapturedStderr(),
                                  std::regex("session \\d+ \\(bob, 127[^)]*\\) closed by session \\d+ \\(ann, 127")));
}

TEST_F(LoginTest, TheLocalSocketAsksNothing)
{
    serve();
    Client client;
    client.connect_local(server->socket_path());
    client.send("enable\n");
    client.until("LAB# ");
    EXPECT_NE(recorded("COMMAND").find("user=\"uid=" + std::to_string(geteuid()) + "\" from=\"local, user "),
              std::string::npos);
}

TEST_F(LoginTest, ReloadClosesThoseWhoAreNoUsersAnyMore)
{
    serve();
    Client ann, bob, local;
    log_in(ann, "ann", "first");
    log_in(bob, "bob", "second");
    local.connect_local(server->socket_path());
    local.until("LAB> ");
    std::ofstream(users.path()) << "bob:monitor:" << hash_of("fourth") << '\n';
    std::string error;
    ASSERT_TRUE(engine::reload(&error)) << error;
    EXPECT_EQ(ann.rest(), "\r\n% You are no longer a user of this console.\r\n");
    bob.send("enable\r");
    EXPECT_EQ(bob.until("> "), "enable\r\n% User bob may not enable.\r\nLAB> ");
    local.send("enable\n");
    local.until("LAB# ");
    Client again;
    log_in(again, "bob", "fourth");
    std::string log = recorded("RELOAD");
    EXPECT_NE(log.find("reason=\"You are no longer a user of this console.\""), std::string::npos) << log;
}

TEST_F(LoginTest, AReloadThatFailsChangesNothing)
{
    serve();
    Client ann;
    log_in(ann, "ann", "first");
    std::ofstream(users.path()) << "bob:king:x\n";
    std::string error;
    EXPECT_FALSE(engine::reload(&error));
    EXPECT_EQ(error, users.path() + ":1: the role is none of monitor, operator, admin");
    ann.send("enable\r");
    ann.until("LAB# ");
    Client bob;
    log_in(bob, "bob", "second");
    EXPECT_NE(recorded("RELOAD").find("<108>1 "), std::string::npos) << "a warning";
}

TEST_F(LoginTest, ABannerComesFirst)
{
    PrivateFile banner("Property of the network.\nKeep out.");
    serve([&](engine::Options& options) { options.banner_file = banner.path(); });
    Client client;
    client.connect_tcp(server->port());
    EXPECT_EQ(client.until("Username: "), "Property of the network.\r\nKeep out.\r\nConsole of LAB. Type ? for the "
                                          "commands, help for a first tour.\r\nUsername: ");
}

TEST(LoginOptions, RefuseABannerThatIsNoText)
{
    engine::Options options;
    options.serve = false;
    std::string error;
    PrivateFile hostile("a\x1b[2J"), endless(std::string(5000, 'x'));
    options.banner_file = hostile.path();
    EXPECT_FALSE(engine::prepare(options, &error));
    EXPECT_EQ(error, "banner file " + hostile.path() + ": it holds a control byte");
    options.banner_file = endless.path();
    EXPECT_FALSE(engine::prepare(options, &error));
    EXPECT_EQ(error, "banner file " + endless.path() + ": it is longer than 4096 bytes");
    options.banner_file = "/no/such/file";
    EXPECT_FALSE(engine::prepare(options, &error));
    EXPECT_EQ(error, "banner file /no/such/file: No such file or directory");
}
