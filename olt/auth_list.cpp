// SPDX-License-Identifier: Apache-2.0
// Which ONUs an OLT admits: a white list and a black list of MAC addresses, which of them is followed, and how
// strictly. Addresses are added to, taken from and shown of the active list.
#include "olt/auth_list.h"

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"
#include "olt/setting.h"

using namespace epon;

namespace {

constexpr Word operation_mode_words[] = {
    {"disable", AUTHENTICATION_DISABLED}, {"mac-list", AUTHENTICATION_MAC_LIST}, {"hybrid", AUTHENTICATION_HYBRID}};
constexpr WordTable operation_mode = {"auth_list_operation_mode", operation_mode_words};

constexpr Word active_list_words[] = {{"white-list", AUTHENTICATION_WHITE_LIST},
                                      {"black-list", AUTHENTICATION_BLACK_LIST}};
constexpr WordTable active_list = {"active_list", active_list_words};

constexpr OltSetting active_list_setting = {word_value("active_list", "auth list active list", active_list),
                                            NEP_set_active_authentication_list_type,
                                            NEP_get_active_authentication_list_type};

int set_listed(vty* session, const char* text, int32_t listed)
{
    uint8_t mac[6];
    if (read_mac(session, text, "MAC address", mac) != MacResult::Read) return -1;
    return report(session, NEP_set_mac_address_authentication(session->olt_id, mac, listed));
}

void print_addresses(vty* session, const OLT_mac_address_list& list)
{
    constexpr Field address = {"auth list mac address", FieldFormat::Mac, 0};
    // The count is the device's own: the array is what bounds it.
    for (uint32_t i = 0; i < list.count && i < AUTHENTICATION_LIST_SIZE; ++i)
        print_fields(session, list.addresses[i], {&address, 1});
}

} // namespace

int set_auth_list_operation_mode(cmd_element*, vty* session, int, char** argv)
{
    int32_t mode;
    if (!read_word(session, argv[0], "operation_mode", operation_mode, &mode)) return -1;
    return report(session, NEP_set_authentication_mode(session->olt_id, mode));
}

int set_active_auth_list_type(cmd_element*, vty* session, int argc, char** argv)
{
    return set_setting(active_list_setting, session, argc, argv);
}

int show_active_auth_list_type(cmd_element*, vty* session, int argc, char** argv)
{
    return show_setting(active_list_setting, session, argc, argv);
}

int set_auth_list_mac(cmd_element*, vty* session, int, char** argv)
{
    return set_listed(session, argv[0], 1);
}

int no_auth_list_mac(cmd_element*, vty* session, int, char** argv)
{
    return set_listed(session, argv[0], 0);
}

int clear_auth_list_mac_table(cmd_element*, vty* session, int, char**)
{
    return report(session, NEP_clear_mac_address_authentication_table(session->olt_id));
}

// Nothing is shown unless all of it could be read.
int show_auth_list_configuration(cmd_element*, vty* session, int argc, char** argv)
{
    OltArguments arguments(session, argc, argv, 1);
    int16_t olt_id;
    if (!arguments.read_olt(&olt_id)) return -1;
    int32_t mode;
    int32_t type;
    OLT_mac_address_list list;
    int16_t code = NEP_get_authentication_mode(olt_id, &mode);
    if (code == 0) code = NEP_get_active_authentication_list_type(olt_id, &type);
    if (code == 0) code = NEP_get_mac_address_authentication(olt_id, &list);
    if (code != 0) return report(session, code);
    const char* newline = VTY_NEWLINE(session);
    print_olt_id(session, olt_id);
    RBX_vty_out(session, "%s: %s %s", "auth list operation mode", word_of(operation_mode, mode), newline);
    RBX_vty_out(session, "%s: %s %s", "auth list active list", word_of(active_list, type), newline);
    print_addresses(session, list);
    return 0;
}

static constinit cmd_element set_auth_list_operation_mode_cmd =
    command("set auth-list operation-mode (disable|mac-list|hybrid)", set_auth_list_operation_mode,
            "Change a setting\n"
            "Which ONUs this OLT admits, by their MAC addresses\n"
            "How the active list is followed\n"
            "disable: every ONU is admitted; mac-list: an ONU that the active list keeps out cannot register; hybrid: "
            "it registers, but stays unauthorized until it is authorized by command\n");

static constinit cmd_element set_active_auth_list_type_global_cmd = command(
    "set auth-list olt OLT_INDEX active-list (white-list|black-list)", set_active_auth_list_type,
    "Change a setting\n"
    "Which ONUs an OLT admits, by their MAC addresses\n"
    "An OLT\n"
    "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
    "The list that is followed and edited\n"
    "white-list: only ONUs in the list are admitted; black-list: all ONUs but those in the list are admitted\n");

static constinit cmd_element set_active_auth_list_type_cmd = command(
    "set auth-list active-list (white-list|black-list)", set_active_auth_list_type,
    "Change a setting\n"
    "Which ONUs this OLT admits, by their MAC addresses\n"
    "The list that is followed and edited\n"
    "white-list: only ONUs in the list are admitted; black-list: all ONUs but those in the list are admitted\n");

static constinit cmd_element show_active_auth_list_type_global_cmd =
    command("show auth-list active-list olt OLT_INDEX", show_active_auth_list_type,
            "Show settings and state\n"
            "Which ONUs an OLT admits, by their MAC addresses\n"
            "The list that is followed and edited\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n");

static constinit cmd_element show_active_auth_list_type_cmd =
    command("show auth-list active-list", show_active_auth_list_type,
            "Show settings and state\n"
            "Which ONUs this OLT admits, by their MAC addresses\n"
            "The list that is followed and edited\n");

static constinit cmd_element set_auth_list_mac_cmd =
    command("add auth-list-mac mac-address AA-BB-CC-DD-EE-FF", set_auth_list_mac,
            "Add an object\n"
            "An entry of the active list of MAC addresses, which holds up to 256\n"
            "Name the ONU by its MAC address\n"
            "MAC address of the ONU, six hexadecimal fields\n");

static constinit cmd_element no_auth_list_mac_cmd =
    command("no auth-list-mac mac-address AA-BB-CC-DD-EE-FF", no_auth_list_mac,
            "Turn a setting off, or take an object away\n"
            "An entry of the active list of MAC addresses\n"
            "Name the ONU by its MAC address\n"
            "MAC address of the ONU, six hexadecimal fields\n");

static constinit cmd_element clear_auth_list_mac_table_cmd =
    command("no auth-list-mac all-table", clear_auth_list_mac_table,
            "Turn a setting off, or take an object away\n"
            "An entry of the active list of MAC addresses\n"
            "All entries of the active list\n");

static constinit cmd_element show_auth_list_configuration_global_cmd =
    command("show auth-list configuration olt OLT_INDEX", show_auth_list_configuration,
            "Show settings and state\n"
            "Which ONUs an OLT admits, by their MAC addresses\n"
            "Operation mode, active list and the addresses in it\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n");

static constinit cmd_element show_auth_list_configuration_cmd =
    command("show auth-list configuration", show_auth_list_configuration,
            "Show settings and state\n"
            "Which ONUs this OLT admits, by their MAC addresses\n"
            "Operation mode, active list and the addresses in it\n");

namespace epon {

void install_auth_list()
{
    install({{&set_auth_list_operation_mode_cmd, in(OLT_NODE)},
             {&set_active_auth_list_type_global_cmd, in(CONFIG_NODE)},
             {&set_active_auth_list_type_cmd, in(OLT_NODE)},
             {&show_active_auth_list_type_global_cmd, in(CONFIG_NODE)},
             {&show_active_auth_list_type_cmd, in(OLT_NODE)},
             {&set_auth_list_mac_cmd, in(OLT_NODE)},
             {&no_auth_list_mac_cmd, in(OLT_NODE)},
             {&clear_auth_list_mac_table_cmd, in(OLT_NODE)},
             {&show_auth_list_configuration_global_cmd, in(CONFIG_NODE)},
             {&show_auth_list_configuration_cmd, in(OLT_NODE)}});
}

} // namespace epon
