// SPDX-License-Identifier: Apache-2.0
// The gate: faults, journal, families, log; with operations of the test's own beside those of the SDK.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <limits>
#include <thread>

#include <unistd.h>

#include "host/sdk_sim/gate.h"
#include "network_fixture.h"

using namespace sdk_sim;

namespace {

struct TestRecord {
    std::int32_t number;
    std::uint8_t mac[6];
    std::uint8_t key[3];
    char name[8];
    std::uint16_t pair[2];
};

} // namespace

template <>
inline constexpr auto sdk_sim::record_fields<TestRecord> = std::tuple(record_field("number", &TestRecord::number),
                                                                      record_field("mac", &TestRecord::mac),
                                                                      record_field("key", &TestRecord::key),
                                                                      record_field("name", &TestRecord::name),
                                                                      record_field("pair", &TestRecord::pair));

namespace {

using Lines = std::vector<std::string>;

using GateTest = NetworkTest;

const Operation ctc_operation("TEST_ctc", CTC_STACK);
const Operation remote_operation("TEST_remote", REMOTE_MANAGEMENT);
const Operation values_operation("TEST_values", GENERAL);

std::int16_t ctc(std::int16_t olt_id, std::int16_t onu_id)
{
    return on_onu(ctc_operation, olt_id, onu_id, in(olt_id, onu_id), out(), [](Olt&, Onu&) { return SUCCESS; });
}

std::int16_t remote(std::int16_t olt_id, std::int16_t onu_id, std::vector<std::int16_t>* reached,
                    std::int16_t refused_by = -1)
{
    return on_onus(remote_operation, olt_id, onu_id, in(olt_id, onu_id), out(), [&](Olt&, Onu& onu) {
        if (onu.id == refused_by) return TIME_OUT;
        reached->push_back(onu.id);
        return SUCCESS;
    });
}

// --- Families ----------------------------------------------------------------------------------------------------

TEST_F(GateTest, FamiliesHaveTheirOwnCodes)
{
    std::vector<std::int16_t> reached;
    EXPECT_EQ(ctc(0, 0), 0);
    EXPECT_EQ(ctc(0, 1), 0) << "not authorized, but registered";
    for (const std::int16_t absent : {1, 3, 16, -1}) {
        EXPECT_EQ(ctc(absent, 0), -17003);
        EXPECT_EQ(remote(absent, 0, &reached), -13013);
        EXPECT_EQ(remote(absent, BROADCAST_ONU, &reached), -13013);
    }
    for (const std::int16_t unregistered : {2, 3, 5, 6, 255, -1, 4094}) {
        EXPECT_EQ(ctc(0, unregistered), -17002);
        EXPECT_EQ(remote(0, unregistered, &reached), -13015);
    }
    EXPECT_EQ(ctc(0, BROADCAST_ONU), -17002) << "an operation on one ONU";
    EXPECT_TRUE(reached.empty());
}

TEST_F(GateTest, BroadcastReachesEveryRegisteredOnu)
{
    std::vector<std::int16_t> reached;
    EXPECT_EQ(remote(0, BROADCAST_ONU, &reached), 0);
    EXPECT_EQ(reached, (std::vector<std::int16_t>{0, 1, 4, 254}));
    reached.clear();
    EXPECT_EQ(remote(0, BROADCAST_ONU, &reached, 4), -2);
    EXPECT_EQ(reached, (std::vector<std::int16_t>{0, 1}));
    EXPECT_EQ(journal(), (Lines{"TEST_remote(0, 4095) = 0", "TEST_remote(0, 4095) = -2"}));
}

// --- The journal -------------------------------------------------------------------------------------------------

TEST_F(GateTest, EveryKindOfValueHasItsText)
{
    const TestRecord record{-5, {1, 2, 3, 0xA, 0xB, 0xFF}, {0, 0x10, 0xFE}, {'n', '"', 0}, {1, 65535}};
    const std::uint8_t mac[6] = {};
    std::uint8_t small = 200;
    std::uint64_t large = std::numeric_limits<std::uint64_t>::max();
    char name[4] = {'l', 'o', 'n', 'g'}; // no terminator within its size
    const std::int16_t code = without_model(
        values_operation, in(true, std::int16_t{-1}, as_text("a\n\t\r\\\x1b\xff%s"), as_mac(mac), &record),
        out(&small, &large, as_text(name, sizeof(name)), as_octets(&small, 1)), [] { return SUCCESS; });
    EXPECT_EQ(code, 0);
    EXPECT_EQ(journal(), (Lines{R"(TEST_values(1, -1, "a\n\t\r\\\x1b\xff%s", 00-00-00-00-00-00, )"
                                R"({number=-5,mac=01-02-03-0a-0b-ff,key=0010fe,name="n\"",pair=[1,65535]}) = 0)"
                                R"( -> 200, 18446744073709551615, "long", c8)"}));
}

TEST_F(GateTest, NullPointersAreParameterErrors)
{
    const TestRecord* record = nullptr;
    std::int32_t* result = nullptr;
    char name[4];
    const auto call = [](const auto& arguments, const auto& results) {
        return without_model(values_operation, arguments, results, [] { return SUCCESS; });
    };
    EXPECT_EQ(call(in(record), out()), -4);
    EXPECT_EQ(call(in(as_text(nullptr)), out()), -4);
    EXPECT_EQ(call(in(as_mac(static_cast<const std::uint8_t*>(nullptr))), out()), -4);
    EXPECT_EQ(call(in(1), out(result)), -4);
    EXPECT_EQ(call(in(1), out(as_text(name, sizeof(name)), result)), -4);
    EXPECT_EQ(journal(), (Lines{"TEST_values(null) = -4", "TEST_values(null) = -4", "TEST_values(null) = -4",
                                "TEST_values(1) = -4", "TEST_values(1) = -4"}));
}

TEST_F(GateTest, JournalIsKeptWhileRecording)
{
    sdk_sim::record_journal(false);
    Olt_exists(0);
    EXPECT_EQ(journal(), Lines{});
    sdk_sim::record_journal(true);
    Olt_exists(0);
    EXPECT_EQ(journal(), (Lines{"Olt_exists(0) = 1"}));
    EXPECT_EQ(journal(), Lines{});
}

// --- Faults ------------------------------------------------------------------------------------------------------

Fault fault(const char* operation, std::int16_t code)
{
    Fault made;
    made.operation = operation;
    made.code = code;
    return made;
}

TEST_F(GateTest, FaultsReturnTheirCodeWithoutDoingTheWork)
{
    Fault wanted = fault("NEP_xaui_redundancy_set_params", -5);
    wanted.count = 2;
    ASSERT_TRUE(inject(wanted));
    EXPECT_EQ(NEP_xaui_redundancy_set_params(0, 0, 1), -5);
    EXPECT_EQ(NEP_xaui_redundancy_set_params(9, 0, 1), -5) << "before the model is asked";
    std::int32_t value = -1;
    EXPECT_EQ(NEP_xaui_redundancy_get_params(0, 0, &value), 0) << "another operation";
    EXPECT_EQ(value, 0);
    EXPECT_EQ(NEP_xaui_redundancy_set_params(0, 0, 1), 0);
    EXPECT_EQ(journal(),
              (Lines{"NEP_xaui_redundancy_set_params(0, 0, 1) = -5", "NEP_xaui_redundancy_set_params(9, 0, 1) = -5",
                     "NEP_xaui_redundancy_get_params(0, 0) = 0 -> 0", "NEP_xaui_redundancy_set_params(0, 0, 1) = 0"}));
}

TEST_F(GateTest, FaultsLetCallsPassFirst)
{
    Fault wanted = fault("NEP_xaui_redundancy_enable", -2);
    wanted.skip = 2;
    ASSERT_TRUE(inject(wanted));
    const std::int16_t codes[] = {0, 0, -2, 0};
    for (const std::int16_t code : codes)
        EXPECT_EQ(NEP_xaui_redundancy_enable(0, 1), code);
}

TEST_F(GateTest, FaultsOfOneOperationWaitForEachOther)
{
    Fault second = fault("NEP_xaui_redundancy_enable", -6);
    second.skip = 1;
    ASSERT_TRUE(inject(fault("NEP_xaui_redundancy_enable", -5)));
    ASSERT_TRUE(inject(second));
    EXPECT_EQ(sdk_sim::faults().size(), 2U);
    const std::int16_t codes[] = {-5, 0, -6, 0};
    for (const std::int16_t code : codes)
        EXPECT_EQ(NEP_xaui_redundancy_enable(0, 1), code);
    EXPECT_TRUE(sdk_sim::faults().empty());
}

TEST_F(GateTest, FaultsAfterTheWork)
{
    Fault wanted = fault("NEP_xaui_redundancy_set_params", -1);
    wanted.after = true;
    ASSERT_TRUE(inject(wanted));
    EXPECT_EQ(NEP_xaui_redundancy_set_params(0, 0, 1), -1);
    std::int32_t value = -1;
    EXPECT_EQ(NEP_xaui_redundancy_get_params(0, 0, &value), 0);
    EXPECT_EQ(value, 1) << "the work was done";
}

TEST_F(GateTest, FaultWithoutAnErrorLeavesZeros)
{
    ASSERT_TRUE(inject(fault("NEP_olt_host_recovery", 0)));
    std::int32_t state = 77;
    std::uint32_t elapsed = 77;
    std::uint16_t onus = 77;
    std::uint16_t llids = 77;
    std::uint8_t report[OLT_RECOVERY_BUFFER_SIZE] = {'x'};
    EXPECT_EQ(NEP_olt_host_recovery(0, &state, &elapsed, &onus, &llids, report), 0);
    EXPECT_EQ(state, RECOVERY_NOT_STARTED);
    EXPECT_EQ(elapsed + onus + llids + report[0], 0U);
    EXPECT_EQ(journal(), (Lines{"NEP_olt_host_recovery(0) = 0 -> 0, 0, 0, 0, \"\""}));
}

TEST_F(GateTest, FaultsDelayOnlyTheirOwnCall)
{
    Fault wanted = fault("NEP_xaui_redundancy_enable", -2);
    wanted.delay_ms = 300;
    ASSERT_TRUE(inject(wanted));
    const auto start_time = std::chrono::steady_clock::now();
    const auto passed = [&] { return std::chrono::steady_clock::now() - start_time; };
    std::thread delayed([] { EXPECT_EQ(NEP_xaui_redundancy_enable(0, 1), -2); });
    while (!sdk_sim::faults().empty())
        std::this_thread::yield();
    EXPECT_EQ(NEP_xaui_redundancy_enable(0, 1), 0);
    EXPECT_LT(passed(), std::chrono::milliseconds(300)) << "the model was locked during the delay";
    delayed.join();
    EXPECT_GE(passed(), std::chrono::milliseconds(300));
}

TEST_F(GateTest, QuestionsTakeFaultsToo)
{
    ASSERT_TRUE(inject(fault("Olt_exists", 0)));
    ASSERT_TRUE(inject(fault("NEP_get_onu_mode_extended", 202)));
    ASSERT_TRUE(inject(fault("Get_pon_mac_name", -1)));
    EXPECT_EQ(Olt_exists(0), 0);
    std::uint8_t warned = 9;
    EXPECT_EQ(NEP_get_onu_mode_extended(0, 4, &warned), 202);
    EXPECT_EQ(warned, 0);
    EXPECT_STREQ(Get_pon_mac_name(5), "unknown");
    EXPECT_EQ(journal(), (Lines{"Olt_exists(0) = 0", "NEP_get_onu_mode_extended(0, 4) = 202 -> 0",
                                "Get_pon_mac_name(5) = \"unknown\""}));
}

TEST_F(GateTest, OnlyOperationsTakeFaults)
{
    EXPECT_FALSE(inject(fault("NEP_no_such_operation", -1)));
    EXPECT_FALSE(inject(fault("", -1)));
    EXPECT_FALSE(inject(fault("NEPLOG_print", -1)));
    const Lines names = operations();
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
    for (const std::string& name : names)
        EXPECT_TRUE(inject(fault(name.c_str(), -1))) << name;
    EXPECT_EQ(sdk_sim::faults().size(), names.size());
    clear_faults();
    EXPECT_TRUE(sdk_sim::faults().empty());
    EXPECT_NE(Olt_exists(0), 0);
    for (const char* name : {"NEP_add_olt",
                             "NEP_assign_handler_function",
                             "NEP_delete_handler_function",
                             "NEP_get_olt_parameters",
                             "NEP_get_olt_versions",
                             "NEP_get_onu_mode_extended",
                             "NEP_olt_host_recovery",
                             "NEP_reset_olt",
                             "NEP_send_cli_command",
                             "NEP_update_olt_parameters",
                             "NEP_xaui_redundancy_enable",
                             "NEP_xaui_redundancy_get_params",
                             "NEP_xaui_redundancy_set_params",
                             "NEP_xaui_redundancy_switch_over",
                             "Olt_exists",
                             "Mac_address_exist",
                             "Get_onu_record_static_mode",
                             "Get_pon_mac_name",
                             "OSSRV_create_thread",
                             "Set_logging_configuration"})
        EXPECT_NE(std::find(names.begin(), names.end(), name), names.end()) << name;
}

TEST_F(GateTest, FaultWithoutCallsDoesNothing)
{
    Fault wanted = fault("Olt_exists", 0);
    wanted.count = 0;
    EXPECT_TRUE(inject(wanted));
    EXPECT_TRUE(sdk_sim::faults().empty());
    EXPECT_NE(Olt_exists(0), 0);
}

// --- The log -----------------------------------------------------------------------------------------------------

TEST_F(GateTest, LogEntriesAreKeptWhole)
{
    NEPLOG_print(1, "CLI_GENERAL/CLI ", 6, "api-called", -1, -1, "%s API Called.\n", "CLI_termination");
    NEPLOG_print(1, nullptr, 6, nullptr, 3, 254, "%d%%", 50);
    const std::string longer(300, 'x');
    NEPLOG_print(0, "", 6, "sys-dump", -1, -1, "%s\r\n", longer.c_str());
    NEPLOG_print(0, "", 6, "empty", -1, -1, "%s", "");
    EXPECT_EQ(take_log(), (Lines{"api-called|CLI_GENERAL/CLI |-1|-1|CLI_termination API Called.\n", "||3|254|50%",
                                 "sys-dump||-1|-1|" + longer + "\r\n", "empty||-1|-1|"}));
    EXPECT_EQ(journal(), Lines{}) << "log entries are no calls";
    record_journal(false);
    NEPLOG_print(0, "", 6, "unheard", -1, -1, "text");
    EXPECT_EQ(take_log(), Lines{});
}

TEST_F(GateTest, LogFileTakesCallsAndEntries)
{
    char path[] = "/tmp/sdk_log_XXXXXX";
    close(mkstemp(path));
    std::string error;
    record_journal(false);
    ASSERT_TRUE(set_log(path, &error)) << error;
    Olt_exists(0);
    NEPLOG_print(0, "m", 6, "t", 0, 1, "esc \x1b[2J\nnext\r\n");
    ASSERT_TRUE(set_log("", &error));
    Olt_exists(2);
    ASSERT_TRUE(set_log(path, &error));
    Olt_exists(1);
    ASSERT_TRUE(set_log("", &error));
    std::ifstream file(path);
    Lines lines;
    for (std::string line; std::getline(file, line);) {
        ASSERT_GT(line.size(), 24U);
        EXPECT_EQ(line[10], ' ');
        EXPECT_EQ(line[19], '.');
        lines.push_back(line.substr(24)); // behind the time of day
    }
    EXPECT_EQ(lines, (Lines{"call Olt_exists(0) = 1", "log t|m|0|1|esc .[2J.next", "call Olt_exists(1) = 0"}));
    EXPECT_FALSE(set_log("/nowhere/log", &error));
    EXPECT_EQ(error, "/nowhere/log: No such file or directory");
    unlink(path);
}

} // namespace
