// SPDX-License-Identifier: Apache-2.0
// What an ONU tells of its services, its ports and its abilities.
#include "host/sdk_sim/ctc_capabilities.h"

#include "host/sdk_sim/ctc_operation.h"
#include "host/sdk_sim/scenario_reader.h"

namespace sdk_sim {

template <>
inline constexpr auto
    record_fields<CTC_onu_capabilities> = std::tuple(record_field("ge_ports", &CTC_onu_capabilities::ge_ports),
                                                     record_field("fe_ports", &CTC_onu_capabilities::fe_ports),
                                                     record_field("pots_ports", &CTC_onu_capabilities::pots_ports),
                                                     record_field("e1_ports", &CTC_onu_capabilities::e1_ports));

template <>
inline constexpr auto record_fields<CTC_onu_capabilities_2> =
    std::tuple(record_field("onu_type", &CTC_onu_capabilities_2::onu_type),
               record_field("multi_llid", &CTC_onu_capabilities_2::multi_llid),
               record_field("protection_type", &CTC_onu_capabilities_2::protection_type),
               record_field("pon_interfaces", &CTC_onu_capabilities_2::pon_interfaces),
               record_field("slots", &CTC_onu_capabilities_2::slots),
               record_field("interface_types", &CTC_onu_capabilities_2::interface_types));

template <>
inline constexpr auto record_fields<CTC_onu_capabilities_3> =
    std::tuple(record_field("ipv6", &CTC_onu_capabilities_3::ipv6),
               record_field("power_supply_control", &CTC_onu_capabilities_3::power_supply_control),
               record_field("service_sla", &CTC_onu_capabilities_3::service_sla));

namespace {

const Operation get_capabilities("CTC_STACK_get_onu_capabilities", CTC_STACK);
const Operation get_capabilities_2("CTC_STACK_get_onu_capabilities_2", CTC_STACK);
const Operation get_capabilities_3("CTC_STACK_get_onu_capabilities_3", CTC_STACK);

constexpr std::uint8_t PORTS_MAX = 64; // as many as a bitmap has bits
constexpr std::uint8_t PON_INTERFACES_MAX = 2;
constexpr std::uint8_t SLOTS_MAX = 63;
constexpr std::uint8_t LINKS_MAX = 8;

constexpr ScenarioWord type_words[] = {{"sfu", CTC_ONU_SFU},
                                       {"hgu", CTC_ONU_HGU},
                                       {"sbu", CTC_ONU_SBU},
                                       {"mdu-box", CTC_ONU_MDU_BOX},
                                       {"mdu-small-card", CTC_ONU_MDU_SMALL_CARD},
                                       {"mdu-medium-card", CTC_ONU_MDU_MEDIUM_CARD},
                                       {"mtu", CTC_ONU_MTU}};
constexpr ScenarioWord protection_words[] = {
    {"none", CTC_PROTECTION_NONE}, {"type-c", CTC_PROTECTION_TYPE_C}, {"type-d", CTC_PROTECTION_TYPE_D}};
constexpr ScenarioWord power_supply_control_words[] = {{"none", CTC_POWER_SUPPLY_CONTROL_NONE},
                                                       {"tx", CTC_POWER_SUPPLY_CONTROL_TX},
                                                       {"tx-rx", CTC_POWER_SUPPLY_CONTROL_TX_RX}};
constexpr ScenarioWord sleep_words[] = {
    {"none", CTC_SLEEP_NONE}, {"tx", CTC_SLEEP_TX}, {"trx", CTC_SLEEP_TRX}, {"both", CTC_SLEEP_BOTH}};

std::uint64_t bitmap_of(std::uint8_t ports)
{
    return ports >= PORTS_MAX ? UINT64_MAX : (std::uint64_t{1} << ports) - 1;
}

void add_interface(CTC_onu_capabilities_2* record, CtcInterfaceType type, std::uint8_t ports)
{
    if (ports == 0) return;
    CTC_interface_capability& interface = record->interfaces[record->interface_types++];
    interface.type = type;
    interface.ports = ports;
}

CTC_onu_capabilities first_record(const OnuCapabilities& onu)
{
    CTC_onu_capabilities record{};
    record.ge_service = onu.ge_ports != 0;
    record.fe_service = onu.fe_ports != 0;
    record.voip_service = onu.pots_ports != 0;
    record.tdm_ces_service = onu.e1_ports != 0;
    record.ge_ports = onu.ge_ports;
    record.fe_ports = onu.fe_ports;
    record.pots_ports = onu.pots_ports;
    record.e1_ports = onu.e1_ports;
    record.ge_ports_bitmap = bitmap_of(onu.ge_ports);
    record.fe_ports_bitmap = bitmap_of(onu.fe_ports);
    record.uplink_queues = record.downlink_queues = onu.queues;
    record.uplink_queues_per_port = record.downlink_queues_per_port = onu.queues_per_port;
    record.battery_backup = onu.battery_backup;
    record.fec = onu.fec;
    return record;
}

CTC_onu_capabilities_2 second_record(const OnuCapabilities& onu)
{
    CTC_onu_capabilities_2 record{};
    record.onu_type = static_cast<std::uint16_t>(onu.type);
    record.multi_llid = onu.multi_llid;
    record.protection_type = static_cast<std::uint8_t>(onu.protection);
    record.pon_interfaces = onu.pon_interfaces;
    record.slots = onu.slots;
    add_interface(&record, CTC_INTERFACE_GE, onu.ge_ports);
    add_interface(&record, CTC_INTERFACE_FE, onu.fe_ports);
    add_interface(&record, CTC_INTERFACE_VOIP, onu.pots_ports);
    add_interface(&record, CTC_INTERFACE_TDM, onu.e1_ports);
    record.battery_backup = onu.battery_backup;
    return record;
}

CTC_onu_capabilities_3 third_record(const OnuCapabilities& onu)
{
    return {onu.ipv6, static_cast<std::uint8_t>(onu.power_supply_control), onu.service_sla, 0};
}

} // namespace

OnuCapabilities default_capabilities(const Onu& onu)
{
    OnuCapabilities capabilities;
    if (onu.rate == OnuRate::Rate1G) return capabilities;
    capabilities.type = CTC_ONU_HGU;
    capabilities.ge_ports = 4;
    capabilities.pots_ports = 2;
    capabilities.sleep = CTC_SLEEP_BOTH;
    capabilities.early_wakeup = 1;
    if (onu.rate == OnuRate::Rate10G1G) return capabilities;
    capabilities.type = CTC_ONU_SBU;
    capabilities.e1_ports = 4;
    capabilities.multi_llid = LINKS_MAX;
    capabilities.protection = CTC_PROTECTION_TYPE_C;
    capabilities.pon_interfaces = PON_INTERFACES_MAX;
    capabilities.service_sla = 8;
    return capabilities;
}

void read_capabilities(ScenarioReader& reader, OnuCapabilities* capabilities)
{
    reader.word("type", type_words, &capabilities->type);
    reader.number("ge_ports", 0, PORTS_MAX, &capabilities->ge_ports);
    reader.number("fe_ports", 0, PORTS_MAX, &capabilities->fe_ports);
    reader.number("pots_ports", 0, PORTS_MAX, &capabilities->pots_ports);
    reader.number("e1_ports", 0, PORTS_MAX, &capabilities->e1_ports);
    reader.number("queues", 0, UINT8_MAX, &capabilities->queues);
    reader.number("queues_per_port", 0, UINT8_MAX, &capabilities->queues_per_port);
    reader.flag("battery_backup", &capabilities->battery_backup);
    reader.flag("fec", &capabilities->fec);
    reader.number("multi_llid", 0, LINKS_MAX, &capabilities->multi_llid);
    reader.word("protection", protection_words, &capabilities->protection);
    reader.number("pon_interfaces", 1, PON_INTERFACES_MAX, &capabilities->pon_interfaces);
    reader.number("slots", 0, SLOTS_MAX, &capabilities->slots);
    reader.flag("ipv6", &capabilities->ipv6);
    reader.word("power_supply_control", power_supply_control_words, &capabilities->power_supply_control);
    reader.number("service_sla", 0, UINT8_MAX, &capabilities->service_sla);
    reader.word("sleep", sleep_words, &capabilities->sleep);
    reader.flag("early_wakeup", &capabilities->early_wakeup);
}

} // namespace sdk_sim

using namespace sdk_sim;

int16_t CTC_STACK_get_onu_capabilities(int16_t olt_id, int16_t onu_id, CTC_onu_capabilities* capabilities)
{
    const auto read = [](const Onu& onu, CTC_onu_capabilities& record) { record = first_record(onu.capabilities); };
    return get_ctc(get_capabilities, olt_id, onu_id, read, capabilities);
}

int16_t CTC_STACK_get_onu_capabilities_2(int16_t olt_id, int16_t onu_id, CTC_onu_capabilities_2* capabilities)
{
    const auto read = [](const Onu& onu, CTC_onu_capabilities_2& record) { record = second_record(onu.capabilities); };
    return get_ctc(get_capabilities_2, olt_id, onu_id, read, capabilities);
}

int16_t CTC_STACK_get_onu_capabilities_3(int16_t olt_id, int16_t onu_id, CTC_onu_capabilities_3* capabilities)
{
    const auto read = [](const Onu& onu, CTC_onu_capabilities_3& record) { record = third_record(onu.capabilities); };
    return get_ctc(get_capabilities_3, olt_id, onu_id, read, capabilities);
}
