// SPDX-License-Identifier: Apache-2.0
// The first user port of an ONU: what passes it, what it offers to its partner, and what they agreed on.
#include "REMOTE_MANAGEMENT_CLI/uni_mac.h"

#include <cstddef>
#include <cstring>

#include "CLI_GENERAL/onu_show.h"
#include "REMOTE_MANAGEMENT_CLI/onu_report.h"

using namespace epon;

namespace {

// --- The port ----------------------------------------------------------------------------------------------------

struct Port {
    uint8_t cpu, datapath;
};

constexpr Field port_fields[] = {
    {"enable_cpu", FieldFormat::Uint8Word, offsetof(Port, cpu), &enable_disable_capital},
    {"enable_datapath", FieldFormat::Uint8Word, offsetof(Port, datapath), &enable_disable_capital},
};

int16_t get_port(int16_t olt_id, int16_t onu_id, Port* port)
{
    return REMOTE_NEPONU_uni_get_port(olt_id, onu_id, &port->cpu, &port->datapath);
}

// --- Its configuration -------------------------------------------------------------------------------------------

using Configuration = REMOTE_uni_port_configuration;

constexpr Word mac_type_words[] = {{"mii", REMOTE_UNI_MII}, {"gmii", REMOTE_UNI_GMII}, {"tbi", REMOTE_UNI_TBI}};
constexpr WordTable mac_types = {"mac_type", mac_type_words, room_for(mac_type_words)};
constexpr Word rate_words[] = {{"10m", REMOTE_UNI_10M}, {"100m", REMOTE_UNI_100M}};
constexpr WordTable rates = {"mii_rate", rate_words, room_for(rate_words)};
constexpr Word duplex_words[] = {{"half-duplex", REMOTE_UNI_HALF_DUPLEX}, {"full-duplex", REMOTE_UNI_FULL_DUPLEX}};
constexpr WordTable duplexes = {"duplex", duplex_words, room_for(duplex_words)};
// The reverse of the grammar's order.
constexpr Word master_slave_words[] = {{"master", 1}, {"slave", 0}};
constexpr WordTable masters = {"master_slave", master_slave_words, room_for(master_slave_words)};
constexpr Word negotiation_words[] = {{"auto-negotiation-off", 0}, {"auto-negotiation-on", 1}};
constexpr WordTable negotiations = {"auto_negotiation", negotiation_words, room_for(negotiation_words)};
constexpr Word advertise_words[] = {{"not-capable", 0}, {"capable", 1}};
constexpr WordTable capabilities = {"advertise", advertise_words, room_for(advertise_words)};
constexpr Word port_type_words[] = {{"single", REMOTE_UNI_SINGLE_PORT}, {"multi", REMOTE_UNI_MULTI_PORT}};
constexpr WordTable port_types = {"advertise_port_type", port_type_words, room_for(port_type_words)};

// The command has its words in the same order; the address comes last.
constexpr Field configuration_fields[] = {
    {"mac_type", FieldFormat::Uint8Word, offsetof(Configuration, mac_type), &mac_types},
    {"mii_rate", FieldFormat::Uint8Word, offsetof(Configuration, mii_rate), &rates},
    {"duplex", FieldFormat::Uint8Word, offsetof(Configuration, duplex), &duplexes},
    {"gmii_master_mode", FieldFormat::Uint8Word, offsetof(Configuration, gmii_master_mode), &masters},
    {"auto_negotiate", FieldFormat::Uint8Word, offsetof(Configuration, auto_negotiate), &negotiations},
    {"mode", FieldFormat::Uint8Word, offsetof(Configuration, mode), &masters},
    {"advertise", FieldFormat::Uint8Word, offsetof(Configuration, advertise), &enable_disable_capital},
    {"adv_10_half", FieldFormat::Uint8Word, offsetof(Configuration, adv_10_half), &capabilities},
    {"adv_10_full", FieldFormat::Uint8Word, offsetof(Configuration, adv_10_full), &capabilities},
    {"adv_100_half", FieldFormat::Uint8Word, offsetof(Configuration, adv_100_half), &capabilities},
    {"adv_100_full", FieldFormat::Uint8Word, offsetof(Configuration, adv_100_full), &capabilities},
    {"adv_100_t4", FieldFormat::Uint8Word, offsetof(Configuration, adv_100_t4), &capabilities},
    {"adv_pause", FieldFormat::Uint8Word, offsetof(Configuration, adv_pause), &capabilities},
    {"adv_asym_pause", FieldFormat::Uint8Word, offsetof(Configuration, adv_asym_pause), &capabilities},
    {"adv_1000_half", FieldFormat::Uint8Word, offsetof(Configuration, adv_1000_half), &capabilities},
    {"adv_1000_full", FieldFormat::Uint8Word, offsetof(Configuration, adv_1000_full), &capabilities},
    {"adv_port_type", FieldFormat::Uint8Word, offsetof(Configuration, adv_port_type), &port_types},
    {"phy_address", FieldFormat::Hex16, offsetof(Configuration, phy_address)},
};

constexpr size_t WORD_COUNT = sizeof configuration_fields / sizeof *configuration_fields - 1;

constexpr NumberRule phy_address_rule = unsigned_range("phy_address", 0, 255);

bool read_phy_address(vty* session, const char* text, uint16_t* address)
{
    if (strncmp(text, "0x", 2) != 0) {
        RBX_vty_out(session, "Error, phy_address parameter should be Hex format! must begin with '0x', aborting%s",
                    VTY_NEWLINE(session));
        return false;
    }
    return read_number(session, text, phy_address_rule, address);
}

// --- Its status --------------------------------------------------------------------------------------------------

using Status = REMOTE_uni_port_status;

constexpr Word link_words[] = {{"down", 0}, {"up", 1}};
constexpr WordTable links = {"link", link_words};

constexpr Field status_fields[] = {
    {"link", FieldFormat::Uint8Word, offsetof(Status, link), &links},
    {"mac_type", FieldFormat::Uint8Word, offsetof(Status, mac_type), &mac_types},
    {"mii_rate", FieldFormat::Uint8Word, offsetof(Status, mii_rate), &rates},
    {"duplex", FieldFormat::Uint8Word, offsetof(Status, duplex), &duplexes},
    {"auto_negotiate", FieldFormat::Uint8Word, offsetof(Status, auto_negotiate), &negotiations},
    {"mode", FieldFormat::Uint8Word, offsetof(Status, mode), &masters},
    {"pause_tx", FieldFormat::Uint8Word, offsetof(Status, pause_tx), &enable_disable_capital},
    {"pause_rx", FieldFormat::Uint8Word, offsetof(Status, pause_rx), &enable_disable_capital},
    {"port_type", FieldFormat::Uint8Word, offsetof(Status, port_type), &port_types},
};

// --- Its extended configuration ----------------------------------------------------------------------------------

constexpr Word item_words[] = {{"loopback", REMOTE_UNI_LOOPBACK},
                               {"power-down", REMOTE_UNI_POWER_DOWN},
                               {"mii-mode", REMOTE_UNI_MII_MODE},
                               {"power-save-en", REMOTE_UNI_POWER_SAVE}};
constexpr WordTable items = {"uni_ext_config_type", item_words, room_for(item_words)};
constexpr NumberRule item_value = unsigned_range("value", 0, 4);
constexpr Field value_fields[] = {{"value", FieldFormat::Uint32, 0}};

} // namespace

int show_remote_uni_port(cmd_element*, vty* session, int argc, char** argv)
{
    return show_remote(session, argc, argv, get_port, port_fields);
}

int remote_uni_port(cmd_element*, vty* session, int, char** argv)
{
    OnuTarget onu;
    int result;
    Port port;
    if (!read_session_target(session, &onu, &result)) return result;
    if (!read_word(session, argv[0], "enable_cpu", enable_disable, &port.cpu)) return -1;
    if (!read_word(session, argv[1], "enable_datapath", enable_disable, &port.datapath)) return -1;
    return report_remote(session, REMOTE_NEPONU_uni_set_port(onu.olt_id, onu.onu_id, port.cpu, port.datapath));
}

int show_remote_uni_port_configuration(cmd_element*, vty* session, int argc, char** argv)
{
    return show_remote(session, argc, argv, REMOTE_NEPONU_uni_get_port_configuration, configuration_fields);
}

int remote_uni_port_configuration(cmd_element*, vty* session, int, char** argv)
{
    OnuTarget onu;
    int result;
    if (!read_session_target(session, &onu, &result)) return result;
    Configuration configuration{};
    auto* octets = reinterpret_cast<uint8_t*>(&configuration);
    for (size_t i = 0; i < WORD_COUNT; ++i) {
        const Field& field = configuration_fields[i];
        const WordTable& words = field.words == &enable_disable_capital ? enable_disable : *field.words;
        if (!read_word(session, argv[i], field.label, words, octets + field.offset)) return -1;
    }
    if (!read_phy_address(session, argv[WORD_COUNT], &configuration.phy_address)) return -1;
    return report_remote(session, REMOTE_NEPONU_uni_set_port_configuration(onu.olt_id, onu.onu_id, &configuration));
}

int show_remote_uni_port_status(cmd_element*, vty* session, int argc, char** argv)
{
    return show_remote(session, argc, argv, REMOTE_NEPONU_uni_get_port_status, status_fields);
}

int show_remote_uni_extended_configuration(cmd_element*, vty* session, int argc, char** argv)
{
    OnuTarget onu;
    int result;
    char** words;
    int32_t item;
    if (!read_onu_target(session, argc, argv, 1, &onu, &words, &result)) return result;
    if (!read_word(session, words[0], "configuration", items, &item)) return -1;
    uint32_t value = 0;
    const int16_t code = REMOTE_NEPONU_uni_get_extended_configuration(onu.olt_id, onu.onu_id, item, &value);
    return show_remote_record(session, code, &value, value_fields);
}

int remote_uni_extended_configuration(cmd_element*, vty* session, int, char** argv)
{
    OnuTarget onu;
    int result;
    int32_t item;
    uint32_t value;
    if (!read_session_target(session, &onu, &result)) return result;
    if (!read_word(session, argv[0], "configuration", items, &item)) return -1;
    if (!read_number(session, argv[1], item_value, &value)) return -1;
    return report_remote(session, REMOTE_NEPONU_uni_set_extended_configuration(onu.olt_id, onu.onu_id, item, value));
}

static constinit OnuShow show_remote_uni_port_cmd =
    remote_show<"uni-mac port", "First user port of the ONU\n"
                                "What passes the port\n">(show_remote_uni_port);

static constinit cmd_element remote_uni_port_cmd =
    command("remote uni-mac port cpu (disable|enable) datapath (disable|enable)", remote_uni_port,
            "Remote management: the ONU is asked by OAM\n"
            "First user port of the ONU\n"
            "What passes the port\n"
            "Frames for the ONU itself\n"
            "disable: none are taken from the port; enable: frames from the port are taken\n"
            "Frames of users\n"
            "disable: none pass; enable: they pass\n");

static constinit OnuShow show_remote_uni_port_configuration_cmd =
    remote_show<"uni-mac port-configuration", "First user port of the ONU\n"
                                              "What the port is to do, and what it tells its partner\n">(
        show_remote_uni_port_configuration);

static constinit cmd_element remote_uni_port_configuration_cmd = command(
    "remote uni-mac port-configuration mac-type (mii|gmii|tbi) mii-rate (10m|100m) duplex (half-duplex|full-duplex) "
    "gmii-master-mode (master|slave) auto-negotiate (auto-negotiation-off|auto-negotiation-on) mode (master|slave) "
    "advertise (enable|disable) adv-10-half (not-capable|capable) adv-10-full (not-capable|capable) adv-100-half "
    "(not-capable|capable) adv-100-full (not-capable|capable) adv-100-t4 (not-capable|capable) adv-pause "
    "(not-capable|capable) adv-asym-pause (not-capable|capable) adv-1000-half (not-capable|capable) adv-1000-full "
    "(not-capable|capable) adv-port-type (single|multi) phy-address <0x0-0xff>",
    remote_uni_port_configuration,
    "Remote management: the ONU is asked by OAM\n"
    "First user port of the ONU\n"
    "What the port is to do, and what it tells its partner\n"
    "Interface between MAC and PHY\n"
    "mii: up to 100 Mbit/s; gmii: up to 1000 Mbit/s; tbi: 1000 Mbit/s in full duplex\n"
    "Rate of an mii port that does not negotiate\n"
    "10m: 10 Mbit/s; 100m: 100 Mbit/s\n"
    "Duplex of a port that does not negotiate\n"
    "half-duplex: one direction at a time; full-duplex: both at once\n"
    "Clock of a gmii\n"
    "master: from the MAC; slave: from the PHY\n"
    "Whether rate and duplex are agreed on with the partner\n"
    "auto-negotiation-off: they are as given above; auto-negotiation-on: the best that both ends have\n"
    "Clock of a link of 1000 Mbit/s\n"
    "master: from this end; slave: from the other end\n"
    "What the partner is told\n"
    "enable: the capabilities below; disable: all that the port has\n"
    "10 Mbit/s in half duplex\n"
    "not-capable: the partner is not offered it; capable: the partner is offered it\n"
    "10 Mbit/s in full duplex\n"
    "not-capable: the partner is not offered it; capable: the partner is offered it\n"
    "100 Mbit/s in half duplex\n"
    "not-capable: the partner is not offered it; capable: the partner is offered it\n"
    "100 Mbit/s in full duplex\n"
    "not-capable: the partner is not offered it; capable: the partner is offered it\n"
    "100 Mbit/s on four pairs of old cabling\n"
    "not-capable: the partner is not offered it; capable: the partner is offered it\n"
    "PAUSE frames in both directions\n"
    "not-capable: the partner is not offered it; capable: the partner is offered it\n"
    "PAUSE frames in one direction\n"
    "not-capable: the partner is not offered it; capable: the partner is offered it\n"
    "1000 Mbit/s in half duplex\n"
    "not-capable: the partner is not offered it; capable: the partner is offered it\n"
    "1000 Mbit/s in full duplex\n"
    "not-capable: the partner is not offered it; capable: the partner is offered it\n"
    "What the partner is told of this device\n"
    "single: it has one port; multi: it has several ports, and would rather give the clock\n"
    "Address of the PHY on its management interface\n"
    "Address, 0x0-0xff, with 0x\n");

static constinit OnuShow show_remote_uni_port_status_cmd =
    remote_show<"uni-mac port-status", "First user port of the ONU\n"
                                       "Whether its link is up, and what it agreed on with its partner\n">(
        show_remote_uni_port_status);

static constinit OnuShow show_remote_uni_extended_configuration_cmd =
    remote_show<"uni-mac extended-configuration",
                "First user port of the ONU\n"
                "Loopback, power and kind of interface\n",
                "configuration (loopback|power-down|mii-mode|power-save-en)",
                "Which item\n"
                "loopback: 0 none, 1 in the MAC, 2 in the PHY, 3 of what the partner sends, 4 by a plug; power-down: 1 "
                "the PHY is off; mii-mode: 0 MII, 1 RMII, 2 GMII, 3 RGMII, 4 SGMII; power-save-en: 1 the PHY saves "
                "power while nothing is plugged in\n">(show_remote_uni_extended_configuration);

static constinit cmd_element remote_uni_extended_configuration_cmd = command(
    "remote uni-mac extended-configuration configuration (loopback|power-down|mii-mode|power-save-en) value <0-4>",
    remote_uni_extended_configuration,
    "Remote management: the ONU is asked by OAM\n"
    "First user port of the ONU\n"
    "Loopback, power and kind of interface\n"
    "Which item\n"
    "loopback: 0 none, 1 in the MAC, 2 in the PHY, 3 of what the partner sends, 4 by a plug; power-down: 1 the PHY is "
    "off; mii-mode: 0 MII, 1 RMII, 2 GMII, 3 RGMII, 4 SGMII; power-save-en: 1 the PHY saves power while nothing is "
    "plugged in\n"
    "The item's new value\n"
    "Value, 0-4; power-down and power-save-en 0-1\n");

namespace epon {

void install_remote_uni_mac()
{
    install({&show_remote_uni_port_cmd, &show_remote_uni_port_configuration_cmd, &show_remote_uni_port_status_cmd,
             &show_remote_uni_extended_configuration_cmd});
    install({{&remote_uni_port_cmd, in(ONU_NODE)},
             {&remote_uni_port_configuration_cmd, in(ONU_NODE)},
             {&remote_uni_extended_configuration_cmd, in(ONU_NODE)}});
}

} // namespace epon
