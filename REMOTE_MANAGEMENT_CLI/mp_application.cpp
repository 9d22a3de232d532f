// SPDX-License-Identifier: Apache-2.0
// The MLD application in an ONU: its version, its start and its end.
#include "REMOTE_MANAGEMENT_CLI/mp_application.h"

#include <cstddef>

#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/onu_show.h"
#include "REMOTE_MANAGEMENT_CLI/onu_report.h"

using namespace epon;

namespace {

constexpr Field version_fields[] = {
    {"major_version", FieldFormat::Uint16, offsetof(REMOTE_mld_version, major)},
    {"minor_version", FieldFormat::Uint16, offsetof(REMOTE_mld_version, minor)},
    {"build_version", FieldFormat::Uint16, offsetof(REMOTE_mld_version, build)},
};

int tell_onu(vty* session, int16_t (*operation)(int16_t olt_id, int16_t onu_id))
{
    OnuTarget onu;
    int result;
    if (!read_session_target(session, &onu, &result)) return result;
    return report_remote(session, operation(onu.olt_id, onu.onu_id));
}

} // namespace

int show_remote_mld_version(cmd_element*, vty* session, int argc, char** argv)
{
    return show_remote(session, argc, argv, REMOTE_NEPONU_mp_mld_get_version, version_fields);
}

int remote_mld_init(cmd_element*, vty* session, int, char**)
{
    return tell_onu(session, REMOTE_NEPONU_mp_mld_init);
}

int remote_mld_terminate(cmd_element*, vty* session, int, char**)
{
    return tell_onu(session, REMOTE_NEPONU_mp_mld_terminate);
}

static constinit OnuShow show_remote_mld_version_cmd =
    remote_show<"mp-application mld-version", "Applications in the ONU\n"
                                              "Version of the MLD application\n">(show_remote_mld_version);

static constinit cmd_element remote_mld_init_cmd =
    command("remote mp-application mld-init", remote_mld_init,
            "Remote management: the ONU is asked by OAM\n"
            "Applications in the ONU\n"
            "Start the MLD application: users join IPv6 multicast groups through it\n");

static constinit cmd_element remote_mld_terminate_cmd =
    command("remote mp-application mld-terminate", remote_mld_terminate,
            "Remote management: the ONU is asked by OAM\n"
            "Applications in the ONU\n"
            "Stop the MLD application: its groups are left\n");

namespace epon {

void install_mp_application()
{
    install({&show_remote_mld_version_cmd});
    install({{&remote_mld_init_cmd, in(ONU_NODE)}, {&remote_mld_terminate_cmd, in(ONU_NODE)}});
}

} // namespace epon
