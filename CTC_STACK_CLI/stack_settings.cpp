// SPDX-License-Identifier: Apache-2.0
// Settings of the CTC stack that hold for all OLTs: version, OUI, and how long it waits for ONUs.
#include "CTC_STACK_CLI/stack_settings.h"

#include <cinttypes>

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CTC_STACK_CLI/onu_report.h"

using namespace epon;

namespace {

constexpr int32_t OUI_LIMIT = 0xFFFFFF;

} // namespace

int ctc_version(cmd_element*, vty* session, int, char** argv)
{
    uint8_t version;
    if (!read_number(session, argv[0], unsigned_range("version_value", 0, 255), &version)) return -1;
    return report_ctc(session, CTC_STACK_set_version(version));
}

int show_ctc_version(cmd_element*, vty* session, int, char**)
{
    uint8_t version;
    const int16_t code = CTC_STACK_get_version(&version);
    if (code != 0) return report_ctc(session, code);
    RBX_vty_out(session, "%s: %hu %s", "version", static_cast<uint16_t>(version), VTY_NEWLINE(session));
    return 0;
}

int ctc_oui(cmd_element*, vty* session, int, char** argv)
{
    uint32_t oui;
    if (!read_number(session, argv[0], unsigned_range("OUI_NUMBER", 0, OUI_LIMIT), &oui)) return -1;
    return report_ctc(session, CTC_STACK_set_oui(oui));
}

int show_ctc_oui(cmd_element*, vty* session, int, char**)
{
    uint32_t oui;
    const int16_t code = CTC_STACK_get_oui(&oui);
    if (code != 0) return report_ctc(session, code);
    RBX_vty_out(session, "%s: 0x%06" PRIx32 " %s", "oui", oui, VTY_NEWLINE(session));
    return 0;
}

int extended_oam_discovery_timing(cmd_element*, vty* session, int, char** argv)
{
    uint16_t discovery_timeout;
    if (!read_number(session, argv[0], unsigned_16("discovery_timeout"), &discovery_timeout)) return -1;
    return report_ctc(session, CTC_STACK_set_extended_oam_discovery_timing(discovery_timeout));
}

int show_extended_oam_discovery_timing(cmd_element*, vty* session, int, char**)
{
    uint16_t discovery_timeout;
    const int16_t code = CTC_STACK_get_extended_oam_discovery_timing(&discovery_timeout);
    if (code != 0) return report_ctc(session, code);
    RBX_vty_out(session, "%s: %hu %s", "discovery_timeout", discovery_timeout, VTY_NEWLINE(session));
    return 0;
}

// Of the whole stack, although an OLT or an ONU is at hand where it is typed.
int communication_config(cmd_element*, vty* session, int, char** argv)
{
    int16_t timeout_in_100_ms;
    int16_t resend_limit;
    if (!read_number(session, argv[0], signed_16("timeout_in_100_ms"), &timeout_in_100_ms)) return -1;
    if (!read_number(session, argv[1], signed_16("resend_limit"), &resend_limit)) return -1;
    return report_ctc(session, CTC_STACK_set_communication_configuration(timeout_in_100_ms, resend_limit));
}

int show_communication_config(cmd_element*, vty* session, int, char**)
{
    int16_t timeout_in_100_ms;
    int16_t resend_limit;
    const int16_t code = CTC_STACK_get_communication_configuration(&timeout_in_100_ms, &resend_limit);
    if (code != 0) return report_ctc(session, code);
    const char* newline = VTY_NEWLINE(session);
    RBX_vty_out(session, "%s: %hd %s", "timeout_in_100_ms", timeout_in_100_ms, newline);
    RBX_vty_out(session, "%s: %hd %s", "resend_limit", resend_limit, newline);
    return 0;
}

static constinit cmd_element ctc_version_cmd = command("ctc version version-value <0-255>", ctc_version,
                                                       "Management of ONUs by the CTC extension of OAM\n"
                                                       "Version of extended OAM that the stack speaks\n"
                                                       "Which version\n"
                                                       "Number of the version, 0-255; counts while the stack has no "
                                                       "records of \"ctc set-params\"\n");

static constinit cmd_element show_ctc_version_cmd = command("show ctc version", show_ctc_version,
                                                            "Show settings and state\n"
                                                            "Management of ONUs by the CTC extension of OAM\n"
                                                            "Version of extended OAM that the stack speaks\n");

static constinit cmd_element ctc_oui_cmd =
    command("ctc oui oui-value OUI_NUMBER", ctc_oui,
            "Management of ONUs by the CTC extension of OAM\n"
            "Organization that defined the extended OAM that the stack speaks\n"
            "Which organization\n"
            "OUI, 0-0xffffff, decimal or with 0x hexadecimal; counts while the stack has no records of \"ctc "
            "set-params\"\n");

static constinit cmd_element show_ctc_oui_cmd =
    command("show ctc oui", show_ctc_oui,
            "Show settings and state\n"
            "Management of ONUs by the CTC extension of OAM\n"
            "Organization that defined the extended OAM that the stack speaks\n");

static constinit cmd_element extended_oam_discovery_timing_cmd =
    command("ctc extended-oam-discovery-timing discovery-timeout <0-2550>", extended_oam_discovery_timing,
            "Management of ONUs by the CTC extension of OAM\n"
            "How long the stack waits in the discovery of an ONU\n"
            "Until the discovery fails\n"
            "Time, milliseconds, 0-2550; 0: it waits for ever\n");

static constinit cmd_element show_extended_oam_discovery_timing_cmd =
    command("show ctc extended-oam-discovery-timing", show_extended_oam_discovery_timing,
            "Show settings and state\n"
            "Management of ONUs by the CTC extension of OAM\n"
            "How long the stack waits in the discovery of an ONU\n");

static constinit cmd_element communication_config_cmd =
    command("ctc communication-config timeout-in-100-ms TIMEOUT resend RESEND", communication_config,
            "Management of ONUs by the CTC extension of OAM\n"
            "Requests to ONUs, of all OLTs\n"
            "How long the stack waits for an answer\n"
            "Time in units of 100 ms, 1-32767, decimal or with 0x hexadecimal\n"
            "How often it asks again\n"
            "Number of repetitions, 0-32767, decimal or with 0x hexadecimal\n");

static constinit cmd_element show_communication_config_cmd =
    command("show ctc communication-config", show_communication_config,
            "Show settings and state\n"
            "Management of ONUs by the CTC extension of OAM\n"
            "Requests to ONUs, of all OLTs\n");

namespace epon {

void install_ctc_stack_settings()
{
    install({{&ctc_version_cmd, in(CONFIG_NODE)},
             {&show_ctc_version_cmd, SHOW_NODES},
             {&ctc_oui_cmd, in(CONFIG_NODE)},
             {&show_ctc_oui_cmd, SHOW_NODES},
             {&extended_oam_discovery_timing_cmd, in(CONFIG_NODE)},
             {&show_extended_oam_discovery_timing_cmd, SHOW_NODES},
             {&communication_config_cmd, in(OLT_NODE, ONU_NODE)},
             {&show_communication_config_cmd, in(OLT_NODE, ONU_NODE)}});
}

} // namespace epon
