// SPDX-License-Identifier: Apache-2.0
// Every event record, field by field: "simulate event" sets the fields by these names.
#include "host/sdk_sim/event_table.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <type_traits>

#include <epon/sdk/olt.h>
#include <epon/sdk/remote_rstp_ldp.h>

#include "host/sdk_sim/ctc_events.h"
#include "host/sdk_sim/events.h"
#include "host/sdk_sim/sdk_sim.h"
#include "host/sdk_sim/text_number.h"

namespace sdk_sim {

namespace {

// --- Text to fields ----------------------------------------------------------------------------------------------

template <class Member>
struct MemberOf;
template <class Record, class Value>
struct MemberOf<Value Record::*> {
    using RecordType = Record;
    using ValueType = Value;
};
template <auto Member>
using RecordType = typename MemberOf<decltype(Member)>::RecordType;
template <auto Member>
using ValueType = typename MemberOf<decltype(Member)>::ValueType;

template <class Number>
constexpr const char* number_expectation()
{
    if constexpr (std::is_same_v<Number, std::uint8_t>) return "a number 0-255";
    if constexpr (std::is_same_v<Number, std::uint16_t>) return "a number 0-65535";
    if constexpr (std::is_same_v<Number, std::uint32_t>) return "a number 0-4294967295";
    if constexpr (std::is_same_v<Number, std::uint64_t>) return "a number 0-18446744073709551615";
    if constexpr (std::is_same_v<Number, std::int16_t>) return "a number -32768-32767";
    if constexpr (std::is_same_v<Number, std::int32_t>) return "a number -2147483648-2147483647";
}

bool read_octets(std::string_view text, std::string* octets)
{
    if (text.size() % 2 != 0) return false;
    std::string read;
    for (std::size_t i = 0; i < text.size(); i += 2) {
        std::uint8_t octet = 0;
        const auto [end, error] = std::from_chars(text.data() + i, text.data() + i + 2, octet, 16);
        if (error != std::errc() || end != text.data() + i + 2) return false;
        read += static_cast<char>(octet);
    }
    *octets = read;
    return true;
}

// "aa-bb-cc-dd-ee-ff"
bool read_mac(std::string_view text, std::uint8_t mac[6])
{
    if (text.size() != 17) return false;
    std::string digits;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (i % 3 != 2)
            digits += text[i];
        else if (text[i] != '-')
            return false;
    }
    std::string octets;
    if (!read_octets(digits, &octets)) return false;
    std::memcpy(mac, octets.data(), 6);
    return true;
}

template <auto Member>
const char* assign_number(void* record, std::string_view text, std::string*)
{
    using Number = ValueType<Member>;
    Number number{};
    if (!read_number(text, &number)) return number_expectation<Number>();
    static_cast<RecordType<Member>*>(record)->*Member = number;
    return nullptr;
}

template <auto Member>
const char* assign_mac(void* record, std::string_view text, std::string*)
{
    return read_mac(text, static_cast<RecordType<Member>*>(record)->*Member) ? nullptr
                                                                             : "a MAC address aa-bb-cc-dd-ee-ff";
}

template <auto Length>
const char* assign_octets(void* record, std::string_view text, std::string* octets)
{
    if (!read_octets(text, octets)) return "octets as pairs of hexadecimal digits";
    static_cast<RecordType<Length>*>(record)->*Length = static_cast<std::uint32_t>(octets->size());
    return nullptr;
}

// A blank would end the word that the values are typed as.
template <auto Length>
const char* assign_text(void* record, std::string_view text, std::string* octets)
{
    *octets = text;
    std::replace(octets->begin(), octets->end(), '+', ' ');
    static_cast<RecordType<Length>*>(record)->*Length = static_cast<std::uint32_t>(octets->size());
    return nullptr;
}

template <auto Data>
void point_to_octets(void* record, const std::string& octets)
{
    static_cast<RecordType<Data>*>(record)->*Data = reinterpret_cast<const std::uint8_t*>(octets.data());
}

template <class Record>
void call_handler(EventHandler handler, std::int16_t olt_id, const void* record)
{
    reinterpret_cast<void (*)(std::int16_t, const Record*)>(handler)(olt_id, static_cast<const Record*>(record));
}

// --- Rows --------------------------------------------------------------------------------------------------------

template <auto Member>
constexpr EventFieldRow number(const char* name, const char* meaning)
{
    return {name, meaning, assign_number<Member>};
}

template <auto Member>
constexpr EventFieldRow mac(const char* name, const char* meaning)
{
    return {name, meaning, assign_mac<Member>};
}

// The number of octets is not a field of its own: it follows from the octets.
template <auto Length>
constexpr EventFieldRow octets(const char* name, const char* meaning)
{
    return {name, meaning, assign_octets<Length>};
}

template <auto Length>
constexpr EventFieldRow text(const char* name, const char* meaning)
{
    return {name, meaning, assign_text<Length>};
}

template <class Record, std::size_t Count>
constexpr EventRow event(int kind, const char* name, const EventFieldRow (&fields)[Count],
                         void (*point_to)(void*, const std::string&) = nullptr,
                         void (*call)(EventHandler, std::int16_t, const void*) = call_handler<Record>)
{
    static_assert(sizeof(Record) <= EVENT_RECORD_SIZE && std::is_trivially_copyable_v<Record>);
    return {kind, name, fields, sizeof(Record), call, point_to};
}

// An event of the CTC stack.
template <class Record, std::size_t Count>
constexpr EventRow ctc_event(CtcEventType type, const char* name, const EventFieldRow (&fields)[Count],
                             void (*call)(EventHandler, std::int16_t, const void*),
                             void (*point_to)(void*, const std::string&) = nullptr)
{
    return event<Record>(ctc_event_kind(type), name, fields, point_to, call);
}

constexpr char ONU_MEANING[] = "ONU, 0-254";
constexpr char LLID_MEANING[] = "link, 0-254";
constexpr char MAC_MEANING[] = "MAC address, aa-bb-cc-dd-ee-ff";
constexpr char VLAN_MEANING[] = "VLAN, 0-4095";
constexpr char UP_MEANING[] = "0 down, 1 up";

constexpr EventFieldRow ethernet_frame_received[] = {
    number<&EthernetFrameReceivedEvent::llid>("llid", "link, 0-254; -1 when it did not come from a link"),
    number<&EthernetFrameReceivedEvent::port>("port", "0 PON, 1 system port"),
    octets<&EthernetFrameReceivedEvent::length>("frame", "the frame, 14-2000 octets in hexadecimal")};

constexpr EventFieldRow onu_registered[] = {
    number<&OnuRegisteredEvent::onu_id>("onu_id", ONU_MEANING), mac<&OnuRegisteredEvent::mac>("mac", MAC_MEANING),
    number<&OnuRegisteredEvent::rate>("rate", "downstream/upstream: 0 1G/1G, 1 10G/1G, 2 10G/10G"),
    number<&OnuRegisteredEvent::rtt>("rtt", "round-trip time, time quanta of 16 ns")};

constexpr EventFieldRow onu_deregistered[] = {
    number<&OnuDeregisteredEvent::onu_id>("onu_id", ONU_MEANING), mac<&OnuDeregisteredEvent::mac>("mac", MAC_MEANING),
    number<&OnuDeregisteredEvent::reason>(
        "reason", "0 by command, 1 MPCP timeout, 2 OAM timeout, 3 by the ONU, 4 refused, 5 OLT reset")};

constexpr EventFieldRow onu_registration_refused[] = {
    mac<&OnuRegistrationRefusedEvent::mac>("mac", MAC_MEANING),
    number<&OnuRegistrationRefusedEvent::reason>(
        "reason", "0 not authorized, 1 black-listed, 2 no free link, 3 duplicate MAC address")};

constexpr EventFieldRow alarm[] = {number<&AlarmEvent::onu_id>("onu_id", "ONU, 0-254; -1 when it concerns the OLT"),
                                   number<&AlarmEvent::alarm>("alarm", "type of the alarm, 0-40"),
                                   number<&AlarmEvent::raised>("raised", "1 raised, 0 cleared"),
                                   number<&AlarmEvent::value>("value", "what was measured, in the unit of the alarm")};

constexpr EventFieldRow link_test_completed[] = {
    number<&LinkTestCompletedEvent::llid>("llid", LLID_MEANING),
    number<&LinkTestCompletedEvent::frames_sent>("frames_sent", "test frames sent"),
    number<&LinkTestCompletedEvent::frames_received>("frames_received", "test frames that came back"),
    number<&LinkTestCompletedEvent::frame_errors>("frame_errors", "test frames with errors"),
    number<&LinkTestCompletedEvent::min_delay>("min_delay", "shortest delay, time quanta of 16 ns"),
    number<&LinkTestCompletedEvent::max_delay>("max_delay", "longest delay, time quanta of 16 ns"),
    number<&LinkTestCompletedEvent::average_delay>("average_delay", "mean delay, time quanta of 16 ns")};

constexpr EventFieldRow loopback_changed[] = {
    number<&LoopbackChangedEvent::onu_id>("onu_id", "ONU, 0-254; -1 for a loopback of the OLT"),
    number<&LoopbackChangedEvent::state>("state", "0 open, 1 closed")};

constexpr EventFieldRow self_test_completed[] = {
    number<&SelfTestCompletedEvent::tests_run>("tests_run", "tests that were run"),
    number<&SelfTestCompletedEvent::tests_failed>("tests_failed", "tests that failed")};

constexpr EventFieldRow onu_authorization_changed[] = {
    number<&OnuAuthorizationChangedEvent::llid>("llid", LLID_MEANING),
    mac<&OnuAuthorizationChangedEvent::mac>("mac", MAC_MEANING),
    number<&OnuAuthorizationChangedEvent::authorized>("authorized", "1 authorized, 0 not")};

constexpr EventFieldRow oam_frame_received[] = {
    number<&OamFrameReceivedEvent::llid>("llid", LLID_MEANING),
    octets<&OamFrameReceivedEvent::length>("frame", "the frame, octets in hexadecimal")};

constexpr EventFieldRow oam_link_changed[] = {number<&OamLinkChangedEvent::llid>("llid", LLID_MEANING),
                                              number<&OamLinkChangedEvent::state>("state", UP_MEANING)};

constexpr EventFieldRow oam_errors_reported[] = {
    number<&OamErrorsReportedEvent::llid>("llid", LLID_MEANING),
    number<&OamErrorsReportedEvent::type>("type", "errored 1 symbol period, 2 frame, 3 frame period, 4 frame seconds"),
    number<&OamErrorsReportedEvent::window>("window", "window of the count, in the unit of the type"),
    number<&OamErrorsReportedEvent::threshold>("threshold", "errors from which on it is reported"),
    number<&OamErrorsReportedEvent::errors>("errors", "errors in the window")};

constexpr EventFieldRow encryption_changed[] = {
    number<&EncryptionChangedEvent::llid>("llid", LLID_MEANING),
    number<&EncryptionChangedEvent::direction>("direction", "0 off, 1 downlink, 2 uplink and downlink")};

constexpr EventFieldRow encryption_key_updated[] = {
    number<&EncryptionKeyUpdatedEvent::llid>("llid", LLID_MEANING),
    number<&EncryptionKeyUpdatedEvent::key_index>("key_index", "index of the key now in use, 0-255")};

constexpr EventFieldRow olt_state_changed[] = {
    number<&OltStateChangedEvent::state>("state", "0 absent, 1 starting, 2 operational, 3 failed")};

constexpr EventFieldRow dba_state_changed[] = {
    number<&DbaStateChangedEvent::dba>("dba", "kind of bandwidth allocation, 0-5"),
    number<&DbaStateChangedEvent::running>("running", "1 started, 0 stopped")};

constexpr EventFieldRow dba_sla_refused[] = {
    number<&DbaSlaRefusedEvent::llid>("llid", LLID_MEANING),
    number<&DbaSlaRefusedEvent::result>("result", "result of the bandwidth allocation, 1-19")};

constexpr EventFieldRow cni_link_changed[] = {number<&CniLinkChangedEvent::port>("port", "core network interface"),
                                              number<&CniLinkChangedEvent::state>("state", UP_MEANING)};

constexpr EventFieldRow pon_signal_changed[] = {number<&PonSignalChangedEvent::state>("state", "0 lost, 1 present")};

constexpr EventFieldRow optical_module_changed[] = {
    number<&OpticalModuleChangedEvent::module>("module", "0 primary, 1 secondary"),
    number<&OpticalModuleChangedEvent::present>("present", "1 inserted, 0 removed")};

constexpr EventFieldRow duplicate_mac_address[] = {
    number<&DuplicateMacAddressEvent::llid>("llid", "link that holds the address, 0-254"),
    mac<&DuplicateMacAddressEvent::mac>("mac", MAC_MEANING)};

constexpr EventFieldRow mac_migrated[] = {
    mac<&MacMigratedEvent::mac>("mac", MAC_MEANING),
    number<&MacMigratedEvent::from_llid>("from_llid", "link that had the address, 0-254"),
    number<&MacMigratedEvent::to_llid>("to_llid", "link that has it now, 0-254"),
    number<&MacMigratedEvent::vlan>("vlan", VLAN_MEANING)};

constexpr EventFieldRow address_table_full[] = {
    number<&AddressTableFullEvent::llid>("llid", "link, 0-254; -1 for the whole table"),
    number<&AddressTableFullEvent::entries>("entries", "addresses in it")};

constexpr EventFieldRow multicast_group_changed[] = {
    number<&MulticastGroupChangedEvent::llid>("llid", LLID_MEANING),
    mac<&MulticastGroupChangedEvent::group>("group", "MAC address of the group, aa-bb-cc-dd-ee-ff"),
    number<&MulticastGroupChangedEvent::vlan>("vlan", VLAN_MEANING),
    number<&MulticastGroupChangedEvent::joined>("joined", "1 joined, 0 left")};

constexpr EventFieldRow protection_switched[] = {
    number<&ProtectionSwitchedEvent::active_olt>("active_olt", "OLT that is active now, 0-15"),
    number<&ProtectionSwitchedEvent::cause>("cause", "0 by command, 1 loss of signal, 2 OLT failure")};

constexpr EventFieldRow xaui_switched_over[] = {
    number<&XauiSwitchedOverEvent::channel>("channel", "channel that is active now: 0 primary, 1 secondary"),
    number<&XauiSwitchedOverEvent::cause>("cause", "0 by command, 1 loss of link, 2 GPIO")};

constexpr EventFieldRow reference_clock_changed[] = {
    number<&ReferenceClockChangedEvent::source>("source", "number of the clock input"),
    number<&ReferenceClockChangedEvent::locked>("locked", "1 found, 0 lost")};

constexpr EventFieldRow time_of_day_changed[] = {
    number<&TimeOfDayChangedEvent::seconds>("seconds", "seconds since 1970-01-01 TAI"),
    number<&TimeOfDayChangedEvent::nanoseconds>("nanoseconds", "nanoseconds, 0-999999999")};

constexpr EventFieldRow firmware_download_progress[] = {
    number<&FirmwareDownloadProgressEvent::onu_id>("onu_id", "ONU, 0-254; -1 when the OLT itself loads"),
    number<&FirmwareDownloadProgressEvent::bytes_done>("bytes_done", "octets transferred"),
    number<&FirmwareDownloadProgressEvent::bytes_total>("bytes_total", "octets of the image")};

constexpr EventFieldRow rogue_onu_detected[] = {
    number<&RogueOnuDetectedEvent::onu_id>("onu_id", ONU_MEANING), mac<&RogueOnuDetectedEvent::mac>("mac", MAC_MEANING),
    number<&RogueOnuDetectedEvent::violations>("violations", "transmissions outside its grants")};

constexpr EventFieldRow mka_state_changed[] = {
    number<&MkaStateChangedEvent::llid>("llid", LLID_MEANING),
    number<&MkaStateChangedEvent::state>("state", "0 off, 1 negotiating, 2 secured, 3 failed")};

constexpr EventFieldRow mka_key_installed[] = {
    number<&MkaKeyInstalledEvent::llid>("llid", LLID_MEANING),
    number<&MkaKeyInstalledEvent::association>("association", "association number, 0-3"),
    number<&MkaKeyInstalledEvent::key_number>("key_number", "number of the key")};

constexpr EventFieldRow packet_number_threshold[] = {
    number<&PacketNumberThresholdEvent::llid>("llid", LLID_MEANING),
    number<&PacketNumberThresholdEvent::packet_number>("packet_number", "packet number that was reached")};

constexpr EventFieldRow gpio_changed[] = {number<&GpioChangedEvent::line>("line", "input, 0-66"),
                                          number<&GpioChangedEvent::level>("level", "0 off, 1 on")};

constexpr EventFieldRow uart_data_received[] = {
    octets<&UartDataReceivedEvent::length>("data", "what was received, octets in hexadecimal")};

constexpr EventFieldRow otdr_measured[] = {
    number<&OtdrMeasuredEvent::distance>("distance", "to the strongest reflection, metres"),
    number<&OtdrMeasuredEvent::loss>("loss", "hundredths of a dB")};

constexpr EventFieldRow flood_detected[] = {
    number<&FloodDetectedEvent::llid>("llid", LLID_MEANING),
    number<&FloodDetectedEvent::protocol>("protocol", "0 ARP, 1 DHCP, 2 IGMP, 3 MLD, 4 OAM, 5 other"),
    number<&FloodDetectedEvent::rate>("rate", "frames per second")};

constexpr EventFieldRow received_power_measured[] = {
    number<&ReceivedPowerMeasuredEvent::llid>("llid", LLID_MEANING),
    number<&ReceivedPowerMeasuredEvent::power>("power", "hundredths of a dBm")};

constexpr EventFieldRow remote_rstp_loop[] = {number<&RemoteRstpLoopEvent::onu_id>("onu_id", ONU_MEANING),
                                              number<&RemoteRstpLoopEvent::port>("port", "user port of the ONU, 0-255"),
                                              number<&RemoteRstpLoopEvent::loop>("loop", "1 detected, 0 repaired"),
                                              number<&RemoteRstpLoopEvent::link>("link", UP_MEANING)};

void call_remote_rstp_loop_handler(EventHandler handler, std::int16_t olt_id, const void* record)
{
    const auto& event = *static_cast<const RemoteRstpLoopEvent*>(record);
    reinterpret_cast<RemoteRstpLoopDetectedHandler*>(handler)(olt_id, event.onu_id, event.port, event.loop, event.link);
}

constexpr EventFieldRow ctc_encryption[] = {number<&CtcEncryptionEvent::llid>("llid", LLID_MEANING),
                                            number<&CtcEncryptionEvent::state>("state", "1 complete, 2 failed")};

constexpr EventFieldRow ctc_discovery[] = {
    number<&CtcDiscoveryEvent::llid>("llid", LLID_MEANING),
    number<&CtcDiscoveryEvent::state>("state", "2 failed, 3 complete"),
    octets<&CtcDiscoveryEvent::length>("records", "three octets of OUI and one of version each, in hexadecimal")};

constexpr EventFieldRow ctc_update_error[] = {
    number<&CtcUpdateErrorEvent::onu_id>("onu_id", ONU_MEANING),
    number<&CtcUpdateErrorEvent::code>("code", "a code of the CTC stack, as -17005"),
    text<&CtcUpdateErrorEvent::length>("message", "text with + for a blank")};

constexpr EventFieldRow ctc_update_request[] = {
    number<&CtcUpdateRequestEvent::onu_id>("onu_id", ONU_MEANING),
    text<&CtcUpdateRequestEvent::length>("information", "file and what else the ONU tells, with + for a blank")};

constexpr EventFieldRow ctc_notification[] = {
    number<&CtcNotificationEvent::onu_id>("onu_id", ONU_MEANING),
    number<&CtcNotificationEvent::leaf>("leaf", "kind of part: 1 port, 65535 the ONU itself"),
    number<&CtcNotificationEvent::frame_number>("frame", "shelf, 0-255"),
    number<&CtcNotificationEvent::slot_number>("slot", "card, 0-62; 63 all"),
    number<&CtcNotificationEvent::port_number>("port", "port, 0-65534; 65535 all"),
    number<&CtcNotificationEvent::port_type>("port_type", "0 irrelevant, 1 ethernet, 2 voip, 3 adsl2-plus, 4 vdsl2, "
                                                          "5 e1"),
    number<&CtcNotificationEvent::raised>("raised", "1 raised, 0 cleared"),
    number<&CtcNotificationEvent::value>("value", "what was measured, in the unit of the alarm"),
    number<&CtcNotificationEvent::alarm_id>("alarm_id", "number of the alarm, 0-65535")};

constexpr EventRow rows[] = {
    event<EthernetFrameReceivedEvent>(EVENT_ETHERNET_FRAME_RECEIVED, "ethernet-frame-received", ethernet_frame_received,
                                      point_to_octets<&EthernetFrameReceivedEvent::frame>),
    event<OnuRegisteredEvent>(EVENT_ONU_REGISTERED, "onu-registered", onu_registered),
    event<OnuDeregisteredEvent>(EVENT_ONU_DEREGISTERED, "onu-deregistered", onu_deregistered),
    event<OnuRegistrationRefusedEvent>(EVENT_ONU_REGISTRATION_REFUSED, "onu-registration-refused",
                                       onu_registration_refused),
    event<AlarmEvent>(EVENT_ALARM, "alarm", alarm),
    event<LinkTestCompletedEvent>(EVENT_LINK_TEST_COMPLETED, "link-test-completed", link_test_completed),
    event<LoopbackChangedEvent>(EVENT_LOOPBACK_CHANGED, "loopback-changed", loopback_changed),
    event<SelfTestCompletedEvent>(EVENT_SELF_TEST_COMPLETED, "self-test-completed", self_test_completed),
    event<OnuAuthorizationChangedEvent>(EVENT_ONU_AUTHORIZATION_CHANGED, "onu-authorization-changed",
                                        onu_authorization_changed),
    event<OamFrameReceivedEvent>(EVENT_OAM_FRAME_RECEIVED, "oam-frame-received", oam_frame_received,
                                 point_to_octets<&OamFrameReceivedEvent::frame>),
    event<OamLinkChangedEvent>(EVENT_OAM_LINK_CHANGED, "oam-link-changed", oam_link_changed),
    event<OamErrorsReportedEvent>(EVENT_OAM_ERRORS_REPORTED, "oam-errors-reported", oam_errors_reported),
    event<EncryptionChangedEvent>(EVENT_ENCRYPTION_CHANGED, "encryption-changed", encryption_changed),
    event<EncryptionKeyUpdatedEvent>(EVENT_ENCRYPTION_KEY_UPDATED, "encryption-key-updated", encryption_key_updated),
    event<OltStateChangedEvent>(EVENT_OLT_STATE_CHANGED, "olt-state-changed", olt_state_changed),
    event<DbaStateChangedEvent>(EVENT_DBA_STATE_CHANGED, "dba-state-changed", dba_state_changed),
    event<DbaSlaRefusedEvent>(EVENT_DBA_SLA_REFUSED, "dba-sla-refused", dba_sla_refused),
    event<CniLinkChangedEvent>(EVENT_CNI_LINK_CHANGED, "cni-link-changed", cni_link_changed),
    event<PonSignalChangedEvent>(EVENT_PON_SIGNAL_CHANGED, "pon-signal-changed", pon_signal_changed),
    event<OpticalModuleChangedEvent>(EVENT_OPTICAL_MODULE_CHANGED, "optical-module-changed", optical_module_changed),
    event<DuplicateMacAddressEvent>(EVENT_DUPLICATE_MAC_ADDRESS, "duplicate-mac-address", duplicate_mac_address),
    event<MacMigratedEvent>(EVENT_MAC_MIGRATED, "mac-migrated", mac_migrated),
    event<AddressTableFullEvent>(EVENT_ADDRESS_TABLE_FULL, "address-table-full", address_table_full),
    event<MulticastGroupChangedEvent>(EVENT_MULTICAST_GROUP_CHANGED, "multicast-group-changed",
                                      multicast_group_changed),
    event<ProtectionSwitchedEvent>(EVENT_PROTECTION_SWITCHED, "protection-switched", protection_switched),
    event<XauiSwitchedOverEvent>(EVENT_XAUI_SWITCHED_OVER, "xaui-switched-over", xaui_switched_over),
    event<ReferenceClockChangedEvent>(EVENT_REFERENCE_CLOCK_CHANGED, "reference-clock-changed",
                                      reference_clock_changed),
    event<TimeOfDayChangedEvent>(EVENT_TIME_OF_DAY_CHANGED, "time-of-day-changed", time_of_day_changed),
    event<FirmwareDownloadProgressEvent>(EVENT_FIRMWARE_DOWNLOAD_PROGRESS, "firmware-download-progress",
                                         firmware_download_progress),
    event<RogueOnuDetectedEvent>(EVENT_ROGUE_ONU_DETECTED, "rogue-onu-detected", rogue_onu_detected),
    event<MkaStateChangedEvent>(EVENT_MKA_STATE_CHANGED, "mka-state-changed", mka_state_changed),
    event<MkaKeyInstalledEvent>(EVENT_MKA_KEY_INSTALLED, "mka-key-installed", mka_key_installed),
    event<PacketNumberThresholdEvent>(EVENT_PACKET_NUMBER_THRESHOLD, "packet-number-threshold",
                                      packet_number_threshold),
    event<GpioChangedEvent>(EVENT_GPIO_CHANGED, "gpio-changed", gpio_changed),
    event<UartDataReceivedEvent>(EVENT_UART_DATA_RECEIVED, "uart-data-received", uart_data_received,
                                 point_to_octets<&UartDataReceivedEvent::data>),
    event<OtdrMeasuredEvent>(EVENT_OTDR_MEASURED, "otdr-measured", otdr_measured),
    event<FloodDetectedEvent>(EVENT_FLOOD_DETECTED, "flood-detected", flood_detected),
    event<ReceivedPowerMeasuredEvent>(EVENT_RECEIVED_POWER_MEASURED, "received-power-measured",
                                      received_power_measured),
    {EVENT_REMOTE_RSTP_LOOP, "remote-rstp-loop", remote_rstp_loop, sizeof(RemoteRstpLoopEvent),
     call_remote_rstp_loop_handler, nullptr},
    ctc_event<CtcEncryptionEvent>(CTC_EVENT_UPDATE_ENCRYPTION, "ctc-encryption", ctc_encryption,
                                  call_encryption_handler),
    ctc_event<CtcDiscoveryEvent>(CTC_EVENT_EXTENDED_OAM_DISCOVERY, "ctc-discovery", ctc_discovery,
                                 call_discovery_handler, point_to_octets<&CtcDiscoveryEvent::records>),
    ctc_event<CtcUpdateErrorEvent>(CTC_EVENT_UPDATE_ONU_ERROR, "ctc-update-error", ctc_update_error,
                                   call_update_error_handler, point_to_octets<&CtcUpdateErrorEvent::message>),
    ctc_event<CtcUpdateRequestEvent>(CTC_EVENT_UPDATE_ONU_REQUEST, "ctc-update-request", ctc_update_request,
                                     call_update_request_handler, point_to_octets<&CtcUpdateRequestEvent::information>),
    ctc_event<CtcNotificationEvent>(CTC_EVENT_NOTIFICATION, "ctc-notification", ctc_notification,
                                    call_notification_handler)};

// Fills the record from "field=value,field=value".
bool read_values(const EventRow& row, std::string_view values, QueuedEvent* queued, std::string* error)
{
    while (!values.empty()) {
        const std::string_view assignment = values.substr(0, values.find(','));
        values.remove_prefix(std::min(values.size(), assignment.size() + 1));
        const std::size_t equals = assignment.find('=');
        const std::string name(assignment.substr(0, equals));
        if (equals == std::string_view::npos) {
            *error = "\"" + name + "\" is no field=value";
            return false;
        }
        const EventFieldRow* field = nullptr;
        std::string names;
        for (const EventFieldRow& candidate : row.fields) {
            if (name == candidate.name) field = &candidate;
            if (!names.empty()) names += ", ";
            names += candidate.name;
        }
        if (field == nullptr) {
            *error = row.name;
            error->append(" has no field \"").append(name).append("\"; it has ").append(names);
            return false;
        }
        const char* expected = field->assign(queued->record, assignment.substr(equals + 1), &queued->octets);
        if (expected != nullptr) {
            *error = name + ": expected " + expected;
            return false;
        }
    }
    return true;
}

} // namespace

std::span<const EventRow> event_rows()
{
    return rows;
}

const EventRow* find_event_row(std::int32_t kind)
{
    for (const EventRow& row : rows)
        if (row.kind == kind) return &row;
    return nullptr;
}

const std::vector<EventDescription>& event_descriptions()
{
    static const std::vector<EventDescription>& descriptions = *[] {
        auto* list = new std::vector<EventDescription>;
        for (const EventRow& row : rows) {
            EventDescription& description = list->emplace_back(EventDescription{row.kind, row.name, {}});
            for (const EventFieldRow& field : row.fields)
                description.fields.push_back({field.name, field.meaning});
        }
        return list;
    }();
    return descriptions;
}

bool raise_event(int kind, std::int16_t olt_id, std::string_view values, std::string* error)
{
    const EventRow* row = find_event_row(kind);
    if (row == nullptr) {
        *error = "there is no event kind " + std::to_string(kind);
        return false;
    }
    if (olt_id < 0 || olt_id >= OLT_INDEX_LIMIT) {
        *error = "olt: expected a number 0-" + std::to_string(OLT_INDEX_LIMIT - 1);
        return false;
    }
    QueuedEvent queued;
    queued.kind = kind;
    queued.olt_id = olt_id;
    if (!read_values(*row, values, &queued, error)) return false;
    queue_event(std::move(queued));
    return true;
}

} // namespace sdk_sim
