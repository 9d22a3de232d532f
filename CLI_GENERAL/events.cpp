// SPDX-License-Identifier: Apache-2.0
// What operators see of SDK events: one line for each event, with its name, the OLT and all its values. The printers
// are called on the SDK's threads.
#include "CLI_GENERAL/events.h"

#include <cstddef>
#include <cstdio>
#include <span>

#include "CLI_GENERAL/output.h"

namespace epon {

namespace {

constexpr Word port_words[] = {{"pon", 0}, {"system", 1}};
constexpr WordTable port = {"port", port_words};
constexpr Word rate_words[] = {{"1G/1G", 0}, {"10G/1G", 1}, {"10G/10G", 2}};
constexpr WordTable rate = {"rate", rate_words};
constexpr Word deregistration_reason_words[] = {{"command", 0}, {"mpcp-timeout", 1}, {"oam-timeout", 2},
                                                {"onu", 3},     {"refused", 4},      {"olt-reset", 5}};
constexpr WordTable deregistration_reason = {"deregistration_reason", deregistration_reason_words};
constexpr Word refusal_reason_words[] = {
    {"not-authorized", 0}, {"black-listed", 1}, {"no-free-link", 2}, {"duplicate-mac", 3}};
constexpr WordTable refusal_reason = {"refusal_reason", refusal_reason_words};
constexpr Word raised_words[] = {{"raised", 1}, {"cleared", 0}};
constexpr WordTable raised = {"raised", raised_words};
constexpr Word loopback_state_words[] = {{"open", 0}, {"closed", 1}};
constexpr WordTable loopback_state = {"loopback_state", loopback_state_words};
constexpr Word yes_no_words[] = {{"yes", 1}, {"no", 0}};
constexpr WordTable yes_no = {"yes_no", yes_no_words};
constexpr Word up_down_words[] = {{"down", 0}, {"up", 1}};
constexpr WordTable up_down = {"up_down", up_down_words};
constexpr Word oam_error_type_words[] = {
    {"errored-symbol-period", 1}, {"errored-frame", 2}, {"errored-frame-period", 3}, {"errored-frame-seconds", 4}};
constexpr WordTable oam_error_type = {"oam_error_type", oam_error_type_words};
constexpr Word encryption_direction_words[] = {{"off", 0}, {"downlink", 1}, {"uplink-downlink", 2}};
constexpr WordTable encryption_direction = {"encryption_direction", encryption_direction_words};
constexpr Word olt_state_words[] = {{"absent", 0}, {"starting", 1}, {"operational", 2}, {"failed", 3}};
constexpr WordTable olt_state = {"olt_state", olt_state_words};
constexpr Word signal_state_words[] = {{"lost", 0}, {"present", 1}};
constexpr WordTable signal_state = {"signal_state", signal_state_words};
constexpr Word primary_secondary_words[] = {{"primary", 0}, {"secondary", 1}};
constexpr WordTable primary_secondary = {"primary_secondary", primary_secondary_words};
constexpr Word joined_words[] = {{"joined", 1}, {"left", 0}};
constexpr WordTable joined = {"joined", joined_words};
constexpr Word protection_cause_words[] = {{"command", 0}, {"loss-of-signal", 1}, {"olt-failure", 2}};
constexpr WordTable protection_cause = {"protection_cause", protection_cause_words};
constexpr Word xaui_cause_words[] = {{"command", 0}, {"link-loss", 1}, {"gpio", 2}};
constexpr WordTable xaui_cause = {"xaui_cause", xaui_cause_words};
constexpr Word mka_state_words[] = {{"off", 0}, {"negotiating", 1}, {"secured", 2}, {"failed", 3}};
constexpr WordTable mka_state = {"mka_state", mka_state_words};
constexpr Word off_on_words[] = {{"off", 0}, {"on", 1}};
constexpr WordTable off_on = {"off_on", off_on_words};
constexpr Word flood_protocol_words[] = {{"arp", 0}, {"dhcp", 1}, {"igmp", 2}, {"mld", 3}, {"oam", 4}, {"other", 5}};
constexpr WordTable flood_protocol = {"flood_protocol", flood_protocol_words};

constexpr NameList alarm_names = {CLI_alarm_s, CLI_ALARM_COUNT};
constexpr NameList dba_names = {CLI_dba_s, CLI_DBA_COUNT};

constexpr Field ethernet_frame_received_fields[] = {
    {"llid", FieldFormat::Int16, offsetof(EthernetFrameReceivedEvent, llid)},
    {"port", FieldFormat::Uint16Word, offsetof(EthernetFrameReceivedEvent, port), &port},
    {"length", FieldFormat::Uint32, offsetof(EthernetFrameReceivedEvent, length)},
    {"frame", FieldFormat::Bytes, offsetof(EthernetFrameReceivedEvent, frame), nullptr, nullptr,
     offsetof(EthernetFrameReceivedEvent, length)},
};
constexpr Field onu_registered_fields[] = {
    {"onu", FieldFormat::Int16, offsetof(OnuRegisteredEvent, onu_id)},
    {"mac", FieldFormat::Mac, offsetof(OnuRegisteredEvent, mac)},
    {"rate", FieldFormat::Int32Word, offsetof(OnuRegisteredEvent, rate), &rate},
    {"rtt", FieldFormat::Uint32, offsetof(OnuRegisteredEvent, rtt)},
};
constexpr Field onu_deregistered_fields[] = {
    {"onu", FieldFormat::Int16, offsetof(OnuDeregisteredEvent, onu_id)},
    {"mac", FieldFormat::Mac, offsetof(OnuDeregisteredEvent, mac)},
    {"reason", FieldFormat::Int32Word, offsetof(OnuDeregisteredEvent, reason), &deregistration_reason},
};
constexpr Field onu_registration_refused_fields[] = {
    {"mac", FieldFormat::Mac, offsetof(OnuRegistrationRefusedEvent, mac)},
    {"reason", FieldFormat::Int32Word, offsetof(OnuRegistrationRefusedEvent, reason), &refusal_reason},
};
constexpr Field alarm_fields[] = {
    {"onu", FieldFormat::Int16, offsetof(AlarmEvent, onu_id)},
    {"alarm", FieldFormat::Name, offsetof(AlarmEvent, alarm), nullptr, &alarm_names},
    {"state", FieldFormat::Uint8Word, offsetof(AlarmEvent, raised), &raised},
    {"value", FieldFormat::Uint32, offsetof(AlarmEvent, value)},
};
constexpr Field link_test_completed_fields[] = {
    {"llid", FieldFormat::Int16, offsetof(LinkTestCompletedEvent, llid)},
    {"frames-sent", FieldFormat::Uint32, offsetof(LinkTestCompletedEvent, frames_sent)},
    {"frames-received", FieldFormat::Uint32, offsetof(LinkTestCompletedEvent, frames_received)},
    {"frame-errors", FieldFormat::Uint32, offsetof(LinkTestCompletedEvent, frame_errors)},
    {"min-delay", FieldFormat::Uint32, offsetof(LinkTestCompletedEvent, min_delay)},
    {"max-delay", FieldFormat::Uint32, offsetof(LinkTestCompletedEvent, max_delay)},
    {"average-delay", FieldFormat::Uint32, offsetof(LinkTestCompletedEvent, average_delay)},
};
constexpr Field loopback_changed_fields[] = {
    {"onu", FieldFormat::Int16, offsetof(LoopbackChangedEvent, onu_id)},
    {"state", FieldFormat::Int32Word, offsetof(LoopbackChangedEvent, state), &loopback_state},
};
constexpr Field self_test_completed_fields[] = {
    {"tests-run", FieldFormat::Uint32, offsetof(SelfTestCompletedEvent, tests_run)},
    {"tests-failed", FieldFormat::Uint32, offsetof(SelfTestCompletedEvent, tests_failed)},
};
constexpr Field onu_authorization_changed_fields[] = {
    {"llid", FieldFormat::Int16, offsetof(OnuAuthorizationChangedEvent, llid)},
    {"mac", FieldFormat::Mac, offsetof(OnuAuthorizationChangedEvent, mac)},
    {"authorized", FieldFormat::Uint8Word, offsetof(OnuAuthorizationChangedEvent, authorized), &yes_no},
};
constexpr Field oam_frame_received_fields[] = {
    {"llid", FieldFormat::Int16, offsetof(OamFrameReceivedEvent, llid)},
    {"length", FieldFormat::Uint32, offsetof(OamFrameReceivedEvent, length)},
    {"frame", FieldFormat::Bytes, offsetof(OamFrameReceivedEvent, frame), nullptr, nullptr,
     offsetof(OamFrameReceivedEvent, length)},
};
constexpr Field oam_link_changed_fields[] = {
    {"llid", FieldFormat::Int16, offsetof(OamLinkChangedEvent, llid)},
    {"state", FieldFormat::Int32Word, offsetof(OamLinkChangedEvent, state), &up_down},
};
constexpr Field oam_errors_reported_fields[] = {
    {"llid", FieldFormat::Int16, offsetof(OamErrorsReportedEvent, llid)},
    {"type", FieldFormat::Int32Word, offsetof(OamErrorsReportedEvent, type), &oam_error_type},
    {"window", FieldFormat::Uint32, offsetof(OamErrorsReportedEvent, window)},
    {"threshold", FieldFormat::Uint32, offsetof(OamErrorsReportedEvent, threshold)},
    {"errors", FieldFormat::Uint32, offsetof(OamErrorsReportedEvent, errors)},
};
constexpr Field encryption_changed_fields[] = {
    {"llid", FieldFormat::Int16, offsetof(EncryptionChangedEvent, llid)},
    {"direction", FieldFormat::Int32Word, offsetof(EncryptionChangedEvent, direction), &encryption_direction},
};
constexpr Field encryption_key_updated_fields[] = {
    {"llid", FieldFormat::Int16, offsetof(EncryptionKeyUpdatedEvent, llid)},
    {"key-index", FieldFormat::Uint8, offsetof(EncryptionKeyUpdatedEvent, key_index)},
};
constexpr Field olt_state_changed_fields[] = {
    {"state", FieldFormat::Int32Word, offsetof(OltStateChangedEvent, state), &olt_state},
};
constexpr Field dba_state_changed_fields[] = {
    {"dba", FieldFormat::Name, offsetof(DbaStateChangedEvent, dba), nullptr, &dba_names},
    {"running", FieldFormat::Uint8Word, offsetof(DbaStateChangedEvent, running), &yes_no},
};
constexpr Field dba_sla_refused_fields[] = {
    {"llid", FieldFormat::Int16, offsetof(DbaSlaRefusedEvent, llid)},
    {"result", FieldFormat::Int32, offsetof(DbaSlaRefusedEvent, result)},
};
constexpr Field cni_link_changed_fields[] = {
    {"port", FieldFormat::Uint16, offsetof(CniLinkChangedEvent, port)},
    {"state", FieldFormat::Int32Word, offsetof(CniLinkChangedEvent, state), &up_down},
};
constexpr Field pon_signal_changed_fields[] = {
    {"state", FieldFormat::Int32Word, offsetof(PonSignalChangedEvent, state), &signal_state},
};
constexpr Field optical_module_changed_fields[] = {
    {"module", FieldFormat::Int32Word, offsetof(OpticalModuleChangedEvent, module), &primary_secondary},
    {"present", FieldFormat::Uint8Word, offsetof(OpticalModuleChangedEvent, present), &yes_no},
};
constexpr Field duplicate_mac_address_fields[] = {
    {"llid", FieldFormat::Int16, offsetof(DuplicateMacAddressEvent, llid)},
    {"mac", FieldFormat::Mac, offsetof(DuplicateMacAddressEvent, mac)},
};
constexpr Field mac_migrated_fields[] = {
    {"mac", FieldFormat::Mac, offsetof(MacMigratedEvent, mac)},
    {"from-llid", FieldFormat::Int16, offsetof(MacMigratedEvent, from_llid)},
    {"to-llid", FieldFormat::Int16, offsetof(MacMigratedEvent, to_llid)},
    {"vlan", FieldFormat::Uint16, offsetof(MacMigratedEvent, vlan)},
};
constexpr Field address_table_full_fields[] = {
    {"llid", FieldFormat::Int16, offsetof(AddressTableFullEvent, llid)},
    {"entries", FieldFormat::Uint32, offsetof(AddressTableFullEvent, entries)},
};
constexpr Field multicast_group_changed_fields[] = {
    {"llid", FieldFormat::Int16, offsetof(MulticastGroupChangedEvent, llid)},
    {"group", FieldFormat::Mac, offsetof(MulticastGroupChangedEvent, group)},
    {"vlan", FieldFormat::Uint16, offsetof(MulticastGroupChangedEvent, vlan)},
    {"state", FieldFormat::Uint8Word, offsetof(MulticastGroupChangedEvent, joined), &joined},
};
constexpr Field protection_switched_fields[] = {
    {"active-olt", FieldFormat::Int16, offsetof(ProtectionSwitchedEvent, active_olt)},
    {"cause", FieldFormat::Int32Word, offsetof(ProtectionSwitchedEvent, cause), &protection_cause},
};
constexpr Field xaui_switched_over_fields[] = {
    {"channel", FieldFormat::Int32Word, offsetof(XauiSwitchedOverEvent, channel), &primary_secondary},
    {"cause", FieldFormat::Int32Word, offsetof(XauiSwitchedOverEvent, cause), &xaui_cause},
};
constexpr Field reference_clock_changed_fields[] = {
    {"source", FieldFormat::Int32, offsetof(ReferenceClockChangedEvent, source)},
    {"locked", FieldFormat::Uint8Word, offsetof(ReferenceClockChangedEvent, locked), &yes_no},
};
constexpr Field time_of_day_changed_fields[] = {
    {"seconds", FieldFormat::Uint32, offsetof(TimeOfDayChangedEvent, seconds)},
    {"nanoseconds", FieldFormat::Uint32, offsetof(TimeOfDayChangedEvent, nanoseconds)},
};
constexpr Field firmware_download_progress_fields[] = {
    {"onu", FieldFormat::Int16, offsetof(FirmwareDownloadProgressEvent, onu_id)},
    {"bytes-done", FieldFormat::Uint32, offsetof(FirmwareDownloadProgressEvent, bytes_done)},
    {"bytes-total", FieldFormat::Uint32, offsetof(FirmwareDownloadProgressEvent, bytes_total)},
};
constexpr Field rogue_onu_detected_fields[] = {
    {"onu", FieldFormat::Int16, offsetof(RogueOnuDetectedEvent, onu_id)},
    {"mac", FieldFormat::Mac, offsetof(RogueOnuDetectedEvent, mac)},
    {"violations", FieldFormat::Uint32, offsetof(RogueOnuDetectedEvent, violations)},
};
constexpr Field mka_state_changed_fields[] = {
    {"llid", FieldFormat::Int16, offsetof(MkaStateChangedEvent, llid)},
    {"state", FieldFormat::Int32Word, offsetof(MkaStateChangedEvent, state), &mka_state},
};
constexpr Field mka_key_installed_fields[] = {
    {"llid", FieldFormat::Int16, offsetof(MkaKeyInstalledEvent, llid)},
    {"association", FieldFormat::Uint8, offsetof(MkaKeyInstalledEvent, association)},
    {"key-number", FieldFormat::Uint32, offsetof(MkaKeyInstalledEvent, key_number)},
};
constexpr Field packet_number_threshold_fields[] = {
    {"llid", FieldFormat::Int16, offsetof(PacketNumberThresholdEvent, llid)},
    {"packet-number", FieldFormat::Uint64, offsetof(PacketNumberThresholdEvent, packet_number)},
};
constexpr Field gpio_changed_fields[] = {
    {"line", FieldFormat::Uint16, offsetof(GpioChangedEvent, line)},
    {"level", FieldFormat::Int32Word, offsetof(GpioChangedEvent, level), &off_on},
};
constexpr Field uart_data_received_fields[] = {
    {"length", FieldFormat::Uint32, offsetof(UartDataReceivedEvent, length)},
    {"data", FieldFormat::Bytes, offsetof(UartDataReceivedEvent, data), nullptr, nullptr,
     offsetof(UartDataReceivedEvent, length)},
};
constexpr Field otdr_measured_fields[] = {
    {"distance", FieldFormat::Uint32, offsetof(OtdrMeasuredEvent, distance)},
    {"loss", FieldFormat::Hundredths, offsetof(OtdrMeasuredEvent, loss)},
};
constexpr Field flood_detected_fields[] = {
    {"llid", FieldFormat::Int16, offsetof(FloodDetectedEvent, llid)},
    {"protocol", FieldFormat::Int32Word, offsetof(FloodDetectedEvent, protocol), &flood_protocol},
    {"rate", FieldFormat::Uint32, offsetof(FloodDetectedEvent, rate)},
};
constexpr Field received_power_measured_fields[] = {
    {"llid", FieldFormat::Int16, offsetof(ReceivedPowerMeasuredEvent, llid)},
    {"power", FieldFormat::Hundredths, offsetof(ReceivedPowerMeasuredEvent, power)},
};

struct EventLine {
    const char* name;
    std::span<const Field> fields;
};

void print_event(const EventLine& line, int16_t olt_id, const void* event)
{
    char text[640];
    size_t length = static_cast<size_t>(snprintf(text, sizeof text, "%s: olt %d", line.name, olt_id));
    for (const Field& field : line.fields) {
        char value[FIELD_TEXT_SIZE];
        format_field(field, event, value);
        const int added = snprintf(text + length, sizeof text - length, ", %s %s", field.label, value);
        length += static_cast<size_t>(added);
        if (length >= sizeof text) break; // cut, and terminated by snprintf
    }
    CLI_print(text);
}

// The line of an event kind and the handler that the SDK calls for it.
template <const EventLine& line, class Record>
void printer(int16_t olt_id, const Record* event)
{
    print_event(line, olt_id, event);
}

constexpr EventLine ethernet_frame_received = {"ethernet-frame-received", ethernet_frame_received_fields};
constexpr EventLine onu_registered = {"onu-registered", onu_registered_fields};
constexpr EventLine onu_deregistered = {"onu-deregistered", onu_deregistered_fields};
constexpr EventLine onu_registration_refused = {"onu-registration-refused", onu_registration_refused_fields};
constexpr EventLine alarm = {"alarm", alarm_fields};
constexpr EventLine link_test_completed = {"link-test-completed", link_test_completed_fields};
constexpr EventLine loopback_changed = {"loopback-changed", loopback_changed_fields};
constexpr EventLine self_test_completed = {"self-test-completed", self_test_completed_fields};
constexpr EventLine onu_authorization_changed = {"onu-authorization-changed", onu_authorization_changed_fields};
constexpr EventLine oam_frame_received = {"oam-frame-received", oam_frame_received_fields};
constexpr EventLine oam_link_changed = {"oam-link-changed", oam_link_changed_fields};
constexpr EventLine oam_errors_reported = {"oam-errors-reported", oam_errors_reported_fields};
constexpr EventLine encryption_changed = {"encryption-changed", encryption_changed_fields};
constexpr EventLine encryption_key_updated = {"encryption-key-updated", encryption_key_updated_fields};
constexpr EventLine olt_state_changed = {"olt-state-changed", olt_state_changed_fields};
constexpr EventLine dba_state_changed = {"dba-state-changed", dba_state_changed_fields};
constexpr EventLine dba_sla_refused = {"dba-sla-refused", dba_sla_refused_fields};
constexpr EventLine cni_link_changed = {"cni-link-changed", cni_link_changed_fields};
constexpr EventLine pon_signal_changed = {"pon-signal-changed", pon_signal_changed_fields};
constexpr EventLine optical_module_changed = {"optical-module-changed", optical_module_changed_fields};
constexpr EventLine duplicate_mac_address = {"duplicate-mac-address", duplicate_mac_address_fields};
constexpr EventLine mac_migrated = {"mac-migrated", mac_migrated_fields};
constexpr EventLine address_table_full = {"address-table-full", address_table_full_fields};
constexpr EventLine multicast_group_changed = {"multicast-group-changed", multicast_group_changed_fields};
constexpr EventLine protection_switched = {"protection-switched", protection_switched_fields};
constexpr EventLine xaui_switched_over = {"xaui-switched-over", xaui_switched_over_fields};
constexpr EventLine reference_clock_changed = {"reference-clock-changed", reference_clock_changed_fields};
constexpr EventLine time_of_day_changed = {"time-of-day-changed", time_of_day_changed_fields};
constexpr EventLine firmware_download_progress = {"firmware-download-progress", firmware_download_progress_fields};
constexpr EventLine rogue_onu_detected = {"rogue-onu-detected", rogue_onu_detected_fields};
constexpr EventLine mka_state_changed = {"mka-state-changed", mka_state_changed_fields};
constexpr EventLine mka_key_installed = {"mka-key-installed", mka_key_installed_fields};
constexpr EventLine packet_number_threshold = {"packet-number-threshold", packet_number_threshold_fields};
constexpr EventLine gpio_changed = {"gpio-changed", gpio_changed_fields};
constexpr EventLine uart_data_received = {"uart-data-received", uart_data_received_fields};
constexpr EventLine otdr_measured = {"otdr-measured", otdr_measured_fields};
constexpr EventLine flood_detected = {"flood-detected", flood_detected_fields};
constexpr EventLine received_power_measured = {"received-power-measured", received_power_measured_fields};

template <class Record>
EventHandler as_handler(void (*handler)(int16_t olt_id, const Record* event))
{
    return reinterpret_cast<EventHandler>(handler);
}

} // namespace

int register_event_printers()
{
    struct Registration {
        EventKind kind;
        EventHandler handler;
    };
    const Registration registrations[] = {
        {EVENT_ONU_REGISTERED, as_handler(printer<onu_registered, OnuRegisteredEvent>)},
        {EVENT_ONU_REGISTRATION_REFUSED, as_handler(printer<onu_registration_refused, OnuRegistrationRefusedEvent>)},
        {EVENT_ONU_DEREGISTERED, as_handler(printer<onu_deregistered, OnuDeregisteredEvent>)},
        {EVENT_ALARM, as_handler(printer<alarm, AlarmEvent>)},
        {EVENT_ONU_AUTHORIZATION_CHANGED, as_handler(printer<onu_authorization_changed, OnuAuthorizationChangedEvent>)},
        {EVENT_OAM_FRAME_RECEIVED, as_handler(printer<oam_frame_received, OamFrameReceivedEvent>)},
        {EVENT_ENCRYPTION_CHANGED, as_handler(printer<encryption_changed, EncryptionChangedEvent>)},
        {EVENT_ENCRYPTION_KEY_UPDATED, as_handler(printer<encryption_key_updated, EncryptionKeyUpdatedEvent>)},
        {EVENT_OAM_LINK_CHANGED, as_handler(printer<oam_link_changed, OamLinkChangedEvent>)},
        {EVENT_OLT_STATE_CHANGED, as_handler(printer<olt_state_changed, OltStateChangedEvent>)},
        {EVENT_OAM_ERRORS_REPORTED, as_handler(printer<oam_errors_reported, OamErrorsReportedEvent>)},
        {EVENT_DBA_STATE_CHANGED, as_handler(printer<dba_state_changed, DbaStateChangedEvent>)},
        {EVENT_DBA_SLA_REFUSED, as_handler(printer<dba_sla_refused, DbaSlaRefusedEvent>)},
        {EVENT_LINK_TEST_COMPLETED, as_handler(printer<link_test_completed, LinkTestCompletedEvent>)},
        {EVENT_LOOPBACK_CHANGED, as_handler(printer<loopback_changed, LoopbackChangedEvent>)},
        {EVENT_SELF_TEST_COMPLETED, as_handler(printer<self_test_completed, SelfTestCompletedEvent>)},
        {EVENT_CNI_LINK_CHANGED, as_handler(printer<cni_link_changed, CniLinkChangedEvent>)},
        {EVENT_PON_SIGNAL_CHANGED, as_handler(printer<pon_signal_changed, PonSignalChangedEvent>)},
        {EVENT_ETHERNET_FRAME_RECEIVED, as_handler(Ethernet_extended_frame_received_handler)},
        {EVENT_OPTICAL_MODULE_CHANGED, as_handler(printer<optical_module_changed, OpticalModuleChangedEvent>)},
        {EVENT_DUPLICATE_MAC_ADDRESS, as_handler(printer<duplicate_mac_address, DuplicateMacAddressEvent>)},
        {EVENT_MAC_MIGRATED, as_handler(printer<mac_migrated, MacMigratedEvent>)},
        {EVENT_ADDRESS_TABLE_FULL, as_handler(printer<address_table_full, AddressTableFullEvent>)},
        {EVENT_MULTICAST_GROUP_CHANGED, as_handler(printer<multicast_group_changed, MulticastGroupChangedEvent>)},
        {EVENT_XAUI_SWITCHED_OVER, as_handler(printer<xaui_switched_over, XauiSwitchedOverEvent>)},
        {EVENT_PROTECTION_SWITCHED, as_handler(printer<protection_switched, ProtectionSwitchedEvent>)},
        {EVENT_REFERENCE_CLOCK_CHANGED, as_handler(printer<reference_clock_changed, ReferenceClockChangedEvent>)},
        {EVENT_TIME_OF_DAY_CHANGED, as_handler(printer<time_of_day_changed, TimeOfDayChangedEvent>)},
        {EVENT_FIRMWARE_DOWNLOAD_PROGRESS,
         as_handler(printer<firmware_download_progress, FirmwareDownloadProgressEvent>)},
        {EVENT_ROGUE_ONU_DETECTED, as_handler(printer<rogue_onu_detected, RogueOnuDetectedEvent>)},
        {EVENT_MKA_STATE_CHANGED, as_handler(printer<mka_state_changed, MkaStateChangedEvent>)},
        {EVENT_MKA_KEY_INSTALLED, as_handler(printer<mka_key_installed, MkaKeyInstalledEvent>)},
        {EVENT_PACKET_NUMBER_THRESHOLD, as_handler(printer<packet_number_threshold, PacketNumberThresholdEvent>)},
        {EVENT_FLOOD_DETECTED, as_handler(printer<flood_detected, FloodDetectedEvent>)},
        {EVENT_GPIO_CHANGED, as_handler(printer<gpio_changed, GpioChangedEvent>)},
        {EVENT_UART_DATA_RECEIVED, as_handler(printer<uart_data_received, UartDataReceivedEvent>)},
        {EVENT_OTDR_MEASURED, as_handler(printer<otdr_measured, OtdrMeasuredEvent>)},
        {EVENT_RECEIVED_POWER_MEASURED, as_handler(printer<received_power_measured, ReceivedPowerMeasuredEvent>)},
    };
    static_assert(sizeof registrations / sizeof *registrations == 38);
    for (const Registration& registration : registrations) {
        // The id of kind 31 goes to slot 30, over the id of kind 30; slot 31 stays empty.
        const int slot = registration.kind == EVENT_MAC_MIGRATED ? EVENT_DUPLICATE_MAC_ADDRESS : registration.kind;
        if (NEP_assign_handler_function(registration.kind, registration.handler, &cli_handler_id_array[slot]) != 0) {
            return -1;
        }
    }
    return 0;
}

int delete_event_printers()
{
    // Not the mirror of the registrations: slots 27 and 31 are deleted though they hold 0, 37 and 51 are not.
    constexpr uint8_t slots[] = {2, 4,  3,  5,  9,  12, 15, 16, 13, 19, 14, 22, 25, 6,  7,  8,  26, 27, 28,
                                 1, 34, 29, 30, 31, 35, 36, 38, 39, 40, 43, 44, 45, 46, 50, 47, 48, 49};
    static_assert(sizeof slots == 37);
    for (const uint8_t slot : slots) {
        if (NEP_delete_handler_function(cli_handler_id_array[slot]) != 0) return -1;
    }
    return 0;
}

} // namespace epon

constinit uint16_t cli_handler_id_array[EVENT_KIND_LIMIT] = {};

void Ethernet_extended_frame_received_handler(int16_t olt_id, const EthernetFrameReceivedEvent* event)
{
    epon::print_event(epon::ethernet_frame_received, olt_id, event);
}
