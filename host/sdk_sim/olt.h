// SPDX-License-Identifier: Apache-2.0
// What the gate and the scenarios must know of the records of an OLT.
#pragma once

#include <epon/sdk/olt.h>

#include "host/sdk_sim/values.h"

namespace sdk_sim {

class ScenarioReader;

template <>
inline constexpr bool hides_unchanged_fields<OLT_update_parameters> = true;

template <>
inline constexpr auto record_fields<OLT_update_parameters> = std::tuple(
    record_field("min_rtt", &OLT_update_parameters::min_rtt), record_field("max_rtt", &OLT_update_parameters::max_rtt),
    record_field("grant_filtering", &OLT_update_parameters::grant_filtering),
    record_field("reserved_4", &OLT_update_parameters::reserved_4),
    record_field("vendor_specific_1g", &OLT_update_parameters::vendor_specific_1g),
    record_field("vendor_specific_10g", &OLT_update_parameters::vendor_specific_10g),
    record_field("reserved_7", &OLT_update_parameters::reserved_7),
    record_field("oui_1g", &OLT_update_parameters::oui_1g), record_field("oui_10g", &OLT_update_parameters::oui_10g),
    record_field("uart_baud_rate", &OLT_update_parameters::uart_baud_rate),
    record_field("llid_assignment", &OLT_update_parameters::llid_assignment),
    record_field("sled_strobe", &OLT_update_parameters::sled_strobe),
    record_field("sled_mute", &OLT_update_parameters::sled_mute),
    record_field("i2c_speed", &OLT_update_parameters::i2c_speed));

template <>
inline constexpr auto record_fields<OLT_parameters> = std::tuple(record_field("settings", &OLT_parameters::settings),
                                                                 record_field("mac", &OLT_parameters::mac));

template <>
inline constexpr auto record_fields<OLT_version> = std::tuple(record_field("number", &OLT_version::number));

template <>
inline constexpr auto record_fields<OLT_device_versions> =
    std::tuple(record_field("device_name", &OLT_device_versions::device_name),
               record_field("hardware_major", &OLT_device_versions::hardware_major),
               record_field("hardware_minor", &OLT_device_versions::hardware_minor),
               record_field("llids_supported", &OLT_device_versions::llids_supported),
               record_field("system_port_mac_type", &OLT_device_versions::system_port_mac_type));

// The settings of an OLT that no scenario and no command has changed.
OLT_update_parameters default_olt_parameters();
// The table "parameters" of an OLT.
void read_olt_parameters(ScenarioReader& reader, OLT_update_parameters* parameters);

} // namespace sdk_sim
