// SPDX-License-Identifier: Apache-2.0
// Modes of an OLT, each set by one command and shown by another: the clock it is fed with, the flavor of its firmware,
// the largest frame, how its network engine classifies, how it answers refused ONUs, how bandwidth is counted.
#include "olt/modes.h"

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "olt/setting.h"

using namespace epon;

namespace {

constexpr Word ref_clock_words[] = {{"125-single-ended", REF_CLOCK_125_SINGLE_ENDED},
                                    {"161-13-differential", REF_CLOCK_161_13_DIFFERENTIAL},
                                    {"125-differential", REF_CLOCK_125_DIFFERENTIAL},
                                    {"161-13-single-ended", REF_CLOCK_161_13_SINGLE_ENDED}};
constexpr WordTable ref_clock_table = {"ref_clock", ref_clock_words};

constexpr Word flavor_words[] = {{"edk-type-1", FLAVOR_EDK_TYPE_1},
                                 {"edk-type-2", FLAVOR_EDK_TYPE_2},
                                 {"edk-type-3", FLAVOR_EDK_TYPE_3},
                                 {"default-user-edk", FLAVOR_EDK_DEFAULT_USER}};
constexpr WordTable flavor_table = {"olt_flavor_edk", flavor_words};

// The last mode has no name of its own: it is set and shown as a number.
constexpr Word ne_mode_words[] = {
    {"mode1", NE_MODE_1}, {"default", NE_MODE_DEFAULT}, {"cascading", NE_MODE_CASCADING}, {"4", NE_MODE_4}};
constexpr WordTable ne_mode_table = {"ne_mode", std::span(ne_mode_words).first<3>()};
constexpr WordTable shown_ne_mode_table = {"ne_mode", ne_mode_words};

constexpr Word dba_overhead_words[] = {{"auto", DBA_OVERHEAD_AUTO}, {"legacy", DBA_OVERHEAD_LEGACY}};
constexpr WordTable dba_overhead_table = {"dba_allocation_overhead_mode", dba_overhead_words};

constexpr OltSetting ref_clock = {word_value("ref_clock", "ref clock", ref_clock_table), NEP_set_ref_clock,
                                  NEP_get_ref_clock};
constexpr OltSetting flavor_edk = {word_value("flavor", "olt flavor edk", flavor_table), NEP_set_olt_flavor_edk_type,
                                   NEP_get_olt_flavor_edk_type};
constexpr OltSetting interface_mtu = {number_value("interface mtu", unsigned_16("INTERFACE_MTU")),
                                      NEP_set_olt_interface_mtu, NEP_get_olt_interface_mtu};
constexpr OltSetting ne_mode = {word_value("mode", "ne mode", ne_mode_table), NEP_set_olt_ne_mode, NEP_get_olt_ne_mode};
constexpr OltSetting ne_mode_by_number = {number_value("ne mode", unsigned_range("mode", NE_MODE_1, NE_MODE_4)),
                                          NEP_set_olt_ne_mode, NEP_get_olt_ne_mode};
constexpr OltSetting shown_ne_mode = {word_value("mode", "ne mode", shown_ne_mode_table), NEP_set_olt_ne_mode,
                                      NEP_get_olt_ne_mode};
constexpr OltSetting rules_for_dereg_llids = {word_value("state", "enable rules for dereg llids", enable_disable),
                                              NEP_set_enable_rules_for_dereg_llids,
                                              NEP_get_enable_rules_for_dereg_llids};
constexpr OltSetting nack_control = {word_value("state", "nack control", enable_disable), NEP_set_nack_control,
                                     NEP_get_nack_control};
constexpr OltSetting dba_overhead = {word_value("mode", "dba allocation overhead mode", dba_overhead_table),
                                     NEP_set_dba_allocation_overhead_mode, NEP_get_dba_allocation_overhead_mode};

} // namespace

int set_olt_ref_clock(cmd_element*, vty* session, int argc, char** argv)
{
    return set_setting(ref_clock, session, argc, argv);
}

int show_olt_ref_clock(cmd_element*, vty* session, int argc, char** argv)
{
    return show_setting(ref_clock, session, argc, argv);
}

int set_olt_flavor_edk(cmd_element*, vty* session, int argc, char** argv)
{
    return set_setting(flavor_edk, session, argc, argv);
}

int get_olt_flavor_edk(cmd_element*, vty* session, int argc, char** argv)
{
    return show_setting(flavor_edk, session, argc, argv);
}

int set_olt_interface_mtu(cmd_element*, vty* session, int argc, char** argv)
{
    return set_setting(interface_mtu, session, argc, argv);
}

int show_olt_interface_mtu(cmd_element*, vty* session, int argc, char** argv)
{
    return show_setting(interface_mtu, session, argc, argv);
}

int set_olt_ne_mode(cmd_element*, vty* session, int argc, char** argv)
{
    return set_setting(ne_mode, session, argc, argv);
}

int set_olt_ne_mode_num(cmd_element*, vty* session, int argc, char** argv)
{
    return set_setting(ne_mode_by_number, session, argc, argv);
}

int show_olt_ne_mode(cmd_element*, vty* session, int argc, char** argv)
{
    return show_setting(shown_ne_mode, session, argc, argv);
}

int set_enable_rules_for_dereg_llids(cmd_element*, vty* session, int argc, char** argv)
{
    return set_setting_to(rules_for_dereg_llids, 1, session, argc, argv);
}

int no_enable_rules_for_dereg_llids(cmd_element*, vty* session, int argc, char** argv)
{
    return set_setting_to(rules_for_dereg_llids, 0, session, argc, argv);
}

int show_enable_rules_for_dereg_llids(cmd_element*, vty* session, int argc, char** argv)
{
    return show_setting(rules_for_dereg_llids, session, argc, argv);
}

int set_nack_control(cmd_element*, vty* session, int argc, char** argv)
{
    return set_setting(nack_control, session, argc, argv);
}

int get_nack_control(cmd_element*, vty* session, int argc, char** argv)
{
    return show_setting(nack_control, session, argc, argv);
}

int set_dba_allocation_overhead_mode(cmd_element*, vty* session, int argc, char** argv)
{
    return set_setting(dba_overhead, session, argc, argv);
}

int show_dba_allocation_overhead_mode(cmd_element*, vty* session, int argc, char** argv)
{
    return show_setting(dba_overhead, session, argc, argv);
}

static constinit cmd_element set_olt_ref_clock_global_cmd = command(
    "set olt OLT_INDEX ref-clock (125-single-ended | 161-13-differential | 125-differential | 161-13-single-ended)",
    set_olt_ref_clock,
    "Change a setting\n"
    "An OLT\n"
    "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
    "Reference clock that the OLT's transceivers are fed with\n"
    "125-...: 125 MHz; 161-13-...: 161.13 MHz; single-ended: on one wire; differential: on a pair\n");

static constinit cmd_element set_olt_ref_clock_cmd =
    command("set olt ref-clock (125-single-ended | 161-13-differential | 125-differential | 161-13-single-ended)",
            set_olt_ref_clock,
            "Change a setting\n"
            "This OLT\n"
            "Reference clock that the OLT's transceivers are fed with\n"
            "125-...: 125 MHz; 161-13-...: 161.13 MHz; single-ended: on one wire; differential: on a pair\n");

static constinit cmd_element show_olt_ref_clock_global_cmd =
    command("show olt OLT_INDEX ref-clock", show_olt_ref_clock,
            "Show settings and state\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "Reference clock that the OLT's transceivers are fed with\n");

static constinit cmd_element show_olt_ref_clock_cmd =
    command("show olt ref-clock", show_olt_ref_clock,
            "Show settings and state\n"
            "This OLT\n"
            "Reference clock that the OLT's transceivers are fed with\n");

static constinit cmd_element set_olt_flavor_edk_cmd = command(
    "set olt-flavor-edk olt OLT_INDEX flavor (edk-type-1|edk-type-2|edk-type-3|default-user-edk)", set_olt_flavor_edk,
    "Change a setting\n"
    "Development kit that the firmware's user code was built with\n"
    "An OLT\n"
    "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
    "Which kit it was\n"
    "edk-type-1, edk-type-2, edk-type-3: a customer's kit; default-user-edk: the one that is delivered\n");

static constinit cmd_element get_olt_flavor_edk_cmd =
    command("show olt-flavor-edk olt OLT_INDEX", get_olt_flavor_edk,
            "Show settings and state\n"
            "Development kit that the firmware's user code was built with\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n");

static constinit cmd_element set_olt_interface_mtu_cmd =
    command("set olt OLT_INDEX interface-mtu INTERFACE_MTU", set_olt_interface_mtu,
            "Change a setting\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "Largest frame that the OLT's interfaces forward\n"
            "Largest frame, in octets, 64-16383, decimal or with 0x hexadecimal\n");

static constinit cmd_element show_olt_interface_mtu_cmd =
    command("show olt OLT_INDEX interface-mtu", show_olt_interface_mtu,
            "Show settings and state\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "Largest frame that the OLT's interfaces forward\n");

static constinit cmd_element set_olt_ne_mode_cmd =
    command("set ne-mode olt OLT_INDEX mode (mode1|default|cascading)", set_olt_ne_mode,
            "Change a setting\n"
            "How the OLT's network engine classifies frames\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "The new mode\n"
            "mode1: by the mode-1 rules; default: by the default services; cascading: for OLTs that are chained\n");

static constinit cmd_element set_olt_ne_mode_num_cmd =
    command("set ne-mode olt OLT_INDEX mode <1-4>", set_olt_ne_mode_num,
            "Change a setting\n"
            "How the OLT's network engine classifies frames\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "The new mode\n"
            "Number of the mode: 1 mode1, 2 default, 3 cascading, 4 has no name\n");

static constinit cmd_element show_olt_ne_mode_cmd = command("show ne-mode olt OLT_INDEX", show_olt_ne_mode,
                                                            "Show settings and state\n"
                                                            "How the OLT's network engine classifies frames\n"
                                                            "An OLT\n"
                                                            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n");

static constinit cmd_element set_enable_rules_for_dereg_llids_cmd =
    command("set enable-rules-for-dereg-llids olt OLT_INDEX", set_enable_rules_for_dereg_llids,
            "Change a setting\n"
            "Whether rules of a link stay in force while the link is not registered\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n");

static constinit cmd_element no_enable_rules_for_dereg_llids_cmd =
    command("no enable-rules-for-dereg-llids olt OLT_INDEX", no_enable_rules_for_dereg_llids,
            "Turn a setting off, or take an object away\n"
            "Whether rules of a link stay in force while the link is not registered\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n");

static constinit cmd_element show_enable_rules_for_dereg_llids_cmd =
    command("show enable-rules-for-dereg-llids olt OLT_INDEX", show_enable_rules_for_dereg_llids,
            "Show settings and state\n"
            "Whether rules of a link stay in force while the link is not registered\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n");

static constinit cmd_element set_nack_control_global_cmd =
    command("set nack-control olt OLT_INDEX state (enable|disable)", set_nack_control,
            "Change a setting\n"
            "Whether an ONU that is refused registration is told so\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "The new state\n"
            "enable: a refused ONU gets a NACK; disable: a refused ONU gets no answer\n");

static constinit cmd_element set_nack_control_cmd =
    command("set nack-control state (enable|disable)", set_nack_control,
            "Change a setting\n"
            "Whether an ONU that is refused registration is told so\n"
            "The new state\n"
            "enable: a refused ONU gets a NACK; disable: a refused ONU gets no answer\n");

static constinit cmd_element get_nack_control_global_cmd =
    command("show nack-control olt OLT_INDEX", get_nack_control,
            "Show settings and state\n"
            "Whether an ONU that is refused registration is told so\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n");

static constinit cmd_element get_nack_control_cmd = command("show nack-control", get_nack_control,
                                                            "Show settings and state\n"
                                                            "Whether an ONU that is refused registration is told so\n");

static constinit cmd_element set_dba_allocation_overhead_mode_global_cmd =
    command("set dba-allocation-overhead olt OLT_INDEX mode (auto|legacy)", set_dba_allocation_overhead_mode,
            "Change a setting\n"
            "How the bandwidth allocation counts the overhead of a burst\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "The new mode\n"
            "auto: as each ONU's laser times ask for; legacy: the same for every ONU\n");

static constinit cmd_element set_dba_allocation_overhead_mode_cmd =
    command("set dba-allocation-overhead mode (auto|legacy)", set_dba_allocation_overhead_mode,
            "Change a setting\n"
            "How the bandwidth allocation counts the overhead of a burst\n"
            "The new mode\n"
            "auto: as each ONU's laser times ask for; legacy: the same for every ONU\n");

static constinit cmd_element show_dba_allocation_overhead_mode_global_cmd =
    command("show dba-allocation-overhead-mode olt OLT_INDEX", show_dba_allocation_overhead_mode,
            "Show settings and state\n"
            "How the bandwidth allocation counts the overhead of a burst\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n");

static constinit cmd_element show_dba_allocation_overhead_mode_cmd =
    command("show dba-allocation-overhead-mode", show_dba_allocation_overhead_mode,
            "Show settings and state\n"
            "How the bandwidth allocation counts the overhead of a burst\n");

namespace epon {

void install_olt_modes()
{
    install({{&set_olt_ref_clock_global_cmd, in(CONFIG_NODE)},
             {&set_olt_ref_clock_cmd, in(OLT_NODE)},
             {&show_olt_ref_clock_global_cmd, in(CONFIG_NODE)},
             {&show_olt_ref_clock_cmd, in(OLT_NODE)},
             {&set_olt_flavor_edk_cmd, in(CONFIG_NODE)},
             {&get_olt_flavor_edk_cmd, in(CONFIG_NODE)},
             {&set_olt_interface_mtu_cmd, in(CONFIG_NODE)},
             {&show_olt_interface_mtu_cmd, in(CONFIG_NODE)},
             {&set_olt_ne_mode_cmd, in(CONFIG_NODE)},
             {&set_olt_ne_mode_num_cmd, in(CONFIG_NODE)},
             {&show_olt_ne_mode_cmd, in(CONFIG_NODE)},
             {&set_enable_rules_for_dereg_llids_cmd, in(CONFIG_NODE, OLT_NODE)},
             {&no_enable_rules_for_dereg_llids_cmd, in(CONFIG_NODE, OLT_NODE)},
             {&show_enable_rules_for_dereg_llids_cmd, SHOW_NODES | in(OLT_NODE)},
             {&set_nack_control_global_cmd, in(CONFIG_NODE)},
             {&set_nack_control_cmd, in(OLT_NODE)},
             {&get_nack_control_global_cmd, in(CONFIG_NODE)},
             {&get_nack_control_cmd, in(OLT_NODE)},
             {&set_dba_allocation_overhead_mode_global_cmd, in(CONFIG_NODE)},
             {&set_dba_allocation_overhead_mode_cmd, in(OLT_NODE)},
             {&show_dba_allocation_overhead_mode_global_cmd, SHOW_NODES},
             {&show_dba_allocation_overhead_mode_cmd, in(OLT_NODE)}});
}

} // namespace epon
