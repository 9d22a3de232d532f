// SPDX-License-Identifier: Apache-2.0
// What an ONU is able to do: services and ports, kind and build, and what later ONUs can do besides.
#include "CTC_STACK_CLI/capabilities.h"

#include <cstddef>

#include "CLI_GENERAL/onu_show.h"
#include "CTC_STACK_CLI/onu_report.h"

using namespace epon;

namespace {

constexpr Word supported_words[] = {{"supported", 1}, {"not-supported", 0}};
constexpr WordTable supported = {"supported", supported_words};

constexpr Word onu_type_words[] = {
    {"sfu", CTC_ONU_SFU},
    {"hgu", CTC_ONU_HGU},
    {"sbu", CTC_ONU_SBU},
    {"mdu-box", CTC_ONU_MDU_BOX},
    {"mdu-small-card", CTC_ONU_MDU_SMALL_CARD},
    {"mdu-medium-card", CTC_ONU_MDU_MEDIUM_CARD},
    {"mtu", CTC_ONU_MTU},
};
constexpr WordTable onu_type = {"onu_type", onu_type_words};

constexpr Word protection_type_words[] = {
    {"none", CTC_PROTECTION_NONE}, {"type-c", CTC_PROTECTION_TYPE_C}, {"type-d", CTC_PROTECTION_TYPE_D}};
constexpr WordTable protection_type = {"protection_type", protection_type_words};

constexpr Word interface_type_words[] = {
    {"ge", CTC_INTERFACE_GE},
    {"fe", CTC_INTERFACE_FE},
    {"voip", CTC_INTERFACE_VOIP},
    {"tdm", CTC_INTERFACE_TDM},
    {"adsl2-plus", CTC_INTERFACE_ADSL2_PLUS},
    {"vdsl2", CTC_INTERFACE_VDSL2},
    {"wlan", CTC_INTERFACE_WLAN},
    {"usb", CTC_INTERFACE_USB},
    {"catv", CTC_INTERFACE_CATV},
};
constexpr WordTable interface_type = {"interface_type", interface_type_words};

constexpr Word power_supply_control_words[] = {{"none", CTC_POWER_SUPPLY_CONTROL_NONE},
                                               {"tx", CTC_POWER_SUPPLY_CONTROL_TX},
                                               {"tx-rx", CTC_POWER_SUPPLY_CONTROL_TX_RX}};
constexpr WordTable power_supply_control = {"power_supply_control", power_supply_control_words};

using First = CTC_onu_capabilities;
constexpr Field first_fields[] = {
    {"ge_service", FieldFormat::Uint8Word, offsetof(First, ge_service), &supported},
    {"fe_service", FieldFormat::Uint8Word, offsetof(First, fe_service), &supported},
    {"voip_service", FieldFormat::Uint8Word, offsetof(First, voip_service), &supported},
    {"tdm_ces_service", FieldFormat::Uint8Word, offsetof(First, tdm_ces_service), &supported},
    {"number_of_ge_ports", FieldFormat::Uint8, offsetof(First, ge_ports)},
    {"number_of_fe_ports", FieldFormat::Uint8, offsetof(First, fe_ports)},
    {"number_of_pots_ports", FieldFormat::Uint8, offsetof(First, pots_ports)},
    {"number_of_e1_ports", FieldFormat::Uint8, offsetof(First, e1_ports)},
    {"ge_ports_bitmap", FieldFormat::Hex64, offsetof(First, ge_ports_bitmap)},
    {"fe_ports_bitmap", FieldFormat::Hex64, offsetof(First, fe_ports_bitmap)},
    {"uplink_queues", FieldFormat::Uint8, offsetof(First, uplink_queues)},
    {"uplink_queues_per_port", FieldFormat::Uint8, offsetof(First, uplink_queues_per_port)},
    {"downlink_queues", FieldFormat::Uint8, offsetof(First, downlink_queues)},
    {"downlink_queues_per_port", FieldFormat::Uint8, offsetof(First, downlink_queues_per_port)},
    {"battery_backup", FieldFormat::Uint8Word, offsetof(First, battery_backup), &supported},
    {"fec", FieldFormat::Uint8Word, offsetof(First, fec), &supported},
};

// The interfaces stand between the two.
using Second = CTC_onu_capabilities_2;
constexpr Field kind_fields[] = {
    {"onu_type", FieldFormat::Uint16Word, offsetof(Second, onu_type), &onu_type},
    {"multi_llid", FieldFormat::Uint8, offsetof(Second, multi_llid)},
    {"protection_type", FieldFormat::Uint8Word, offsetof(Second, protection_type), &protection_type},
    {"number_of_pon_interfaces", FieldFormat::Uint8, offsetof(Second, pon_interfaces)},
    {"number_of_slots", FieldFormat::Uint8, offsetof(Second, slots)},
    {"number_of_interface_types", FieldFormat::Uint8, offsetof(Second, interface_types)},
};
constexpr Field interface_fields[] = {
    {"interface_type", FieldFormat::Int32Word, offsetof(CTC_interface_capability, type), &interface_type},
    {"number_of_ports", FieldFormat::Uint16, offsetof(CTC_interface_capability, ports)},
};
constexpr Field battery_field = {"battery_backup", FieldFormat::Uint8Word, offsetof(Second, battery_backup),
                                 &supported};

using Third = CTC_onu_capabilities_3;
constexpr Field third_fields[] = {
    {"ipv6", FieldFormat::Uint8Word, offsetof(Third, ipv6), &supported},
    {"power_supply_control", FieldFormat::Uint8Word, offsetof(Third, power_supply_control), &power_supply_control},
    {"service_sla", FieldFormat::Uint8, offsetof(Third, service_sla)},
};

} // namespace

int show_onu_capabilities(cmd_element*, vty* session, int argc, char** argv)
{
    return show_ctc(session, argc, argv, CTC_STACK_get_onu_capabilities, first_fields);
}

int show_onu_capabilities_2(cmd_element*, vty* session, int argc, char** argv)
{
    OnuTarget onu;
    int result;
    if (!read_onu_target(session, argc, argv, &onu, &result)) return result;
    Second capabilities{};
    const int16_t code = CTC_STACK_get_onu_capabilities_2(onu.olt_id, onu.onu_id, &capabilities);
    if (code != 0) return report_ctc(session, code);
    print_onu(session, onu);
    print_fields(session, &capabilities, kind_fields);
    // The number of interfaces is the device's own: the array is what bounds it.
    for (int i = 0; i < capabilities.interface_types && i < CTC_INTERFACE_TYPES_MAX; ++i)
        print_fields(session, &capabilities.interfaces[i], interface_fields);
    print_fields(session, &capabilities, {&battery_field, 1});
    return 0;
}

int show_onu_capabilities_3(cmd_element*, vty* session, int argc, char** argv)
{
    return show_ctc(session, argc, argv, CTC_STACK_get_onu_capabilities_3, third_fields);
}

static constinit OnuShow show_onu_capabilities_cmd =
    ctc_show<"capabilities", "Its services, its ports, the queues of both directions, battery and error correction\n">(
        show_onu_capabilities);

static constinit OnuShow show_onu_capabilities_2_cmd =
    ctc_show<"capabilities-2",
             "Its kind, number of links (0: one alone), protection, PON interfaces, slots and interfaces\n">(
        show_onu_capabilities_2);

static constinit OnuShow show_onu_capabilities_3_cmd =
    ctc_show<"capabilities-3", "IPv6, control of its optical power supply, services that can have an agreement\n">(
        show_onu_capabilities_3);

namespace epon {

void install_ctc_capabilities()
{
    install({&show_onu_capabilities_cmd, &show_onu_capabilities_2_cmd, &show_onu_capabilities_3_cmd});
}

} // namespace epon
