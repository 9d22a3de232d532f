// SPDX-License-Identifier: Apache-2.0
// Pages of long answers: what is shown, what waits, what each key does.
#include "host/engine/pager.h"

#include <gtest/gtest.h>

#include "engine/engine_fixture.h"

using engine::Pager;

namespace {

std::string lines(int from, int to)
{
    std::string text;
    for (int i = from; i <= to; ++i)
        text += "line " + std::to_string(i) + "\r\n";
    return text;
}

// One long answer on a screen of the given size.
struct Answer {
    Answer(std::string_view text, std::size_t rows, std::size_t columns = 80)
    {
        pager.begin(rows, columns);
        pager.print(text, &first);
        pager.end(&first);
    }
    std::string press(std::string_view keys)
    {
        std::string screen;
        EXPECT_EQ(pager.feed(keys, &screen), keys.size());
        return screen;
    }
    Pager pager;
    std::string first;
};

const std::string ASK(engine::PAGER_PROMPT);
const std::string UNASK = '\r' + std::string(ASK.size(), ' ') + '\r';

} // namespace

TEST(Pager, ShowsShortAnswersAtOnce)
{
    EXPECT_EQ(Answer(lines(1, 23), 24).first, lines(1, 23));
    EXPECT_FALSE(Answer(lines(1, 23), 24).pager.waits());
    EXPECT_EQ(Answer(lines(1, 1000), 0).first, lines(1, 1000)) << "no size: no pages";
    EXPECT_EQ(Answer("", 24).first, "");
    EXPECT_EQ(Answer("no end", 2).first, "no end");
}

TEST(Pager, WaitsAtEachPage)
{
    Answer answer(lines(1, 10), 4);
    EXPECT_EQ(answer.first, lines(1, 3) + ASK);
    EXPECT_TRUE(answer.pager.waits());
    EXPECT_EQ(answer.press(" "), UNASK + lines(4, 6) + ASK);
    EXPECT_EQ(answer.press("\r"), UNASK + lines(7, 7) + ASK);
    EXPECT_EQ(answer.press("xyz\t\x01"), "") << "no keys";
    EXPECT_EQ(answer.press("\x1b[A\x1bOB\x1b[1;5C\x1b[3~"), "") << "no keys either";
    EXPECT_EQ(answer.press(" "), UNASK + lines(8, 10));
    EXPECT_FALSE(answer.pager.waits());
}

TEST(Pager, EndsWhenAskedTo)
{
    for (const char* key : {"q", "Q", "\x03", "\x04"}) {
        Answer answer(lines(1, 10), 4);
        EXPECT_EQ(answer.press(key), UNASK);
        EXPECT_FALSE(answer.pager.waits());
    }
}

TEST(Pager, LeavesTheKeysBehindTheLastPageAlone)
{
    Answer answer(lines(1, 6), 4);
    std::string screen;
    EXPECT_EQ(answer.pager.feed(" show", &screen), 1U);
    EXPECT_EQ(screen, UNASK + lines(4, 6));
}

TEST(Pager, CountsWrappedRows)
{
    std::string wide = std::string(45, 'w') + "\r\n"; // three rows of 20
    EXPECT_EQ(Answer(lines(1, 2) + wide + lines(3, 3), 5, 20).first, lines(1, 2) + "--More-- ");
    EXPECT_EQ(Answer(wide + lines(1, 2), 5, 20).first, wide + lines(1, 1) + "--More-- ");
    // One that is longer than the screen is shown all the same.
    EXPECT_EQ(Answer(wide + lines(1, 2), 3, 20).first, wide + "--More-- ");
    // Lines that come in pieces are one row each.
    Pager pager;
    std::string screen;
    pager.begin(3, 80);
    for (const char* piece : {"on", "e\r", "\nt", "wo\r\nthree\r\n"})
        pager.print(piece, &screen);
    pager.end(&screen);
    EXPECT_EQ(screen, "one\r\ntwo\r\n" + ASK);
}

TEST(Pager, Searches)
{
    Answer answer(lines(1, 100), 4);
    const std::string unslash = [](std::size_t typed) { return '\r' + std::string(typed + 1, ' ') + '\r'; }(1);
    EXPECT_EQ(answer.press("/"), UNASK + "/");
    EXPECT_EQ(answer.press("5x\b"), "5x\b \b");
    EXPECT_EQ(answer.press("\r"), unslash + "...\r\n" + lines(5, 7) + ASK);
    EXPECT_EQ(answer.press("/5\r"), UNASK + "/5" + unslash + "...\r\n" + lines(15, 17) + ASK);
    EXPECT_EQ(answer.press("/\r"), UNASK + "/\r \r...\r\n" + lines(25, 27) + ASK) << "once more";
    EXPECT_TRUE(answer.press("/zzz\r").ends_with("\r% Not found in what is left.\r\n" + ASK));
    EXPECT_TRUE(answer.press("/(\r").ends_with("\r% Wrong regular expression: missing ): (.\r\n" + ASK));
    EXPECT_TRUE(answer.press("/5\x03").ends_with("\r" + ASK)) << "given up";
    EXPECT_TRUE(answer.press("/\b").ends_with("\r" + ASK)) << "given up";
    EXPECT_TRUE(answer.press("/line 100$\r").ends_with("...\r\nline 100\r\n"));
    EXPECT_FALSE(answer.pager.waits());
}

TEST(Pager, HoldsABoundedPart)
{
    Pager pager;
    std::string screen;
    pager.begin(3, 80);
    std::string line = std::string(998, 'x') + "\r\n";
    for (int i = 0; i < 3000; ++i)
        pager.print(line, &screen);
    pager.end(&screen);
    screen.clear();
    pager.release(&screen);
    EXPECT_LT(screen.size(), engine::PAGER_HOLD + 1000);
    EXPECT_NE(screen.find(" more lines were left out.\r\n"), std::string::npos);
    EXPECT_FALSE(pager.waits());
}

TEST(Pager, FollowsTheSizeOfTheScreen)
{
    Answer answer(lines(1, 20), 4);
    answer.pager.resize(6, 80);
    EXPECT_EQ(answer.press(" "), UNASK + lines(4, 8) + ASK);
    answer.pager.resize(0, 80);
    EXPECT_EQ(answer.press(" "), UNASK + lines(9, 20));
}

// --- Over a connection --------------------------------------------------------------------------------------------

namespace {

using namespace std::string_view_literals;

constexpr std::string_view SIZE_80_24 = "\xff\xfb\x1f\xff\xfa\x1f\x00\x50\x00\x18\xff\xf0"sv;

class PagedServer : public ::testing::Test {
  protected:
    void connect(Client& client, std::string_view size) const
    {
        client.connect_tcp(server.port());
        client.send(size);
        client.until("LAB> ");
        client.send("enable\r\n");
        client.until("LAB# ");
    }
    ConsoleServer server;
};

int count_lines(std::string_view text)
{
    return static_cast<int>(std::count(text.begin(), text.end(), '\n'));
}

} // namespace

TEST_F(PagedServer, PagesForATerminalThatToldItsSize)
{
    Client client;
    connect(client, SIZE_80_24);
    client.send("print 50\r\n");
    EXPECT_EQ(count_lines(client.until(ASK)), 24) << "the line itself and 23 lines";
    client.send(" ");
    EXPECT_EQ(count_lines(client.until(ASK)), 23);
    client.send("\r\n"); // one key
    EXPECT_EQ(count_lines(client.until(ASK)), 1);
    client.send("\r\0"sv); // one key
    EXPECT_EQ(count_lines(client.until(ASK)), 1);
    client.send("q");
    EXPECT_EQ(client.until("LAB# "), UNASK + "LAB# ");
    client.send("say on\r");
    client.until("say on:1:on\r\nLAB# ");
    client.send("print 25\r");
    client.until(ASK);
    client.send("\r\n\r\n");
    EXPECT_TRUE(client.until("LAB# ").ends_with("to its end\r\nLAB# ")) << "no empty line behind the last key";
    client.send("print 50 | no-more\r");
    EXPECT_EQ(count_lines(client.until("LAB# ")), 51);
    client.send("print 50 | count\r");
    EXPECT_EQ(client.until("LAB# "), "print 50 | count\r\n50 lines\r\nLAB# ");
}

TEST_F(PagedServer, DoesNotPageUnlessItKnowsTheSize)
{
    Client client;
    connect(client, "");
    client.send("print 500\r");
    EXPECT_EQ(count_lines(client.until("LAB# ")), 501);
    client.send("terminal length 10\r");
    client.until("LAB# ");
    client.send("print 500\r");
    EXPECT_EQ(count_lines(client.until(ASK)), 10);
    client.send("q");
    client.until("LAB# ");
    client.send("terminal length 0\r");
    client.until("LAB# ");
    client.send("print 500\r");
    EXPECT_EQ(count_lines(client.until("LAB# ")), 501);
    client.send("terminal width 60\r");
    client.until("LAB# ");
    client.send("show terminal\r");
    EXPECT_EQ(client.until("LAB# "),
              "show terminal\r\nLength: no pages, set here\r\nWidth: 60 columns, set here\r\nLAB# ");
    client.send("no terminal width\rno terminal length\rshow terminal\r");
    EXPECT_NE(client.until("Width: 80 columns, not told by the client\r\n").find("no pages, not told"),
              std::string::npos);
}

TEST_F(PagedServer, PagesHelpAndComesBackToTheLine)
{
    Client client;
    connect(client, "\xff\xfb\x1f\xff\xfa\x1f\x00\x50\x00\x06\xff\xf0"sv);
    client.send("?");
    EXPECT_EQ(count_lines(client.until(ASK)), 6);
    client.send("q");
    EXPECT_EQ(client.until("LAB# "), UNASK + "LAB# ");
    client.send("say x\r");
    client.until("say x:1:x\r\n");
}

TEST_F(PagedServer, TakesNothingTypedAheadForAKey)
{
    Client client;
    connect(client, SIZE_80_24);
    std::string lines;
    for (int i = 0; i < 20; ++i)
        lines += "print 50\r\nsay " + std::to_string(i) + "\r\n";
    client.send(lines + "terminal length 0\r\n");
    std::string all = client.until("say 19:1:19\r\n");
    for (int i = 0; i < 20; ++i)
        EXPECT_NE(all.find("\r\nsay " + std::to_string(i) + ":1:"), std::string::npos) << i;
}

TEST_F(PagedServer, KeepsEventsUntilTheEnd)
{
    Client client, other;
    connect(client, SIZE_80_24);
    connect(other, "");
    client.send("notify\rprint 30\r");
    client.until(ASK);
    print_event("meanwhile");
    other.send("say other\r");
    other.until("say other:1:other\r\n"); // the others go on
    client.send(" ");
    EXPECT_TRUE(client.until("LAB# ").ends_with("line 000029 of a long answer that nobody may ever read to its "
                                                "end\r\nmeanwhile\r\nLAB# "));
}

TEST_F(PagedServer, ShowsTheRestToAClientThatTypesNoMore)
{
    Client client;
    connect(client, SIZE_80_24);
    client.send("print 100\r");
    client.until(ASK);
    client.half_close();
    EXPECT_NE(client.rest().find("line 000099"), std::string::npos);
}

TEST_F(PagedServer, KillsASessionThatWaits)
{
    Client client, other;
    connect(client, SIZE_80_24);
    connect(other, "");
    client.send("print 100\r");
    client.until(ASK);
    other.send("who\r");
    std::string sessions = other.until("\r\nLAB# ");
    // "*" marks the own one.
    unsigned own = 64, victim = 64;
    for (std::size_t at = sessions.find('\n'); at != std::string::npos; at = sessions.find('\n', at + 1)) {
        unsigned id = 64;
        if (sscanf(sessions.c_str() + at + 2, "%u", &id) == 1) (sessions[at + 1] == '*' ? own : victim) = id;
    }
    ASSERT_TRUE(own < 64 && victim < 64) << sessions;
    testing::internal::CaptureStderr();
    other.send("kill session " + std::to_string(own) + "\r");
    other.until("is this one");
    other.until("\r\nLAB# ");
    unsigned absent = 63;
    while (absent == own || absent == victim)
        --absent;
    const std::string number = std::to_string(absent);
    other.send("kill session " + number + "\r");
    other.until("\r\n% There is no session " + number + "; \"who\" lists them.\r\nLAB# ");
    other.send("kill session " + std::to_string(victim) + "\r");
    other.until("LAB# ");
    std::string last = client.rest();
    EXPECT_NE(last.find("% Session " + std::to_string(own) + " (127.0.0.1 port "), std::string::npos) << last;
    EXPECT_TRUE(last.ends_with(") closed this session.\r\n")) << last;
    EXPECT_NE(testing::internal::GetCapturedStderr().find(" closed by session "), std::string::npos);
}
