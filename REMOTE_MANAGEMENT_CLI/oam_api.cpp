// SPDX-License-Identifier: Apache-2.0
// An ONU's own OAM: the frame length agreed on, what its information frames carry, whether it keeps to the limit of
// slow protocols, the version it speaks, and how often it gasps when it dies.
#include "REMOTE_MANAGEMENT_CLI/oam_api.h"

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/onu_show.h"
#include "REMOTE_MANAGEMENT_CLI/oam_versions.h"
#include "REMOTE_MANAGEMENT_CLI/onu_report.h"

using namespace epon;

namespace {

constexpr Field frame_length_fields[] = {{"oam_frame_length", FieldFormat::Uint16, 0}};
constexpr Field vendor_information_fields[] = {{"data", FieldFormat::Uint32, 0}};
constexpr Field slow_protocol_limit_fields[] = {
    {"slow_protocol_limit", FieldFormat::Uint8Word, 0, &enable_disable_capital}};
constexpr Field version_fields[] = {{"version", FieldFormat::Int32Word, 0, &oam_versions}};
constexpr Field dying_gasp_fields[] = {{"times", FieldFormat::Uint32, 0}};

constexpr NumberRule dying_gasp_times = unsigned_range("times", 0, REMOTE_DYING_GASP_TIMES_MAX);

} // namespace

int show_remote_oam_frame_length_negotiation(cmd_element*, vty* session, int argc, char** argv)
{
    return show_remote(session, argc, argv, REMOTE_NEPONU_get_oam_frame_length_negotiation, frame_length_fields);
}

int show_remote_oam_vendor_information(cmd_element*, vty* session, int argc, char** argv)
{
    return show_remote(session, argc, argv, REMOTE_NEPONU_get_oam_vendor_information, vendor_information_fields);
}

int remote_oam_vendor_information(cmd_element*, vty* session, int, char** argv)
{
    return set_remote_number(session, argv[0], unsigned_32("data"), REMOTE_NEPONU_set_oam_vendor_information);
}

int show_remote_slow_protocol_limit(cmd_element*, vty* session, int argc, char** argv)
{
    return show_remote(session, argc, argv, REMOTE_NEPONU_get_slow_protocol_limit, slow_protocol_limit_fields);
}

int remote_slow_protocol_limit(cmd_element*, vty* session, int, char** argv)
{
    return set_remote_word(session, argv[0], "protocol", enable_disable, REMOTE_NEPONU_set_slow_protocol_limit);
}

int show_remote_oam_version(cmd_element*, vty* session, int argc, char** argv)
{
    return show_remote(session, argc, argv, REMOTE_NEPONU_get_oam_version, version_fields);
}

int show_remote_oam_dying_gasp_times(cmd_element*, vty* session, int argc, char** argv)
{
    return show_remote(session, argc, argv, REMOTE_NEPONU_get_oam_dying_gasp_times, dying_gasp_fields);
}

int remote_oam_dying_gasp_times(cmd_element*, vty* session, int, char** argv)
{
    return set_remote_number(session, argv[0], dying_gasp_times, REMOTE_NEPONU_set_oam_dying_gasp_times);
}

static constinit OnuShow show_remote_oam_frame_length_negotiation_cmd =
    remote_show<"oam-api oam-frame-length-negotiation", "OAM of the ONU\n"
                                                        "Largest OAM frame that both ends agreed on, octets\n">(
        show_remote_oam_frame_length_negotiation);
static constinit OnuShow show_remote_oam_vendor_information_cmd =
    remote_show<"oam-api oam-vendor-information", "OAM of the ONU\n"
                                                  "Vendor-specific information in its information frames\n">(
        show_remote_oam_vendor_information);
static constinit OnuShow show_remote_slow_protocol_limit_cmd =
    remote_show<"oam-api slow-protocol-limit", "OAM of the ONU\n"
                                               "Whether it keeps to ten frames a second of each slow protocol\n">(
        show_remote_slow_protocol_limit);
static constinit OnuShow show_remote_oam_version_cmd =
    remote_show<"oam-api oam-version", "OAM of the ONU\n"
                                       "Version that it speaks: draft, or that of the standard\n">(
        show_remote_oam_version);
static constinit OnuShow show_remote_oam_dying_gasp_times_cmd =
    remote_show<"oam-api oam-dying-gasp-times", "OAM of the ONU\n"
                                                "How often it sends its dying gasp when it goes down, 0-10\n">(
        show_remote_oam_dying_gasp_times);

static constinit cmd_element remote_oam_vendor_information_cmd =
    command("remote oam-api oam-vendor-information data <0x0-0xffffffff>", remote_oam_vendor_information,
            "Remote management: the ONU is asked by OAM\n"
            "OAM of the ONU\n"
            "Vendor-specific information in its information frames\n"
            "The new information\n"
            "32 bits, 0x0-0xffffffff or decimal\n");

static constinit cmd_element remote_slow_protocol_limit_cmd =
    command("remote oam-api slow-protocol-limit protocol (disable|enable)", remote_slow_protocol_limit,
            "Remote management: the ONU is asked by OAM\n"
            "OAM of the ONU\n"
            "Whether it keeps to ten frames a second of each slow protocol\n"
            "The limit of slow protocols\n"
            "enable: the ONU keeps to it; disable: it answers as fast as it can, and takes files faster\n");

static constinit cmd_element remote_oam_dying_gasp_times_cmd =
    command("remote oam-api oam-dying-gasp-times times <0-10>", remote_oam_dying_gasp_times,
            "Remote management: the ONU is asked by OAM\n"
            "OAM of the ONU\n"
            "How often it sends its dying gasp when it goes down, 0-10\n"
            "The new number\n"
            "Number of frames, 0-10; 0: the ONU goes down without a word\n");

namespace epon {

void install_oam_api()
{
    install({&show_remote_oam_frame_length_negotiation_cmd, &show_remote_oam_vendor_information_cmd,
             &show_remote_slow_protocol_limit_cmd, &show_remote_oam_version_cmd,
             &show_remote_oam_dying_gasp_times_cmd});
    install({{&remote_oam_vendor_information_cmd, in(ONU_NODE)},
             {&remote_slow_protocol_limit_cmd, in(ONU_NODE)},
             {&remote_oam_dying_gasp_times_cmd, in(ONU_NODE)}});
}

} // namespace epon
