// SPDX-License-Identifier: Apache-2.0
#include <atomic>
#include <thread>

#include "console_fixture.h"

namespace {

class Output : public Console {
  protected:
    vty* open_notified(int type = VTY_TYPE_TERMINAL)
    {
        vty* other = engine::open_memory_session(type);
        __atomic_store_n(&other->event_notify, 1, __ATOMIC_RELAXED);
        return other;
    }
};

TEST_F(Output, LineEnds)
{
    vty terminal{};
    vty stream{};
    stream.type = 1;
    EXPECT_STREQ(VTY_NEWLINE(nullptr), "\r\n");
    EXPECT_STREQ(VTY_NEWLINE(&terminal), "\r\n");
    EXPECT_STREQ(VTY_NEWLINE(&stream), "\n");
}

TEST_F(Output, ToASession)
{
    EXPECT_GE(RBX_vty_out(session, "%s-%d", "text", 5), 0);
    EXPECT_EQ(engine::take_output(session), "text-5");
}

TEST_F(Output, WithoutASessionGoesToTheSdkLog)
{
    sdk_sim::take_log();
    EXPECT_EQ(RBX_vty_out(nullptr, "%s %d%s", "lost", 7, VTY_NEWLINE(nullptr)), 0);
    const std::vector<std::string> log = sdk_sim::take_log();
    ASSERT_EQ(log.size(), 1u);
    EXPECT_EQ(log[0], "sys-dump||-1|-1|lost 7\r\n");
}

TEST_F(Output, PrintReachesNotifiedSessionsOnly)
{
    vty* notified = open_notified();
    vty* stream = open_notified(1);
    EXPECT_GE(CLI_print("something happened"), 0);
    EXPECT_EQ(engine::take_output(notified), "something happened \r\n");
    EXPECT_EQ(engine::take_output(stream), "something happened \n");
    EXPECT_EQ(engine::take_output(session), "");
    engine::close_session(notified);
    engine::close_session(stream);
}

TEST_F(Output, PrintWithNobodyNotifiedPrintsNothing)
{
    EXPECT_EQ(CLI_print("nobody hears"), 0);
    EXPECT_EQ(engine::take_output(session), "");
}

TEST_F(Output, PrintNeverTakesItsTextAsAFormat)
{
    vty* notified = open_notified();
    CLI_print("%s%n%d 100%");
    EXPECT_EQ(engine::take_output(notified), "%s%n%d 100% \r\n");
    engine::close_session(notified);
}

TEST_F(Output, FlushGoesThroughTheConsolesThreadRecord)
{
    vty* notified = open_notified();
    CLI_print("flushed");
    EXPECT_EQ(global_thread->func, RBX_vty_flush);
    EXPECT_EQ(global_thread->arg, notified);
    EXPECT_EQ(vtyvec->sessions[global_thread->u.fd], notified);
    engine::close_session(notified);
}

TEST_F(Output, ManyThreadsPrintAtOnceAndNoLineIsLostOrTorn)
{
    constexpr int THREADS = 4;
    constexpr int LINES = 200;
    vty* notified = open_notified();
    std::string all;
    std::atomic<int> running = THREADS;
    std::vector<std::thread> printers;
    for (int t = 0; t < THREADS; ++t) {
        printers.emplace_back([t, &running] {
            for (int i = 0; i < LINES; ++i) {
                CLI_print(("thread " + std::to_string(t) + " line " + std::to_string(i) + ".").c_str());
                if (i % 20 == 0) std::this_thread::yield();
            }
            --running;
        });
    }
    while (running > 0)
        all += engine::take_output(notified);
    for (std::thread& printer : printers)
        printer.join();
    all += engine::take_output(notified);
    for (int t = 0; t < THREADS; ++t) {
        size_t from = 0;
        for (int i = 0; i < LINES; ++i) {
            const std::string line = "thread " + std::to_string(t) + " line " + std::to_string(i) + ". \r\n";
            const size_t at = all.find(line, from);
            ASSERT_NE(at, std::string::npos) << line; // each thread's lines stay in order
            from = at + line.size();
        }
    }
    engine::close_session(notified);
}

TEST_F(Output, MultiTaskingModeKeepsTheLowByte)
{
    CLI_set_multi_tasking_mode(0x1200);
    uint8_t mode = 9;
    CLI_get_multi_tasking_mode(&mode);
    EXPECT_EQ(mode, 0);
    CLI_set_multi_tasking_mode(0x1301);
    CLI_get_multi_tasking_mode(&mode);
    EXPECT_EQ(mode, 1);
}

TEST_F(Output, EventNotify)
{
    for (const int node : {VIEW_NODE, ENABLE_NODE, CONFIG_NODE, OLT_NODE}) {
        enter(node);
        EXPECT_EQ(type("event-notify"), "");
        EXPECT_EQ(session->event_notify, 1);
        EXPECT_EQ(type("no event-notify"), "");
        EXPECT_EQ(session->event_notify, 0);
        EXPECT_EQ(type("event-notify enable"), "");
        EXPECT_EQ(session->event_notify, 1);
        EXPECT_EQ(type("no event-notify"), "");
    }
}

} // namespace
