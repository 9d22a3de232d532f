// SPDX-License-Identifier: Apache-2.0
#include "REMOTE_MANAGEMENT_CLI/oam_api.h"

#include "onu_devices_fixture.h"

namespace {

using RemoteOamApi = OnuDevices;

TEST_F(RemoteOamApi, FrameLength)
{
    expect_show(remote_show("oam-api oam-frame-length-negotiation"), "oam_frame_length: 338 \r\n",
                "REMOTE_NEPONU_get_oam_frame_length_negotiation(0, 5) = 0 -> 338");
}

TEST_F(RemoteOamApi, Version)
{
    expect_show(remote_show("oam-api oam-version"), "version: draft \r\n",
                "REMOTE_NEPONU_get_oam_version(0, 5) = 0 -> 0");
    enter_onu(254);
    EXPECT_EQ(type("show remote oam-api oam-version"), "version: standard \r\n");
}

TEST_F(RemoteOamApi, VendorInformation)
{
    const Show show = remote_show("oam-api oam-vendor-information");
    expect_show(show, "data: 0 \r\n", "REMOTE_NEPONU_get_oam_vendor_information(0, 5) = 0 -> 0");
    const std::pair<const char*, const char*> values[] = {
        {"0xffffffff", "4294967295"}, {"0x12ab", "4779"}, {"2147483647", "2147483647"}, {"0x0", "0"}};
    for (const auto& [typed, value] : values) {
        const std::string text = value;
        expect_set(std::string("remote oam-api oam-vendor-information data ") + typed,
                   "REMOTE_NEPONU_set_oam_vendor_information(0, 5, " + text + ") = 0");
        expect_show(show, "data: " + text + " \r\n", "REMOTE_NEPONU_get_oam_vendor_information(0, 5) = 0 -> " + text);
    }
    type("remote oam-api oam-vendor-information data 0x100000000");
    EXPECT_EQ(status, engine::MatchStatus::Unknown);
    const std::string reading = "Error reading data parameter for command from input, aborting\r\n";
    expect_refusals({{remote_oam_vendor_information, {"0x100000000"}, reading},
                     {remote_oam_vendor_information, {"12k"}, reading},
                     {remote_oam_vendor_information, {""}, reading},
                     {remote_oam_vendor_information,
                      {"-1"},
                      "Error reading negative value of data parameter from input, aborting\r\n"}});
}

TEST_F(RemoteOamApi, SlowProtocolLimit)
{
    const Show show = remote_show("oam-api slow-protocol-limit");
    expect_show(show, "slow_protocol_limit: Enable \r\n", "REMOTE_NEPONU_get_slow_protocol_limit(0, 5) = 0 -> 1");
    expect_set("remote oam-api slow-protocol-limit protocol disable",
               "REMOTE_NEPONU_set_slow_protocol_limit(0, 5, 0) = 0");
    expect_show(show, "slow_protocol_limit: Disable \r\n", "REMOTE_NEPONU_get_slow_protocol_limit(0, 5) = 0 -> 0");
    expect_set("remote oam-api slow-protocol-limit protocol enable",
               "REMOTE_NEPONU_set_slow_protocol_limit(0, 5, 1) = 0");
    expect_show(show, "slow_protocol_limit: Enable \r\n", "REMOTE_NEPONU_get_slow_protocol_limit(0, 5) = 0 -> 1");
    expect_keyword(remote_slow_protocol_limit, {"?"}, "protocol", "enable_disable", 10);
    EXPECT_EQ(REMOTE_NEPONU_set_slow_protocol_limit(0, 5, 2), -4);
}

TEST_F(RemoteOamApi, DyingGaspTimes)
{
    const Show show = remote_show("oam-api oam-dying-gasp-times");
    expect_show(show, "times: 3 \r\n", "REMOTE_NEPONU_get_oam_dying_gasp_times(0, 5) = 0 -> 3");
    for (const std::string times : {"0", "10"}) {
        expect_set("remote oam-api oam-dying-gasp-times times " + times,
                   "REMOTE_NEPONU_set_oam_dying_gasp_times(0, 5, " + times + ") = 0");
        expect_show(show, "times: " + times + " \r\n", "REMOTE_NEPONU_get_oam_dying_gasp_times(0, 5) = 0 -> " + times);
    }
    type("remote oam-api oam-dying-gasp-times times 11");
    EXPECT_EQ(status, engine::MatchStatus::Unknown);
    expect_refusals(
        {{remote_oam_dying_gasp_times,
          {"11"},
          "Error in range of times parameter for command from input min:0 max:10, aborting\r\n"},
         {remote_oam_dying_gasp_times, {"x"}, "Error reading times parameter for command from input, aborting\r\n"},
         {remote_oam_dying_gasp_times,
          {"-1"},
          "Error reading negative value of times parameter from input, aborting\r\n"}});
    EXPECT_EQ(REMOTE_NEPONU_set_oam_dying_gasp_times(0, 5, 11), -4);
}

TEST_F(RemoteOamApi, SettingsOfAllOnusAtOnce)
{
    EXPECT_EQ(REMOTE_NEPONU_set_oam_vendor_information(0, 4095, 7), 0);
    uint32_t data = 0;
    EXPECT_EQ(REMOTE_NEPONU_get_oam_vendor_information(0, 5, &data), 0);
    EXPECT_EQ(data, 7u);
    EXPECT_EQ(REMOTE_NEPONU_get_oam_vendor_information(0, 254, &data), 0);
    EXPECT_EQ(data, 7u);
    EXPECT_EQ(REMOTE_NEPONU_get_oam_vendor_information(0, 4095, &data), -13015); // a question needs one ONU
}

TEST_F(RemoteOamApi, FailedCalls)
{
    const std::pair<const char*, const char*> commands[] = {
        {"show remote oam-api oam-frame-length-negotiation", "REMOTE_NEPONU_get_oam_frame_length_negotiation"},
        {"show remote oam-api oam-vendor-information", "REMOTE_NEPONU_get_oam_vendor_information"},
        {"remote oam-api oam-vendor-information data 0x1", "REMOTE_NEPONU_set_oam_vendor_information"},
        {"show remote oam-api slow-protocol-limit", "REMOTE_NEPONU_get_slow_protocol_limit"},
        {"remote oam-api slow-protocol-limit protocol enable", "REMOTE_NEPONU_set_slow_protocol_limit"},
        {"show remote oam-api oam-version", "REMOTE_NEPONU_get_oam_version"},
        {"show remote oam-api oam-dying-gasp-times", "REMOTE_NEPONU_get_oam_dying_gasp_times"},
        {"remote oam-api oam-dying-gasp-times times 1", "REMOTE_NEPONU_set_oam_dying_gasp_times"},
    };
    for (const auto& [line, operation] : commands)
        expect_remote_failures(line, operation);
}

} // namespace
