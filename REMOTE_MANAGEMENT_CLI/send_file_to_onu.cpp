// SPDX-License-Identifier: Apache-2.0
// Sending a file of the host to an ONU.
#include "REMOTE_MANAGEMENT_CLI/send_file_to_onu.h"

#include "CLI_GENERAL/command.h"
#include "REMOTE_MANAGEMENT_CLI/onu_report.h"

using namespace epon;

// The SDK reads the file itself.
int remote_send_file_to_onu(cmd_element*, vty* session, int, char** argv)
{
    OnuTarget onu;
    int result;
    if (!read_session_target(session, &onu, &result)) return result;
    return report_remote(session, REMOTE_NEPONU_send_file_to_onu(onu.olt_id, onu.onu_id, argv[0], argv[1]));
}

static constinit cmd_element remote_send_file_to_onu_cmd =
    command("remote send-file-to-onu file-name FILE_NAME file-path FILE_PATH", remote_send_file_to_onu,
            "Remote management: the ONU is asked by OAM\n"
            "Send a file to the ONU; events tell how far it is\n"
            "How the ONU is to call the file\n"
            "Name, 1-31 printable characters without /\n"
            "Where the file is\n"
            "Path of a file of 1-1048576 octets on the host\n");

namespace epon {

void install_send_file_to_onu()
{
    install({{&remote_send_file_to_onu_cmd, in(ONU_NODE)}});
}

} // namespace epon
