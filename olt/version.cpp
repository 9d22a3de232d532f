// SPDX-License-Identifier: Apache-2.0
// What an OLT is and which firmware and host software run it.
#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"
#include "olt/olt.h"

using namespace epon;

namespace {

void print_version(vty* session, const char* label, const OLT_version& version)
{
    RBX_vty_out(session, "%s version: %d.%d.%d.%d%s", label, version.number[0], version.number[1], version.number[2],
                version.number[3], VTY_NEWLINE(session));
}

} // namespace

int show_olt_version(cmd_element*, vty* session, int argc, char** argv)
{
    OltArguments arguments(session, argc, argv, 1);
    int16_t olt_id;
    if (!arguments.read_olt(&olt_id)) return -1;
    OLT_device_versions device;
    OLT_version firmware;
    OLT_version host;
    const int16_t code = NEP_get_olt_versions(olt_id, &device, &firmware, &host);
    if (code != 0) return report(session, code);

    const char* newline = VTY_NEWLINE(session);
    char device_name[sizeof device.device_name + 1];
    clean_device_text(device_name, sizeof device_name, device.device_name, sizeof device.device_name);
    RBX_vty_out(session, "%s: %hu %s", "OLT id", static_cast<unsigned short>(olt_id), newline);
    RBX_vty_out(session, "%s: %s %s", "Device", device_name, newline);
    RBX_vty_out(session, "Hardware version: %X.%X%s", device.hardware_major, device.hardware_minor, newline);
    RBX_vty_out(session, "%s: %s %s", "System port MAC", Get_pon_mac_name(device.system_port_mac_type), newline);
    RBX_vty_out(session, "%s: %hu %s", "LLIDs (ports) supported", device.llids_supported, newline);
    print_version(session, "Firmware", firmware);
    print_version(session, "Host", host);
    return 0;
}

static constinit cmd_element show_olt_version_global_cmd =
    command("show olt version OLT_INDEX", show_olt_version,
            "Show settings and state\n"
            "An OLT\n"
            "Device, hardware, firmware and host versions\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n");

static constinit cmd_element show_olt_version_cmd =
    command("show version", show_olt_version,
            "Show settings and state\n"
            "Device, hardware, firmware and host versions of this OLT\n");

namespace epon {

void install_olt_version()
{
    install({{&show_olt_version_global_cmd, SHOW_NODES}, {&show_olt_version_cmd, in(OLT_NODE)}});
}

} // namespace epon
