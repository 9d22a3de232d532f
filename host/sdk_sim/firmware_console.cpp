// SPDX-License-Identifier: Apache-2.0
#include "host/sdk_sim/firmware_console.h"

#include <algorithm>
#include <cstdlib>

#include "host/sdk_sim/events.h"
#include "host/sdk_sim/gate.h"
#include "host/sdk_sim/printed_line.h"
#include "host/sdk_sim/text_number.h"

namespace sdk_sim {

namespace {

constexpr std::size_t COMMAND_LIMIT = 1024;

using Words = std::vector<std::string_view>;
using Lines = std::vector<std::string>;

Lines help(const Network&, Olt&, const Words&);

Lines version(const Network&, Olt& olt, const Words&)
{
    const auto& number = olt.device.firmware_version.number;
    return {printed_line("%.31s firmware %u.%u.%u.%u", olt.device.name.c_str(), number[0], number[1], number[2],
                         number[3])};
}

Lines uptime(const Network& network, Olt& olt, const Words&)
{
    const Milliseconds seconds = (network.now - olt.started_at) / 1000;
    return {printed_line("up %llu days %02u:%02u:%02u", static_cast<unsigned long long>(seconds / 86400),
                         static_cast<unsigned>(seconds / 3600 % 24), static_cast<unsigned>(seconds / 60 % 60),
                         static_cast<unsigned>(seconds % 60))};
}

Lines temperature(const Network&, Olt& olt, const Words&)
{
    const std::int32_t tenths = olt.firmware_console.temperature;
    return {printed_line("%s%d.%d C", tenths < 0 ? "-" : "", std::abs(tenths) / 10, std::abs(tenths) % 10)};
}

// "registers", "registers ADDRESS", "registers ADDRESS VALUE"
Lines registers(const Network&, Olt& olt, const Words& words)
{
    auto& values = olt.firmware_console.registers;
    Lines lines;
    if (words.size() == 1) {
        for (const auto& [address, value] : values)
            lines.push_back(printed_line("0x%08x: 0x%08x", address, value));
        return lines;
    }
    std::uint32_t address = 0;
    std::uint32_t value = 0;
    if (words.size() > 3 || !read_number(words[1], &address) || (words.size() == 3 && !read_number(words[2], &value)))
        return {"usage: registers [address [value]]"};
    const auto found = values.find(address);
    if (found == values.end()) return {printed_line("no register at 0x%08x", address)};
    if (words.size() == 3) found->second = value;
    return {printed_line("0x%08x: 0x%08x", address, found->second)};
}

Lines onus(const Network&, Olt& olt, const Words&)
{
    Lines lines;
    for (const auto& [id, onu] : olt.onus) {
        if (!counts_as_registered(onu)) continue;
        std::string line = printed_line("onu %3d  ", id);
        append_mac(&line, onu.mac.data());
        line += printed_line("  rtt %u%s", onu.rtt, onu.mode == ONU_MODE_REGISTERED ? "" : "  unauthorized");
        lines.push_back(line);
    }
    lines.push_back(printed_line("%u registered", count_registered(olt)));
    return lines;
}

Lines log(const Network&, Olt& olt, const Words&)
{
    if (olt.firmware_console.log.empty()) return {"log is empty"};
    return olt.firmware_console.log;
}

struct FirmwareCommand {
    std::string_view name;
    const char* help;
    Lines (*run)(const Network& network, Olt& olt, const Words& words);
};

constexpr FirmwareCommand commands[] = {
    {"help", "this list", help},
    {"version", "name and version of the firmware", version},
    {"uptime", "time since the firmware was started", uptime},
    {"temperature", "of the device", temperature},
    {"registers", "[address [value]]: reads or writes a register", registers},
    {"onus", "ONUs that are registered", onus},
    {"log", "the firmware's own log", log},
};

Lines help(const Network&, Olt&, const Words&)
{
    Lines lines;
    for (const FirmwareCommand& command : commands)
        lines.push_back(printed_line("%-12s %s", command.name.data(), command.help));
    return lines;
}

Words split_words(std::string_view line)
{
    Words words;
    std::size_t begin = 0;
    while (begin < line.size()) {
        std::size_t end = begin;
        while (end < line.size() && line[end] != ' ' && line[end] != '\t' && line[end] != '\r')
            ++end;
        if (end > begin) words.push_back(line.substr(begin, end - begin));
        begin = end + 1;
    }
    return words;
}

bool is_shown(const Olt& olt)
{
    const auto topic = olt.configuration.logging.find(LOGGING_TOPIC_FIRMWARE_CONSOLE);
    return topic != olt.configuration.logging.end() && topic->second.enabled == 1;
}

const Operation send_cli_command("NEP_send_cli_command", GENERAL);

} // namespace

std::vector<std::string> run_firmware_command(const Network& network, Olt& olt, std::string_view line)
{
    const Words words = split_words(line);
    if (words.empty()) return {printed_line("fw%d> ", olt.id)};
    for (const FirmwareCommand& command : commands)
        if (words[0] == command.name) return command.run(network, olt, words);
    return {"unknown command, try help"};
}

} // namespace sdk_sim

using namespace sdk_sim;

// Each line of the text is a command; one that lacks its line end is run as well.
int16_t NEP_send_cli_command(int16_t olt_id, int32_t echo, const char* text)
{
    return on_network(send_cli_command, in(olt_id, echo, as_text(text)), out(), [&](Network& network) {
        Olt* olt = present_olt(network, olt_id);
        if (olt == nullptr) return GENERAL.no_olt;
        std::string_view remaining = text;
        if (echo < 0 || echo > 1 || remaining.size() > COMMAND_LIMIT) return PARAMETER_ERROR;
        while (!remaining.empty()) {
            const std::string_view line = remaining.substr(0, remaining.find('\n'));
            remaining.remove_prefix(std::min(remaining.size(), line.size() + 1));
            for (std::string& answer : run_firmware_command(network, *olt, line))
                if (echo == 1 && is_shown(*olt)) queue_firmware_line(olt_id, std::move(answer));
        }
        return SUCCESS;
    });
}
