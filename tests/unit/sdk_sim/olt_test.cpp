// SPDX-License-Identifier: Apache-2.0
// OLTs: presence, parameters, versions, reset, recovery and adding.
#include <cstdio>
#include <cstring>
#include <functional>

#include <unistd.h>

#include "network_fixture.h"

namespace {

using Lines = std::vector<std::string>;

using OltTest = NetworkTest;

OLT_update_parameters unchanged()
{
    OLT_update_parameters parameters;
    std::memset(&parameters, 0xFF, sizeof(parameters));
    return parameters;
}

TEST_F(OltTest, ExistsWhilePresent)
{
    EXPECT_NE(Olt_exists(0), 0);
    for (const std::int16_t absent : {1, 3, 15, 16, -1, -5, 32767, -32768})
        EXPECT_EQ(Olt_exists(absent), 0) << absent;
    EXPECT_EQ(journal(), (Lines{"Olt_exists(0) = 1", "Olt_exists(1) = 0", "Olt_exists(3) = 0", "Olt_exists(15) = 0",
                                "Olt_exists(16) = 0", "Olt_exists(-1) = 0", "Olt_exists(-5) = 0",
                                "Olt_exists(32767) = 0", "Olt_exists(-32768) = 0"}));
}

TEST_F(OltTest, AbsentOltsAreRefusedByEveryOperation)
{
    OLT_parameters read;
    OLT_device_versions device;
    OLT_version firmware;
    OLT_version host;
    std::int32_t state;
    std::uint32_t elapsed;
    std::uint16_t onus;
    std::uint16_t llids;
    std::uint8_t report[OLT_RECOVERY_BUFFER_SIZE];
    const OLT_update_parameters changes = unchanged();
    for (const std::int16_t absent : {1, 3, 16, -1}) {
        EXPECT_EQ(NEP_reset_olt(absent), -1003);
        EXPECT_EQ(NEP_olt_host_recovery(absent, &state, &elapsed, &onus, &llids, report), -1003);
        EXPECT_EQ(NEP_update_olt_parameters(absent, &changes), -1003);
        EXPECT_EQ(NEP_get_olt_parameters(absent, &read), -1003);
        EXPECT_EQ(NEP_get_olt_versions(absent, &device, &firmware, &host), -1003);
        EXPECT_EQ(NEP_send_cli_command(absent, 1, "help\n"), -1003);
        EXPECT_EQ(Set_logging_configuration(8, 1, 1, absent), -1003);
        EXPECT_EQ(NEP_xaui_redundancy_enable(absent, 1), -1003);
        EXPECT_EQ(NEP_xaui_redundancy_set_params(absent, 0, 0), -1003);
        EXPECT_EQ(NEP_xaui_redundancy_get_params(absent, 0, &state), -1003);
        EXPECT_EQ(NEP_xaui_redundancy_switch_over(absent), -1003);
    }
}

// --- Parameters --------------------------------------------------------------------------------------------------

struct FieldCase {
    const char* name;
    std::int64_t good; // the journal shows it
    std::vector<std::int64_t> bad;
    void (*set)(OLT_update_parameters&, std::int64_t);
    std::int64_t (*get)(const OLT_update_parameters&);
};

#define FIELD(member)                                                                                                  \
    [](OLT_update_parameters& p, std::int64_t v) { p.member = static_cast<decltype(p.member)>(v); },                   \
        [](const OLT_update_parameters& p) -> std::int64_t { return p.member; }

const FieldCase field_cases[] = {
    {"min_rtt", 12500, {-2, 12501, 32767, 32768}, FIELD(min_rtt)}, // the highest round-trip time is 12500
    {"max_rtt", 65534, {-2, 65535}, FIELD(max_rtt)},
    {"max_rtt", 0, {-2}, FIELD(max_rtt)},
    {"grant_filtering", 0, {2, 0x100}, FIELD(grant_filtering)},
    {"vendor_specific_1g", 0x12345678, {}, FIELD(vendor_specific_1g)},
    {"vendor_specific_10g", -2, {}, FIELD(vendor_specific_10g)},
    {"oui_1g", 0xFFFFFF, {-2, 0x1000000}, FIELD(oui_1g)},
    {"oui_10g", 0, {-2, 0x1000000}, FIELD(oui_10g)},
    {"uart_baud_rate", 11, {-2, 12}, FIELD(uart_baud_rate)},
    {"llid_assignment", 2, {-2, 3}, FIELD(llid_assignment)},
    {"sled_strobe", 1, {2}, FIELD(sled_strobe)},
    {"sled_mute", 1, {2}, FIELD(sled_mute)},
    {"i2c_speed", 0x15, {-2, 0, 0x14, 0x5F}, FIELD(i2c_speed)},
};

TEST_F(OltTest, OneParameterIsSetAndTheOthersStay)
{
    for (const FieldCase& field : field_cases) {
        OLT_parameters before;
        ASSERT_EQ(NEP_get_olt_parameters(0, &before), 0);
        journal();
        OLT_update_parameters changes = unchanged();
        field.set(changes, field.good);
        EXPECT_EQ(NEP_update_olt_parameters(0, &changes), 0) << field.name;
        EXPECT_EQ(journal(), (Lines{std::string("NEP_update_olt_parameters(0, {") + field.name + "=" +
                                    std::to_string(field.good) + "}) = 0"}));
        OLT_parameters expected = before;
        field.set(expected.settings, field.good);
        OLT_parameters read;
        ASSERT_EQ(NEP_get_olt_parameters(0, &read), 0);
        EXPECT_EQ(field.get(read.settings), field.good) << field.name;
        EXPECT_EQ(std::memcmp(&read.settings, &expected.settings, sizeof(read.settings)), 0) << field.name;
        EXPECT_EQ(NEP_update_olt_parameters(0, &before.settings), 0) << "settings that were read can be written";
    }
}

TEST_F(OltTest, ParametersOutOfRangeAreRefusedAndNothingIsSet)
{
    OLT_parameters before;
    ASSERT_EQ(NEP_get_olt_parameters(0, &before), 0);
    for (const FieldCase& field : field_cases) {
        for (const std::int64_t bad : field.bad) {
            OLT_update_parameters changes = unchanged();
            changes.sled_mute = 1; // a good change beside the bad one
            field.set(changes, bad);
            EXPECT_EQ(NEP_update_olt_parameters(0, &changes), -4) << field.name << " " << bad;
            OLT_parameters read;
            ASSERT_EQ(NEP_get_olt_parameters(0, &read), 0);
            EXPECT_EQ(std::memcmp(&read.settings, &before.settings, sizeof(read.settings)), 0) << field.name;
        }
    }
}

TEST_F(OltTest, ReservedParametersMustStay)
{
    OLT_update_parameters changes = unchanged();
    changes.reserved_4 = 0;
    EXPECT_EQ(NEP_update_olt_parameters(0, &changes), -4);
    changes = unchanged();
    changes.reserved_7 = 5;
    EXPECT_EQ(NEP_update_olt_parameters(0, &changes), -4);
    changes = unchanged();
    EXPECT_EQ(NEP_update_olt_parameters(0, &changes), 0);
    EXPECT_EQ(NEP_update_olt_parameters(0, nullptr), -4);
    EXPECT_EQ(journal(), (Lines{"NEP_update_olt_parameters(0, {reserved_4=0}) = -4",
                                "NEP_update_olt_parameters(0, {reserved_7=5}) = -4",
                                "NEP_update_olt_parameters(0, {}) = 0", "NEP_update_olt_parameters(0, null) = -4"}));
}

TEST_F(OltTest, RoundTripTimesStayInOrder)
{
    OLT_update_parameters changes = unchanged();
    changes.min_rtt = 300;
    EXPECT_EQ(NEP_update_olt_parameters(0, &changes), 0);
    changes = unchanged();
    changes.max_rtt = 299;
    EXPECT_EQ(NEP_update_olt_parameters(0, &changes), -4);
    changes.min_rtt = 100;
    EXPECT_EQ(NEP_update_olt_parameters(0, &changes), 0);
}

TEST_F(OltTest, ParametersOfOltsAreTheirOwn)
{
    OLT_update_parameters changes = unchanged();
    changes.max_rtt = 777;
    ASSERT_EQ(NEP_update_olt_parameters(0, &changes), 0);
    OLT_parameters read;
    ASSERT_EQ(NEP_get_olt_parameters(2, &read), 0);
    EXPECT_EQ(read.settings.max_rtt, 12500);
    EXPECT_EQ(read.mac[5], 2);
}

// --- Versions ----------------------------------------------------------------------------------------------------

TEST_F(OltTest, VersionsComeFromTheScenario)
{
    OLT_device_versions device;
    OLT_version firmware;
    OLT_version host;
    EXPECT_EQ(NEP_get_olt_versions(0, &device, &firmware, &host), 0);
    EXPECT_STREQ(device.device_name, "CHIP");
    EXPECT_EQ(device.hardware_major, 4);
    EXPECT_EQ(device.hardware_minor, 11);
    EXPECT_EQ(device.llids_supported, 255);
    EXPECT_EQ(host.number[3], 65535);
    EXPECT_STREQ(Get_pon_mac_name(device.system_port_mac_type), "XAUI");
    EXPECT_STREQ(Get_pon_mac_name(0), "none");
    EXPECT_STREQ(Get_pon_mac_name(8), "10GBASE-R");
    EXPECT_STREQ(Get_pon_mac_name(9), "unknown");
    EXPECT_STREQ(Get_pon_mac_name(-1), "unknown");
    EXPECT_EQ(journal(),
              (Lines{"NEP_get_olt_versions(0) = 0 -> {device_name=\"CHIP\",hardware_major=4,hardware_minor=11,"
                     "llids_supported=255,system_port_mac_type=5}, {number=[1,2,3,4]}, {number=[5,6,7,65535]}",
                     "Get_pon_mac_name(5) = \"XAUI\"", "Get_pon_mac_name(0) = \"none\"",
                     "Get_pon_mac_name(8) = \"10GBASE-R\"", "Get_pon_mac_name(9) = \"unknown\"",
                     "Get_pon_mac_name(-1) = \"unknown\""}));
}

// --- Recovery ----------------------------------------------------------------------------------------------------

TEST_F(OltTest, RecoveryTellsWhatWasFound)
{
    std::int32_t state = -1;
    std::uint32_t elapsed = 0;
    std::uint16_t onus = 0;
    std::uint16_t llids = 0;
    std::uint8_t report[OLT_RECOVERY_BUFFER_SIZE];
    EXPECT_EQ(NEP_olt_host_recovery(0, &state, &elapsed, &onus, &llids, report), 0);
    EXPECT_EQ(state, RECOVERY_DONE);
    EXPECT_EQ(elapsed, 220U);
    EXPECT_EQ(onus, 4);
    EXPECT_EQ(llids, 4);
    EXPECT_STREQ(reinterpret_cast<char*>(report),
                 "OLT 0: 4 ONUs recovered in 220 ms\nONU 0: 02-00-00-01-00-00\nONU 1: 02-00-00-01-00-01\n"
                 "ONU 4: 02-00-00-01-00-04\nONU 254: 02-00-00-01-00-fe\n");
    EXPECT_NE(Olt_exists(0), 0);
}

TEST_F(OltTest, RecoveryMayFailWithoutACode)
{
    std::int32_t state = -1;
    std::uint32_t elapsed = 0;
    std::uint16_t onus = 9;
    std::uint16_t llids = 9;
    std::uint8_t report[OLT_RECOVERY_BUFFER_SIZE];
    EXPECT_EQ(NEP_olt_host_recovery(2, &state, &elapsed, &onus, &llids, report), 0);
    EXPECT_EQ(state, RECOVERY_FAILED);
    EXPECT_EQ(onus, 0);
    EXPECT_EQ(llids, 0);
    EXPECT_EQ(journal().back(), "NEP_olt_host_recovery(2) = 0 -> 3, 200, 0, 0, "
                                "\"OLT 2: the firmware does not tell its state\\n\"");
}

TEST_F(OltTest, RecoveryReportFitsItsBuffer)
{
    std::string error;
    ASSERT_TRUE(sdk_sim::load_scenario_text("[[olt]]\nid = 0\nmac = \"02-00-00-00-00-00\"\n"
                                            "[[olt.onu]]\nfirst = 0\ncount = 255\nmac = \"02-00-00-00-01-00\"\n",
                                            "full.toml", &error))
        << error;
    std::int32_t state;
    std::uint32_t elapsed;
    std::uint16_t onus;
    std::uint16_t llids;
    std::uint8_t report[OLT_RECOVERY_BUFFER_SIZE + 1];
    std::memset(report, 0xEE, sizeof(report));
    ASSERT_EQ(NEP_olt_host_recovery(0, &state, &elapsed, &onus, &llids, report), 0);
    EXPECT_EQ(onus, 255);
    EXPECT_EQ(report[OLT_RECOVERY_BUFFER_SIZE], 0xEE);
    const std::size_t length = std::strlen(reinterpret_cast<char*>(report));
    EXPECT_GT(length, OLT_RECOVERY_BUFFER_SIZE - 40U);
    EXPECT_LT(length, static_cast<std::size_t>(OLT_RECOVERY_BUFFER_SIZE));
    EXPECT_EQ(report[length - 1], '\n');
}

// --- Reset and adding --------------------------------------------------------------------------------------------

TEST_F(OltTest, ResetLosesTheOltAndItsOnus)
{
    watch_events();
    EXPECT_EQ(NEP_reset_olt(0), 0);
    EXPECT_EQ(Olt_exists(0), 0);
    EXPECT_EQ(NEP_reset_olt(0), -1003);
    EXPECT_EQ(take_events(), (Lines{"olt 0: onu 0 deregistered, reason 5", "olt 0: onu 1 deregistered, reason 5",
                                    "olt 0: onu 4 deregistered, reason 5", "olt 0: onu 254 deregistered, reason 5",
                                    "olt 0: state 0"}));
    sdk_sim::advance_clock(100000);
    EXPECT_EQ(take_events(), Lines{});
}

constexpr std::uint8_t NEW_MAC[6] = {0x02, 0xAA, 0xBB, 0xCC, 0xDD, 0xEE};
constexpr OLT_firmware_source FROM_FLASH{FIRMWARE_FROM_FLASH, nullptr, 0};

TEST_F(OltTest, AddedOltStartsAndItsOnusRegister)
{
    watch_events();
    EXPECT_EQ(NEP_add_olt(1, NEW_MAC, &FROM_FLASH), 0);
    EXPECT_EQ(journal(), (Lines{"NEP_add_olt(1, 02-aa-bb-cc-dd-ee, {location=0,image=null,size=0}) = 0"}));
    EXPECT_NE(Olt_exists(1), 0);
    OLT_parameters read;
    ASSERT_EQ(NEP_get_olt_parameters(1, &read), 0);
    EXPECT_EQ(std::memcmp(read.mac, NEW_MAC, 6), 0);
    EXPECT_EQ(take_events(), (Lines{"olt 1: state 1"}));
    sdk_sim::advance_clock(499);
    EXPECT_EQ(take_events(), Lines{});
    sdk_sim::advance_clock(1);
    EXPECT_EQ(take_events(), (Lines{"olt 1: state 2"}));
    sdk_sim::advance_clock(999);
    EXPECT_EQ(take_events(), Lines{});
    sdk_sim::advance_clock(1);
    EXPECT_EQ(take_events(), (Lines{"olt 1: onu 0 registered, rate 0, rtt 1000"}));
}

TEST_F(OltTest, ResetTakesSettingsBackAndOnusReturnInTheirModes)
{
    OLT_update_parameters changes = unchanged();
    changes.max_rtt = 777;
    ASSERT_EQ(NEP_update_olt_parameters(0, &changes), 0);
    ASSERT_EQ(NEP_xaui_redundancy_enable(0, 0), 0);
    ASSERT_EQ(NEP_reset_olt(0), 0);
    ASSERT_EQ(NEP_add_olt(0, NEW_MAC, &FROM_FLASH), 0);
    sdk_sim::advance_clock(2000);
    OLT_parameters read;
    ASSERT_EQ(NEP_get_olt_parameters(0, &read), 0);
    EXPECT_EQ(read.settings.max_rtt, 12500);
    EXPECT_EQ(NEP_xaui_redundancy_switch_over(0), 0) << "the scenario has the redundancy on";
    std::uint8_t warned;
    const std::int32_t modes[] = {201, 203, 200, 200, 201, 202};
    for (std::int16_t onu = 0; onu < 6; ++onu)
        EXPECT_EQ(NEP_get_onu_mode_extended(0, onu, &warned), modes[onu]) << onu;
}

TEST_F(OltTest, AnOltResetWhileItStartsStaysAway)
{
    watch_events();
    ASSERT_EQ(NEP_add_olt(1, NEW_MAC, &FROM_FLASH), 0);
    ASSERT_EQ(NEP_reset_olt(1), 0);
    ASSERT_EQ(NEP_add_olt(1, NEW_MAC, &FROM_FLASH), 0);
    sdk_sim::advance_clock(10000);
    EXPECT_EQ(take_events(), (Lines{"olt 1: state 1", "olt 1: state 0", "olt 1: state 1", "olt 1: state 2",
                                    "olt 1: onu 0 registered, rate 0, rtt 1000"}));
}

TEST_F(OltTest, AddingIsRefusedWithoutAPlaceAnAddressOrAnImage)
{
    constexpr std::uint8_t group_mac[6] = {0x03, 0, 0, 0, 0, 1};
    constexpr std::uint8_t no_mac[6] = {};
    constexpr std::uint8_t image[] = {1, 2, 3, 4, 5, 6, 7, 8, 9};
    char empty_file[] = "/tmp/empty_image_XXXXXX";
    close(mkstemp(empty_file));
    char image_file[] = "/tmp/image_XXXXXX";
    const int file = mkstemp(image_file);
    ASSERT_EQ(write(file, image, sizeof(image)), static_cast<ssize_t>(sizeof(image)));
    close(file);

    struct Case {
        std::int16_t olt_id;
        const std::uint8_t* mac;
        OLT_firmware_source source;
        std::int16_t code;
    };
    const Case cases[] = {
        {0, NEW_MAC, FROM_FLASH, -4},  // present
        {16, NEW_MAC, FROM_FLASH, -4}, // no such index
        {-1, NEW_MAC, FROM_FLASH, -4},
        {3, NEW_MAC, FROM_FLASH, -5}, // nothing there
        {1, group_mac, FROM_FLASH, -4},
        {1, no_mac, FROM_FLASH, -4},
        {1, nullptr, FROM_FLASH, -4},
        {1, NEW_MAC, {3, nullptr, 0}, -4},
        {1, NEW_MAC, {-1, nullptr, 0}, -4},
        {1, NEW_MAC, {FIRMWARE_FROM_FILE, nullptr, 0}, -4},
        {1, NEW_MAC, {FIRMWARE_FROM_FILE, "/nowhere/image", 0}, -4},
        {1, NEW_MAC, {FIRMWARE_FROM_FILE, "/tmp", 0}, -4},
        {1, NEW_MAC, {FIRMWARE_FROM_FILE, empty_file, 0}, -4},
        {1, NEW_MAC, {FIRMWARE_FROM_MEMORY, nullptr, 9}, -4},
        {1, NEW_MAC, {FIRMWARE_FROM_MEMORY, image, 0}, -4},
        {1, NEW_MAC, {FIRMWARE_FROM_MEMORY, image, sizeof(image)}, 0},
    };
    for (const Case& test : cases) {
        EXPECT_EQ(NEP_add_olt(test.olt_id, test.mac, &test.source), test.code);
        if (test.code != 0) {
            EXPECT_EQ(Olt_exists(1), 0);
        }
    }
    EXPECT_EQ(NEP_add_olt(1, NEW_MAC, nullptr), -4);
    ASSERT_EQ(NEP_reset_olt(1), 0);
    journal();
    const OLT_firmware_source from_file{FIRMWARE_FROM_FILE, image_file, 0};
    EXPECT_EQ(NEP_add_olt(1, NEW_MAC, &from_file), 0);
    ASSERT_EQ(NEP_reset_olt(1), 0);
    const OLT_firmware_source from_memory{FIRMWARE_FROM_MEMORY, image, sizeof(image)};
    EXPECT_EQ(NEP_add_olt(1, NEW_MAC, &from_memory), 0);
    EXPECT_EQ(
        journal(),
        (Lines{std::string("NEP_add_olt(1, 02-aa-bb-cc-dd-ee, {location=1,image=\"") + image_file + "\",size=0}) = 0",
               "NEP_reset_olt(1) = 0",
               "NEP_add_olt(1, 02-aa-bb-cc-dd-ee, {location=2,image=0102030405060708..,size=9}) = 0"}));
    unlink(empty_file);
    unlink(image_file);
}

// --- Power -------------------------------------------------------------------------------------------------------

TEST_F(OltTest, PowerFailureAndReturnKeepTheSettings)
{
    watch_events();
    OLT_update_parameters changes = unchanged();
    changes.max_rtt = 777;
    ASSERT_EQ(NEP_update_olt_parameters(0, &changes), 0);
    EXPECT_FALSE(sdk_sim::return_olt(0)) << "it is there";
    EXPECT_TRUE(sdk_sim::remove_olt(0));
    EXPECT_FALSE(sdk_sim::remove_olt(0));
    EXPECT_EQ(Olt_exists(0), 0);
    EXPECT_EQ(NEP_add_olt(0, NEW_MAC, &FROM_FLASH), -5) << "an OLT without power cannot be added";
    EXPECT_EQ(take_events().size(), 5U);
    EXPECT_TRUE(sdk_sim::return_olt(0));
    EXPECT_NE(Olt_exists(0), 0);
    sdk_sim::advance_clock(5000);
    EXPECT_EQ(take_events(),
              (Lines{"olt 0: state 1", "olt 0: state 2", "olt 0: onu 0 registered, rate 0, rtt 1234",
                     "olt 0: onu 1 registered, rate 2, rtt 1000", "olt 0: onu 4 registered, rate 1, rtt 1000",
                     "olt 0: onu 254 registered, rate 0, rtt 1000"}));
    OLT_parameters read;
    ASSERT_EQ(NEP_get_olt_parameters(0, &read), 0);
    EXPECT_EQ(read.settings.max_rtt, 777);
}

TEST_F(OltTest, OnlyKnownOltsReturn)
{
    for (const std::int16_t unknown : {3, 15, 16, -1})
        EXPECT_FALSE(sdk_sim::return_olt(unknown)) << unknown;
    for (const std::int16_t absent : {1, 3, 16, -1})
        EXPECT_FALSE(sdk_sim::remove_olt(absent)) << absent;
    EXPECT_TRUE(sdk_sim::return_olt(1));
    EXPECT_NE(Olt_exists(1), 0);
}

} // namespace
