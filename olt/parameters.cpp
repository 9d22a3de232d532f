// SPDX-License-Identifier: Apache-2.0
// Parameters of one OLT: round-trip time limits, identifiers that it reports to its ONUs, serial LEDs, UART, I2C. Each
// command changes one of them; "show olt parameters" lists them all.
#include <cstddef>
#include <cstring>

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"
#include "olt/olt.h"

using namespace epon;

namespace {

// "default" is the code of 115200, not one of its own; reading back, 115200 comes first.
constexpr Word baud_rate_words[] = {
    {"1200", 0},  {"2400", 1},  {"4800", 2},   {"9600", 3},    {"14400", 4},   {"19200", 5},   {"28800", 6},
    {"38400", 7}, {"57600", 8}, {"115200", 9}, {"230400", 10}, {"460800", 11}, {"default", 9},
};
constexpr WordTable baud_rate = {"baud_rate", baud_rate_words};

constexpr Word llid_assignment_words[] = {
    {"all-llid", LLID_ASSIGNMENT_ALL}, {"odd-llid", LLID_ASSIGNMENT_ODD}, {"even-llid", LLID_ASSIGNMENT_EVEN}};
constexpr WordTable llid_assignment = {"llid_assignment", llid_assignment_words};

constexpr Word i2c_speed_words[] = {{"standard", I2C_SPEED_STANDARD}, {"fast", I2C_SPEED_FAST}};
constexpr WordTable i2c_speed = {"i2c_speed", i2c_speed_words};

enum OnuType { ONU_TYPE_1G, ONU_TYPE_10G };
constexpr Word onu_type_words[] = {{"1g", ONU_TYPE_1G}, {"10g", ONU_TYPE_10G}};
constexpr WordTable onu_type = {"onu_type", onu_type_words};

using Parameters = OLT_update_parameters;

constexpr Field grant_filtering_field = {"Grant filtering", FieldFormat::Uint16Word,
                                         offsetof(Parameters, grant_filtering), &enable_disable_capital};

// In the order in which they are listed.
constexpr Field listed_fields[] = {
    grant_filtering_field,
    {"Max rtt", FieldFormat::Int32, offsetof(Parameters, max_rtt)},
    {"Min rtt", FieldFormat::Int32, offsetof(Parameters, min_rtt)},
    {"OLT Mac Address", FieldFormat::HexMac, offsetof(OLT_parameters, mac)},
    {"OUI 1G", FieldFormat::Hex32, offsetof(Parameters, oui_1g)},
    {"OUI 10G", FieldFormat::Hex32, offsetof(Parameters, oui_10g)},
    {"vendor specific 1G", FieldFormat::Hex32, offsetof(Parameters, vendor_specific_1g)},
    {"vendor specific 10G", FieldFormat::Hex32, offsetof(Parameters, vendor_specific_10g)},
    {"LLID assignment", FieldFormat::Int32Word, offsetof(Parameters, llid_assignment), &llid_assignment},
    {"sled strobe", FieldFormat::Uint16Word, offsetof(Parameters, sled_strobe), &enable_disable_capital},
    {"sled mute", FieldFormat::Uint16Word, offsetof(Parameters, sled_mute), &enable_disable_capital},
    {"I2C speed", FieldFormat::Int32Word, offsetof(Parameters, i2c_speed), &i2c_speed},
    {"UART baud rate", FieldFormat::Int32Word, offsetof(Parameters, uart_baud_rate), &baud_rate},
};
static_assert(offsetof(OLT_parameters, settings) == 0, "the listed fields are offsets into both records");

// Changes one parameter; all others stay as they are.
template <class T>
int update(vty* session, T Parameters::*field, int32_t value)
{
    Parameters parameters;
    memset(&parameters, 0xFF, sizeof parameters); // every field "not changed"
    parameters.*field = static_cast<T>(value);
    return report(session, NEP_update_olt_parameters(session->olt_id, &parameters));
}

template <class T>
int update_by_word(vty* session, const char* text, const char* name, const WordTable& table, T Parameters::*field)
{
    int32_t value;
    if (!read_word(session, text, name, table, &value)) return -1;
    return update(session, field, value);
}

// A 32-bit number for 1G or 10G ONUs; without a type it is for 1G ONUs.
int update_for_onu_type(vty* session, int argc, char** argv, const char* name, int32_t Parameters::*field_1g,
                        int32_t Parameters::*field_10g)
{
    uint32_t value;
    if (!read_number(session, argv[0], unsigned_32(name), &value)) return -1;
    int32_t type = ONU_TYPE_1G;
    if (argc > 1 && !read_word(session, argv[1], "onu_type", onu_type, &type)) return -1;
    return update(session, type == ONU_TYPE_1G ? field_1g : field_10g, static_cast<int32_t>(value));
}

int show(vty* session, int argc, char** argv, std::span<const Field> fields)
{
    OltArguments arguments(session, argc, argv, 1);
    int16_t olt_id;
    if (!arguments.read_olt(&olt_id)) return -1;
    OLT_parameters parameters;
    const int16_t code = NEP_get_olt_parameters(olt_id, &parameters);
    if (code != 0) return report(session, code);
    print_olt_id(session, olt_id);
    print_fields(session, &parameters, fields);
    return 0;
}

} // namespace

int set_max_rtt(cmd_element*, vty* session, int, char** argv)
{
    return update(session, &Parameters::max_rtt, read_bounded_decimal(argv[0]));
}

int set_min_rtt(cmd_element*, vty* session, int, char** argv)
{
    return update(session, &Parameters::min_rtt, read_bounded_decimal(argv[0]));
}

int set_baud_rate(cmd_element*, vty* session, int, char** argv)
{
    return update_by_word(session, argv[0], "baud_rate", baud_rate, &Parameters::uart_baud_rate);
}

int set_llid_assignment(cmd_element*, vty* session, int, char** argv)
{
    return update_by_word(session, argv[0], "llid_assignment", llid_assignment, &Parameters::llid_assignment);
}

int set_sled_strobe(cmd_element*, vty* session, int, char** argv)
{
    return update_by_word(session, argv[0], "sled_strobe", enable_disable, &Parameters::sled_strobe);
}

int set_sled_mute(cmd_element*, vty* session, int, char** argv)
{
    return update_by_word(session, argv[0], "sled_mute", enable_disable, &Parameters::sled_mute);
}

int set_i2c_speed(cmd_element*, vty* session, int, char** argv)
{
    return update_by_word(session, argv[0], "i2c_speed", i2c_speed, &Parameters::i2c_speed);
}

int set_grant_filtering(cmd_element*, vty* session, int, char**)
{
    return update(session, &Parameters::grant_filtering, 1);
}

int no_grant_filtering(cmd_element*, vty* session, int, char**)
{
    return update(session, &Parameters::grant_filtering, 0);
}

int set_oui_parameter(cmd_element*, vty* session, int argc, char** argv)
{
    return update_for_onu_type(session, argc, argv, "OUI_PARAM", &Parameters::oui_1g, &Parameters::oui_10g);
}

int set_vsi_parameter_per_type(cmd_element*, vty* session, int argc, char** argv)
{
    return update_for_onu_type(session, argc, argv, "VSI_PARAM", &Parameters::vendor_specific_1g,
                               &Parameters::vendor_specific_10g);
}

int show_olt_parameters(cmd_element*, vty* session, int argc, char** argv)
{
    return show(session, argc, argv, listed_fields);
}

int show_olt_grant_filtering(cmd_element*, vty* session, int argc, char** argv)
{
    return show(session, argc, argv, {&grant_filtering_field, 1});
}

static constinit cmd_element set_max_rtt_cmd = command("set max-rtt <0-65534>", set_max_rtt,
                                                       "Change a setting\n"
                                                       "Maximum round-trip time of an ONU of this OLT\n"
                                                       "Maximum round-trip time, in time quanta of 16 ns, 0-65534\n");

static constinit cmd_element set_min_rtt_cmd = command("set min-rtt <0-32767>", set_min_rtt,
                                                       "Change a setting\n"
                                                       "Minimum round-trip time of an ONU of this OLT\n"
                                                       "Minimum round-trip time, in time quanta of 16 ns, 0-32767\n");

static constinit cmd_element set_baud_rate_cmd = command(
    "set baud-rate (1200|2400|4800|9600|14400|19200|28800|38400|57600|115200|230400|460800|default)", set_baud_rate,
    "Change a setting\n"
    "Speed of this OLT's UART\n"
    "1200, 2400, 4800, 9600, 14400, 19200, 28800, 38400, 57600, 115200, 230400, 460800: bits per second; default: "
    "115200 bits per second\n");

static constinit cmd_element set_llid_assignment_cmd =
    command("set llid-assignment (all-llid|odd-llid|even-llid)", set_llid_assignment,
            "Change a setting\n"
            "Which LLIDs this OLT gives to its ONUs\n"
            "all-llid: odd and even ones; odd-llid: odd ones only; even-llid: even ones only\n");

static constinit cmd_element set_sled_strobe_cmd =
    command("set sled-strobe (enable|disable)", set_sled_strobe,
            "Change a setting\n"
            "Strobe of the serial LED chain\n"
            "enable: the chain is strobed; disable: the chain is not strobed\n");

static constinit cmd_element set_sled_mute_cmd =
    command("set sled-mute (enable|disable)", set_sled_mute,
            "Change a setting\n"
            "Muting of the serial LED chain\n"
            "enable: all serial LEDs are dark; disable: the serial LEDs show their state\n");

static constinit cmd_element set_i2c_speed_cmd = command("set i2c-speed (standard|fast)", set_i2c_speed,
                                                         "Change a setting\n"
                                                         "Speed of this OLT's I2C bus\n"
                                                         "standard: 100 kHz; fast: 400 kHz\n");

static constinit cmd_element set_grant_filtering_cmd =
    command("set grant-filtering", set_grant_filtering,
            "Change a setting\n"
            "Drop upstream frames that arrive outside their link's grants\n");

static constinit cmd_element no_grant_filtering_cmd = command("no grant-filtering", no_grant_filtering,
                                                              "Turn a setting off, or take an object away\n"
                                                              "Accept upstream frames whatever grant they arrive in\n");

static constinit cmd_element set_oui_parameter_cmd =
    command("set oui-parameters OUI_PARAM", set_oui_parameter,
            "Change a setting\n"
            "Organizationally unique identifier that this OLT reports in OAM\n"
            "Identifier, 0x0-0xffffff, decimal or with 0x hexadecimal; without a type it is for 1G ONUs\n");

static constinit cmd_element set_oui_parameter_per_type_cmd =
    command("set oui-parameters OUI_PARAM onu-type (1g|10g)", set_oui_parameter,
            "Change a setting\n"
            "Organizationally unique identifier that this OLT reports in OAM\n"
            "Identifier, 0x0-0xffffff, decimal or with 0x hexadecimal; without a type it is for 1G ONUs\n"
            "Which ONUs it is reported to\n"
            "1g: ONUs with a 1G downstream; 10g: ONUs with a 10G downstream\n");

static constinit cmd_element set_vsi_parameter_per_type_cmd =
    command("set vsi-parameter VSI_PARAM onu-type (1g|10g)", set_vsi_parameter_per_type,
            "Change a setting\n"
            "Vendor specific information that this OLT reports in OAM\n"
            "Information, 32 bits, decimal or with 0x hexadecimal\n"
            "Which ONUs it is reported to\n"
            "1g: ONUs with a 1G downstream; 10g: ONUs with a 10G downstream\n");

static constinit cmd_element show_olt_parameters_cmd = command("show olt parameters", show_olt_parameters,
                                                               "Show settings and state\n"
                                                               "This OLT\n"
                                                               "All parameters of this OLT\n");

static constinit cmd_element show_olt_parameters_global_cmd =
    command("show olt parameters OLT_INDEX", show_olt_parameters,
            "Show settings and state\n"
            "An OLT\n"
            "All parameters of an OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n");

static constinit cmd_element show_olt_grant_filtering_global_cmd =
    command("show olt grant-filtering OLT_INDEX", show_olt_grant_filtering,
            "Show settings and state\n"
            "An OLT\n"
            "Whether upstream frames outside their link's grants are dropped\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n");

static constinit cmd_element show_olt_grant_filtering_cmd =
    command("show grant-filtering", show_olt_grant_filtering,
            "Show settings and state\n"
            "Whether upstream frames outside their link's grants are dropped\n");

namespace epon {

void install_olt_parameters()
{
    install({{&set_max_rtt_cmd, in(OLT_NODE)},
             {&set_min_rtt_cmd, in(OLT_NODE)},
             {&set_baud_rate_cmd, in(OLT_NODE)},
             {&set_llid_assignment_cmd, in(OLT_NODE)},
             {&set_sled_strobe_cmd, in(OLT_NODE)},
             {&set_sled_mute_cmd, in(OLT_NODE)},
             {&set_i2c_speed_cmd, in(OLT_NODE)},
             {&set_grant_filtering_cmd, in(OLT_NODE)},
             {&no_grant_filtering_cmd, in(OLT_NODE)},
             {&set_oui_parameter_cmd, in(OLT_NODE)},
             {&set_oui_parameter_per_type_cmd, in(OLT_NODE)},
             {&set_vsi_parameter_per_type_cmd, in(OLT_NODE)},
             {&show_olt_parameters_cmd, in(OLT_NODE)},
             {&show_olt_parameters_global_cmd, in(CONFIG_NODE)},
             {&show_olt_grant_filtering_global_cmd, in(CONFIG_NODE)},
             {&show_olt_grant_filtering_cmd, in(OLT_NODE)}});
}

} // namespace epon
