// SPDX-License-Identifier: Apache-2.0
// The bandwidth allocation that an OLT runs: stopping it, and how ONUs report what they have to send.
#include "olt/dba_control.h"

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"

using namespace epon;

namespace {

constexpr Word report_format_words[] = {{"standard", DBA_REPORT_STANDARD}, {"threshold", DBA_REPORT_THRESHOLD}};
constexpr WordTable report_format = {"dba_report_format", report_format_words};

constexpr int NO_DBA = 0; // an index of CLI_dba_s

} // namespace

int dba_stop(cmd_element*, vty* session, int, char**)
{
    const int16_t code = NEP_stop_dba_algorithm(session->olt_id);
    if (code == 0) CLI_set_olt_dba_mode(session->olt_id, NO_DBA);
    return report(session, code);
}

int dba_stop_external(cmd_element*, vty* session, int, char**)
{
    return report(session, NEP_stop_external_dba_algorithm(session->olt_id));
}

int set_dba_report_format(cmd_element*, vty* session, int, char** argv)
{
    int32_t format;
    if (!read_word(session, argv[0], "format_mode", report_format, &format)) return -1;
    return report(session, NEP_set_dba_report_format(session->olt_id, format));
}

static constinit cmd_element dba_stop_cmd = command("dba stop", dba_stop,
                                                    "Dynamic bandwidth allocation on this OLT's PON\n"
                                                    "Stop the allocation that runs; no link is granted any more\n");

static constinit cmd_element dba_stop_external_cmd =
    command("dba stop-external", dba_stop_external,
            "Dynamic bandwidth allocation on this OLT's PON\n"
            "Stop an allocation that runs outside the OLT; the OLT's own is left alone\n");

static constinit cmd_element set_dba_report_format_cmd =
    command("dba report-format format-mode (standard|threshold)", set_dba_report_format,
            "Dynamic bandwidth allocation on this OLT's PON\n"
            "How ONUs report what waits in their queues\n"
            "Format of the reports\n"
            "standard: the whole length of each queue; threshold: whole frames up to the thresholds of its queue "
            "sets\n");

namespace epon {

void install_dba_control()
{
    install({{&dba_stop_external_cmd, in(OLT_PON_NODE)},
             {&dba_stop_cmd, in(OLT_PON_NODE)},
             {&set_dba_report_format_cmd, in(OLT_PON_NODE)}});
}

} // namespace epon
