// SPDX-License-Identifier: Apache-2.0
// Loops that users of an ONU make: whether the ONU looks for them, and what to do about one that it found.
#include "REMOTE_MANAGEMENT_CLI/rstp_ldp.h"

#include "CLI_GENERAL/onu_show.h"
#include "REMOTE_MANAGEMENT_CLI/onu_report.h"

using namespace epon;

namespace {

constexpr Field mode_fields[] = {{"mode", FieldFormat::Uint8Word, 0, &enable_disable_capital}};

constexpr NumberRule port_number = unsigned_range("port_number", 0, 255);

} // namespace

int show_remote_rstp_ldp_mode(cmd_element*, vty* session, int argc, char** argv)
{
    return show_remote(session, argc, argv, REMOTE_NEPONU_rstp_ldp_get_mode, mode_fields);
}

int remote_rstp_ldp_mode(cmd_element*, vty* session, int, char** argv)
{
    return set_remote_word(session, argv[0], "mode", enable_disable, REMOTE_NEPONU_rstp_ldp_set_mode);
}

int remote_rstp_ldp_resolve_loop(cmd_element*, vty* session, int, char** argv)
{
    return set_remote_number(session, argv[0], port_number, REMOTE_NEPONU_rstp_ldp_resolve_loop);
}

static constinit OnuShow show_remote_rstp_ldp_mode_cmd =
    remote_show<"rstp-ldp mode", "Loops that are found by RSTP messages which come back\n"
                                 "Whether the ONU looks for loops\n">(show_remote_rstp_ldp_mode);

static constinit cmd_element remote_rstp_ldp_mode_cmd = command(
    "remote rstp-ldp mode (disable|enable)", remote_rstp_ldp_mode,
    "Remote management: the ONU is asked by OAM\n"
    "Loops that are found by RSTP messages which come back\n"
    "Whether the ONU looks for loops\n"
    "disable: no loops are looked for, and ports that were closed are opened; enable: a port with a loop is closed\n");

static constinit cmd_element remote_rstp_ldp_resolve_loop_cmd =
    command("remote rstp-ldp resolve-loop port-number <0x0-0xff>", remote_rstp_ldp_resolve_loop,
            "Remote management: the ONU is asked by OAM\n"
            "Loops that are found by RSTP messages which come back\n"
            "Break a loop that was found, and open the port again\n"
            "User port of the ONU, as the event names it\n"
            "Number of the port, 0x0-0xff or decimal\n");

namespace epon {

void install_rstp_ldp()
{
    install({&show_remote_rstp_ldp_mode_cmd});
    install({{&remote_rstp_ldp_mode_cmd, in(ONU_NODE)}, {&remote_rstp_ldp_resolve_loop_cmd, in(ONU_NODE)}});
}

} // namespace epon
