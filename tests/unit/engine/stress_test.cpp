// SPDX-License-Identifier: Apache-2.0
// SDK threads print to whatever is open while operators come, type and go. Worth most under the thread sanitizer.
#include <atomic>
#include <thread>
#include <vector>

#include "engine/engine_fixture.h"

TEST(Stress, EventsFromFourThreadsWhileSessionsComeAndGo)
{
    ConsoleServer server;
    std::atomic<bool> ends{false};
    std::atomic<int> printed{0};
    std::vector<std::thread> printers;
    for (int i = 0; i < 4; ++i)
        printers.emplace_back([&, i] {
            while (!ends) {
                print_event("event of thread " + std::to_string(i));
                ++printed;
                std::this_thread::sleep_for(std::chrono::microseconds(50));
            }
        });

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
    operators.emplace_back([&] {
        for (int round = 0; round < 50; ++round) {
            vty* session = engine::open_memory_session();
            engine::execute(session, "enable");
            engine::execute(session, "notify");
            engine::execute(session, "say x");
            EXPECT_NE(engine::take_output(session).find("say x:1:x"), std::string::npos);
            engine::close_session(session);
        }
    });
    for (std::thread& one : operators)
        one.join();
    ends = true;
    for (std::thread& one : printers)
        one.join();
    EXPECT_GT(printed, 0);
}
