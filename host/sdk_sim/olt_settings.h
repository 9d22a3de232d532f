// SPDX-License-Identifier: Apache-2.0
// Settings of OLTs and of links that are one number each: a pair of operations is a row.
#pragma once

#include <cstdint>

#include <epon/sdk.h>

namespace sdk_sim {

class ScenarioReader;

// As an OLT starts that no scenario describes further.
struct OltSettings {
    std::int32_t ref_clock = REF_CLOCK_125_DIFFERENTIAL;
    std::int32_t flavor_edk = FLAVOR_EDK_DEFAULT_USER;
    std::int32_t interface_mtu = 2000;
    std::int32_t ne_mode = NE_MODE_DEFAULT;
    std::int32_t rules_for_dereg_llids = 0;
    std::int32_t nack_control = 1;
    std::int32_t dba_allocation_overhead = DBA_OVERHEAD_AUTO;
    std::int32_t duplicate_mac_handling = DUPLICATE_MAC_STANDARD;
    std::int32_t mac_migration_report = MAC_MIGRATION_ALL;
    std::int32_t anti_spoofing = ANTI_SPOOFING_SINGLE;
    std::int32_t mpcp_timeout = 1000;
    std::int32_t oam_timeout = 5000;
    std::int32_t oam_rate_limited = 1;
};

struct LinkSettings {
    std::int32_t oam_keepalive = 1;
};

// The table "settings" of an OLT.
void read_olt_settings(ScenarioReader& reader, OltSettings* settings);

} // namespace sdk_sim
