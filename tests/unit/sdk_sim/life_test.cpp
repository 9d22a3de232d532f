// SPDX-License-Identifier: Apache-2.0
// The network's own life, its clock, and the firmware's console.
#include <chrono>
#include <mutex>
#include <thread>
#include <utility>

#include "network_fixture.h"

namespace {

using Lines = std::vector<std::string>;

using LifeTest = NetworkTest;

constexpr std::string_view LIVELY = R"(
name = "LIVELY"
clock = { speed = 0 }
[life]
seed = SEED
leave_interval = 2
absence = 3
alarm_interval = 1
alarm_duration = 1.5
[[olt]]
id = 4
mac = "02-00-00-00-00-00"
[[olt.onu]]
first = 10
count = 5
mac = "02-00-00-01-00-00"
)";

void load_lively(const std::string& seed)
{
    std::string toml(LIVELY);
    toml.replace(toml.find("SEED"), 4, seed);
    std::string error;
    ASSERT_TRUE(sdk_sim::load_scenario_text(toml, "lively.toml", &error)) << error;
}

TEST_F(LifeTest, QuietUnlessTold)
{
    watch_events();
    sdk_sim::advance_clock(100000000);
    EXPECT_EQ(take_events(), Lines{});
}

TEST_F(LifeTest, SameSeedSameLife)
{
    watch_events();
    Lines lives[3];
    const char* const seeds[] = {"7", "7", "8"};
    for (int i = 0; i < 3; ++i) {
        load_lively(seeds[i]);
        // The steps of the clock make no difference.
        for (int step = 0; step < (i == 0 ? 1 : 600); ++step)
            sdk_sim::advance_clock(i == 0 ? 60000 : 100);
        lives[i] = take_events();
    }
    EXPECT_GT(lives[0].size(), 60U);
    EXPECT_EQ(lives[0], lives[1]);
    EXPECT_NE(lives[0], lives[2]);
}

TEST_F(LifeTest, OnusThatLeaveComeBackAndAlarmsAreCleared)
{
    watch_events();
    load_lively("1");
    sdk_sim::advance_clock(600000);
    int balance[3] = {}; // ONUs registered, ONUs deregistered; alarms raised and not cleared
    for (const std::string& event : take_events()) {
        if (event.find(" registered") != std::string::npos) ++balance[0];
        if (event.find(" deregistered") != std::string::npos) ++balance[1];
        if (event.find(" raised") != std::string::npos) ++balance[2];
        if (event.find(" cleared") != std::string::npos) --balance[2];
    }
    EXPECT_GT(balance[1], 100);
    EXPECT_GE(balance[1], balance[0]);
    EXPECT_LE(balance[1] - balance[0], 5) << "those that are away";
    EXPECT_GE(balance[2], 0);
    EXPECT_LE(balance[2], 5) << "those that still stand";
}

TEST_F(LifeTest, LifeGoesOnWithoutTheOlt)
{
    watch_events();
    load_lively("1");
    sdk_sim::advance_clock(5000);
    ASSERT_TRUE(sdk_sim::remove_olt(4));
    take_events();
    sdk_sim::advance_clock(60000);
    EXPECT_EQ(take_events(), Lines{}) << "nobody is there to register or to raise alarms";
    ASSERT_TRUE(sdk_sim::return_olt(4));
    sdk_sim::advance_clock(60000);
    EXPECT_GT(take_events().size(), 20U);
}

TEST_F(LifeTest, TheClockRunsWhileStarted)
{
    std::string error;
    ASSERT_TRUE(sdk_sim::load_scenario_text("clock = { speed = 10 }\n"
                                            "life = { start_time = 0.2, registration_time = 0.3 }\n"
                                            "[[olt]]\nid = 0\nmac = \"02-00-00-00-00-00\"\npresent = false\n"
                                            "[[olt.onu]]\nid = 9\nmac = \"02-00-00-00-00-01\"\n",
                                            "quick.toml", &error))
        << error;
    watch_events();
    const auto begin = std::chrono::steady_clock::now();
    ASSERT_TRUE(sdk_sim::return_olt(0));
    Lines events;
    while (events.size() < 3 && std::chrono::steady_clock::now() - begin < std::chrono::seconds(20)) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        for (std::string& event : take_events())
            events.push_back(std::move(event));
    }
    EXPECT_EQ(events, (Lines{"olt 0: state 1", "olt 0: state 2", "olt 0: onu 9 registered, rate 0, rtt 1000"}));
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(45));
}

// --- The firmware's console --------------------------------------------------------------------------------------

std::mutex printed_mutex;
Lines printed;

void print(const char* text)
{
    const std::lock_guard lock(printed_mutex);
    printed.emplace_back(text);
}

Lines answer(std::int16_t olt_id, std::int32_t echo, const char* text)
{
    EXPECT_EQ(NEP_send_cli_command(olt_id, echo, text), 0) << text;
    sdk_sim::drain_events();
    const std::lock_guard lock(printed_mutex);
    return std::exchange(printed, {});
}

class FirmwareTest : public NetworkTest {
  protected:
    FirmwareTest()
    {
        printed.clear();
        sdk_sim::set_firmware_console(print);
        sdk_sim::start();
    }
};

TEST_F(FirmwareTest, AnswersWhileItsConsoleIsShown)
{
    EXPECT_EQ(answer(0, 1, "version\n"), Lines{}) << "not selected";
    ASSERT_EQ(Set_logging_configuration(8, 1, 1, 0), 0);
    EXPECT_EQ(answer(0, 1, "version\n"), (Lines{"CHIP firmware 1.2.3.4"}));
    EXPECT_EQ(answer(0, 0, "version\n"), Lines{}) << "without echo";
    EXPECT_EQ(answer(2, 1, "version\n"), Lines{}) << "another OLT";
    ASSERT_EQ(Set_logging_configuration(8, 0, 1, 0), 0);
    EXPECT_EQ(answer(0, 1, "version\n"), Lines{});
    ASSERT_EQ(Set_logging_configuration(7, 1, 1, 0), 0);
    EXPECT_EQ(answer(0, 1, "version\n"), Lines{}) << "another topic";
}

TEST_F(FirmwareTest, Commands)
{
    ASSERT_EQ(Set_logging_configuration(8, 1, 1, 0), 0);
    sdk_sim::advance_clock(93784000);
    struct Case {
        const char* text;
        Lines answer;
    };
    const Case cases[] = {
        {"\n", {"fw0> "}},
        {"\n\n", {"fw0> ", "fw0> "}},
        {"", {}},
        {" \t\r\n", {"fw0> "}},
        {"version", {"CHIP firmware 1.2.3.4"}},
        {"  version  ignored\r\n", {"CHIP firmware 1.2.3.4"}},
        {"uptime\n", {"up 1 days 02:03:04"}},
        {"temperature\n", {"47.5 C"}},
        {"registers\n", {"0x00000010: 0x000000ab", "0x00000020: 0x00000007"}},
        {"registers 0x10\n", {"0x00000010: 0x000000ab"}},
        {"registers 16 0xffffffff\n", {"0x00000010: 0xffffffff"}},
        {"registers 16\n", {"0x00000010: 0xffffffff"}},
        {"registers 17\n", {"no register at 0x00000011"}},
        {"registers x\n", {"usage: registers [address [value]]"}},
        {"registers 16 0x100000000\n", {"usage: registers [address [value]]"}},
        {"registers 1 2 3\n", {"usage: registers [address [value]]"}},
        {"onus\n",
         {"onu   0  02-00-00-01-00-00  rtt 1234", "onu   1  02-00-00-01-00-01  rtt 1000  unauthorized",
          "onu   4  02-00-00-01-00-04  rtt 1000", "onu 254  02-00-00-01-00-fe  rtt 1000", "4 registered"}},
        {"log\n", {"boot", "laser on"}},
        {"reboot\n", {"unknown command, try help"}},
        {"%s%n\x1b\n", {"unknown command, try help"}},
        {"temperature\nversion\n", {"47.5 C", "CHIP firmware 1.2.3.4"}},
    };
    for (const Case& test : cases)
        EXPECT_EQ(answer(0, 1, test.text), test.answer) << test.text;
    const Lines help = answer(0, 1, "help\n");
    ASSERT_EQ(help.size(), 7U);
    EXPECT_EQ(help[0], "help         this list");
    ASSERT_EQ(Set_logging_configuration(8, 1, 1, 2), 0);
    EXPECT_EQ(answer(2, 1, "\n"), (Lines{"fw2> "}));
    EXPECT_EQ(answer(2, 1, "log\n"), (Lines{"log is empty"}));
}

TEST_F(FirmwareTest, CommandsAreChecked)
{
    EXPECT_EQ(NEP_send_cli_command(0, 2, "help\n"), -4);
    EXPECT_EQ(NEP_send_cli_command(0, -1, "help\n"), -4);
    EXPECT_EQ(NEP_send_cli_command(0, 1, nullptr), -4);
    EXPECT_EQ(NEP_send_cli_command(0, 1, std::string(1025, 'x').c_str()), -4);
    EXPECT_EQ(NEP_send_cli_command(0, 1, std::string(1024, 'x').c_str()), 0);
    sdk_sim::take_journal();
    EXPECT_EQ(NEP_send_cli_command(0, 1, "\n"), 0);
    EXPECT_EQ(journal(), (Lines{"NEP_send_cli_command(0, 1, \"\\n\") = 0"}));
}

TEST_F(FirmwareTest, NobodyListens)
{
    ASSERT_EQ(Set_logging_configuration(8, 1, 1, 0), 0);
    sdk_sim::set_firmware_console(nullptr);
    EXPECT_EQ(answer(0, 1, "version\n"), Lines{});
}

TEST_F(FirmwareTest, ResetOltForgetsThatItsConsoleIsShown)
{
    constexpr std::uint8_t mac[6] = {2, 0, 0, 0, 0, 9};
    constexpr OLT_firmware_source source{FIRMWARE_FROM_FLASH, nullptr, 0};
    ASSERT_EQ(Set_logging_configuration(8, 1, 1, 0), 0);
    ASSERT_EQ(NEP_reset_olt(0), 0);
    ASSERT_EQ(NEP_add_olt(0, mac, &source), 0);
    EXPECT_EQ(answer(0, 1, "version\n"), Lines{});
}

} // namespace
