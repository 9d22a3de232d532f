// SPDX-License-Identifier: Apache-2.0
// Records of the CTC stack and of remote management: they hold no pointers, and every byte lies at the same place on
// the board as on the machine of a developer. The numbers are those that a port to an SDK has to meet.
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <type_traits>

#include <gtest/gtest.h>

#include <epon/cli.h>

namespace {

struct Place {
    const char* field;
    std::size_t at;
    std::size_t bytes;
    std::size_t expected_at;
    std::size_t expected_bytes;
};
#define PLACE(record, field, at, bytes)                                                                                \
    Place                                                                                                              \
    {                                                                                                                  \
#record "." #field, offsetof(record, field), sizeof(record::field), at, bytes                                  \
    }

constexpr Place places[] = {
    PLACE(CTC_management_object_index, frame_number, 0, 1),
    PLACE(CTC_management_object_index, slot_number, 1, 1),
    PLACE(CTC_management_object_index, port_number, 2, 2),
    PLACE(CTC_management_object_index, port_type, 4, 4),

    PLACE(CTC_oui_version, oui, 0, 3),
    PLACE(CTC_oui_version, version, 3, 1),

    PLACE(CTC_queue_threshold, state, 0, 1),
    PLACE(CTC_queue_threshold, threshold, 2, 2), // the upper half of its slot
    PLACE(CTC_queue_set_thresholds, queues, 0, 32),

    PLACE(CTC_serial_number, vendor_id, 0, 4),
    PLACE(CTC_serial_number, onu_model, 4, 4),
    PLACE(CTC_serial_number, onu_id, 8, 6),
    PLACE(CTC_serial_number, hardware_version, 14, 8),
    PLACE(CTC_serial_number, software_version, 22, 16),

    PLACE(CTC_chipset_id, vendor_id, 0, 2),
    PLACE(CTC_chipset_id, chip_model, 2, 2),
    PLACE(CTC_chipset_id, revision, 4, 1),
    PLACE(CTC_chipset_id, year, 5, 1),
    PLACE(CTC_chipset_id, month, 6, 1),
    PLACE(CTC_chipset_id, day, 7, 1),

    PLACE(CTC_loid_data, loid, 0, 25),
    PLACE(CTC_loid_data, password, 25, 13),
    PLACE(CTC_loid_table, count, 0, 4),
    PLACE(CTC_loid_table, entries, 4, 38 * 256),

    PLACE(CTC_onu_capabilities, ge_service, 0, 1),
    PLACE(CTC_onu_capabilities, fe_service, 1, 1),
    PLACE(CTC_onu_capabilities, voip_service, 2, 1),
    PLACE(CTC_onu_capabilities, tdm_ces_service, 3, 1),
    PLACE(CTC_onu_capabilities, ge_ports, 4, 1),
    PLACE(CTC_onu_capabilities, fe_ports, 5, 1),
    PLACE(CTC_onu_capabilities, pots_ports, 6, 1),
    PLACE(CTC_onu_capabilities, e1_ports, 7, 1),
    PLACE(CTC_onu_capabilities, ge_ports_bitmap, 8, 8),
    PLACE(CTC_onu_capabilities, fe_ports_bitmap, 16, 8),
    PLACE(CTC_onu_capabilities, uplink_queues, 24, 1),
    PLACE(CTC_onu_capabilities, uplink_queues_per_port, 25, 1),
    PLACE(CTC_onu_capabilities, downlink_queues, 26, 1),
    PLACE(CTC_onu_capabilities, downlink_queues_per_port, 27, 1),
    PLACE(CTC_onu_capabilities, battery_backup, 28, 1),
    PLACE(CTC_onu_capabilities, fec, 29, 1),

    PLACE(CTC_onu_capabilities_2, onu_type, 0, 2),
    PLACE(CTC_onu_capabilities_2, multi_llid, 2, 1),
    PLACE(CTC_onu_capabilities_2, protection_type, 3, 1),
    PLACE(CTC_onu_capabilities_2, pon_interfaces, 4, 1),
    PLACE(CTC_onu_capabilities_2, slots, 5, 1),
    PLACE(CTC_onu_capabilities_2, interface_types, 6, 1),
    PLACE(CTC_onu_capabilities_2, interfaces, 8, 8 * 9),
    PLACE(CTC_onu_capabilities_2, battery_backup, 80, 1),
    PLACE(CTC_interface_capability, type, 0, 4),
    PLACE(CTC_interface_capability, ports, 4, 2),

    PLACE(CTC_onu_capabilities_3, ipv6, 0, 1),
    PLACE(CTC_onu_capabilities_3, power_supply_control, 1, 1),
    PLACE(CTC_onu_capabilities_3, service_sla, 2, 1),

    PLACE(CTC_power_save_capabilities, sleep, 0, 1),
    PLACE(CTC_power_save_capabilities, early_wakeup, 1, 1),
    PLACE(CTC_power_save_config, early_wakeup, 0, 1),
    PLACE(CTC_power_save_config, sleep_duration_max, 4, 4),

    PLACE(REMOTE_uni_port_configuration, mac_type, 0, 1),
    PLACE(REMOTE_uni_port_configuration, mii_rate, 1, 1),
    PLACE(REMOTE_uni_port_configuration, duplex, 2, 1),
    PLACE(REMOTE_uni_port_configuration, gmii_master_mode, 3, 1),
    PLACE(REMOTE_uni_port_configuration, auto_negotiate, 4, 1),
    PLACE(REMOTE_uni_port_configuration, mode, 5, 1),
    PLACE(REMOTE_uni_port_configuration, advertise, 6, 1),
    PLACE(REMOTE_uni_port_configuration, adv_10_half, 7, 1),
    PLACE(REMOTE_uni_port_configuration, adv_10_full, 8, 1),
    PLACE(REMOTE_uni_port_configuration, adv_100_half, 9, 1),
    PLACE(REMOTE_uni_port_configuration, adv_100_full, 10, 1),
    PLACE(REMOTE_uni_port_configuration, adv_100_t4, 11, 1),
    PLACE(REMOTE_uni_port_configuration, adv_pause, 12, 1),
    PLACE(REMOTE_uni_port_configuration, adv_asym_pause, 13, 1),
    PLACE(REMOTE_uni_port_configuration, adv_1000_half, 14, 1),
    PLACE(REMOTE_uni_port_configuration, adv_1000_full, 15, 1),
    PLACE(REMOTE_uni_port_configuration, adv_port_type, 16, 1),
    PLACE(REMOTE_uni_port_configuration, phy_address, 18, 2),

    PLACE(REMOTE_uni_port_status, link, 0, 1),
    PLACE(REMOTE_uni_port_status, mac_type, 1, 1),
    PLACE(REMOTE_uni_port_status, mii_rate, 2, 1),
    PLACE(REMOTE_uni_port_status, duplex, 3, 1),
    PLACE(REMOTE_uni_port_status, auto_negotiate, 4, 1),
    PLACE(REMOTE_uni_port_status, mode, 5, 1),
    PLACE(REMOTE_uni_port_status, pause_tx, 6, 1),
    PLACE(REMOTE_uni_port_status, pause_rx, 7, 1),
    PLACE(REMOTE_uni_port_status, port_type, 8, 1),

    PLACE(REMOTE_device_version, hw_major, 0, 2),
    PLACE(REMOTE_device_version, hw_minor, 2, 2),
    PLACE(REMOTE_device_version, fw_major, 4, 2),
    PLACE(REMOTE_device_version, fw_minor, 6, 2),
    PLACE(REMOTE_device_version, fw_build, 8, 2),
    PLACE(REMOTE_device_version, fw_maintenance, 10, 2),
    PLACE(REMOTE_device_version, oam_version, 12, 4),

    PLACE(REMOTE_os, os_type, 0, 4),
    PLACE(REMOTE_os, major, 4, 4),
    PLACE(REMOTE_os, minor, 8, 4),
    PLACE(REMOTE_os, build, 12, 4),

    PLACE(REMOTE_mld_version, major, 0, 2),
    PLACE(REMOTE_mld_version, minor, 2, 2),
    PLACE(REMOTE_mld_version, build, 4, 2),

    PLACE(REMOTE_mac_address, pon, 0, 6),
    PLACE(REMOTE_mac_address, uni, 6, 6),

    PLACE(REMOTE_threshold_reporter_configuration, enabled, 0, 1),
    PLACE(REMOTE_threshold_reporter_configuration, queue_sets, 1, 1),
    PLACE(REMOTE_threshold_reporter_configuration, threshold, 2, 16),

    PLACE(REMOTE_device_status, reboot_cause, 0, 4),
    PLACE(REMOTE_device_status, diagnostic_test, 4, 4),
    PLACE(REMOTE_device_status, mld_application, 8, 4),
    PLACE(REMOTE_device_status, file_transfer, 12, 4),
    PLACE(REMOTE_device_status, events, 16, 4),
    PLACE(REMOTE_device_status, led, 20, 4 * 8),

    PLACE(REMOTE_oam_statistics, frames_transmitted_ok, 0, 8),
    PLACE(REMOTE_oam_statistics, octets_transmitted_ok, 3 * 8, 8),
    PLACE(REMOTE_oam_statistics, frame_too_long_errors, 9 * 8, 8),
    PLACE(REMOTE_oam_statistics, organization_specific_received, 17 * 8, 8),
};

static_assert(sizeof(CTC_management_object_index) == 8);
static_assert(sizeof(CTC_oui_version) == 4);
static_assert(sizeof(CTC_queue_threshold) == 4);
static_assert(sizeof(CTC_queue_set_thresholds) == 8 * 4);
static_assert(sizeof(CTC_serial_number) == 40);
static_assert(sizeof(CTC_firmware_version) == 32);
static_assert(sizeof(CTC_chipset_id) == 8);
static_assert(sizeof(CTC_loid_data) == 38);
static_assert(sizeof(CTC_loid_table) == 4 + 256 * 38);
static_assert(sizeof(CTC_onu_capabilities) == 32);
static_assert(sizeof(CTC_interface_capability) == 8);
static_assert(sizeof(CTC_onu_capabilities_2) == 84);
static_assert(sizeof(CTC_onu_capabilities_3) == 4);
static_assert(sizeof(CTC_power_save_capabilities) == 2);
static_assert(sizeof(CTC_power_save_config) == 8);
static_assert(sizeof(REMOTE_uni_port_configuration) == 20);
static_assert(sizeof(REMOTE_uni_port_status) == 9);
static_assert(sizeof(REMOTE_device_version) == 16);
static_assert(sizeof(REMOTE_os) == 16);
static_assert(sizeof(REMOTE_mld_version) == 6);
static_assert(sizeof(REMOTE_mac_address) == 12);
static_assert(sizeof(REMOTE_threshold_reporter_configuration) == 18);
static_assert(sizeof(REMOTE_device_status) == 52);
static_assert(sizeof(REMOTE_oam_statistics) == 18 * 8);

TEST(ManagedRecordLayout, EveryFieldLiesAtItsPlaceOnEveryMachine)
{
    for (const Place& place : places) {
        EXPECT_EQ(place.at, place.expected_at) << place.field;
        EXPECT_EQ(place.bytes, place.expected_bytes) << place.field;
    }
}

// What the SDK gives by value has the width that the conversions of the reports expect.
TEST(ManagedRecordLayout, NumbersHaveTheSignAndWidthOfTheirConversions)
{
    EXPECT_TRUE((std::is_same_v<decltype(CTC_management_object_index::port_number), uint16_t>));
    EXPECT_TRUE((std::is_same_v<decltype(CTC_chipset_id::chip_model), uint16_t>));
    EXPECT_TRUE((std::is_same_v<decltype(CTC_serial_number::onu_model), uint32_t>));
    EXPECT_TRUE((std::is_same_v<decltype(REMOTE_device_version::hw_major), uint16_t>));
    EXPECT_TRUE((std::is_same_v<decltype(REMOTE_mld_version::build), uint16_t>));
    EXPECT_TRUE((std::is_same_v<decltype(REMOTE_os::build), uint32_t>));
    EXPECT_TRUE((std::is_same_v<decltype(REMOTE_uni_port_configuration::phy_address), uint16_t>));
}

} // namespace
