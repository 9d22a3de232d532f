// SPDX-License-Identifier: Apache-2.0
// Many operators, many events, and clients that leave everything unread: nothing is lost for the others, and memory
// stays within the bounds that the operating guide states.
#include <algorithm>
#include <atomic>
#include <chrono>
#include <fstream>
#include <memory>
#include <thread>
#include <vector>

#include <malloc.h>
#include <unistd.h>

#include "engine/engine_fixture.h"
#include "engine/load_scale.h"
#include "host/engine/session.h"
#include "host/engine/statistics.h"

using namespace std::chrono_literals;

namespace {

std::size_t memory_in_use()
{
    if (LOAD_SCALE == 1) { // the system's own allocator knows best
        struct mallinfo2 info = mallinfo2();
        return info.uordblks + info.hblkhd;
    }
    std::ifstream file("/proc/self/statm");
    std::size_t whole = 0, resident = 0;
    file >> whole >> resident;
    return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

// A sanitizer keeps what was freed: with one, only the order of magnitude is looked at.
constexpr std::size_t ABOUT = LOAD_SCALE;

void enable(Client& client)
{
    client.until("LAB> ");
    client.send("enable\r");
    client.until("LAB# ");
}

// Two answers to somebody else: what others sent before was looked at.
void let_work(Client& witness)
{
    for (int i = 0; i < 2; ++i) {
        witness.send("say on\r");
        witness.until("say on:1:on\r\nLAB# ");
    }
}

std::size_t lines_with(const std::string& text, std::string_view part)
{
    std::size_t count = 0;
    for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; at += part.size())
        ++count;
    return count;
}

// Events that the text says were dropped.
std::size_t dropped_in(const std::string& text)
{
    std::size_t count = 0;
    for (std::size_t at = 0; (at = text.find(" event line", at)) != std::string::npos; ++at) {
        std::size_t open = text.rfind('[', at);
        if (text.compare(at, 23, " event lines dropped]\r\n") == 0 ||
            text.compare(at, 22, " event line dropped]\r\n") == 0)
            count += std::stoul(text.substr(open + 1));
    }
    return count;
}

// Four threads of the SDK that raise an event each EVENT_PAUSE.
class Rain {
  public:
    static constexpr auto EVENT_PAUSE = 400us * LOAD_SCALE; // together 10,000 a second
    Rain()
    {
        for (int i = 0; i < 4; ++i)
            threads.emplace_back([this, i] { raise(i); });
    }
    ~Rain()
    {
        end();
    }
    Rain(const Rain&) = delete;
    Rain& operator=(const Rain&) = delete;
    std::size_t raised() const
    {
        return count;
    }
    void end()
    {
        ends = true;
        for (std::thread& one : threads)
            if (one.joinable()) one.join();
    }

  private:
    void raise(int number)
    {
        auto next = std::chrono::steady_clock::now();
        while (!ends) {
            print_event("event of thread " + std::to_string(number));
            ++count;
            next = std::max(next + EVENT_PAUSE, std::chrono::steady_clock::now() - 20 * EVENT_PAUSE);
            std::this_thread::sleep_until(next); // what a busy machine delayed is made up for
        }
    }
    std::atomic<bool> ends{false};
    std::atomic<std::size_t> count{0};
    std::vector<std::thread> threads;
};

} // namespace

TEST(Load, ManyOperatorsWhileEventsRain)
{
    constexpr std::size_t OPERATORS = 64;
    constexpr std::size_t EVENTS = 20000 / LOAD_SCALE; // at least
    ConsoleServer server;
    std::vector<std::unique_ptr<Client>> operators;
    std::vector<std::string> seen(OPERATORS);
    std::size_t before = memory_in_use();
    for (std::size_t i = 0; i < OPERATORS; ++i) {
        operators.push_back(std::make_unique<Client>());
        if (i + 1 < OPERATORS)
            operators[i]->connect_tcp(server.port());
        else
            operators[i]->connect_local(server.socket_path());
        operators[i]->send("enable\rnotify\r");
        operators[i]->until(i + 1 < OPERATORS ? "notify\r\nLAB# " : "LAB# LAB# ");
    }
    std::size_t idle = memory_in_use() - before;
    auto start = std::chrono::steady_clock::now();
    std::size_t most = 0;
    std::size_t raised = 0;
    int line = 0;
    {
        Rain rain;
        for (; rain.raised() < EVENTS; ++line) {
            std::string word = std::to_string(line);
            for (auto& one : operators)
                one->send("say " + word + "\r");
            for (std::size_t i = 0; i < OPERATORS; ++i)
                seen[i] += operators[i]->until("say " + word + ":1:" + word + "\r\n");
            most = std::max(most, memory_in_use());
        }
        auto time = std::chrono::steady_clock::now() - start;
        rain.end();
        raised = rain.raised();
        double rate = static_cast<double>(raised) / std::chrono::duration<double>(time).count();
        RecordProperty("events_per_second", static_cast<int>(rate));
        RecordProperty("lines_per_operator", line);
    }
    std::size_t kept_by_clients = 0;
    for (std::size_t i = 0; i < OPERATORS; ++i) {
        operators[i]->send("say end\r");
        seen[i] += operators[i]->until("say end:1:end\r\n");
        operators[i]->send("quit\r");
        seen[i] += operators[i]->rest();
        kept_by_clients += seen[i].capacity();
        // Each event is shown, or counted where it is missing; each line was answered.
        EXPECT_EQ(lines_with(seen[i], "event of thread ") + dropped_in(seen[i]), raised) << i;
        EXPECT_GE(lines_with(seen[i], "LAB# "), static_cast<std::size_t>(line)) << i;
    }
    EXPECT_LT(idle, OPERATORS * engine::SESSION_MEMORY_USUAL * ABOUT);
    EXPECT_LT(most, before + (OPERATORS * engine::SESSION_MEMORY_USUAL + 2 * kept_by_clients) * ABOUT);
    RecordProperty("idle_bytes_per_session", static_cast<int>(idle / OPERATORS));
}

namespace {

// Everything that a session keeps beside its output: lines typed earlier, and the longest line with the most words.
void fill_usual(Client& client)
{
    std::string lines;
    for (int i = 0; i < 250; ++i)
        lines += "say " + std::to_string(i) + std::string(300, 'x') + "\r";
    std::string words = "say";
    while (words.size() + 2 <= engine::LINE_LIMIT)
        words += " a";
    client.send(lines + "notify\r" + words + "\r" + words + "\x15\x19\x15say ready\r");
    client.until("say ready:1:ready\r\nLAB# ");
}

constexpr int LINES_AT_ONCE = 2000; // 136 kB

// Asks for output that is never read until the console cuts the client off: how often; and the memory at most.
std::pair<int, std::size_t> ask_until_cut_off(Client& client, Client& witness)
{
    std::uint64_t cut_off = engine::counters().cut_off;
    std::size_t most = 0;
    int asked = 0;
    for (; engine::counters().cut_off == cut_off && asked < 1000; ++asked) {
        most = std::max(most, memory_in_use());
        client.send("print " + std::to_string(LINES_AT_ONCE) + "\r");
        let_work(witness);
    }
    return {asked, most};
}

} // namespace

// A client leaves unread what it is allowed to, has an answer that waits for a key, and filled everything else.
TEST(Load, MemoryOfASessionThatReadsNothingIsBounded)
{
    testing::internal::CaptureStderr();
    ConsoleServer server;
    Client witness, first, second;
    witness.connect_tcp(server.port());
    enable(witness);
    let_work(witness);

    std::size_t before = memory_in_use();
    // Over the local socket: what a client says whose TCP window is full may take the system seconds to deliver.
    first.connect_local(server.socket_path());
    enable(first);
    fill_usual(first);
    first.shrink_buffers();
    for (int i = 0; i < 5000; ++i)
        print_event("an event that is read later");
    let_work(witness);
    std::size_t with_usual = memory_in_use();
    auto [asked, most] = ask_until_cut_off(first, witness);
    EXPECT_GE(most, LOAD_SCALE == 1 ? before + engine::OUTPUT_LIMIT * 9 / 10 : 0) << "it was on the brink";
    EXPECT_LT(most, before + engine::SESSION_MEMORY_LIMIT * ABOUT);
    RecordProperty("bytes_on_the_brink", static_cast<int>(most - before));
    first.disconnect();
    let_work(witness);
    std::size_t kept = memory_in_use(); // by the client
    if (LOAD_SCALE == 1) {
        EXPECT_LT(with_usual, kept + engine::SESSION_MEMORY_USUAL);
        RecordProperty("usual_bytes", static_cast<int>(with_usual - kept));
    }

    before = memory_in_use();
    second.connect_local(server.socket_path());
    enable(second);
    fill_usual(second);
    second.shrink_buffers();
    // How much the system takes of it differs from one connection to the next.
    const std::size_t enough = before + engine::OUTPUT_LIMIT * 3 / 4;
    for (int i = 0; i < 1000 && (LOAD_SCALE == 1 ? memory_in_use() < enough : i < asked / 2); ++i) {
        second.send("print " + std::to_string(LINES_AT_ONCE) + "\r");
        let_work(witness);
    }
    second.send("terminal length 20\r");
    let_work(witness);
    second.send("print 30000\r"); // 2 MB, of which one waits
    let_work(witness);
    most = memory_in_use();
    EXPECT_GE(most, LOAD_SCALE == 1 ? before + engine::OUTPUT_LIMIT / 2 + engine::PAGER_HOLD : 0);
    EXPECT_LT(most, before + engine::SESSION_MEMORY_LIMIT * ABOUT);
    RecordProperty("bytes_with_a_page", static_cast<int>(most - before));
    testing::internal::GetCapturedStderr();
}

// The same by a program in machine mode, whose answers take six times as much as what was printed.
TEST(Load, MemoryOfAProgramThatReadsNothingIsBounded)
{
    constexpr std::size_t PROGRAMS = 4;
    ConsoleServer server;
    Client witness;
    witness.connect_tcp(server.port());
    enable(witness);
    call_hook = [](vty* session) {
        std::string text(4096, '\x01');
        for (int i = 0; i < 1000; ++i)
            print_to(session, "%s", text.c_str());
    };
    let_work(witness);
    std::size_t before = memory_in_use();
    std::vector<std::unique_ptr<Client>> programs;
    std::size_t most = 0;
    for (std::size_t i = 0; i < PROGRAMS; ++i) {
        programs.push_back(std::make_unique<Client>());
        programs.back()->connect_local(server.socket_path());
        programs.back()->send("#!machine x\nenable\nnotify\ncall\ncall\ncall\n");
        let_work(witness);
        for (int event = 0; event < 5000; ++event)
            print_event("an event that nobody reads");
        let_work(witness);
        most = std::max(most, memory_in_use() - before);
    }
    EXPECT_GE(most, LOAD_SCALE == 1 ? PROGRAMS * engine::ANSWER_LIMIT * 8 / 10 : 0);
    EXPECT_LT(most, PROGRAMS * engine::SESSION_MEMORY_LIMIT * ABOUT);
    RecordProperty("bytes_per_program", static_cast<int>(most / PROGRAMS));
    call_hook = {};
}

namespace {

// Looks at the memory in use all the time.
class Watch {
  public:
    Watch() : thread([this] { look(); }) {}
    ~Watch()
    {
        end();
    }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;
    std::size_t end()
    {
        ends = true;
        if (thread.joinable()) thread.join();
        return most;
    }

  private:
    void look()
    {
        while (!ends) {
            most = std::max(most, memory_in_use());
            std::this_thread::sleep_for(100us);
        }
    }
    std::atomic<bool> ends{false};
    std::size_t most = 0;
    std::thread thread;
};

} // namespace

// Whatever an answer of 30 MB holds and whatever filters it goes through, little of it is in memory at a time.
TEST(Load, MemoryOfAnAnswerWhileItIsMadeIsBounded)
{
    const std::string texts[] = {
        "a\r\n", "link 1\r\n  a: 1\r\n  b: two words\r\n", std::string(4094, '\x01') + "\r\n",
        std::string(4096, 'x'), // no line ever ends
    };
    const std::string chains[] = {
        "",
        " | json",
        " | section .",
        " | section . | section . | section . | section . | section . | section . | section . | section .",
        " | section . | section . | section . | section . | section . | section . | section . | json",
    };
    testing::internal::CaptureStderr();
    ConsoleServer server;
    Client witness;
    witness.connect_tcp(server.port());
    enable(witness);
    let_work(witness);
    const std::size_t before = memory_in_use();
    std::size_t widest = 0;
    std::atomic<bool> printed{false}; // before the witness is answered again
    for (const std::string& text : texts) {
        std::string piece;
        while (piece.size() < 4096)
            piece += text;
        call_hook = [&piece, &printed](vty* session) {
            for (std::size_t size = 0; size < 30'000'000 / LOAD_SCALE; size += piece.size())
                print_to(session, "%s", piece.c_str());
            printed = true;
        };
        for (const std::string& chain : chains) {
            for (const char* greeting : {"", "#!machine x\n"}) {
                Client client;
                client.connect_local(server.socket_path());
                printed = false;
                Watch watch;
                client.send(std::string(greeting) + "enable\ncall" + chain + "\n");
                do
                    let_work(witness);
                while (!printed);
                std::size_t most = watch.end();
                EXPECT_LT(most, before + engine::ANSWER_MEMORY_LIMIT * ABOUT) << text.size() << chain << greeting;
                widest = std::max(widest, most);
                client.reset();
                let_work(witness);
            }
        }
    }
    RecordProperty("bytes_of_the_widest", static_cast<int>(widest - before));
    call_hook = {};
    testing::internal::GetCapturedStderr();
}
