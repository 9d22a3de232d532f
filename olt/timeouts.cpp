// SPDX-License-Identifier: Apache-2.0
// How long an OLT keeps a silent ONU: the time without MPCP reports, the time without OAM, whether a link without OAM
// is kept at all; and the limit on the OAM that the OLT itself sends.
#include "olt/timeouts.h"

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"
#include "olt/setting.h"

using namespace epon;

namespace {

constexpr OltSetting mpcp_timeout = {number_value("mpcp timeout", unsigned_16("TIMEOUT")), NEP_set_mpcp_timeout,
                                     NEP_get_mpcp_timeout};
constexpr OltSetting oam_timeout = {number_value("oam timeout", unsigned_16("TIMEOUT")), NEP_set_standard_oam_timeout,
                                    NEP_get_standard_oam_timeout};
constexpr LinkSetting oam_keepalive = {word_value("oam_keepalive_state", "oam keepalive state", enable_disable),
                                       NEP_set_standard_oam_keepalive_state, NEP_get_standard_oam_keepalive_state};

} // namespace

int set_olt_mpcp_timeout(cmd_element*, vty* session, int argc, char** argv)
{
    return set_setting(mpcp_timeout, session, argc, argv);
}

int show_olt_mpcp_timeout(cmd_element*, vty* session, int argc, char** argv)
{
    return show_setting(mpcp_timeout, session, argc, argv);
}

int set_olt_standard_oam_timeout(cmd_element*, vty* session, int argc, char** argv)
{
    return set_setting(oam_timeout, session, argc, argv);
}

int show_olt_standard_oam_timeout(cmd_element*, vty* session, int argc, char** argv)
{
    return show_setting(oam_timeout, session, argc, argv);
}

int set_olt_standard_oam_keepalive_state(cmd_element*, vty* session, int, char** argv)
{
    return set_setting(oam_keepalive, session, argv);
}

int show_olt_standard_oam_keepalive_state(cmd_element*, vty* session, int, char** argv)
{
    return show_setting(oam_keepalive, session, argv);
}

int limited_oam(cmd_element*, vty* session, int, char**)
{
    return report(session, NEP_set_oam_configuration(session->olt_id, 1));
}

int no_limited_oam(cmd_element*, vty* session, int, char**)
{
    return report(session, NEP_set_oam_configuration(session->olt_id, 0));
}

static constinit cmd_element set_olt_mpcp_timeout_cmd =
    command("set mpcp-timeout olt OLT_INDEX timeout TIMEOUT", set_olt_mpcp_timeout,
            "Change a setting\n"
            "Time without MPCP reports after which an ONU is deregistered\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "The new time\n"
            "Time, in milliseconds, 50-60000, decimal or with 0x hexadecimal\n");

static constinit cmd_element show_olt_mpcp_timeout_cmd =
    command("show mpcp-timeout olt OLT_INDEX", show_olt_mpcp_timeout,
            "Show settings and state\n"
            "Time without MPCP reports after which an ONU is deregistered\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n");

static constinit cmd_element set_olt_standard_oam_timeout_cmd =
    command("set oam-timeout olt OLT_INDEX timeout TIMEOUT", set_olt_standard_oam_timeout,
            "Change a setting\n"
            "Time without OAM after which a link's OAM counts as lost\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "The new time\n"
            "Time, in milliseconds, 1000-60000, decimal or with 0x hexadecimal\n");

static constinit cmd_element show_olt_standard_oam_timeout_cmd =
    command("show oam-timeout olt OLT_INDEX", show_olt_standard_oam_timeout,
            "Show settings and state\n"
            "Time without OAM after which a link's OAM counts as lost\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n");

static constinit cmd_element set_olt_standard_oam_keepalive_state_cmd = command(
    "set oam-keepalive-state olt OLT_INDEX llid LLID_INDEX (enable|disable)", set_olt_standard_oam_keepalive_state,
    "Change a setting\n"
    "Whether a link whose OAM is lost is deregistered\n"
    "An OLT\n"
    "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
    "A link of the OLT\n"
    "Index of the link, 0-254, decimal or with 0x hexadecimal\n"
    "enable: a link without OAM is deregistered; disable: a link without OAM is kept\n");

static constinit cmd_element show_olt_standard_oam_keepalive_state_cmd =
    command("show oam-keepalive-state olt OLT_INDEX llid LLID_INDEX", show_olt_standard_oam_keepalive_state,
            "Show settings and state\n"
            "Whether a link whose OAM is lost is deregistered\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "A link of the OLT\n"
            "Index of the link, 0-254, decimal or with 0x hexadecimal\n");

static constinit cmd_element limited_oam_cmd = command("oam rate-limited", limited_oam,
                                                       "OAM that the OLT sends to its ONUs\n"
                                                       "At most ten OAM frames a second to an ONU\n");

// The same command with its state spelt out.
static constinit cmd_element limited_oam_enable_cmd = command("oam rate-limited enable", limited_oam,
                                                              "OAM that the OLT sends to its ONUs\n"
                                                              "At most ten OAM frames a second to an ONU\n"
                                                              "Turn the limit on\n");

static constinit cmd_element no_limited_oam_cmd = command("no oam rate-limited", no_limited_oam,
                                                          "Turn a setting off, or take an object away\n"
                                                          "OAM that the OLT sends to its ONUs\n"
                                                          "At most ten OAM frames a second to an ONU\n");

namespace epon {

void install_timeouts()
{
    install({{&set_olt_mpcp_timeout_cmd, in(CONFIG_NODE)},
             {&show_olt_mpcp_timeout_cmd, in(CONFIG_NODE)},
             {&set_olt_standard_oam_timeout_cmd, in(CONFIG_NODE)},
             {&show_olt_standard_oam_timeout_cmd, in(CONFIG_NODE)},
             {&set_olt_standard_oam_keepalive_state_cmd, in(CONFIG_NODE)},
             {&show_olt_standard_oam_keepalive_state_cmd, in(CONFIG_NODE)},
             {&limited_oam_cmd, in(OLT_PON_NODE)},
             {&limited_oam_enable_cmd, in(OLT_PON_NODE)},
             {&no_limited_oam_cmd, in(OLT_PON_NODE)}});
}

} // namespace epon
