// SPDX-License-Identifier: Apache-2.0
#include "olt/pon_clock.h"

#include "links_fixture.h"

namespace {

constexpr const char* CLOCK = "OLT_id: 0 \r\nolt pon clock: ";

class PonClock : public Links {
  protected:
    PonClock()
    {
        load(links() + "[[olt]]\nid = 2\nmac = \"00-0a-c4-00-00-03\"\n");
    }

    std::string clock_of(const std::string& olt)
    {
        return type("show olt-pon-clock olt " + olt);
    }
};

TEST_F(PonClock, RunsInQuantaOf16Nanoseconds)
{
    EXPECT_EQ(clock_of("0"), std::string(CLOCK) + "0 \r\n");
    EXPECT_EQ(result, 0);
    sdk_sim::advance_clock(1);
    EXPECT_EQ(clock_of("0"), std::string(CLOCK) + "62500 \r\n");
    EXPECT_EQ(journal(), (Calls{"NEP_get_olt_pon_clock(0) = 0 -> 0", "NEP_get_olt_pon_clock(0) = 0 -> 62500"}));
    sdk_sim::advance_clock(50000 - 1); // past the middle of its range, it is still a positive number
    EXPECT_EQ(clock_of("0"), std::string(CLOCK) + "3125000000 \r\n");
    sdk_sim::advance_clock(20000); // and begins again at 2^32
    EXPECT_EQ(clock_of("0"), std::string(CLOCK) + "80032704 \r\n");
}

TEST_F(PonClock, BeginsWithItsOlt)
{
    sdk_sim::advance_clock(7000);
    type("no olt 0");
    type("olt 0 00-0a-c4-00-00-01 image flash");
    EXPECT_EQ(clock_of("0"), std::string(CLOCK) + "0 \r\n");
    sdk_sim::advance_clock(2);
    EXPECT_EQ(clock_of("0"), std::string(CLOCK) + "125000 \r\n");
}

TEST_F(PonClock, AnOffsetReplacesTheFormerOne)
{
    sdk_sim::advance_clock(1);
    const std::vector<std::pair<const char*, const char*>> cases = {
        {"100", "62600"}, {"0x10", "62516"}, {"2147483647", "2147546147"}, {"0xffffffff", "62499"}, {"0", "62500"}};
    for (const int node : {CONFIG_NODE, OLT_NODE}) {
        for (const auto& [offset, clock] : cases) {
            enter(node, 9);
            EXPECT_EQ(type(std::string("set olt-pon-clock-offset olt 0 offset ") + offset), "") << offset;
            EXPECT_EQ(result, 0);
            enter(CONFIG_NODE);
            EXPECT_EQ(clock_of("0"), std::string(CLOCK) + clock + " \r\n");
        }
    }
    EXPECT_EQ(journal()[4], "NEP_set_olt_pon_clock_offset(0, 2147483647) = 0");
    EXPECT_EQ(clock_of("2"), "OLT_id: 2 \r\nolt pon clock: 62500 \r\n"); // of one OLT only
}

TEST_F(PonClock, OffsetsThatAreRefused)
{
    const std::string misread = "Error reading OFFSET parameter for command from input, aborting\r\n";
    const std::vector<std::pair<const char*, std::string>> cases = {
        {"2147483648", misread},
        {"0x100000000", misread},
        {"1z", misread},
        {"-1", "Error reading negative value of OFFSET parameter from input, aborting\r\n"},
    };
    for (const auto& [offset, message] : cases) {
        EXPECT_EQ(type(std::string("set olt-pon-clock-offset olt 0 offset ") + offset), message) << offset;
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(PonClock, ASlaveTakesItsMastersTime)
{
    type("set olt-pon-clock-offset olt 0 offset 5000");
    type("set olt-pon-clock-offset olt 2 offset 70000");
    sdk_sim::advance_clock(1);
    journal();
    EXPECT_EQ(type("set sync-pon-clock master_olt 0 slave_olt 2"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"Sync_olts_pon_clock(0, 2) = 0"});
    for (const int milliseconds : {0, 1000, 60000}) {
        sdk_sim::advance_clock(milliseconds);
        const std::string master = clock_of("0");
        EXPECT_EQ(clock_of("2"), "OLT_id: 2" + master.substr(9)) << milliseconds;
    }
    EXPECT_NE(clock_of("0"), std::string(CLOCK) + "0 \r\n");
    EXPECT_EQ(type("set sync-pon-clock master_olt 2 slave_olt 2"), BAD_PARAMETER);
    EXPECT_EQ(result, -4);
}

TEST_F(PonClock, FailuresAndAbsentOlts)
{
    const std::vector<std::pair<const char*, const char*>> cases = {
        {"show olt-pon-clock olt 0", "NEP_get_olt_pon_clock"},
        {"set olt-pon-clock-offset olt 0 offset 1", "NEP_set_olt_pon_clock_offset"},
        {"set sync-pon-clock master_olt 0 slave_olt 2", "Sync_olts_pon_clock"},
    };
    for (const auto& [line, operation] : cases) {
        inject(operation, -5);
        EXPECT_EQ(type(line), HARDWARE) << line;
        EXPECT_EQ(result, -5);
    }
    for (const char* line :
         {"show olt-pon-clock olt 1", "set olt-pon-clock-offset olt 1 offset 1",
          "set sync-pon-clock master_olt 1 slave_olt 0", "set sync-pon-clock master_olt 0 slave_olt 1",
          "set sync-pon-clock master_olt 0 slave_olt 16"}) {
        EXPECT_EQ(type(line), NO_OLT) << line;
        EXPECT_EQ(result, -1003);
    }
    journal();
    const std::string misread = "Error reading OLT_id parameter for command from input, aborting\r\n";
    for (const char* line :
         {"show olt-pon-clock olt x", "set olt-pon-clock-offset olt x offset 1",
          "set sync-pon-clock master_olt x slave_olt 0", "set sync-pon-clock master_olt 0 slave_olt x"}) {
        EXPECT_EQ(type(line), misread) << line;
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
}

} // namespace
