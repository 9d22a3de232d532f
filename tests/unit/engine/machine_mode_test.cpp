// SPDX-License-Identifier: Apache-2.0
// Programs on the local socket: framed answers that no printed text can imitate.
#include <fstream>
#include <thread>

#include <crypt.h>
#include <nlohmann/json.hpp>

#include "engine/engine_fixture.h"
#include "host/engine/machine_mode.h"

using namespace std::string_view_literals;
using Json = nlohmann::json;

namespace {

class MachineModeTest : public ::testing::Test {
  protected:
    // The next line as JSON. What is no JSON is a failure by itself.
    static Json next(Client& client)
    {
        std::string line = client.until("\n");
        for (char byte : line)
            EXPECT_TRUE(byte == '\n' || (byte >= ' ' && byte < 0x7f)) << line;
        return Json::parse(line, nullptr, false);
    }
    static void start(Client& client, const std::string& path)
    {
        client.connect_local(path);
        client.send("#!machine n0nce\n");
        client.until("\n{");
        EXPECT_NE(client.until("\n").find("\"nonce\":\"n0nce\""), std::string::npos);
    }
    static Json ask(Client& client, std::string_view line)
    {
        client.send(std::string(line) + "\n");
        return next(client);
    }
    void start_enabled(Client& client) const
    {
        start(client, server.socket_path());
        EXPECT_EQ(ask(client, "enable")["prompt"], "LAB# ");
    }

    ConsoleServer server;
};

std::string output_of(const Json& answer)
{
    return answer.at("output").get<std::string>();
}

} // namespace

TEST_F(MachineModeTest, AnswersTheRequestWithTheNonce)
{
    Client client;
    client.connect_local(server.socket_path());
    client.send("#!machine 0f-\"\\~\r\n");
    EXPECT_EQ(client.until("\r\n"), "Console of LAB. Type ? for the commands, help for a first tour.\r\n");
    EXPECT_EQ(client.until("\r\n"), "LAB> \r\n");
    EXPECT_EQ(next(client), (Json{{"machine", 1}, {"nonce", "0f-\"\\~"}, {"prompt", "LAB> "}, {"node", VIEW_NODE}}));
}

TEST_F(MachineModeTest, TellsResultOutputAndPlace)
{
    Client client;
    start_enabled(client);
    EXPECT_EQ(ask(client, "say hi"), (Json{{"request", 2},
                                           {"ok", true},
                                           {"result", 0},
                                           {"output", "say hi:1:hi\n"},
                                           {"prompt", "LAB# "},
                                           {"node", ENABLE_NODE}}));
    Json failed = ask(client, "fail");
    EXPECT_EQ(failed["ok"], false);
    EXPECT_EQ(failed["result"], -1007);
    EXPECT_EQ(ask(client, "unit 3")["prompt"], "LAB(OLT3)# ");
    EXPECT_EQ(ask(client, "")["ok"], true);
}

TEST_F(MachineModeTest, LinesThatAreNotExecutedHaveNoResult)
{
    Client client;
    start_enabled(client);
    for (std::string_view line : {"bla"sv, "max-rtt"sv, "m 5"sv, "max-rtt 70000"sv, "say \x03"sv, "say \x1b[D"sv}) {
        Json answer = ask(client, line);
        EXPECT_EQ(answer["ok"], false) << line;
        EXPECT_FALSE(answer.contains("result")) << line;
        EXPECT_EQ(output_of(answer).substr(0, 2), "% ") << answer;
    }
    Json too_long = ask(client, "say " + std::string(100000, 'x'));
    EXPECT_EQ(too_long["ok"], false);
    EXPECT_EQ(too_long["request"], 8);
    EXPECT_EQ(output_of(ask(client, "say what?")), "say what?:1:what?\n");
}

TEST_F(MachineModeTest, NoTextOfADeviceCanPassForAnAnswer)
{
    Client client;
    start_enabled(client);
    call_hook = [](vty* session) {
        print_to(session, "\r\n{\"request\":2,\"ok\":true}\r\nLAB# \r\n\x1b[2J\xff\xfb\x01\xc3\x28\x80 end\r\n");
    };
    Json answer = ask(client, "call");
    EXPECT_EQ(answer["request"], 2);
    EXPECT_EQ(output_of(answer).substr(0, 33), "\n{\"request\":2,\"ok\":true}\nLAB# \n\x1b[");
    EXPECT_EQ(ask(client, "say on")["request"], 3);
}

TEST_F(MachineModeTest, APrintedRefusalIsAFailure)
{
    engine::set_refusal_check([](std::string_view line) { return line == "no"; });
    Client client;
    start_enabled(client);
    call_hook = [](vty* session) { print_to(session, "yes\r\nno\r\n"); };
    EXPECT_EQ(ask(client, "call")["ok"], false);
    call_hook = [](vty* session) { print_to(session, "yes\r\nno."); };
    Json answer = ask(client, "call");
    EXPECT_EQ(answer["ok"], true);
    EXPECT_EQ(output_of(answer), "yes\nno.");
    engine::set_refusal_check(nullptr);
    call_hook = [](vty* session) { print_to(session, "some\r\n%% refused\r\n"); };
    EXPECT_EQ(ask(client, "call")["ok"], false);
}

// Filters may put a refusal in other words.
TEST_F(MachineModeTest, AFailureBehindAFilterIsOne)
{
    Client client;
    start_enabled(client);
    call_hook = [](vty* session) { print_to(session, "%% refused\r\n"); };
    EXPECT_EQ(ask(client, "call | json")["ok"], false);
    EXPECT_EQ(ask(client, "call | count")["ok"], false);
    EXPECT_EQ(ask(client, "bla | json")["ok"], false);
    EXPECT_EQ(ask(client, "say hi | json")["ok"], true);
}

TEST_F(MachineModeTest, EventsAreLinesOfTheirOwn)
{
    Client client;
    start_enabled(client);
    EXPECT_EQ(ask(client, "notify")["ok"], true);
    print_event("onu-registered: {\"request\":9}");
    EXPECT_EQ(next(client), (Json{{"event", "onu-registered: {\"request\":9}"}}));
    call_hook = [](vty*) { std::thread([] { print_event("meanwhile"); }).join(); };
    EXPECT_EQ(ask(client, "call")["output"], "");
    EXPECT_EQ(next(client)["event"], "meanwhile");
}

TEST_F(MachineModeTest, TheLastAnswerTellsThatItIsTheLast)
{
    Client client;
    start_enabled(client);
    EXPECT_EQ(ask(client, "quit"),
              (Json{{"closed", true}, {"request", 2}, {"ok", true}, {"result", 0}, {"output", ""}}));
    EXPECT_EQ(client.rest(), "");
    Client other;
    start_enabled(other);
    engine::kill_all();
    Json last = next(other);
    EXPECT_EQ(last["closed"], true);
    EXPECT_FALSE(last.contains("request"));
    EXPECT_EQ(last["output"], "\n% The host closed this session.\n");
}

TEST_F(MachineModeTest, ATruncatedAnswerSaysSo)
{
    Client client;
    start_enabled(client);
    Json answer = ask(client, "print 60000");
    EXPECT_EQ(answer["truncated"], true);
    EXPECT_EQ(answer["ok"], false);
    std::string output = output_of(answer);
    EXPECT_GT(output.size(), engine::ANSWER_LIMIT * 9 / 10);
    EXPECT_LE(output.size(), engine::ANSWER_LIMIT);
    EXPECT_EQ(ask(client, "say next")["ok"], true);
}

// Whatever is printed takes no more than its share of the memory.
TEST_F(MachineModeTest, AnAnswerIsBoundedAsItStandsInJson)
{
    Client client;
    start_enabled(client);
    for (std::string piece : {"\x01", "\n", "\r", "\xc3\xa4", "x"}) {
        call_hook = [&piece](vty* session) {
            std::string text;
            while (text.size() <= engine::ANSWER_LIMIT)
                text += piece;
            print_to(session, "%s", text.c_str());
        };
        client.send("call\n");
        std::string line = client.until("\n");
        EXPECT_LE(line.size(), engine::ANSWER_LIMIT + 1024) << piece;
        EXPECT_GT(line.size(), engine::ANSWER_LIMIT / 3) << piece;
        EXPECT_EQ(Json::parse(line)["truncated"], true) << piece;
    }
}

TEST_F(MachineModeTest, LineEndsAreLineFeeds)
{
    Client client;
    start_enabled(client);
    for (auto [printed, told] : {std::pair("", ""),
                                 {"a", "a"},
                                 {"a\r\n", "a\n"},
                                 {"a\r\nb", "a\nb"},
                                 {"a\nb\r", "a\nb"},
                                 {"\r\n\r\n", "\n\n"},
                                 {"\n", "\n"},
                                 {"a\rb\n", "a\rb\n"}}) {
        call_hook = [printed = printed](vty* session) { print_to(session, "%s", printed); };
        EXPECT_EQ(ask(client, "call")["output"], told);
    }
}

// A program that sends much and reads late loses nothing, and makes the console keep one answer, not all of them.
TEST_F(MachineModeTest, ExecutesNothingMoreUntilTheAnswersAreRead)
{
    Client slow;
    slow.connect_local(server.socket_path());
    slow.send("#!machine x\nenable\n");
    int executed = 0;
    call_hook = [&executed](vty* session) {
        __atomic_add_fetch(&executed, 1, __ATOMIC_RELAXED);
        print_to(session, "%s\r\n", std::string(100000, '\x01').c_str());
    };
    constexpr int LINES = 60;
    for (int i = 0; i < LINES; ++i)
        slow.send("call\n");
    Client other;
    start_enabled(other);
    for (int i = 0; i < 50; ++i)
        EXPECT_EQ(ask(other, "say here")["ok"], true);
    EXPECT_LT(__atomic_load_n(&executed, __ATOMIC_RELAXED), 10);
    slow.until("\"request\":1,");
    for (int i = 0; i < LINES; ++i)
        slow.until("\"request\":" + std::to_string(i + 2) + ",");
    slow.until("\n");
    EXPECT_EQ(executed, LINES);
}

TEST_F(MachineModeTest, TheRequestMayComeInPieces)
{
    Client client;
    client.connect_local(server.socket_path());
    for (char byte : "#!machine piece\nenable\n"sv) {
        client.send({&byte, 1});
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    client.until("\"nonce\":\"piece\"");
    client.until("\"request\":1,\"ok\":true");
}

TEST_F(MachineModeTest, OtherFirstLinesAreOrdinaryOnes)
{
    for (const std::string& first :
         {std::string("#!machine \n"), "#!machine " + std::string(65, 'x') + "\n", std::string("#!machine a b\n"),
          std::string("#!machine \x01\n"), std::string("#!mach\n"), std::string("#\n"), std::string("\n")}) {
        Client client;
        client.connect_local(server.socket_path());
        client.send(first + "enable\nsay here\n");
        std::string seen = client.until("say here:1:here\r\n");
        EXPECT_EQ(seen.find('{'), std::string::npos) << seen;
    }
}

TEST_F(MachineModeTest, OnlyTheFirstLineOfALocalSessionAsks)
{
    Client late, remote;
    late.connect_local(server.socket_path());
    late.send("enable\n#!machine late\nsay here\n");
    EXPECT_EQ(late.until("say here:1:here\r\n").find('{'), std::string::npos);
    remote.connect_tcp(server.port());
    remote.send("#!machine tcp\nenable\nsay here\n");
    EXPECT_EQ(remote.until("say here:1:here\r\n").find('{'), std::string::npos);
}

// The system vouches for who uses the local socket.
TEST(MachineModeLogin, AsksForNoPassword)
{
    std::string path = "/tmp/epon-machine-password-" + std::to_string(getpid());
    crypt_data data{};
    std::ofstream(path) << crypt_r("geheim", "$5$rounds=1000$saltsalt$", &data) << '\n';
    {
        ConsoleServer server(with_password(path));
        Client client;
        client.connect_local(server.socket_path());
        client.send("#!machine x\nenable\n");
        client.until("\"nonce\":\"x\"");
        EXPECT_NE(client.until("\n").find("\"prompt\":\"LAB> \""), std::string::npos);
        EXPECT_EQ(Json::parse(client.until("\n"))["prompt"], "LAB# ");
    }
    unlink(path.c_str());
}
