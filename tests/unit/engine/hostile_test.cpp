// SPDX-License-Identifier: Apache-2.0
// Clients that break every rule: the one at fault may lose its connection, the others notice nothing.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <iterator>
#include <string>
#include <thread>

#include "engine/engine_fixture.h"
#include "engine/load_scale.h"
#include "host/engine/session.h"
#include "host/engine/telnet.h"

using namespace std::chrono_literals;
using namespace std::string_view_literals;

namespace {

constexpr char IAC = '\xff', DONT = '\xfe', DO = '\xfd', WONT = '\xfc', WILL = '\xfb', SB = '\xfa', SE = '\xf0';
constexpr char AYT = '\xf6', BREAK = '\xf3', DATA_MARK = '\xf2';

class HostileTest : public ::testing::Test {
  protected:
    void SetUp() override
    {
        connect(witness);
    }

    void connect(Client& client) const
    {
        client.connect_tcp(server.port());
        client.until("LAB> ");
        client.send("enable\r");
        client.until("LAB# ");
    }

    // Somebody else works on as if nothing had happened.
    void expect_the_others_served()
    {
        std::string word = "w" + std::to_string(++words);
        witness.send("say " + word + "\r");
        EXPECT_EQ(witness.until("LAB# "), "say " + word + "\r\nsay " + word + ":1:" + word + "\r\nLAB# ");
    }

    ConsoleServer server;
    Client witness;
    int words = 0;
};

std::string command(char verb, int option)
{
    return {IAC, verb, static_cast<char>(option)};
}

std::string subnegotiation(std::string_view body)
{
    return std::string{IAC, SB} + std::string(body) + std::string{IAC, SE};
}

} // namespace

TEST_F(HostileTest, EveryVerbWithEveryOption)
{
    Client client;
    connect(client);
    client.negotiation.clear();
    for (int option = 0; option < 256; ++option)
        for (char verb : {DO, DONT, WILL, WONT})
            client.send(command(verb, option));
    client.send("say on\r");
    client.until("say on:1:on\r\nLAB# ");
    EXPECT_LE(client.negotiation.size(), engine::NEGOTIATION_LIMIT);
    for (std::string refused : {command(DO, 34), command(DO, 39), command(DO, 36), command(WILL, 86)})
        EXPECT_EQ(client.negotiation.find(refused), std::string::npos) << "no LINEMODE, ENVIRON or compression";
    EXPECT_NE(client.negotiation.find(command(DONT, 34)), std::string::npos);
    EXPECT_NE(client.negotiation.find(command(DONT, 39)), std::string::npos);
    expect_the_others_served();
}

TEST_F(HostileTest, NegotiationWithoutEndIsEnded)
{
    testing::internal::CaptureStderr();
    Client client;
    connect(client);
    client.negotiation.clear();
    std::string loop;
    for (int i = 0; i < 10000; ++i)
        loop += command(i % 2 == 0 ? WILL : WONT, 31);
    client.send(loop);
    client.rest();
    EXPECT_LE(client.negotiation.size(), engine::NEGOTIATION_LIMIT + 512);
    EXPECT_NE(testing::internal::GetCapturedStderr().find("cut off: telnet negotiation without end\n"),
              std::string::npos);
    expect_the_others_served();
}

TEST_F(HostileTest, SubnegotiationsOfWhatWasRefused)
{
    Client client;
    connect(client);
    client.send(subnegotiation("\x22\x01\x0f"));                                       // LINEMODE MODE
    client.send(subnegotiation("\x22\x03\x01\x02\x03"));                               // LINEMODE SLC
    client.send(subnegotiation(std::string_view("\x27\x00\x00USER\x01root", 11)));     // NEW-ENVIRON IS
    client.send(subnegotiation(std::string_view("\x24\x00\x03LD_PRELOAD\x01/x", 16))); // ENVIRON IS
    client.send(subnegotiation(std::string_view("\x18\x00xterm", 7)));                 // TERMINAL-TYPE IS
    client.send("say on\r");
    client.until("say on:1:on\r\nLAB# ");
    expect_the_others_served();
}

TEST_F(HostileTest, SubnegotiationsOfEveryOption)
{
    Client client;
    connect(client);
    client.negotiation.clear();
    for (int option = 0; option < 256; ++option)
        for (std::string_view body : {""sv, "\0"sv, "\1"sv, "\xff\xff"sv, "\0abc\0\1\2\3"sv}) {
            if (option == 0xff) continue; // the byte that begins a command
            if (option == 86) continue;   // compression, which ends the connection
            client.send(subnegotiation(std::string(1, static_cast<char>(option)) + std::string(body)));
        }
    client.send("say on\r");
    EXPECT_EQ(client.until("say on:1:on\r\nLAB# "), "say on\r\nsay on:1:on\r\nLAB# ");
    EXPECT_EQ(client.negotiation, "") << "none of them is answered";
    expect_the_others_served();
}

TEST_F(HostileTest, SubnegotiationOfAMegabyte)
{
    testing::internal::CaptureStderr();
    Client client;
    connect(client);
    client.send(std::string{IAC, SB, '\x18'} + std::string(1 << 20, 'x') + std::string{IAC, SE} + "say on\r");
    client.rest();
    EXPECT_NE(testing::internal::GetCapturedStderr().find("cut off: telnet subnegotiation too long\n"),
              std::string::npos);
    expect_the_others_served();
}

TEST_F(HostileTest, AnUnfinishedSubnegotiationHoldsNobodyUp)
{
    Client client;
    connect(client);
    client.send(std::string{IAC, SB, '\x1f', '\0'});
    expect_the_others_served();
    client.send(std::string("\x50\0\x18\xff\xf0", 5) + "say on\r");
    client.until("say on:1:on\r\nLAB# ");
}

TEST_F(HostileTest, AreYouThere)
{
    Client client;
    connect(client);
    client.send("say o");
    client.until("say o");
    client.send(std::string{IAC, AYT});
    EXPECT_EQ(client.until("LAB# say o"), "\r\n[Yes]\r\nLAB# say o");
    client.send(std::string{IAC, BREAK});
    EXPECT_TRUE(client.until("LAB# ").ends_with("^C\r\nLAB# ")) << "break drops the line";
    std::string flood;
    for (int i = 0; i < 100000; ++i)
        flood += {IAC, AYT};
    client.send(flood + "say on\r");
    std::string all = client.until("say on:1:on\r\nLAB# ");
    EXPECT_LT(all.size(), 20000U) << "one answer for each piece received";
    expect_the_others_served();
}

TEST_F(HostileTest, UrgentBytesKeepTheirPlace)
{
    Client client;
    connect(client);
    client.send("say o");
    client.until("say o");
    client.send_urgent('n');
    client.until("n");
    client.send(std::string{IAC});
    client.send_urgent(DATA_MARK); // what telnet calls a synch
    client.send("\r");
    client.until("say on:1:on\r\nLAB# ");
    expect_the_others_served();
}

TEST_F(HostileTest, LineOfAMegabyte)
{
    Client client;
    connect(client);
    client.send("say " + std::string(1 << 20, 'x') + "\r");
    client.until("% Line too long (more than 16384 characters).\r\nLAB# ");
    client.send("say on\r");
    client.until("say on:1:on\r\nLAB# ");
    expect_the_others_served();
}

TEST_F(HostileTest, EveryByteInEveryPlace)
{
    Client client;
    connect(client);
    std::string all;
    for (int byte = 0; byte < 256; ++byte) {
        if (byte == 0x04 || byte == 'q') continue; // they would close the session
        std::string text(1, static_cast<char>(byte));
        if (byte == 0xff) text += text;
        all += text + "\rsay " + text + "x\r" + "max-rtt " + text + "\r\x03";
    }
    client.send(all + "\x03"
                      "end\renable\rsay on\r");
    std::string seen = client.until("say on:1:on\r\nLAB# ");
    // Escapes that the console itself sends move the cursor or clear; nothing typed comes back as one.
    for (std::string_view echoed : {"\x1bx"sv, "\x9b"sv, "\x07x"sv})
        EXPECT_EQ(seen.find(echoed), std::string::npos);
    expect_the_others_served();
}

TEST_F(HostileTest, EscapeSequencesRunNothingAndComeBackNowhere)
{
    Client client;
    connect(client);
    for (std::string_view sequence : {"\x1b]0;title\x07"sv, "\x1b[6n"sv, "\x1b[2J"sv, "\x1bP1$r\x1b\\"sv, "\x1b[201~"sv,
                                      "\x1b[999999999999999999C"sv,
                                      "\x9b"
                                      "2J"sv,
                                      "\x1b[;;;;;;;;;;;;;;;;;;H"sv}) {
        client.send("say a" + std::string(sequence) + "b\r\x03");
        client.send("say on\r");
        std::string seen = client.until("say on:1:on\r\nLAB# ");
        EXPECT_EQ(seen.find("\x1b]"), std::string::npos);
        EXPECT_EQ(seen.find("\x1b[6n"), std::string::npos);
        EXPECT_EQ(seen.find("\x1b[2J"), std::string::npos);
        EXPECT_EQ(seen.find("\x1bP"), std::string::npos);
    }
    expect_the_others_served();
}

TEST_F(HostileTest, EscapeSequencesInEveryField)
{
    const std::string size = {IAC, WILL, '\x1f', IAC, SB, '\x1f', 0, 80, 0, 24, IAC, SE};
    const std::pair<std::string, std::string> fields[] = {
        {"", "\r"},                                // a command
        {"say a", "\r"},                           // an argument
        {"max-rtt ", "\r"},                        // a number
        {"say a | include ", "\r"},                // a regular expression
        {"say a | ", "\r"},                        // a filter
        {"say ", "?"},                             // what is asked about
        {"sa", "\t\r"},                            // what is completed
        {"\x12", "\r"},                            // what is looked for among earlier lines
        {"print 100\r/", "\rq"},                   // and in an answer that waits
        {"print 100\r", "q"},                      // keys for it
        {"unit 1\rcraft\r", "\rexit\rend\rend\r"}, // a line for the firmware
    };
    Client client;
    connect(client);
    client.send(size);
    for (const auto& [before, behind] : fields)
        for (std::string_view sequence :
             {"\x1b]0;title\x07"sv, "\x1b[6n"sv, "\x1bP1$r\x1b\\"sv, "\x1b[5;7Hxx"sv, "\x1b[>c"sv,
              "\xc2\x9b"
              "6n"sv}) {
            client.send(before);
            std::this_thread::sleep_for(2ms); // a page waits only when nothing else was typed
            client.send(std::string(sequence) + behind + "\x07\x03\x03" + "say on\r");
            std::string seen = client.until("say on:1:on\r\nLAB# ");
            for (std::string_view foreign : {"\x1b]", "\x1b[6n", "\x1bP", "\x1b[5;7H", "\x1b[>c", "\xc2\x9b"})
                EXPECT_EQ(seen.find(foreign), std::string::npos) << before << seen;
        }
    expect_the_others_served();
}

TEST_F(HostileTest, ResetsAtEveryStage)
{
    const std::string stages[] = {"",
                                  {IAC},
                                  {IAC, DO},
                                  {IAC, SB, '\x1f'},
                                  "ena",
                                  "enable\r",
                                  "enable\rprint 20000\r",
                                  "enable\rnotify\rsay",
                                  "enable\runit 1\rcraft\rhello\r",
                                  "quit\r",
                                  "\x1b[",
                                  "?",
                                  "\t",
                                  std::string{IAC, WILL, '\x1f', IAC, SB, '\x1f', 0, 80, 0, 24, IAC, SE} +
                                      "list\r", // a page
                                  std::string{IAC, SB, '\x1f', 0, 80, 0, 24, IAC, SE} + "list\r/li",
                                  "\x12lis",
                                  "enable\rlist | json\rlist | section a",
                                  "enable\rsay " + std::string(20000, 'x')};
    for (int round = 0; round < 10; ++round)
        for (const std::string& stage : stages) {
            Client client;
            client.connect_tcp(server.port());
            if (round % 2 == 1) client.until("LAB> ");
            client.send(stage);
            if (round % 3 == 2) std::this_thread::sleep_for(1ms);
            client.reset();
        }
    for (int round = 0; round < 10; ++round) // and those of programs
        for (const char* stage : {"", "#!mach", "#!machine x\n", "#!machine x\nenable\nprint 20000\nsay a\n"}) {
            Client client;
            client.connect_local(server.socket_path());
            client.send(stage);
            if (round % 2 == 1) client.until("LAB> ");
        }
    expect_the_others_served();
}

// So slow that each byte finds the console idle: none is lost, and nobody is held up.
TEST_F(HostileTest, AByteNowAndThen)
{
    Client client;
    client.connect_tcp(server.port());
    const std::string typed = std::string{IAC, WILL, '\x1f', IAC, SB, '\x1f', 0, 80, 0, 24, IAC, SE} +
                              std::string("enable\r\nsay \xc3\xa4\x1b[D\x1b[Cb\r\0say on\r\n"sv);
    for (char byte : typed) {
        client.send({&byte, 1});
        expect_the_others_served();
    }
    std::string seen = client.until("say on:1:on\r\nLAB# ");
    EXPECT_NE(seen.find("say \xc3\xa4"
                        "b:1:\xc3\xa4"
                        "b\r\n"),
              std::string::npos)
        << seen;
}

// One that reads a byte now and then gets everything in the end.
TEST_F(HostileTest, AReaderThatReadsLittle)
{
    Client client;
    connect(client);
    client.shrink_buffers();
    client.send("print 600\rsay on\r");
    std::string seen;
    for (int i = 0; i < 300; ++i) {
        seen += client.read_some(1);
        if (i % 30 == 0) expect_the_others_served();
    }
    seen += client.until("say on:1:on\r\nLAB# ");
    for (int i = 0; i < 600; ++i) {
        char line[32];
        snprintf(line, sizeof line, "line %06d of ", i);
        ASSERT_NE(seen.find(line), std::string::npos) << line;
    }
    expect_the_others_served();
}

TEST_F(HostileTest, HalfClosedConnectionsGetTheirAnswers)
{
    for (int i = 0; i < 50; ++i) {
        Client client;
        client.connect_tcp(server.port());
        client.send("enable\rprint 100\rsay last\r");
        client.half_close();
        EXPECT_TRUE(client.rest().ends_with("say last:1:last\r\nLAB# "));
    }
    expect_the_others_served();
}

TEST_F(HostileTest, AReaderThatNeverReads)
{
    testing::internal::CaptureStderr();
    Client lazy;
    connect(lazy);
    lazy.shrink_buffers();
    for (int i = 0; i < 10; ++i)
        lazy.send("print " + std::to_string(150000 / LOAD_SCALE) + "\r"); // 100 MB in all
    for (int i = 0; i < 20; ++i)
        expect_the_others_served();
    lazy.rest();
    EXPECT_NE(testing::internal::GetCapturedStderr().find("cut off: it left too much output unread\n"),
              std::string::npos);
}

namespace {

std::size_t open_descriptors()
{
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}));
}

} // namespace

TEST_F(HostileTest, TenThousandConnectionsInARow)
{
    std::size_t before = open_descriptors();
    for (int i = 0; i < 10000 / LOAD_SCALE; ++i) {
        Client client;
        client.connect_tcp(server.port());
        if (i % 16 == 0) client.until("LAB> "); // or the backlog of the system is what is tested
        if (i % 2 == 0) client.reset();
    }
    expect_the_others_served();
    Client client;
    for (int i = 0; i < 1000; ++i) {
        client.disconnect();
        client.connect_tcp(server.port());
        if (client.until("\r\n").starts_with("Console")) break; // those before are still being closed
    }
    client.until("LAB> ");
    client.disconnect();
    for (int i = 0; i < 1000 && open_descriptors() > before; ++i)
        expect_the_others_served();
    EXPECT_LE(open_descriptors(), before) << "each connection is given back";
}
