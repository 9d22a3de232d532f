// SPDX-License-Identifier: Apache-2.0
// Optics of an OLT, for 1G and for 10G: what was filled is applied to it, or what a kind of module needs; single
// parameters are set, and all of them are listed.
#include "olt/optics.h"

#include <cstddef>
#include <cstring>

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"
#include "olt/fill_optics.h"
#include "olt/optics_fields.h"

using namespace epon;

namespace {

constexpr int16_t NOT_APPLICABLE = -4;

constexpr Word rate_words[] = {{"1g", OPTICS_1G}, {"10g", OPTICS_10G}};
constexpr WordTable optics_rate = {"optics", rate_words};

// Two of the words are spelt so on purpose.
constexpr Word connectivity_type_words[] = {{"dual-1g", OPTICS_DUAL_1G},
                                            {"seperated-1g-10g", OPTICS_SEPARATED_1G_10G},
                                            {"unified-rx", OPTICS_UNIFIED_RX},
                                            {"asymetric", OPTICS_ASYMMETRIC},
                                            {"gen-con-type-1", OPTICS_GEN_CON_TYPE_1},
                                            {"gen-con-type-2", OPTICS_GEN_CON_TYPE_2}};
constexpr WordTable connectivity_type = {"connectivity_type", connectivity_type_words};

constexpr Word module_type_words[] = {{"auto", OPTICS_MODULE_AUTO},         {"ltx5302", OPTICS_MODULE_LTX5302},
                                      {"ltx5302a", OPTICS_MODULE_LTX5302A}, {"ltx5302b", OPTICS_MODULE_LTX5302B},
                                      {"fiberxon", OPTICS_MODULE_FIBERXON}, {"superxon", OPTICS_MODULE_SUPERXON}};
constexpr WordTable module_type = {"module_type", module_type_words};

constexpr Word rx_term_mode_words[] = {
    {"pon-rx-termination-dc-coupling-cml", OPTICS_RX_TERM_DC_COUPLING_CML},
    {"pon-rx-termination-ac-coupling", OPTICS_RX_TERM_AC_COUPLING},
    {"pon-rx-termination-dc-coupling-lvpecl", OPTICS_RX_TERM_DC_COUPLING_LVPECL},
    {"pon-rx-termination-not-relevant-coupling", OPTICS_RX_TERM_NOT_RELEVANT},
};
constexpr WordTable rx_term_mode = {"optics_rx_term_mode", rx_term_mode_words};

// A parameter that is set alone: the keyword by which its command line is told from the others, and what it accepts.
struct SingleParameter {
    const char* keyword;
    NumberRule rule;        // also names the parameter
    const WordTable* words; // null: a number
};

// By parameter code.
constexpr SingleParameter single_parameters[] = {
    {"optics-rx-term-mode", {"optics_rx_term_mode", 0, 0, true}, &rx_term_mode},
    {"optics-predate-xcvr-reset", unsigned_range("optics_predate_xcvr_reset", 0, 256), nullptr},
    {"optics-start-hunt-on-CDR-lock", {"optics_start_hunt_on_CDR_lock", 0, 0, true}, &enable_disable},
};
static_assert(OPTICS_RX_TERM_MODE == 0 && OPTICS_PREDATE_XCVR_RESET == 1 && OPTICS_START_HUNT_ON_CDR_LOCK == 2);

// Listed behind the settings.
constexpr Field single_fields[] = {
    {"optics rx term mode", FieldFormat::Int32Word, offsetof(OLT_device_optics, rx_term_mode), &rx_term_mode},
    {"optics predate xcvr reset", FieldFormat::Int32, offsetof(OLT_device_optics, predate_xcvr_reset)},
    {"optics start hunt on cdr lock", FieldFormat::Int32Word, offsetof(OLT_device_optics, start_hunt_on_cdr_lock),
     &enable_disable},
};
static_assert(offsetof(OLT_device_optics, settings) == 0, "the settings' fields are offsets into both records");

bool read_rate(vty* session, OltArguments& arguments, int16_t* olt_id, int32_t* rate)
{
    return arguments.read_olt(olt_id) && read_word(session, arguments.next(), "optics", optics_rate, rate);
}

// Whether what was filled suits the OLT; if not, the reason is printed. An OLT that is not there is left to the SDK.
bool is_applicable(vty* session, int16_t olt_id, int32_t rate, const FilledOptics& filled)
{
    if (!filled.is_filled) {
        RBX_vty_out(session, "The %s optics are not filled. Fill them with \"fill optics\" first.%s",
                    word_of(optics_rate, rate), VTY_NEWLINE(session));
        return false;
    }
    if (filled.is_dual && Olt_exists(olt_id) != 0 && Is_olt_support_dual(olt_id) == 0) {
        RBX_vty_out(session, "OLT id (%d) doesn't support dual 1g optics. Fill them with \"fill optics mixed-1g\".%s",
                    olt_id, VTY_NEWLINE(session));
        return false;
    }
    return true;
}

} // namespace

int set_olt_optics(cmd_element*, vty* session, int argc, char** argv)
{
    OltArguments arguments(session, argc, argv, 2);
    int16_t olt_id;
    int32_t rate;
    if (!read_rate(session, arguments, &olt_id, &rate)) return -1;
    const FilledOptics& filled = filled_optics(rate);
    if (!is_applicable(session, olt_id, rate, filled)) return NOT_APPLICABLE;
    return report(session, NEP_set_olt_device_optics(olt_id, rate, &filled.settings));
}

int show_olt_optics(cmd_element*, vty* session, int argc, char** argv)
{
    OltArguments arguments(session, argc, argv, 2);
    int16_t olt_id;
    int32_t rate;
    if (!read_rate(session, arguments, &olt_id, &rate)) return -1;
    OLT_device_optics optics;
    const int16_t code = NEP_get_olt_device_optics(olt_id, rate, &optics);
    if (code != 0) return report(session, code);
    print_olt_id(session, olt_id);
    for (const OpticsField& field : optics_fields_of(rate))
        print_fields(session, &optics, {&field.field, 1});
    print_fields(session, &optics, single_fields);
    return 0;
}

int set_olt_optics_by_module_and_connectivity(cmd_element*, vty* session, int argc, char** argv)
{
    OltArguments arguments(session, argc, argv, 3);
    int16_t olt_id;
    int32_t connectivity;
    int32_t module;
    if (!arguments.read_olt(&olt_id)) return -1;
    if (!read_word(session, arguments.next(), "connectivity_type", connectivity_type, &connectivity)) return -1;
    if (!read_word(session, arguments.next(), "module_type", module_type, &module)) return -1;
    return report(session, NEP_set_olt_device_optics_by_module_and_connectivity(olt_id, connectivity, module));
}

int set_olt_optics_single_param(cmd_element*, vty* session, int argc, char** argv)
{
    OltArguments arguments(session, argc, argv, 3);
    int16_t olt_id;
    int32_t rate;
    if (!read_rate(session, arguments, &olt_id, &rate)) return -1;
    int32_t code = 0;
    for (const SingleParameter& parameter : single_parameters) {
        if (strstr(session->buf, parameter.keyword) != nullptr) {
            int32_t value;
            const char* text = arguments.next();
            if (parameter.words != nullptr) {
                if (!read_word(session, text, parameter.rule.name, *parameter.words, &value)) return -1;
            } else if (!read_number(session, text, parameter.rule, &value)) {
                return -1;
            }
            return report(session, NEP_set_optics_single_param(olt_id, rate, code, value));
        }
        ++code;
    }
    return -1; // a line of no command
}

static constinit cmd_element set_olt_optics_global_cmd =
    command("set olt OLT_INDEX optics (1g | 10g)", set_olt_optics,
            "Change a setting\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "Settings of its optics: apply those that \"fill optics\" filled last for the rate\n"
            "1g: the 1G optics; 10g: the 10G optics\n");

static constinit cmd_element set_olt_optics_cmd =
    command("set olt optics (1g | 10g)", set_olt_optics,
            "Change a setting\n"
            "This OLT\n"
            "Settings of its optics: apply those that \"fill optics\" filled last for the rate\n"
            "1g: the 1G optics; 10g: the 10G optics\n");

static constinit cmd_element show_olt_optics_global_cmd =
    command("show olt OLT_INDEX optics (1g|10g)", show_olt_optics,
            "Show settings and state\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "Settings of its optics\n"
            "1g: the 1G optics; 10g: the 10G optics\n");

static constinit cmd_element show_olt_optics_cmd = command("show olt optics (1g|10g)", show_olt_optics,
                                                           "Show settings and state\n"
                                                           "This OLT\n"
                                                           "Settings of its optics\n"
                                                           "1g: the 1G optics; 10g: the 10G optics\n");

static constinit cmd_element set_olt_optics_by_module_and_connectivity_global_cmd =
    command("set olt OLT_INDEX optics by-module-and-connectivity \t    "
            "connectivity-type (dual-1g|seperated-1g-10g|unified-rx|asymetric|gen-con-type-1|gen-con-type-2) \t    "
            "module-type (auto|ltx5302|ltx5302a|ltx5302b|fiberxon|superxon)",
            set_olt_optics_by_module_and_connectivity,
            "Change a setting\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "Settings of its optics\n"
            "Settings that a kind of module needs\n"
            "How the receivers are connected\n"
            "dual-1g: 1G only; seperated-1g-10g: one each; unified-rx: one for both rates; asymetric: 10G downstream, "
            "1G upstream; gen-con-type-1, gen-con-type-2: as that generic connection\n"
            "Which module\n"
            "auto: the one that is found; ltx5302, ltx5302a, ltx5302b, fiberxon, superxon: a module of that kind\n");

static constinit cmd_element set_olt_optics_by_module_and_connectivity_cmd =
    command("set olt optics by-module-and-connectivity \t    "
            "connectivity-type (dual-1g|seperated-1g-10g|unified-rx|asymetric|gen-con-type-1|gen-con-type-2) \t    "
            "module-type (auto|ltx5302|ltx5302a|ltx5302b|fiberxon|superxon)",
            set_olt_optics_by_module_and_connectivity,
            "Change a setting\n"
            "This OLT\n"
            "Settings of its optics\n"
            "Settings that a kind of module needs\n"
            "How the receivers are connected\n"
            "dual-1g: 1G only; seperated-1g-10g: one each; unified-rx: one for both rates; asymetric: 10G downstream, "
            "1G upstream; gen-con-type-1, gen-con-type-2: as that generic connection\n"
            "Which module\n"
            "auto: the one that is found; ltx5302, ltx5302a, ltx5302b, fiberxon, superxon: a module of that kind\n");

static constinit cmd_element set_olt_optics_single_param_rx_term_mode_global_cmd =
    command("set olt OLT_INDEX optics (1g|10g) optics-rx-term-mode "
            "(pon-rx-termination-dc-coupling-cml|pon-rx-termination-ac-coupling|"
            "pon-rx-termination-dc-coupling-lvpecl|pon-rx-termination-not-relevant-coupling)",
            set_olt_optics_single_param,
            "Change a setting\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "Settings of its optics\n"
            "1g: the 1G optics; 10g: the 10G optics\n"
            "How the input of the receiver is terminated\n"
            "Coupling and level: DC with CML, AC, DC with LVPECL, or not relevant\n");

static constinit cmd_element set_olt_optics_single_param_rx_term_mode_cmd =
    command("set optics (1g|10g) optics-rx-term-mode "
            "(pon-rx-termination-dc-coupling-cml|pon-rx-termination-ac-coupling|"
            "pon-rx-termination-dc-coupling-lvpecl|pon-rx-termination-not-relevant-coupling)",
            set_olt_optics_single_param,
            "Change a setting\n"
            "Settings of the optics of this OLT\n"
            "1g: the 1G optics; 10g: the 10G optics\n"
            "How the input of the receiver is terminated\n"
            "Coupling and level: DC with CML, AC, DC with LVPECL, or not relevant\n");

static constinit cmd_element set_olt_optics_single_param_predate_xcvr_reset_global_cmd =
    command("set olt OLT_INDEX optics (1g|10g) optics-predate-xcvr-reset <0-256>", set_olt_optics_single_param,
            "Change a setting\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "Settings of its optics\n"
            "1g: the 1G optics; 10g: the 10G optics\n"
            "How much earlier the transceiver is reset\n"
            "Time, in time quanta of 16 ns, 0-256\n");

static constinit cmd_element set_olt_optics_single_param_predate_xcvr_reset_cmd =
    command("set optics (1g|10g) optics-predate-xcvr-reset <0-256>", set_olt_optics_single_param,
            "Change a setting\n"
            "Settings of the optics of this OLT\n"
            "1g: the 1G optics; 10g: the 10G optics\n"
            "How much earlier the transceiver is reset\n"
            "Time, in time quanta of 16 ns, 0-256\n");

static constinit cmd_element set_olt_optics_single_param_start_hunt_on_cdr_lock_global_cmd = command(
    "set olt OLT_INDEX optics  (1g|10g) optics-start-hunt-on-CDR-lock (enable|disable)", set_olt_optics_single_param,
    "Change a setting\n"
    "An OLT\n"
    "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
    "Settings of its optics\n"
    "1g: the 1G optics; 10g: the 10G optics\n"
    "When the receiver begins to look for the start of a burst\n"
    "enable: once the CDR has locked; disable: at once\n");

static constinit cmd_element set_olt_optics_single_param_start_hunt_on_cdr_lock_cmd =
    command("set optics (1g|10g) optics-start-hunt-on-CDR-lock (enable|disable)", set_olt_optics_single_param,
            "Change a setting\n"
            "Settings of the optics of this OLT\n"
            "1g: the 1G optics; 10g: the 10G optics\n"
            "When the receiver begins to look for the start of a burst\n"
            "enable: once the CDR has locked; disable: at once\n");

namespace epon {

void install_optics()
{
    install_fill_optics();
    install({{&set_olt_optics_global_cmd, in(CONFIG_NODE)},
             {&set_olt_optics_cmd, in(OLT_NODE)},
             {&show_olt_optics_global_cmd, in(CONFIG_NODE)},
             {&show_olt_optics_cmd, in(OLT_NODE)},
             {&set_olt_optics_by_module_and_connectivity_global_cmd, in(CONFIG_NODE)},
             {&set_olt_optics_by_module_and_connectivity_cmd, in(OLT_NODE)},
             {&set_olt_optics_single_param_rx_term_mode_global_cmd, in(CONFIG_NODE)},
             {&set_olt_optics_single_param_rx_term_mode_cmd, in(OLT_NODE)},
             {&set_olt_optics_single_param_predate_xcvr_reset_global_cmd, in(CONFIG_NODE)},
             {&set_olt_optics_single_param_predate_xcvr_reset_cmd, in(OLT_NODE)},
             {&set_olt_optics_single_param_start_hunt_on_cdr_lock_global_cmd, in(CONFIG_NODE)},
             {&set_olt_optics_single_param_start_hunt_on_cdr_lock_cmd, in(OLT_NODE)}});
}

} // namespace epon
