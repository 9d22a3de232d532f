// SPDX-License-Identifier: Apache-2.0
// What an ONU is as a device, and what is set on it as one.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>

#include <epon/sdk/olt.h>
#include <epon/sdk/remote_device_mgmt.h>
#include <epon/sdk/remote_oam_api.h>

namespace sdk_sim {

class ScenarioReader;
struct Network;
struct Olt;
struct Onu;

// Stays with the ONU when it loses its registration.
struct OnuDevice {
    std::uint16_t hardware_major = 1;
    std::uint16_t hardware_minor = 0;
    OLT_version firmware_version{{1, 0, 0, 0}}; // major, minor, build, maintenance
    OLT_version mld_version{{1, 0, 0, 0}};      // major, minor, build
    std::int32_t oam_version = REMOTE_OAM_STANDARD;
    std::int32_t os_type = REMOTE_OS_LINUX;
    OLT_version os_version{{4, 19, 0, 0}}; // major, minor, build
    std::uint16_t oam_frame_length = 1518; // octets
    std::int64_t frames_per_second = -1;   // that it receives; -1: drawn from seed and address
    std::array<std::uint32_t, 2> adc_millivolts{750, 1650};
    bool uni_loopback_fails = false;

    std::uint16_t reboots = 0;
    std::int32_t reboot_cause = REMOTE_RESET_NONE;
    std::int32_t diagnostic_test = REMOTE_TEST_NOT_RUN;
    std::uint64_t started_at = 0;               // virtual milliseconds
    std::map<std::string, std::uint32_t> files; // sizes by name
};

// What is set, as long as the ONU is registered.
struct OnuManagement {
    std::array<std::int32_t, REMOTE_LED_COUNT> leds{};
    std::uint8_t downstream_extend = 0;
    std::uint8_t upstream_extend = 0;
};

// Makes an ONU start anew: it goes with its last words, and registers again when it is up. reason is enum
// RemoteResetReason.
void restart_onu(Network& network, Olt& olt, Onu& onu, std::int32_t reason);

// The table "device" of an ONU.
void read_onu_device(ScenarioReader& reader, OnuDevice* device);

} // namespace sdk_sim
