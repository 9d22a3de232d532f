// SPDX-License-Identifier: Apache-2.0
// ONUs as devices: what they tell of themselves, their LEDs, their largest frame, and their starting anew.
#include "host/sdk_sim/remote_device_mgmt.h"

#include <algorithm>

#include "host/sdk_sim/events.h"
#include "host/sdk_sim/life.h"
#include "host/sdk_sim/link_operation.h"
#include "host/sdk_sim/remote_operation.h"
#include "host/sdk_sim/scenario_reader.h"

namespace sdk_sim {

template <>
inline constexpr auto record_fields<REMOTE_device_status> =
    std::tuple(record_field("reboot_cause", &REMOTE_device_status::reboot_cause),
               record_field("diagnostic_test", &REMOTE_device_status::diagnostic_test),
               record_field("mld_application", &REMOTE_device_status::mld_application),
               record_field("file_transfer", &REMOTE_device_status::file_transfer),
               record_field("events", &REMOTE_device_status::events), record_field("led", &REMOTE_device_status::led));

template <>
inline constexpr auto record_fields<REMOTE_device_version> =
    std::tuple(record_field("hw_major", &REMOTE_device_version::hw_major),
               record_field("hw_minor", &REMOTE_device_version::hw_minor),
               record_field("fw_major", &REMOTE_device_version::fw_major),
               record_field("fw_minor", &REMOTE_device_version::fw_minor),
               record_field("fw_build", &REMOTE_device_version::fw_build),
               record_field("fw_maintenance", &REMOTE_device_version::fw_maintenance),
               record_field("oam_version", &REMOTE_device_version::oam_version));

template <>
inline constexpr auto record_fields<REMOTE_mac_address> = std::tuple(record_field("pon", &REMOTE_mac_address::pon),
                                                                     record_field("uni", &REMOTE_mac_address::uni));

template <>
inline constexpr auto record_fields<REMOTE_os> = std::tuple(record_field("os_type", &REMOTE_os::os_type),
                                                            record_field("major", &REMOTE_os::major),
                                                            record_field("minor", &REMOTE_os::minor),
                                                            record_field("build", &REMOTE_os::build));

namespace {

const Operation get_device_status("REMOTE_NEPONU_get_device_status", REMOTE_MANAGEMENT);
const Operation get_device_version("REMOTE_NEPONU_get_device_version", REMOTE_MANAGEMENT);
const Operation get_pon_clock("REMOTE_NEPONU_get_pon_clock", REMOTE_MANAGEMENT);
const Operation get_mac_address("REMOTE_NEPONU_get_mac_address", REMOTE_MANAGEMENT);
const Operation get_up_time("REMOTE_NEPONU_get_up_time", REMOTE_MANAGEMENT);
const Operation get_os("REMOTE_NEPONU_get_os", REMOTE_MANAGEMENT);
const Operation set_led_configuration("REMOTE_NEPONU_set_led_configuration", REMOTE_MANAGEMENT);
const Operation reset_device("REMOTE_NEPONU_reset_device", REMOTE_MANAGEMENT);
const Operation diagnostic_test("REMOTE_NEPONU_diagnostic_test", REMOTE_MANAGEMENT);
const Operation get_extend_mtu("REMOTE_NEPONU_get_extend_mtu", REMOTE_MANAGEMENT);
const Operation set_extend_mtu_size("REMOTE_NEPONU_set_extend_mtu_size", REMOTE_MANAGEMENT);
const Operation get_reboot_counter("REMOTE_NEPONU_get_reboot_counter", REMOTE_MANAGEMENT);
const Operation set_reboot_counter("REMOTE_NEPONU_set_reboot_counter", REMOTE_MANAGEMENT);

constexpr int CODE_LIMIT = 255;                               // a device may tell codes that nobody has a word for
enum { ALARM_DYING_GASP = 4, ALARM_OAM_VENDOR_SPECIFIC = 8 }; // indices of CLI_alarm_s

REMOTE_device_status status_of(const Onu& onu)
{
    REMOTE_device_status status{};
    status.reboot_cause = onu.device.reboot_cause;
    status.diagnostic_test = onu.device.diagnostic_test;
    status.mld_application = onu.configuration.mld.is_running ? REMOTE_MLD_RUNNING : REMOTE_MLD_STOPPED;
    status.file_transfer = onu.configuration.file_transfer.state;
    status.events = onu.configuration.alarms.events;
    std::copy(onu.configuration.management.leds.begin(), onu.configuration.management.leds.end(), status.led);
    return status;
}

REMOTE_device_version version_of(const OnuDevice& device)
{
    const auto& firmware = device.firmware_version.number;
    return {device.hardware_major, device.hardware_minor, firmware[0],       firmware[1],
            firmware[2],           firmware[3],           device.oam_version};
}

// The user's port has the address of the PON port as a locally administered one, or the other way round.
REMOTE_mac_address addresses_of(const Onu& onu)
{
    REMOTE_mac_address mac{};
    std::copy(onu.mac.begin(), onu.mac.end(), mac.pon);
    std::copy(onu.mac.begin(), onu.mac.end(), mac.uni);
    mac.uni[0] ^= 0x02;
    return mac;
}

} // namespace

void restart_onu(Network& network, Olt& olt, Onu& onu, std::int32_t reason)
{
    raise_remote_alarm(olt, onu, REMOTE_ALARM_PRE_RESET, ALARM_OAM_VENDOR_SPECIFIC, REMOTE_ALARM_PRE_RESET);
    const std::uint32_t gasps = onu.configuration.remote_oam.dying_gasp_times;
    const bool gasps_are_told = gasps != 0 && tells_of(onu, REMOTE_ALARM_DYING_GASP);
    if (gasps_are_told) raise_remote_alarm(olt, onu, REMOTE_ALARM_DYING_GASP, ALARM_DYING_GASP, gasps);
    onu.device.reboots = static_cast<std::uint16_t>((onu.device.reboots + 1) % (REMOTE_REBOOT_COUNTER_MAX + 1));
    onu.device.reboot_cause = reason;
    onu.device.diagnostic_test = REMOTE_TEST_NOT_RUN;
    onu.device.started_at = network.now;
    deregister_onu(olt, onu, DeregistrationReason::ByOnu);
    after_on_link(network, olt, onu.id, network.life.restart_time,
                  [gasps_are_told](Network& later, Olt& of_onu, Onu& started) {
                      register_onu(later, of_onu, started);
                      if (gasps_are_told && counts_as_registered(started))
                          raise(EVENT_ALARM, of_onu.id, AlarmEvent{started.id, ALARM_DYING_GASP, 0, 0});
                  });
}

void read_onu_device(ScenarioReader& reader, OnuDevice* device)
{
    reader.number("hardware_major", 0, UINT16_MAX, &device->hardware_major);
    reader.number("hardware_minor", 0, UINT16_MAX, &device->hardware_minor);
    reader.version("firmware_version", &device->firmware_version);
    reader.version("mld_version", &device->mld_version);
    reader.number("oam_version", 0, CODE_LIMIT, &device->oam_version);
    reader.number("os_type", 0, CODE_LIMIT, &device->os_type);
    reader.version("os_version", &device->os_version);
    reader.number("oam_frame_length", 64, 1518, &device->oam_frame_length);
    reader.number("frames_per_second", 0, 10000000, &device->frames_per_second);
    reader.number("adc_channel_0", 0, 5000, &device->adc_millivolts[0]);
    reader.number("adc_channel_1", 0, 5000, &device->adc_millivolts[1]);
    reader.number("reboot_counter", 0, REMOTE_REBOOT_COUNTER_MAX, &device->reboots);
    reader.flag("uni_loopback_fails", &device->uni_loopback_fails);
}

} // namespace sdk_sim

using namespace sdk_sim;

int16_t REMOTE_NEPONU_get_device_status(int16_t olt_id, int16_t onu_id, REMOTE_device_status* status)
{
    return get_remote(get_device_status, olt_id, onu_id, status,
                      [](Network&, const Onu& onu) { return status_of(onu); });
}

int16_t REMOTE_NEPONU_get_device_version(int16_t olt_id, int16_t onu_id, REMOTE_device_version* version)
{
    return get_remote(get_device_version, olt_id, onu_id, version,
                      [](Network&, const Onu& onu) { return version_of(onu.device); });
}

int16_t REMOTE_NEPONU_get_pon_clock(int16_t olt_id, int16_t onu_id, uint32_t* clock)
{
    // Half a round trip behind the OLT's (IEEE 802.3 clause 64.2.1.1).
    return ask_remote(get_pon_clock, olt_id, onu_id, in(olt_id, onu_id), out(clock),
                      [&](const Network& network, const Olt& olt, const Onu& onu) {
                          *clock = pon_clock_of(network, olt) - onu.rtt / 2;
                          return SUCCESS;
                      });
}

int16_t REMOTE_NEPONU_get_mac_address(int16_t olt_id, int16_t onu_id, REMOTE_mac_address* mac)
{
    return get_remote(get_mac_address, olt_id, onu_id, mac, [](Network&, const Onu& onu) { return addresses_of(onu); });
}

int16_t REMOTE_NEPONU_get_up_time(int16_t olt_id, int16_t onu_id, uint64_t* time)
{
    return get_remote(get_up_time, olt_id, onu_id, time, [](const Network& network, const Onu& onu) {
        return (network.now - onu.device.started_at) / 1000;
    });
}

int16_t REMOTE_NEPONU_get_os(int16_t olt_id, int16_t onu_id, REMOTE_os* os)
{
    return get_remote(get_os, olt_id, onu_id, os, [](Network&, const Onu& onu) -> REMOTE_os {
        const auto& version = onu.device.os_version.number;
        return {onu.device.os_type, version[0], version[1], version[2]};
    });
}

int16_t REMOTE_NEPONU_set_led_configuration(int16_t olt_id, int16_t onu_id, int32_t led, int32_t activity)
{
    const auto arguments = in(olt_id, onu_id, led, activity);
    return set_remote(set_led_configuration, olt_id, onu_id, arguments, [&](Network&, Olt&, Onu& onu) {
        if (led < 0 || led >= REMOTE_LED_COUNT) return PARAMETER_ERROR;
        if (activity < REMOTE_LED_HARDWARE || activity > REMOTE_LED_FAST) return PARAMETER_ERROR;
        onu.configuration.management.leds[led] = activity;
        return SUCCESS;
    });
}

int16_t REMOTE_NEPONU_reset_device(int16_t olt_id, int16_t onu_id, int32_t reason)
{
    const auto arguments = in(olt_id, onu_id, reason);
    return set_remote(reset_device, olt_id, onu_id, arguments, [&](Network& network, Olt& olt, Onu& onu) {
        if (reason < REMOTE_RESET_NONE || reason > REMOTE_RESET_PERIPH_HIGH) return PARAMETER_ERROR;
        restart_onu(network, olt, onu, reason);
        return SUCCESS;
    });
}

int16_t REMOTE_NEPONU_diagnostic_test(int16_t olt_id, int16_t onu_id, int32_t test)
{
    return set_remote(diagnostic_test, olt_id, onu_id, in(olt_id, onu_id, test), [&](Network&, Olt&, Onu& onu) {
        if (test != REMOTE_TEST_UNI_LOOPBACK) return PARAMETER_ERROR;
        const bool fails = onu.device.uni_loopback_fails;
        onu.device.diagnostic_test = fails ? REMOTE_TEST_FAILED : REMOTE_TEST_PASSED;
        return fails ? HARDWARE_ERROR : SUCCESS;
    });
}

int16_t REMOTE_NEPONU_get_extend_mtu(int16_t olt_id, int16_t onu_id, uint8_t* downstream_extend,
                                     uint8_t* upstream_extend)
{
    const auto results = out(downstream_extend, upstream_extend);
    return ask_remote(get_extend_mtu, olt_id, onu_id, in(olt_id, onu_id), results, [&](Network&, Olt&, const Onu& onu) {
        *downstream_extend = onu.configuration.management.downstream_extend;
        *upstream_extend = onu.configuration.management.upstream_extend;
        return SUCCESS;
    });
}

int16_t REMOTE_NEPONU_set_extend_mtu_size(int16_t olt_id, int16_t onu_id, uint8_t downstream_extend,
                                          uint8_t upstream_extend)
{
    const auto arguments = in(olt_id, onu_id, downstream_extend, upstream_extend);
    return set_remote(set_extend_mtu_size, olt_id, onu_id, arguments, [&](const Network& network, Olt&, Onu& onu) {
        if (downstream_extend > 1 || upstream_extend > 1) return PARAMETER_ERROR;
        count_traffic(network, onu);
        onu.configuration.management.downstream_extend = downstream_extend;
        onu.configuration.management.upstream_extend = upstream_extend;
        return SUCCESS;
    });
}

int16_t REMOTE_NEPONU_get_reboot_counter(int16_t olt_id, int16_t onu_id, uint16_t* counter)
{
    return get_remote(get_reboot_counter, olt_id, onu_id, counter,
                      [](Network&, const Onu& onu) { return onu.device.reboots; });
}

int16_t REMOTE_NEPONU_set_reboot_counter(int16_t olt_id, int16_t onu_id, uint16_t counter)
{
    return set_remote(set_reboot_counter, olt_id, onu_id, in(olt_id, onu_id, counter), [&](Network&, Olt&, Onu& onu) {
        if (counter > REMOTE_REBOOT_COUNTER_MAX) return PARAMETER_ERROR;
        onu.device.reboots = counter;
        return SUCCESS;
    });
}
