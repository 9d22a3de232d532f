// SPDX-License-Identifier: Apache-2.0
// What an ONU is able to do.
#pragma once

#include <cstdint>

#include <epon/sdk/ctc_capabilities.h>
#include <epon/sdk/ctc_power_save.h>

namespace sdk_sim {

class ScenarioReader;
struct Onu;

struct OnuCapabilities {
    std::int32_t type = CTC_ONU_SFU;
    std::uint8_t ge_ports = 1;
    std::uint8_t fe_ports = 0;
    std::uint8_t pots_ports = 0;
    std::uint8_t e1_ports = 0;
    std::uint8_t queues = 8;          // in each direction
    std::uint8_t queues_per_port = 8; // in each direction
    std::uint8_t battery_backup = 0;
    std::uint8_t fec = 1;
    std::uint8_t multi_llid = 0; // links that it can have; 0: one alone
    std::int32_t protection = CTC_PROTECTION_NONE;
    std::uint8_t pon_interfaces = 1;
    std::uint8_t slots = 0;
    std::uint8_t ipv6 = 1;
    std::int32_t power_supply_control = CTC_POWER_SUPPLY_CONTROL_TX;
    std::uint8_t service_sla = 0;
    std::int32_t sleep = CTC_SLEEP_TX;
    std::uint8_t early_wakeup = 0;
};

// As the ONU's rate suggests.
OnuCapabilities default_capabilities(const Onu& onu);
// The table "capabilities" of an ONU.
void read_capabilities(ScenarioReader& reader, OnuCapabilities* capabilities);

} // namespace sdk_sim
