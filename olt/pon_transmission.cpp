// SPDX-License-Identifier: Apache-2.0
// The optics of an OLT's PON: transmission at each rate on and off, which modules are plugged in, whether the secondary
// one stands by.
#include "olt/pon_transmission.h"

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"

using namespace epon;

namespace {

constexpr Word pon_type_words[] = {{"1g", PON_TYPE_1G}, {"10g", PON_TYPE_10G}, {"1g-10g", PON_TYPE_1G_10G}};
constexpr WordTable pon_type = {"pon_type", pon_type_words};
constexpr WordTable shown_pon_type = {"olt_pon_transmission", std::span(pon_type_words).first<2>()};

constexpr Word module_words[] = {{"primary", PON_MODULE_PRIMARY}, {"secondary", PON_MODULE_SECONDARY}};
constexpr WordTable module_group = {"gpio_group_level", module_words};

constexpr Word exist_words[] = {{"yes", 1}, {"no", 0}};
constexpr WordTable exist = {"olt_pon_module_exist", exist_words};

constexpr Field transmission_field = {"olt pon transmission", FieldFormat::Int32Word, 0, &enable_disable};
constexpr Field exist_field = {"olt pon module exist", FieldFormat::Int32Word, 0, &exist};

int use_redundant(vty* session, char** argv, int32_t enable)
{
    int16_t olt_id;
    if (!read_olt_id(session, argv[0], &olt_id)) return -1;
    return report(session, NEP_set_use_pon_redundant(olt_id, enable));
}

int transmit(vty* session, char** argv, int32_t enable)
{
    int32_t type;
    if (!read_word(session, argv[0], "pon_type", pon_type, &type)) return -1;
    return report(session, NEP_set_olt_pon_transmission(session->olt_id, type, enable));
}

// One value of what a word names.
int show(vty* session, char** argv, const WordTable& table, int16_t (*get)(int16_t, int32_t, int32_t*),
         const Field& field)
{
    int32_t which;
    int32_t value;
    if (!read_word(session, argv[0], table.type_name, table, &which)) return -1;
    const int16_t code = get(session->olt_id, which, &value);
    if (code != 0) return report(session, code);
    print_olt_id(session, session->olt_id);
    print_fields(session, &value, {&field, 1});
    return 0;
}

} // namespace

int set_olt_use_redundant_mode(cmd_element*, vty* session, int, char** argv)
{
    return use_redundant(session, argv, 1);
}

int no_olt_use_redundant_mode(cmd_element*, vty* session, int, char** argv)
{
    return use_redundant(session, argv, 0);
}

int set_olt_pon_transmission(cmd_element*, vty* session, int, char** argv)
{
    return transmit(session, argv, 1);
}

int no_olt_pon_transmission(cmd_element*, vty* session, int, char** argv)
{
    return transmit(session, argv, 0);
}

int get_olt_pon_transmission(cmd_element*, vty* session, int, char** argv)
{
    return show(session, argv, shown_pon_type, NEP_get_olt_pon_transmission, transmission_field);
}

int get_olt_pon_module_exist(cmd_element*, vty* session, int, char** argv)
{
    return show(session, argv, module_group, NEP_get_olt_pon_module_exist, exist_field);
}

static constinit cmd_element set_olt_use_redundant_mode_cmd =
    command("set olt-use-redundant olt OLT_INDEX", set_olt_use_redundant_mode,
            "Change a setting\n"
            "Keep the secondary optical module of the PON as a stand-by\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n");

static constinit cmd_element no_olt_use_redundant_mode_cmd =
    command("no olt-use-redundant olt OLT_INDEX", no_olt_use_redundant_mode,
            "Turn a setting off, or take an object away\n"
            "Keep the secondary optical module of the PON as a stand-by\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n");

static constinit cmd_element set_olt_pon_transmission_cmd =
    command("set olt-pon-transmission pon-type (1g|10g|1g-10g)", set_olt_pon_transmission,
            "Change a setting\n"
            "Transmission of this OLT to its ONUs\n"
            "The downstream rate\n"
            "1g: 1 Gbit/s; 10g: 10 Gbit/s; 1g-10g: both\n");

static constinit cmd_element get_olt_pon_transmission_cmd =
    command("show olt-pon-transmission (1g|10g)", get_olt_pon_transmission,
            "Show settings and state\n"
            "Transmission of this OLT to its ONUs\n"
            "1g: at 1 Gbit/s; 10g: at 10 Gbit/s\n");

static constinit cmd_element no_olt_pon_transmission_cmd =
    command("no olt-pon-transmission pon-type (1g|10g|1g-10g)", no_olt_pon_transmission,
            "Turn a setting off, or take an object away\n"
            "Transmission of this OLT to its ONUs\n"
            "The downstream rate; ONUs that receive at it are lost\n"
            "1g: 1 Gbit/s; 10g: 10 Gbit/s; 1g-10g: both\n");

static constinit cmd_element get_olt_pon_module_exist_cmd =
    command("show olt-pon-module-exist gpio-group-level (primary|secondary)", get_olt_pon_module_exist,
            "Show settings and state\n"
            "Whether an optical module is plugged in\n"
            "The group of GPIO lines that the module is wired to\n"
            "primary: the module at work; secondary: the redundant one\n");

namespace epon {

void install_pon_transmission()
{
    install({{&set_olt_use_redundant_mode_cmd, in(CONFIG_NODE)},
             {&no_olt_use_redundant_mode_cmd, in(CONFIG_NODE)},
             {&set_olt_pon_transmission_cmd, in(OLT_PON_NODE)},
             {&get_olt_pon_transmission_cmd, in(OLT_PON_NODE)},
             {&no_olt_pon_transmission_cmd, in(OLT_PON_NODE)},
             {&get_olt_pon_module_exist_cmd, in(OLT_PON_NODE)}});
}

} // namespace epon
