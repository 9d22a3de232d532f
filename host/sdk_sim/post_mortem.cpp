// SPDX-License-Identifier: Apache-2.0
// The firmware's report for an analysis after a failure: what it is, what has been done to its hardware, its log.
#include <cstdio>
#include <cstring>

#include "host/sdk_sim/gate.h"

namespace sdk_sim {

namespace {

std::string hexadecimal(std::uint32_t value)
{
    char text[16];
    std::snprintf(text, sizeof(text), "0x%x", value);
    return text;
}

std::string dotted(const OLT_version& version)
{
    std::string text;
    for (const std::uint16_t number : version.number)
        text += (text.empty() ? "" : ".") + std::to_string(number);
    return text;
}

template <std::size_t Size>
void append_registers(std::string* report, const char* name,
                      const std::map<std::array<std::int32_t, Size>, std::int32_t>& registers)
{
    for (const auto& [key, value] : registers) {
        *report += name;
        for (const std::int32_t number : key)
            *report += ' ' + std::to_string(number);
        *report += ": " + hexadecimal(static_cast<std::uint32_t>(value)) + '\n';
    }
}

void append_gpio(std::string* report, const Gpio& gpio)
{
    for (std::size_t i = 0; i < gpio.size(); ++i) {
        if (gpio[i].direction == GPIO_DIRECTION_INPUT) continue;
        *report += "gpio " + std::to_string(i) + (gpio[i].value == GPIO_VALUE_ON ? ": on\n" : ": off\n");
    }
}

std::string report_of(const Olt& olt, Milliseconds now)
{
    std::string report = "post-mortem of fw" + std::to_string(olt.id) + "\n";
    report += "firmware: " + dotted(olt.device.firmware_version) + '\n';
    report += "uptime: " + std::to_string((now - olt.started_at) / 1000) + " s\n";
    for (const auto& [address, value] : olt.firmware_console.registers)
        report += "register " + hexadecimal(address) + ": " + hexadecimal(value) + '\n';
    append_registers(&report, "mdio", olt.configuration.mdio.registers);
    append_registers(&report, "mdio45", olt.configuration.mdio.registers45);
    append_gpio(&report, olt.configuration.gpio);
    for (const std::string& line : olt.firmware_console.log)
        report += line + '\n';
    report.resize(std::min<std::size_t>(report.size(), POST_MORTEM_TEXT_SIZE - 1));
    return report;
}

const Operation get_post_mortem("NEP_get_post_mortem", GENERAL);

} // namespace

} // namespace sdk_sim

using namespace sdk_sim;

int16_t NEP_get_post_mortem(int16_t olt_id, char text[POST_MORTEM_TEXT_SIZE])
{
    return on_network(get_post_mortem, in(olt_id), out(as_text(text, POST_MORTEM_TEXT_SIZE)), [&](Network& network) {
        const Olt* olt = present_olt(network, olt_id);
        if (olt == nullptr) return GENERAL.no_olt;
        const std::string report = report_of(*olt, network.now);
        std::memcpy(text, report.c_str(), report.size() + 1);
        return SUCCESS;
    });
}
