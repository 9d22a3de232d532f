// SPDX-License-Identifier: Apache-2.0
// Redundancy of an OLT's XAUI uplinks: on and off, what the standby channel sends, what triggers a switch-over, and a
// switch-over by hand.
#include "switching/xaui_redundancy.h"

#include <cstring>

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"

using namespace epon;

namespace {

constexpr Word inactive_ch_mode_words[] = {{"send-idle", 0}, {"disable", 1}};
constexpr Word triggering_mode_words[] = {{"gpio", 1}, {"link-loss", 0}};
constexpr Word gpio_mode_words[] = {{"high-low", 0}, {"toggle", 1}};

struct Parameter {
    const char* keyword; // by which the command line is told from the others
    const char* name;
    const char* label;
    WordTable values;
};

// By parameter code.
constexpr Parameter parameters[] = {
    {"inactive-ch-mode", "inactive_ch_mode", "Inactive channel Mode", {"inactive_ch_mode", inactive_ch_mode_words}},
    {"triggering-mode", "triggering_mode", "Triggering Mode", {"triggering_mode", triggering_mode_words}},
    {"gpio-mode", "gpio_mode", "GPIO Mode", {"gpio_mode", gpio_mode_words}},
};

} // namespace

int xaui_redundancy_enable(cmd_element*, vty* session, int, char** argv)
{
    int32_t state;
    if (!read_word(session, argv[0], "state", enable_disable, &state)) return -1;
    return report(session, NEP_xaui_redundancy_enable(session->olt_id, state));
}

int xaui_redundancy_params_set(cmd_element*, vty* session, int, char** argv)
{
    int32_t code = 0;
    for (const Parameter& parameter : parameters) {
        if (strstr(session->buf, parameter.keyword) != nullptr) {
            int32_t value;
            if (!read_word(session, argv[0], parameter.name, parameter.values, &value)) return -1;
            return report(session, NEP_xaui_redundancy_set_params(session->olt_id, code, value));
        }
        ++code;
    }
    // A line without any of the keywords sets the first parameter to its first value.
    return report(session, NEP_xaui_redundancy_set_params(session->olt_id, 0, 0));
}

int xaui_redundancy_params_show(cmd_element*, vty* session, int, char**)
{
    int32_t code = 0;
    for (const Parameter& parameter : parameters) {
        int32_t value;
        const int16_t result = NEP_xaui_redundancy_get_params(session->olt_id, code, &value);
        if (result != 0) return report(session, result);
        RBX_vty_out(session, "%s: %s %s", parameter.label, word_of(parameter.values, value), VTY_NEWLINE(session));
        ++code;
    }
    return 0;
}

int xaui_redundancy_switch_over(cmd_element*, vty* session, int, char**)
{
    return report(session, NEP_xaui_redundancy_switch_over(session->olt_id));
}

static constinit cmd_element xaui_redundancy_enable_cmd =
    command("xaui-redundancy-enable state (enable|disable)", xaui_redundancy_enable,
            "This command enable/disable XAUI redundancy.\n"
            "State of the redundancy of this OLT's XAUI uplinks\n"
            "enable: a failing channel is replaced by the standby one; disable: a failing channel stays in use\n");

static constinit cmd_element xaui_redundancy_params_set_inactive_ch_mode_cmd =
    command("set xaui-redundancy-params param-type inactive-ch-mode param-value (send-idle|disable)",
            xaui_redundancy_params_set,
            "This command sets XAUI redundancy parameters.\n"
            "How this OLT's XAUI uplinks stand in for each other\n"
            "Which parameter to set\n"
            "What the inactive channel sends\n"
            "The parameter's new value\n"
            "send-idle: the standby channel sends idles and keeps its link; disable: it is silent\n");

static constinit cmd_element xaui_redundancy_params_set_triggering_mode_cmd = command(
    "set xaui-redundancy-params param-type triggering-mode param-value (gpio|link-loss)", xaui_redundancy_params_set,
    "This command sets XAUI redundancy parameters.\n"
    "How this OLT's XAUI uplinks stand in for each other\n"
    "Which parameter to set\n"
    "What triggers a switch-over\n"
    "The parameter's new value\n"
    "gpio: a signal at the switch-over GPIO; link-loss: the loss of the active channel's link\n");

static constinit cmd_element xaui_redundancy_params_set_gpio_mode_cmd =
    command("set xaui-redundancy-params param-type gpio-mode param-value (high-low|toggle)", xaui_redundancy_params_set,
            "This command sets XAUI redundancy parameters.\n"
            "How this OLT's XAUI uplinks stand in for each other\n"
            "Which parameter to set\n"
            "How the switch-over GPIO behaves\n"
            "The parameter's new value\n"
            "high-low: its level names the active channel; toggle: each change switches over\n");

static constinit cmd_element xaui_redundancy_params_show_cmd =
    command("show xaui-redundancy-params", xaui_redundancy_params_show,
            "This command shows XAUI redundancy parameters.\n"
            "How this OLT's XAUI uplinks stand in for each other\n");

static constinit cmd_element xaui_redundancy_switch_over_cmd = command(
    "xaui-redundancy-switch-over", xaui_redundancy_switch_over, "This command initiates XAUI redundancy switchover.\n");

void XAUI_REDUNDANCY_CLI_cmd_init()
{
    install({{&xaui_redundancy_enable_cmd, in(OLT_NODE)},
             {&xaui_redundancy_params_set_inactive_ch_mode_cmd, in(OLT_NODE)},
             {&xaui_redundancy_params_set_triggering_mode_cmd, in(OLT_NODE)},
             {&xaui_redundancy_params_set_gpio_mode_cmd, in(OLT_NODE)},
             {&xaui_redundancy_params_show_cmd, in(OLT_NODE)},
             {&xaui_redundancy_switch_over_cmd, in(OLT_NODE)}});
}
