// SPDX-License-Identifier: Apache-2.0
// The start of remote management.
#include "managed_onus_fixture.h"
#include "refused_start.h"

namespace {

class RemoteLifecycle : public ManagedOnus {
  protected:
    RemoteLifecycle() : listener(engine::open_memory_session())
    {
        listener->event_notify = 1;
        sdk_sim::take_log();
        journal();
    }
    ~RemoteLifecycle() override
    {
        engine::close_session(listener);
    }

    static int installed_commands()
    {
        int count = 0;
        engine::for_each_element(engine::Origin::Library, [&](int, const cmd_element&) { ++count; });
        return count;
    }

    vty* listener;
};

constexpr const char* REGISTRATION = "REMOTE_NEPONU_assign_application_handler_function(0) = ";

TEST_F(RemoteLifecycle, StartRegistersThePrinterAndTellsNotifiedSessions)
{
    const int before = installed_commands();
    EXPECT_EQ(CLI_remote_management_init(), 0);
    EXPECT_EQ(journal(), Calls{std::string(REGISTRATION) + "0"});
    // The bare line feed is part of the text.
    EXPECT_EQ(engine::take_output(listener), "CLI: REMOTE_MANAGEMENT Handler functions assignment success\n");
    EXPECT_EQ(engine::take_output(session), ""); // it did not ask for events
    EXPECT_EQ(installed_commands(), before);     // its commands are there already
    const std::vector<std::string> log = sdk_sim::take_log();
    ASSERT_FALSE(log.empty());
    EXPECT_EQ(log[0], "api-called|REMOTE_MANAGEMENT_CLI/REMOTE_MANAGEMENT_CLI |-1|-1|CLI_remote_management_init API "
                      "Called.\n");
}

TEST_F(RemoteLifecycle, RefusedPrinterIsSilent)
{
    for (const int16_t code : {-1, -6, 1, 256}) {
        inject("REMOTE_NEPONU_assign_application_handler_function", code);
        EXPECT_EQ(CLI_remote_management_init(), -1);
        EXPECT_EQ(journal(), Calls{REGISTRATION + std::to_string(code)});
        EXPECT_EQ(engine::take_output(listener), "");
        EXPECT_EQ(engine::take_output(session), "");
    }
}

TEST_F(RemoteLifecycle, WithoutThePrinterNoRemoteCommandExists)
{
    EXPECT_EQ(refused_start.result, -1);
    EXPECT_EQ(refused_start.remote_commands, 0);
}

TEST_F(RemoteLifecycle, PackagesStartAlthoughOneFails)
{
    inject("REMOTE_NEPONU_assign_application_handler_function", -1);
    EXPECT_EQ(init_packages(), 0);
    EXPECT_EQ(terminate_packages(), 0);
}

TEST_F(RemoteLifecycle, SxgPartHasNothingToRefuse)
{
    EXPECT_EQ(CLI_remote_management_sxg_init(), 0);
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(RemoteLifecycle, PrinterIsCalledOnlyWhileItIsTheLastOneRegistered)
{
    static int calls;
    calls = 0;
    EXPECT_EQ(CLI_remote_management_init(), 0);
    engine::take_output(listener);
    RemoteRstpLoopDetectedHandler* const other = [](int16_t, int16_t, int32_t, int32_t, int32_t) { ++calls; };
    const auto handler = reinterpret_cast<EventHandler>(other);
    EXPECT_EQ(REMOTE_NEPONU_assign_application_handler_function(0, handler), 0);
    EXPECT_EQ(REMOTE_NEPONU_assign_application_handler_function(1, handler), -4);
    EXPECT_EQ(REMOTE_NEPONU_assign_application_handler_function(-1, handler), -4);
    EXPECT_EQ(REMOTE_NEPONU_assign_application_handler_function(0, nullptr), -4);
    sdk_sim::start();
    std::string error;
    EXPECT_TRUE(sdk_sim::raise_event(100, 0, "", &error)) << error;
    sdk_sim::drain_events();
    sdk_sim::stop();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(engine::take_output(listener), "");
}

} // namespace
