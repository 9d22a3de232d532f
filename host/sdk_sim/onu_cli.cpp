// SPDX-License-Identifier: Apache-2.0
// The command line of the ONUs themselves.
#include <algorithm>
#include <string_view>

#include <epon/sdk/onu_cli.h>

#include "host/sdk_sim/events.h"
#include "host/sdk_sim/link_operation.h"
#include "host/sdk_sim/printed_line.h"

namespace sdk_sim {

namespace {

const Operation send_onu_cli_command("NEP_send_onu_cli_command", GENERAL);

constexpr std::size_t COMMAND_LIMIT = 1024;
constexpr int TEXT_SHOWN = 64;

using Lines = std::vector<std::string>;

Lines help(const Onu&);

Lines version(const Onu& onu)
{
    if (onu.image.size == 0) return {"factory image"};
    return {printed_line("loaded image, %u octets, checksum 0x%08x", onu.image.size, onu.image.checksum)};
}

Lines identity(const Onu& onu)
{
    std::string mac = "mac     ";
    append_mac(&mac, onu.mac.data());
    return {mac, printed_line("name    %.*s", TEXT_SHOWN, onu.name.c_str()),
            printed_line("serial  %.*s", TEXT_SHOWN, onu.serial_number.c_str())};
}

Lines link(const Onu& onu)
{
    const char* fec[] = {"off", "downlink", "uplink and downlink"};
    return {
        printed_line("%s, rtt %u", onu.mode == ONU_MODE_REGISTERED ? "authorized" : "not authorized", onu.rtt),
        printed_line("oam %s, %u frames received", oam_is_up(onu) ? "up" : "down", onu.configuration.oam_frames.sent),
        printed_line("fec %s", fec[fec_mode(onu)])};
}

Lines loopback(const Onu& onu)
{
    const char* kinds[] = {"open", "closed by oam", "closed at the pon mac", "closed at the pon phy"};
    return {kinds[onu.configuration.loopback.closed]};
}

struct OnuCommand {
    const char* name;
    const char* help;
    Lines (*run)(const Onu& onu);
};

constexpr OnuCommand commands[] = {
    {"help", "this list", help},         {"version", "of the firmware", version}, {"identity", "of this ONU", identity},
    {"link", "state of its link", link}, {"loopback", "its loopback", loopback},
};

Lines help(const Onu&)
{
    Lines lines;
    for (const OnuCommand& command : commands)
        lines.push_back(printed_line("%-10s %s", command.name, command.help));
    return lines;
}

Lines run(const Onu& onu, std::string_view line)
{
    constexpr std::string_view BLANKS = " \t\r";
    line.remove_prefix(std::min(line.size(), line.find_first_not_of(BLANKS)));
    line = line.substr(0, line.find_last_not_of(BLANKS) + 1);
    if (line.empty()) return {printed_line("onu%d> ", onu.id)};
    for (const OnuCommand& command : commands)
        if (line == command.name) return command.run(onu);
    return {"unknown command, try help"};
}

} // namespace

} // namespace sdk_sim

using namespace sdk_sim;

// Each line of the text is a command; one that lacks its line end is run as well.
int16_t NEP_send_onu_cli_command(int16_t olt_id, int16_t onu_id, int32_t echo, const char* text)
{
    const auto arguments = in(olt_id, onu_id, echo, as_text(text));
    return on_onu(send_onu_cli_command, olt_id, onu_id, arguments, out(), [&](Olt&, Onu& onu) {
        std::string_view remaining = text;
        if (echo < 0 || echo > 1 || remaining.size() > COMMAND_LIMIT) return PARAMETER_ERROR;
        while (!remaining.empty()) {
            const std::string_view line = remaining.substr(0, remaining.find('\n'));
            remaining.remove_prefix(std::min(remaining.size(), line.size() + 1));
            for (std::string& answer : run(onu, line))
                if (echo == 1) queue_firmware_line(olt_id, std::move(answer));
        }
        return SUCCESS;
    });
}
