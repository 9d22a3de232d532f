// SPDX-License-Identifier: Apache-2.0
#include "REMOTE_MANAGEMENT_CLI/mpcp.h"

#include "managed_onus_fixture.h"

namespace {

using RemoteMpcp = ManagedOnus;

TEST_F(RemoteMpcp, ReportFormat)
{
    Show show = remote_show("oam-api mpcp-report-format");
    show.has_mac_form = false;
    expect_show(show, "report_format: normal \r\n", "REMOTE_NEPONU_MPCP_get_report_format(0, 5) = 0 -> 0");
    expect_set("remote oam-api mpcp-report-format report-format ctc",
               "REMOTE_NEPONU_MPCP_set_report_format(0, 5, 1) = 0");
    expect_show(show, "report_format: ctc \r\n", "REMOTE_NEPONU_MPCP_get_report_format(0, 5) = 0 -> 1");
    expect_set("remote oam-api mpcp-report-format report-format normal",
               "REMOTE_NEPONU_MPCP_set_report_format(0, 5, 0) = 0");
}

TEST_F(RemoteMpcp, StandardMode)
{
    Show show = remote_show("oam-api mpcp-standard-mode");
    show.has_mac_form = false;
    expect_show(show, "standard_mode: standard \r\n", "REMOTE_NEPONU_MPCP_get_standard_mode(0, 5) = 0 -> 1");
    expect_refusal("remote oam-api mpcp-standard-mode standard-mode legacy", "bad configuration", -13008); // 10G
    enter_onu(254);
    expect_set("remote oam-api mpcp-standard-mode standard-mode legacy",
               "REMOTE_NEPONU_MPCP_set_standard_mode(0, 254, 0) = 0");
    EXPECT_EQ(type("show remote oam-api mpcp-standard-mode"), "standard_mode: legacy \r\n");
    journal();
    expect_set("remote oam-api mpcp-standard-mode standard-mode standard",
               "REMOTE_NEPONU_MPCP_set_standard_mode(0, 254, 1) = 0");
}

TEST_F(RemoteMpcp, NoFormWithAnAddress)
{
    for (const char* object : {"mpcp-report-format", "mpcp-standard-mode"}) {
        type(std::string("show onu remote oam-api ") + object + " 0 onu-mac-address 02-00-00-00-00-05");
        EXPECT_EQ(status, engine::MatchStatus::Unknown) << object;
    }
}

TEST_F(RemoteMpcp, Refusals)
{
    enter_onu(5);
    expect_keyword(remote_MPCP_report_format, {"?"}, "report_format", "mpcp_format", 10);
    expect_keyword(remote_MPCP_standard_mode, {"?"}, "standard_mode", "standard_mode", 10);
    expect_remote_failures("show remote oam-api mpcp-report-format", "REMOTE_NEPONU_MPCP_get_report_format");
    expect_remote_failures("remote oam-api mpcp-report-format report-format normal",
                           "REMOTE_NEPONU_MPCP_set_report_format");
    expect_remote_failures("show remote oam-api mpcp-standard-mode", "REMOTE_NEPONU_MPCP_get_standard_mode");
    expect_remote_failures("remote oam-api mpcp-standard-mode standard-mode standard",
                           "REMOTE_NEPONU_MPCP_set_standard_mode");
}

} // namespace
