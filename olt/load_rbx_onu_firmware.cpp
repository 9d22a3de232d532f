// SPDX-License-Identifier: Apache-2.0
// Loading a firmware image from a file into an ONU.
#include <cstdlib>

#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"
#include "olt/link.h"
#include "olt/onu.h"

using namespace epon;

int load_rbx_onu_fw_file(cmd_element*, vty* session, int, char** argv)
{
    int16_t onu_id;
    int result;
    uint8_t* image;
    uint32_t size;
    if (!read_session_onu(session, &onu_id, &result)) return result;
    if (CLI_load_file_to_memory(argv[0], &image, &size, session) != 0) return -1;
    const int16_t code = NEP_download_onu_firmware(session->olt_id, onu_id, image, size);
    free(image);
    return report(session, code);
}

static constinit cmd_element load_rbx_onu_fw_file_cmd =
    command("load-rbx-onu-firmware image file FILE_NAME", load_rbx_onu_fw_file,
            "Load firmware into this ONU; events tell how far it is\n"
            "The image to load\n"
            "It comes from a file of the host\n"
            "Name of the file, at most 16 MiB of it\n");

namespace epon {

void install_load_rbx_onu_firmware()
{
    install({{&load_rbx_onu_fw_file_cmd, in(ONU_NODE)}});
}

} // namespace epon
