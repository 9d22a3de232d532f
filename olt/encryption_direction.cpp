// SPDX-License-Identifier: Apache-2.0
// Encryption of links with numbered packets: the directions that are encrypted, link by link, and how far the packet
// numbers of an OLT's encrypted links have come.
#include "olt/encryption_direction.h"

#include <cinttypes>

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"
#include "olt/setting.h"

using namespace epon;

namespace {

// The last word is only shown: it is set by "no".
constexpr Word direction_words[] = {{"downlink", ENCRYPTION_DIRECTION_DOWNLINK},
                                    {"uplink-downlink", ENCRYPTION_DIRECTION_UPLINK_DOWNLINK},
                                    {"none", ENCRYPTION_DIRECTION_NONE}};
constexpr WordTable direction_table = {"encryption_direction", std::span(direction_words).first<2>()};
constexpr WordTable shown_direction_table = {"encryption_direction", direction_words};

constexpr LinkSetting direction = {word_value("encryption_direction", "encryption direction", direction_table),
                                   NEP_set_encryption_direction, NEP_get_encryption_direction};
constexpr LinkSetting shown_direction = {
    word_value("encryption_direction", "encryption direction", shown_direction_table), NEP_set_encryption_direction,
    NEP_get_encryption_direction};

} // namespace

int set_olt_encryption_direction(cmd_element*, vty* session, int, char** argv)
{
    return set_setting(direction, session, argv);
}

int no_olt_encryption_direction(cmd_element*, vty* session, int, char** argv)
{
    return set_setting_to(direction, ENCRYPTION_DIRECTION_NONE, session, argv);
}

int show_olt_encryption_direction(cmd_element*, vty* session, int, char** argv)
{
    return show_setting(shown_direction, session, argv);
}

int show_encryption_pn_db(cmd_element*, vty* session, int argc, char** argv)
{
    OltArguments arguments(session, argc, argv, 1);
    int16_t olt_id;
    if (!arguments.read_olt(&olt_id)) return -1;
    OLT_encryption_pn_db db;
    const int16_t code = NEP_get_encryption_pn_db(olt_id, &db);
    if (code != 0) return report(session, code);
    print_olt_id(session, olt_id);
    for (int i = 0; i < db.count && i < ENCRYPTION_PN_DB_LIMIT; ++i) {
        const OLT_encryption_pn& entry = db.entries[i];
        RBX_vty_out(session, "LLID %d: downlink %" PRIu64 " uplink %" PRIu64 " %s", entry.llid, entry.downlink,
                    entry.uplink, VTY_NEWLINE(session));
    }
    return 0;
}

static constinit cmd_element set_olt_encryption_direction_cmd = command(
    "set olt OLT_INDEX llid LLID_INDEX encryption-direction (downlink|uplink-downlink)", set_olt_encryption_direction,
    "Change a setting\n"
    "An OLT\n"
    "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
    "A link of the OLT\n"
    "Index of the link, 0-254, decimal or with 0x hexadecimal\n"
    "Which directions of the link are encrypted with numbered packets\n"
    "downlink: to the ONU only; uplink-downlink: both directions\n");

static constinit cmd_element no_olt_encryption_direction_cmd =
    command("no olt OLT_INDEX llid LLID_INDEX encryption-direction", no_olt_encryption_direction,
            "Turn a setting off, or take an object away\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "A link of the OLT\n"
            "Index of the link, 0-254, decimal or with 0x hexadecimal\n"
            "Which directions of the link are encrypted with numbered packets\n");

static constinit cmd_element show_olt_encryption_direction_cmd =
    command("show olt OLT_INDEX llid LLID_INDEX encryption-direction", show_olt_encryption_direction,
            "Show settings and state\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "A link of the OLT\n"
            "Index of the link, 0-254, decimal or with 0x hexadecimal\n"
            "Which directions of the link are encrypted with numbered packets\n");

static constinit cmd_element show_encryption_pn_db_global_cmd =
    command("show olt OLT_INDEX encryption-pn-db", show_encryption_pn_db,
            "Show settings and state\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "The encrypted links and the numbers of their last packets\n");

static constinit cmd_element show_encryption_pn_db_cmd =
    command("show encryption-pn-db", show_encryption_pn_db,
            "Show settings and state\n"
            "The encrypted links and the numbers of their last packets\n");

namespace epon {

void install_encryption_direction()
{
    install({{&set_olt_encryption_direction_cmd, in(CONFIG_NODE)},
             {&no_olt_encryption_direction_cmd, in(CONFIG_NODE)},
             {&show_olt_encryption_direction_cmd, in(CONFIG_NODE)},
             {&show_encryption_pn_db_global_cmd, in(CONFIG_NODE)},
             {&show_encryption_pn_db_cmd, in(OLT_NODE)}});
}

} // namespace epon
