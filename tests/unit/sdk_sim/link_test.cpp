// SPDX-License-Identifier: Apache-2.0
// What the operations on links and ONUs refuse, beyond what a console can ask for.
#include "network_fixture.h"

namespace {

using LinkTest = NetworkTest;

TEST_F(LinkTest, ErrorCorrection)
{
    std::int32_t mode = -1;
    EXPECT_EQ(NEP_set_llid_fec_mode(0, 0, LLID_FEC_UPLINK_DOWNLINK), 0);
    EXPECT_EQ(NEP_get_llid_fec_mode(0, 0, &mode), 0);
    EXPECT_EQ(mode, LLID_FEC_UPLINK_DOWNLINK);
    for (const std::int32_t bad : {-1, 3})
        EXPECT_EQ(NEP_set_llid_fec_mode(0, 0, bad), -4);
    EXPECT_EQ(NEP_set_llid_fec_mode(0, 4095, LLID_FEC_OFF), -1007);
    EXPECT_EQ(NEP_get_llid_fec_mode(0, 0, nullptr), -4);
    EXPECT_EQ(NEP_get_llid_fec_mode(2, 4095, &mode), 0); // an OLT without links
    EXPECT_EQ(mode, LLID_FEC_OFF);
}

TEST_F(LinkTest, Authorization)
{
    for (const std::int32_t bad : {-1, 2})
        EXPECT_EQ(NEP_authorize_onu(0, 0, bad), -4);
    EXPECT_EQ(NEP_authorize_onu(0, 1, 1), 0);
    EXPECT_EQ(NEP_get_onu_mode_extended(0, 1, nullptr), ONU_MODE_REGISTERED);
    LLID_parameters parameters;
    EXPECT_EQ(NEP_get_llid_parameters(0, 1, &parameters), 0);
    EXPECT_EQ(parameters.authorized, 1);
    EXPECT_EQ(parameters.rate, 2);
    EXPECT_EQ(parameters.fec, LLID_FEC_UPLINK_DOWNLINK);
    EXPECT_EQ(NEP_get_llid_parameters(0, 2, &parameters), -1007);
    EXPECT_EQ(NEP_get_llid_parameters(0, 1, nullptr), -4);
    EXPECT_EQ(NEP_get_onu_mode(0, 0, nullptr), -4);
}

TEST_F(LinkTest, Encryption)
{
    for (const std::int32_t bad : {-1, 0, 3})
        EXPECT_EQ(NEP_start_encryption(0, 0, bad), -4);
    std::uint8_t key[LLID_ENCRYPTION_KEY_SIZE];
    std::uint8_t later[LLID_ENCRYPTION_KEY_SIZE];
    EXPECT_EQ(NEP_start_encryption(0, 0, LLID_ENCRYPTION_DOWNLINK), 0);
    EXPECT_EQ(NEP_get_encryption_key(0, 0, key), 0);
    EXPECT_EQ(NEP_update_encryption_key(0, 0, nullptr), -4);
    EXPECT_EQ(NEP_get_encryption_key(0, 0, nullptr), -4);
    EXPECT_EQ(NEP_stop_encryption(0, 0), 0);
    EXPECT_EQ(NEP_start_encryption(0, 0, LLID_ENCRYPTION_DOWNLINK), 0);
    EXPECT_EQ(NEP_get_encryption_key(0, 0, later), 0);
    EXPECT_NE(std::string(key, key + sizeof key), std::string(later, later + sizeof later));
}

TEST_F(LinkTest, LinkTestRanges)
{
    struct Case {
        std::int32_t frames, size, delays, vlan, priority, tag;
    };
    const Case refused[] = {
        {-1, 64, 0, 0, 0, 0},    {32768, 64, 0, 0, 0, 0}, {1, 55, 0, 0, 0, 0},  {1, 1515, 0, 0, 0, 0},
        {32767, 59, 0, 0, 0, 0}, {0, 64, 0, 0, 0, 0},     {1, 64, 2, 0, 0, 0},  {1, 64, -1, 0, 0, 0},
        {1, 64, 0, 2, 0, 0},     {1, 64, 0, 0, 1, 0},     {1, 64, 0, 0, 0, 1},  {1, 64, 0, 1, 8, 0},
        {1, 64, 0, 1, -1, 0},    {1, 64, 0, 1, 0, 4095},  {1, 64, 0, 1, 0, -1},
    };
    for (const Case& test : refused) {
        EXPECT_EQ(NEP_link_test(0, 0, test.frames, test.size, test.delays, test.vlan, test.priority, test.tag), -4)
            << test.frames << " " << test.size;
    }
    EXPECT_EQ(NEP_link_test(0, 0, 1, 56, 0, 1, 7, 4094), 0);
}

TEST_F(LinkTest, OamFrames)
{
    for (const std::int32_t bad : {-10, 5, 15, 201, 210})
        EXPECT_EQ(NEP_set_oam_frame_rate(0, 0, bad), -4);
    EXPECT_EQ(NEP_get_oam_frame_rate(0, 0, nullptr), -4);
    EXPECT_EQ(NEP_send_oam(0, 0, nullptr, 64), -4);
    EXPECT_EQ(journal().back(), "NEP_send_oam(0, 0, null, 64) = -4");
}

TEST_F(LinkTest, Loopbacks)
{
    struct Case {
        std::int32_t loopback, state, timeout, speed;
    };
    const Case refused[] = {{-1, 1, 0, 0},     {2, 1, 0, 0},  {0, 2, 0, 0},     {0, -1, 0, 0},
                            {0, 1, 1, 0},      {0, 1, 0, 10}, {1, 0, 1, 0},     {1, 1, 0, 10},
                            {1, 1, 65536, 10}, {1, 1, 1, 11}, {1, 1, 1, 10000}, {1, 1, 1, -1}};
    for (const Case& test : refused)
        EXPECT_EQ(NEP_TESTING_set_onu_test_mode(0, 0, test.loopback, test.state, test.timeout, test.speed), -4);
    for (const std::int32_t bad : {-1, 2})
        EXPECT_EQ(NEP_set_standard_onu_loopback(0, 0, bad), -4);
    EXPECT_EQ(NEP_get_standard_onu_loopback(0, 0, nullptr), -4);
    EXPECT_EQ(NEP_set_standard_onu_loopback(0, 0, 1), 0);
    EXPECT_EQ(NEP_set_standard_onu_loopback(0, 0, 1), 0); // closed already
}

TEST_F(LinkTest, FirmwareAndCommandLine)
{
    const std::uint8_t image[1] = {};
    EXPECT_EQ(NEP_download_onu_firmware(0, 0, nullptr, 1), -4);
    EXPECT_EQ(NEP_download_onu_firmware(0, 0, image, 0), -4);
    EXPECT_EQ(NEP_send_onu_cli_command(0, 0, 1, nullptr), -4);
    EXPECT_EQ(NEP_send_onu_cli_command(0, 0, 2, "help"), -4);
    EXPECT_EQ(NEP_send_onu_cli_command(0, 0, -1, "help"), -4);
    EXPECT_EQ(NEP_send_onu_cli_command(0, 0, 1, std::string(1025, 'x').c_str()), -4);
    EXPECT_EQ(NEP_send_onu_cli_command(0, 0, 0, std::string(1024, 'x').c_str()), 0);
}

// What was set on a link is gone when its ONU leaves.
TEST_F(LinkTest, LeavingTakesSettingsAway)
{
    const std::uint8_t image[1] = {};
    std::int32_t value = -1;
    EXPECT_EQ(NEP_set_llid_fec_mode(0, 0, LLID_FEC_DOWNLINK), 0);
    EXPECT_EQ(NEP_set_oam_frame_rate(0, 0, 50), 0);
    EXPECT_EQ(NEP_link_test(0, 0, 32767, 64, 0, 0, 0, 0), 0);
    EXPECT_EQ(NEP_download_onu_firmware(0, 0, image, 1), 0);
    sdk_sim::advance_clock(10000);
    ASSERT_TRUE(sdk_sim::remove_olt(0));
    ASSERT_TRUE(sdk_sim::return_olt(0));
    sdk_sim::advance_clock(10000);
    EXPECT_EQ(NEP_get_llid_fec_mode(0, 0, &value), 0);
    EXPECT_EQ(value, LLID_FEC_OFF);
    EXPECT_EQ(NEP_get_oam_frame_rate(0, 0, &value), 0);
    EXPECT_EQ(value, OAM_FRAME_RATE_UNLIMITED);
    EXPECT_EQ(NEP_link_test(0, 0, 0, 0, 0, 0, 0, 0), -1); // no test runs
}

} // namespace
