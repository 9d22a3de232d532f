// SPDX-License-Identifier: Apache-2.0
// Which ONUs an OLT admits by their LOID, the logical identifier that a subscriber was given: how strictly, the table
// of LOIDs and passwords, and the links that are kept for them.
#include "CTC_STACK_CLI/auth.h"

#include <cstddef>
#include <cstring>

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CTC_STACK_CLI/onu_report.h"

using namespace epon;

namespace {

constexpr Word auth_mode_words[] = {
    {"auth-mac", CTC_AUTH_MAC},
    {"auth-loid", CTC_AUTH_LOID},
    {"auth-hybrid", CTC_AUTH_HYBRID},
    {"auth-loid-not-chk-pwd", CTC_AUTH_LOID_ANY_PASSWORD},
    {"auth-hybrid-not-chk-pwd", CTC_AUTH_HYBRID_ANY_PASSWORD},
};
constexpr WordTable auth_modes = {"auth_mode", auth_mode_words};

constexpr const char* NO_PASSWORD = "none";

constexpr Field loid_field = {"loid_id", FieldFormat::Text, 0, nullptr, nullptr, CTC_LOID_SIZE};
constexpr Field password_field = {"password", FieldFormat::Text, offsetof(CTC_loid_data, password),
                                  nullptr,    nullptr,           CTC_LOID_PASSWORD_SIZE};
static_assert(offsetof(CTC_loid_data, loid) == 0);

bool read_password(vty* session, const char* text, char password[CTC_LOID_PASSWORD_SIZE])
{
    if (!read_text(session, text, "password", password, CTC_LOID_PASSWORD_SIZE)) return false;
    if (strcmp(password, NO_PASSWORD) == 0) *password = '\0';
    return true;
}

void print_loid(vty* session, const CTC_loid_data& entry)
{
    print_fields(session, &entry, {&loid_field, 1});
    if (*entry.password == '\0') {
        RBX_vty_out(session, "%s: %s %s", password_field.label, NO_PASSWORD, VTY_NEWLINE(session));
    } else {
        print_fields(session, &entry, {&password_field, 1});
    }
}

} // namespace

int auth_loid_data_add(cmd_element*, vty* session, int, char** argv)
{
    CTC_loid_data entry;
    if (!read_text(session, argv[0], "ONU_ID", entry.loid, sizeof entry.loid)) return -1;
    if (!read_password(session, argv[1], entry.password)) return -1;
    return report_ctc(session, CTC_STACK_add_auth_loid_data(session->olt_id, entry.loid, entry.password));
}

int auth_loid_data_remove(cmd_element*, vty* session, int, char** argv)
{
    char loid[CTC_LOID_SIZE];
    if (!read_text(session, argv[0], "ONU_ID", loid, sizeof loid)) return -1;
    return report_ctc(session, CTC_STACK_remove_auth_loid_data(session->olt_id, loid));
}

int show_auth_loid_data_table(cmd_element*, vty* session, int, char**)
{
    CTC_loid_table table;
    const int16_t code = CTC_STACK_get_auth_loid_data_table(session->olt_id, &table);
    if (code != 0) return report_ctc(session, code);
    // The count is the device's own: the array is what bounds it.
    const uint32_t count = table.count < CTC_LOID_TABLE_SIZE ? table.count : uint32_t{CTC_LOID_TABLE_SIZE};
    print_olt_id(session, session->olt_id);
    RBX_vty_out(session, "%s: %u %s", "number_of_loids", count, VTY_NEWLINE(session));
    for (uint32_t i = 0; i < count; ++i)
        print_loid(session, table.entries[i]);
    return 0;
}

int auth_mode(cmd_element*, vty* session, int, char** argv)
{
    int32_t mode;
    if (!read_word(session, argv[0], "mode", auth_modes, &mode)) return -1;
    return report_ctc(session, CTC_STACK_set_auth_mode(session->olt_id, mode));
}

int show_auth_mode(cmd_element*, vty* session, int, char**)
{
    int32_t mode;
    const int16_t code = CTC_STACK_get_auth_mode(session->olt_id, &mode);
    if (code != 0) return report_ctc(session, code);
    RBX_vty_out(session, "%s: %s %s", "mode", word_of(auth_modes, mode), VTY_NEWLINE(session));
    return 0;
}

int auth_loid_llid_config(cmd_element*, vty* session, int, char** argv)
{
    char loid[CTC_LOID_SIZE];
    int16_t llid;
    if (!read_text(session, argv[0], "LOID_ID", loid, sizeof loid)) return -1;
    if (!read_llid(session, argv[1], &llid)) return -1;
    return report_ctc(session, CTC_STACK_set_loid_db_llid(session->olt_id, loid, llid));
}

int no_auth_loid_llid_config(cmd_element*, vty* session, int, char** argv)
{
    int16_t llid;
    if (!read_llid(session, argv[0], &llid)) return -1;
    return report_ctc(session, CTC_STACK_set_loid_db_llid(session->olt_id, "", llid));
}

int show_auth_loid_llid_config(cmd_element*, vty* session, int, char** argv)
{
    char loid[CTC_LOID_SIZE];
    int16_t llid;
    if (!read_llid(session, argv[0], &llid)) return -1;
    const int16_t code = CTC_STACK_get_loid_id_by_llid(session->olt_id, loid, llid);
    if (code != 0) return report_ctc(session, code);
    print_olt_id(session, session->olt_id);
    RBX_vty_out(session, "%s: %hd %s", "llid", llid, VTY_NEWLINE(session));
    print_fields(session, loid, {&loid_field, 1});
    return 0;
}

static constinit cmd_element auth_loid_data_add_cmd =
    command("ctc auth loid-data-add onu-id ONU_ID password (PASSWORD|none)", auth_loid_data_add,
            "Management of ONUs by the CTC extension of OAM\n"
            "Which ONUs this OLT admits, by their LOIDs\n"
            "Add a LOID to this OLT's table, which holds up to 256\n"
            "LOID, the logical identifier that the ONU's subscriber was given\n"
            "LOID, 1-24 characters without blanks\n"
            "Password that belongs to it\n"
            "PASSWORD: 1-12 characters without blanks; none: the ONU may tell any\n");

static constinit cmd_element auth_loid_data_remove_cmd =
    command("ctc auth loid-data-remove onu-id ONU_ID", auth_loid_data_remove,
            "Management of ONUs by the CTC extension of OAM\n"
            "Which ONUs this OLT admits, by their LOIDs\n"
            "Take a LOID, and the link that is kept for it, out of this OLT's table\n"
            "LOID, the logical identifier that the ONU's subscriber was given\n"
            "LOID, 1-24 characters without blanks\n");

static constinit cmd_element show_auth_loid_data_table_cmd =
    command("show ctc auth loid-data-table", show_auth_loid_data_table,
            "Show settings and state\n"
            "Management of ONUs by the CTC extension of OAM\n"
            "Which ONUs this OLT admits, by their LOIDs\n"
            "LOIDs and passwords of this OLT's table, in the order in which they were added\n");

static constinit cmd_element auth_mode_cmd =
    command("ctc auth mode (auth-mac|auth-loid|auth-hybrid|auth-loid-not-chk-pwd|auth-hybrid-not-chk-pwd)", auth_mode,
            "Management of ONUs by the CTC extension of OAM\n"
            "Which ONUs this OLT admits, by their LOIDs\n"
            "What an ONU has to prove\n"
            "auth-mac: its MAC address, as \"set auth-list\" says; auth-loid: a LOID of the table and its password; "
            "auth-hybrid: an address in a white list that is followed, or a LOID and its password; "
            "auth-loid-not-chk-pwd: a LOID of the table, with any password; auth-hybrid-not-chk-pwd: an address in a "
            "white list that is followed, or a LOID with any password\n");

static constinit cmd_element show_auth_mode_cmd = command("show ctc auth mode", show_auth_mode,
                                                          "Show settings and state\n"
                                                          "Management of ONUs by the CTC extension of OAM\n"
                                                          "Which ONUs this OLT admits, by their LOIDs\n"
                                                          "What an ONU has to prove\n");

static constinit cmd_element auth_loid_llid_config_cmd =
    command("ctc auth loid-llid-config loid-id LOID_ID llid LLID_INDEX", auth_loid_llid_config,
            "Management of ONUs by the CTC extension of OAM\n"
            "Which ONUs this OLT admits, by their LOIDs\n"
            "Links that are kept for the ONUs with certain LOIDs\n"
            "LOID of the table\n"
            "LOID, 1-24 characters without blanks\n"
            "A link of the OLT\n"
            "Index of the link, 0-254, decimal or with 0x hexadecimal\n");

static constinit cmd_element no_auth_loid_llid_config_cmd =
    command("no ctc auth loid-llid-config llid LLID_INDEX", no_auth_loid_llid_config,
            "Turn a setting off, or take an object away\n"
            "Management of ONUs by the CTC extension of OAM\n"
            "Which ONUs this OLT admits, by their LOIDs\n"
            "Links that are kept for the ONUs with certain LOIDs\n"
            "A link of the OLT\n"
            "Index of the link, 0-254, decimal or with 0x hexadecimal\n");

static constinit cmd_element show_auth_loid_llid_config_cmd =
    command("show ctc auth loid-llid-config llid LLID_INDEX", show_auth_loid_llid_config,
            "Show settings and state\n"
            "Management of ONUs by the CTC extension of OAM\n"
            "Which ONUs this OLT admits, by their LOIDs\n"
            "Links that are kept for the ONUs with certain LOIDs\n"
            "A link of the OLT\n"
            "Index of the link, 0-254, decimal or with 0x hexadecimal\n");

namespace epon {

void install_ctc_auth()
{
    install({{&auth_loid_data_add_cmd, in(OLT_NODE)},
             {&auth_loid_data_remove_cmd, in(OLT_NODE)},
             {&show_auth_loid_data_table_cmd, in(OLT_NODE)},
             {&auth_mode_cmd, in(OLT_NODE)},
             {&show_auth_mode_cmd, in(OLT_NODE)},
             {&auth_loid_llid_config_cmd, in(OLT_NODE)},
             {&no_auth_loid_llid_config_cmd, in(OLT_NODE)},
             {&show_auth_loid_llid_config_cmd, in(OLT_NODE)}});
}

} // namespace epon
