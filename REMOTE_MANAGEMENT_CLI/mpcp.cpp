// SPDX-License-Identifier: Apache-2.0
// How an ONU speaks MPCP: the format of its reports, and messages of the standard or from before it.
#include "REMOTE_MANAGEMENT_CLI/mpcp.h"

#include "CLI_GENERAL/onu_show.h"
#include "REMOTE_MANAGEMENT_CLI/onu_report.h"

using namespace epon;

namespace {

constexpr Word format_words[] = {{"normal", REMOTE_REPORT_NORMAL}, {"ctc", REMOTE_REPORT_CTC}};
constexpr WordTable formats = {"mpcp_format", format_words, room_for(format_words)};
constexpr Field format_fields[] = {{"report_format", FieldFormat::Int32Word, 0, &formats}};

constexpr Word mode_words[] = {{"legacy", REMOTE_MPCP_LEGACY}, {"standard", REMOTE_MPCP_STANDARD}};
constexpr WordTable modes = {"standard_mode", mode_words, room_for(mode_words)};
constexpr Field mode_fields[] = {{"standard_mode", FieldFormat::Int32Word, 0, &modes}};

} // namespace

int show_remote_MPCP_report_format(cmd_element*, vty* session, int argc, char** argv)
{
    return show_remote(session, argc, argv, REMOTE_NEPONU_MPCP_get_report_format, format_fields);
}

int remote_MPCP_report_format(cmd_element*, vty* session, int, char** argv)
{
    return set_remote_word(session, argv[0], "report_format", formats, REMOTE_NEPONU_MPCP_set_report_format);
}

int show_remote_MPCP_standard_mode(cmd_element*, vty* session, int argc, char** argv)
{
    return show_remote(session, argc, argv, REMOTE_NEPONU_MPCP_get_standard_mode, mode_fields);
}

int remote_MPCP_standard_mode(cmd_element*, vty* session, int, char** argv)
{
    return set_remote_word(session, argv[0], "standard_mode", modes, REMOTE_NEPONU_MPCP_set_standard_mode);
}

static constinit OnuShow show_remote_MPCP_report_format_cmd =
    remote_show_by_index<"oam-api mpcp-report-format", "OAM of the ONU\n"
                                                       "Format of the reports of what waits in its queues\n">(
        show_remote_MPCP_report_format);

static constinit cmd_element remote_MPCP_report_format_cmd =
    command("remote oam-api mpcp-report-format report-format (normal|ctc)", remote_MPCP_report_format,
            "Remote management: the ONU is asked by OAM\n"
            "OAM of the ONU\n"
            "Format of the reports of what waits in its queues\n"
            "The new format\n"
            "normal: one queue set; ctc: queue sets with thresholds, by the CTC extension\n");

static constinit OnuShow show_remote_MPCP_standard_mode_cmd =
    remote_show_by_index<"oam-api mpcp-standard-mode", "OAM of the ONU\n"
                                                       "Whether its MPCP messages are those of the standard\n">(
        show_remote_MPCP_standard_mode);

static constinit cmd_element remote_MPCP_standard_mode_cmd =
    command("remote oam-api mpcp-standard-mode standard-mode (legacy|standard)", remote_MPCP_standard_mode,
            "Remote management: the ONU is asked by OAM\n"
            "OAM of the ONU\n"
            "Whether its MPCP messages are those of the standard\n"
            "The new mode\n"
            "legacy: as they were before the standard, on 1G links; standard: as it has them\n");

namespace epon {

void install_remote_mpcp()
{
    install({&show_remote_MPCP_report_format_cmd, &show_remote_MPCP_standard_mode_cmd});
    install({{&remote_MPCP_report_format_cmd, in(ONU_NODE)}, {&remote_MPCP_standard_mode_cmd, in(ONU_NODE)}});
}

} // namespace epon
