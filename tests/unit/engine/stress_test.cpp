// SPDX-License-Identifier: Apache-2.0
// SDK threads print to whatever is open while operators come, type and go. Worth most under the thread sanitizer.
#include <atomic>
#include <thread>
#include <vector>

#include "engine/engine_fixture.h"

namespace {

// Four SDK threads that never rest for long.
class EventThreads {
  public:
    EventThreads()
    {
        for (int i = 0; i < 4; ++i)
            threads.emplace_back([this, i] {
                while (!ends) {
                    print_event("event of thread " + std::to_string(i));
                    std::this_thread::sleep_for(std::chrono::microseconds(50));
                }
            });
    }
    ~EventThreads()
    {
        ends = true;
        for (std::thread& one : threads)
            one.join();
    }

  private:
    std::atomic<bool> ends{false};
    std::vector<std::thread> threads;
};

} // namespace

TEST(Stress, EventsFromFourThreadsWhileSessionsComeAndGo)
{
    ConsoleServer server;
    EventThreads events;
    std::vector<std::thread> operators;
    for (int i = 0; i < 3; ++i)
        operators.emplace_back([&, i] {
            for (int round = 0; round < 15; ++round) {
                Client client;
                if (i == 0)
                    client.connect_local(server.socket_path());
                else
                    client.connect_tcp(server.port());
                client.send("enable\rnotify\r");
                for (int line = 0; line < 5; ++line) {
                    std::string word = std::to_string(i) + "-" + std::to_string(round) + "-" + std::to_string(line);
                    client.send("say " + word + "\r");
                    client.until(":1:" + word + "\r\n");
                }
                client.until("event of thread ");
                if (round % 2 == 0) client.send("half a li");
                if (round % 3 == 0) {
                    client.send("\x15quit\r");
                    client.rest();
                }
            }
        });
    for (std::thread& one : operators)
        one.join();
}

TEST(Stress, EventsWhileSessionsWithoutConnectionComeAndGo)
{
    install_test_nodes();
    EventThreads events;
    bool seen = false;
    for (int round = 0; round < 300 || !seen; ++round) {
        vty* session = engine::open_memory_session();
        engine::execute(session, "enable");
        engine::execute(session, "notify");
        engine::execute(session, "say x");
        std::string output = engine::take_output(session);
        EXPECT_NE(output.find("say x:1:x\r\n"), std::string::npos);
        seen = seen || output.find("event of thread ") != std::string::npos;
        engine::close_session(session);
    }
}
