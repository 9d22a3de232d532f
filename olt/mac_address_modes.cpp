// SPDX-License-Identifier: Apache-2.0
// How an OLT treats MAC addresses: an ONU with the address of another one, a learned address that moves to another
// link, a source address that does not belong to its link.
#include "olt/mac_address_modes.h"

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "olt/setting.h"

using namespace epon;

namespace {

constexpr Word duplicate_mac_words[] = {{"standard", DUPLICATE_MAC_STANDARD},
                                        {"ignoring", DUPLICATE_MAC_IGNORING},
                                        {"deregister", DUPLICATE_MAC_DEREGISTER}};
constexpr WordTable duplicate_mac_table = {"duplicate_mac_handle_mode", duplicate_mac_words};

constexpr Word mac_migration_words[] = {
    {"none", MAC_MIGRATION_NONE}, {"all", MAC_MIGRATION_ALL}, {"limited", MAC_MIGRATION_LIMITED}};
constexpr WordTable mac_migration_table = {"mac_migration_event_report_mode", mac_migration_words};

constexpr Word anti_spoofing_words[] = {{"single", ANTI_SPOOFING_SINGLE}, {"range", ANTI_SPOOFING_RANGE}};
constexpr WordTable anti_spoofing_table = {"anti_spoofing_mode", anti_spoofing_words};

constexpr OltSetting duplicate_mac = {word_value("mode", "duplicate mac handle mode", duplicate_mac_table),
                                      NEP_set_duplicate_mac_handle_mode, NEP_get_duplicate_mac_handle_mode};
constexpr OltSetting mac_migration = {word_value("mode", "mac migration event report mode", mac_migration_table),
                                      NEP_set_mac_migration_event_report_mode, NEP_get_mac_migration_event_report_mode};
constexpr OltSetting anti_spoofing = {word_value("mode", "anti spoofing mode", anti_spoofing_table),
                                      NEP_set_olt_anti_spoofing_mode, NEP_get_olt_anti_spoofing_mode};

} // namespace

int set_duplicate_mac_handle_mode(cmd_element*, vty* session, int argc, char** argv)
{
    return set_setting(duplicate_mac, session, argc, argv);
}

int show_duplicate_mac_handle_mode(cmd_element*, vty* session, int argc, char** argv)
{
    return show_setting(duplicate_mac, session, argc, argv);
}

int set_mac_migration_event_report_mode(cmd_element*, vty* session, int argc, char** argv)
{
    return set_setting(mac_migration, session, argc, argv);
}

int show_mac_migration_event_report_mode(cmd_element*, vty* session, int argc, char** argv)
{
    return show_setting(mac_migration, session, argc, argv);
}

int set_olt_anti_spoofing_mode(cmd_element*, vty* session, int argc, char** argv)
{
    return set_setting(anti_spoofing, session, argc, argv);
}

int show_olt_anti_spoofing_mode(cmd_element*, vty* session, int argc, char** argv)
{
    return show_setting(anti_spoofing, session, argc, argv);
}

static constinit cmd_element set_duplicate_mac_handle_mode_global_cmd = command(
    "set duplicate-mac-handle-mode olt OLT_INDEX mode (standard|ignoring|deregister)", set_duplicate_mac_handle_mode,
    "Change a setting\n"
    "What happens when an ONU registers with the MAC address of another one\n"
    "An OLT\n"
    "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
    "The new mode\n"
    "standard: the newcomer is refused; ignoring: the newcomer gets no answer; deregister: the other ONU is "
    "deregistered\n");

static constinit cmd_element set_duplicate_mac_handle_mode_cmd =
    command("set duplicate-mac-handle-mode mode (standard|ignoring|deregister)", set_duplicate_mac_handle_mode,
            "Change a setting\n"
            "What happens when an ONU registers with the MAC address of another one\n"
            "The new mode\n"
            "standard: the newcomer is refused; ignoring: the newcomer gets no answer; deregister: the other ONU is "
            "deregistered\n");

static constinit cmd_element show_duplicate_mac_handle_mode_global_cmd =
    command("show duplicate-mac-handle-mode olt OLT_INDEX", show_duplicate_mac_handle_mode,
            "Show settings and state\n"
            "What happens when an ONU registers with the MAC address of another one\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n");

static constinit cmd_element show_duplicate_mac_handle_mode_cmd =
    command("show duplicate-mac-handle-mode", show_duplicate_mac_handle_mode,
            "Show settings and state\n"
            "What happens when an ONU registers with the MAC address of another one\n");

static constinit cmd_element set_mac_migration_event_report_mode_global_cmd = command(
    "set mac-migration-event-report-mode olt OLT_INDEX mode (none|all|limited)", set_mac_migration_event_report_mode,
    "Change a setting\n"
    "Which moves of learned addresses between links are reported as events\n"
    "An OLT\n"
    "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
    "The new mode\n"
    "none: no move; all: every move; limited: moves up to a limited rate\n");

static constinit cmd_element set_mac_migration_event_report_mode_cmd =
    command("set mac-migration-event-report-mode mode (none|all|limited)", set_mac_migration_event_report_mode,
            "Change a setting\n"
            "Which moves of learned addresses between links are reported as events\n"
            "The new mode\n"
            "none: no move; all: every move; limited: moves up to a limited rate\n");

static constinit cmd_element show_mac_migration_event_report_mode_global_cmd =
    command("show mac-migration-event-report-mode olt OLT_INDEX", show_mac_migration_event_report_mode,
            "Show settings and state\n"
            "Which moves of learned addresses between links are reported as events\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n");

static constinit cmd_element show_mac_migration_event_report_mode_cmd =
    command("show mac-migration-event-report-mode", show_mac_migration_event_report_mode,
            "Show settings and state\n"
            "Which moves of learned addresses between links are reported as events\n");

static constinit cmd_element set_olt_anti_spoofing_mode_cmd =
    command("set anti-spoofing-mode olt OLT_INDEX mode (single|range)", set_olt_anti_spoofing_mode,
            "Change a setting\n"
            "Which source addresses a protected link may use\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "The new mode\n"
            "single: one address; range: any address of a range\n");

static constinit cmd_element show_olt_anti_spoofing_mode_cmd =
    command("show anti-spoofing-mode olt OLT_INDEX", show_olt_anti_spoofing_mode,
            "Show settings and state\n"
            "Which source addresses a protected link may use\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n");

namespace epon {

void install_mac_address_modes()
{
    install({{&set_duplicate_mac_handle_mode_global_cmd, in(CONFIG_NODE)},
             {&set_duplicate_mac_handle_mode_cmd, in(OLT_NODE)},
             {&show_duplicate_mac_handle_mode_global_cmd, SHOW_NODES},
             {&show_duplicate_mac_handle_mode_cmd, in(OLT_NODE)},
             {&set_mac_migration_event_report_mode_global_cmd, in(CONFIG_NODE)},
             {&set_mac_migration_event_report_mode_cmd, in(OLT_NODE)},
             {&show_mac_migration_event_report_mode_global_cmd, SHOW_NODES},
             {&show_mac_migration_event_report_mode_cmd, in(OLT_NODE)},
             {&set_olt_anti_spoofing_mode_cmd, in(CONFIG_NODE)},
             {&show_olt_anti_spoofing_mode_cmd, in(CONFIG_NODE)}});
}

} // namespace epon
