// SPDX-License-Identifier: Apache-2.0
// Operations of an OLT's firmware that take one number and answer one: a few have names, the firmware's own go by their
// numbers. Others wait until the OLT starts.
#include "olt/simple_operation.h"

#include <cstring>

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"

using namespace epon;

namespace {

constexpr Word cni_interface_words[] = {
    {"mode-xaui", CNI_INTERFACE_XAUI}, {"mode-rxaui", CNI_INTERFACE_RXAUI}, {"mode-sgmii", CNI_INTERFACE_SGMII}};
constexpr WordTable cni_interface = {"op_val", cni_interface_words};

constexpr Word setting_words[] = {{"set-enable-rule-for-dereg-llids", OPERATION_SET_ENABLE_RULE_FOR_DEREG_LLIDS},
                                  {"set-cni-interface", OPERATION_SET_CNI_INTERFACE}};
constexpr Word reading_words[] = {{"get-enable-rule-for-dereg-llids", OPERATION_GET_ENABLE_RULE_FOR_DEREG_LLIDS},
                                  {"get-cni-interface", OPERATION_GET_CNI_INTERFACE}};
constexpr WordTable reading_operations = {"op_type", reading_words};

constexpr NumberRule firmware_operation =
    unsigned_range("op_type", OPERATION_OF_FIRMWARE_MIN, OPERATION_OF_FIRMWARE_MAX);

constexpr Field rules_field = {"enable rule for dereg llids", FieldFormat::Int32Word, 0, &enable_disable};
constexpr Field cni_interface_field = {"cni interface", FieldFormat::Int32Word, 0, &cni_interface};

// The operation of a setting form: one with a name takes a word, one of the firmware's a number.
bool read_operation(vty* session, const char* type, const char* text, int32_t* operation, uint32_t* value)
{
    for (const Word& named : setting_words) {
        if (strcmp(type, named.text) != 0) continue;
        const bool is_state = named.value == OPERATION_SET_ENABLE_RULE_FOR_DEREG_LLIDS;
        int32_t word;
        if (!read_word(session, text, "op_val", is_state ? enable_disable : cni_interface, &word)) return false;
        *operation = named.value;
        *value = static_cast<uint32_t>(word);
        return true;
    }
    return read_number(session, type, firmware_operation, operation) &&
           read_number(session, text, unsigned_32("VALUE"), value);
}

int show_simple_operation(vty* session, int16_t olt_id, const char* type)
{
    int32_t operation;
    uint32_t answer;
    if (!read_word(session, type, "op_type", reading_operations, &operation)) return -1;
    const int16_t code = NEP_simple_operation(olt_id, operation, 0, &answer);
    if (code != 0) return report(session, code);
    const bool is_state = operation == OPERATION_GET_ENABLE_RULE_FOR_DEREG_LLIDS;
    print_olt_id(session, olt_id);
    print_fields(session, &answer, {is_state ? &rules_field : &cni_interface_field, 1});
    return 0;
}

} // namespace

// The "show" forms end with the operation, the "set" forms with its value.
int set_simple_operation(cmd_element*, vty* session, int argc, char** argv)
{
    int16_t olt_id;
    if (!read_olt_id(session, argv[0], &olt_id)) return -1;
    if (argc == 2) return show_simple_operation(session, olt_id, argv[1]);
    int32_t operation;
    uint32_t value;
    uint32_t answer;
    if (!read_operation(session, argv[1], argv[2], &operation, &value)) return -1;
    return report(session, NEP_simple_operation(olt_id, operation, value, &answer));
}

int set_pre_init_simple_operation(cmd_element*, vty* session, int, char** argv)
{
    int16_t olt_id;
    int32_t operation;
    uint32_t value;
    if (!read_olt_id(session, argv[0], &olt_id)) return -1;
    if (!read_number(session, argv[1], unsigned_16("TYPE"), &operation)) return -1;
    if (!read_number(session, argv[2], unsigned_32("VALUE"), &value)) return -1;
    return report(session, NEP_pre_init_simple_operation_add(olt_id, operation, value));
}

int no_pre_init_simple_operation(cmd_element*, vty* session, int, char** argv)
{
    int16_t olt_id;
    if (!read_olt_id(session, argv[0], &olt_id)) return -1;
    return report(session, NEP_pre_init_simple_operation_reset(olt_id));
}

static constinit cmd_element set_simple_operation_rule_for_dereg_llids_cmd =
    command("set simple-operation olt OLT_INDEX op-type (set-enable-rule-for-dereg-llids) op-val (disable|enable)",
            set_simple_operation,
            "Change a setting\n"
            "Operation of an OLT's firmware with one number\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "Which operation\n"
            "Whether rules of a link stay in force while the link is not registered\n"
            "The operation's value\n"
            "enable: the rules stay; disable: the rules are taken out\n");

static constinit cmd_element set_simple_operation_get_rule_for_dereg_llids_cmd =
    command("show simple-operation olt OLT_INDEX op-type (get-enable-rule-for-dereg-llids)", set_simple_operation,
            "Show settings and state\n"
            "Operation of an OLT's firmware with one number\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "Which operation\n"
            "Whether rules of a link stay in force while the link is not registered\n");

static constinit cmd_element set_simple_operation_cni_interface_cmd =
    command("set simple-operation olt OLT_INDEX op-type (set-cni-interface) op-val (mode-xaui|mode-rxaui|mode-sgmii)",
            set_simple_operation,
            "Change a setting\n"
            "Operation of an OLT's firmware with one number\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "Which operation\n"
            "Kind of the core network interface\n"
            "The operation's value\n"
            "mode-xaui: four lanes, 10 Gbit/s; mode-rxaui: two lanes, 10 Gbit/s; mode-sgmii: one lane, 1 Gbit/s\n");

static constinit cmd_element set_simple_operation_get_cni_interface_cmd =
    command("show simple-operation olt OLT_INDEX op-type (get-cni-interface)", set_simple_operation,
            "Show settings and state\n"
            "Operation of an OLT's firmware with one number\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "Which operation\n"
            "Kind of the core network interface\n");

static constinit cmd_element set_simple_operation_of_firmware_cmd =
    command("set simple-operation olt OLT_INDEX op-type (<1000-2000>) op-val (VALUE)", set_simple_operation,
            "Change a setting\n"
            "Operation of an OLT's firmware with one number\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "Which operation\n"
            "Number of an operation that only the firmware knows, 1000-2000\n"
            "The operation's value\n"
            "Value, 0-2147483647, or 0x0-0xffffffff hexadecimal\n");

static constinit cmd_element set_pre_init_simple_operation_cmd =
    command("set pre-init-simple-operation olt OLT_INDEX op-type TYPE op-val VALUE", set_pre_init_simple_operation,
            "Change a setting\n"
            "Operations that an OLT carries out each time it starts\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "Which operation\n"
            "0: rules for links that are not registered; 2: CNI interface; 1000-2000: the firmware's own\n"
            "The operation's value\n"
            "0: 1 on, 0 off; 2: 0 XAUI, 1 RXAUI, 2 SGMII; 1000-2000: 0-2147483647, or hexadecimal to 0xffffffff\n");

static constinit cmd_element no_pre_init_simple_operation_cmd =
    command("no pre-init-simple-operation olt OLT_INDEX", no_pre_init_simple_operation,
            "Turn a setting off, or take an object away\n"
            "Operations that an OLT carries out each time it starts\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n");

namespace epon {

void install_simple_operation()
{
    install({{&set_simple_operation_rule_for_dereg_llids_cmd, in(CONFIG_NODE)},
             {&set_simple_operation_get_rule_for_dereg_llids_cmd, in(CONFIG_NODE)},
             {&set_simple_operation_cni_interface_cmd, in(CONFIG_NODE)},
             {&set_simple_operation_get_cni_interface_cmd, in(CONFIG_NODE)},
             {&set_simple_operation_of_firmware_cmd, in(CONFIG_NODE)},
             {&set_pre_init_simple_operation_cmd, in(CONFIG_NODE)},
             {&no_pre_init_simple_operation_cmd, in(CONFIG_NODE)}});
}

} // namespace epon
