// SPDX-License-Identifier: Apache-2.0
// Sending an OAM frame from a file over a link.
#include <cstdlib>

#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"
#include "olt/llid.h"

using namespace epon;

int send_oam_file(cmd_element*, vty* session, int, char** argv)
{
    uint8_t* frame;
    uint32_t size;
    if (CLI_load_file_to_memory(argv[0], &frame, &size, session) != 0) return -1;
    const int16_t code = NEP_send_oam(session->olt_id, session->llid, frame, size);
    free(frame);
    return report(session, code);
}

static constinit cmd_element send_oam_file_cmd =
    command("send-oam file FILE_NAME", send_oam_file,
            "Send an OAM frame to the ONU of this link\n"
            "The frame comes from a file of the host\n"
            "Name of the file: the whole frame, from destination address to check sequence, 64-1518 octets\n");

namespace epon {

void install_send_oam()
{
    install({{&send_oam_file_cmd, in(LLID_NODE)}});
}

} // namespace epon
