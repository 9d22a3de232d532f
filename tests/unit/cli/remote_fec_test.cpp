// SPDX-License-Identifier: Apache-2.0
#include "REMOTE_MANAGEMENT_CLI/fec.h"

#include "managed_onus_fixture.h"

namespace {

using RemoteFec = ManagedOnus;

constexpr const char* GET = "REMOTE_NEPONU_get_forward_error_correction_configuration";
constexpr const char* SET = "REMOTE_NEPONU_set_forward_error_correction_configuration";

std::string fec_lines(const char* rx_auto, const char* rx, const char* tx)
{
    return std::string("fec_rx_auto: ") + rx_auto + " \r\nfec_rx_enable: " + rx + " \r\nfec_tx_enable: " + tx + " \r\n";
}

TEST_F(RemoteFec, ShownInAllForms)
{
    expect_show(remote_show("mac fec-configuration"), fec_lines("Enable", "Enable", "Enable"),
                std::string(GET) + "(0, 5) = 0 -> 1, 1, 1");
}

TEST_F(RemoteFec, ShownAsSetOnA1gLink)
{
    enter_onu(254);
    EXPECT_EQ(type("show remote mac fec-configuration"), fec_lines("Enable", "Disable", "Disable"));
    journal();
    expect_set("remote mac fec-configuration fec-rx-auto disable fec-rx enable fec-tx disable",
               std::string(SET) + "(0, 254, 0, 1, 0) = 0");
    EXPECT_EQ(type("show remote mac fec-configuration"), fec_lines("Disable", "Enable", "Disable"));
    journal();
    expect_set("remote mac fec-configuration fec-rx-auto disable fec-rx disable fec-tx enable",
               std::string(SET) + "(0, 254, 0, 0, 1) = 0");
    EXPECT_EQ(type("show remote mac fec-configuration"), fec_lines("Disable", "Disable", "Enable"));
}

TEST_F(RemoteFec, OnuFindsOutWhatTheOltSends)
{
    enter_onu(254);
    EXPECT_EQ(NEP_set_llid_fec_mode(0, 254, LLID_FEC_DOWNLINK), 0);
    EXPECT_EQ(type("show remote mac fec-configuration"), fec_lines("Enable", "Enable", "Disable"));
    EXPECT_EQ(NEP_set_llid_fec_mode(0, 254, LLID_FEC_OFF), 0);
    EXPECT_EQ(type("show remote mac fec-configuration"), fec_lines("Enable", "Disable", "Disable"));
}

TEST_F(RemoteFec, A10gDirectionIsAlwaysCorrected)
{
    enter_onu(5);
    expect_refusal("remote mac fec-configuration fec-rx-auto disable fec-rx disable fec-tx enable", "bad configuration",
                   -13008);
    expect_refusal("remote mac fec-configuration fec-rx-auto disable fec-rx enable fec-tx disable", "bad configuration",
                   -13008);
    expect_set("remote mac fec-configuration fec-rx-auto disable fec-rx enable fec-tx enable",
               std::string(SET) + "(0, 5, 0, 1, 1) = 0");
}

TEST_F(RemoteFec, Refusals)
{
    enter_onu(5);
    expect_keyword(remote_fec_configuration, {"?", "enable", "enable"}, "fec_rx_auto", "enable_disable", 10);
    expect_keyword(remote_fec_configuration, {"enable", "?", "enable"}, "fec_rx_enable", "enable_disable", 10);
    expect_keyword(remote_fec_configuration, {"enable", "enable", "?"}, "fec_tx_enable", "enable_disable", 10);
    expect_remote_failures("show remote mac fec-configuration", GET);
    expect_remote_failures("remote mac fec-configuration fec-rx-auto enable fec-rx enable fec-tx enable", SET);
}

} // namespace
