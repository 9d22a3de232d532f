// SPDX-License-Identifier: Apache-2.0
// Adding an OLT: its index, its MAC address, and where its firmware comes from.
#include <cstdlib>
#include <cstring>

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/general.h"

using namespace epon;

namespace {

constexpr Word image_location_words[] = {{"file", FIRMWARE_FROM_FILE}, {"memory", FIRMWARE_FROM_MEMORY}};
constexpr WordTable image_location = {"image_location", image_location_words};

enum { FILE_NAME_ARGC = 4 }; // index, MAC address, location, file name; "image flash" has two

int add_olt(vty* session, int16_t olt_id, const uint8_t mac[6], const OLT_firmware_source& firmware)
{
    const int16_t code = NEP_add_olt(olt_id, mac, &firmware);
    if (code != 0) {
        RBX_vty_out(session, "Add OLT %d failure: Execution failure%s", olt_id, VTY_NEWLINE(session));
    }
    return code;
}

} // namespace

int olt_add(cmd_element*, vty* session, int argc, char** argv)
{
    int16_t olt_id;
    if (!read_olt_id(session, argv[0], &olt_id)) return -1;
    uint8_t mac[6];
    if (read_mac(session, argv[1], "OLT MAC address", mac) != MacResult::Read) return -1;

    OLT_firmware_source firmware = {FIRMWARE_FROM_FLASH, nullptr, 0};
    if (argc < FILE_NAME_ARGC) return add_olt(session, olt_id, mac, firmware);

    if (!read_word(session, argv[2], "image", image_location, &firmware.location)) return -1;
    const char* file_name = strcmp(argv[3], "NULL") == 0 ? nullptr : argv[3];
    if (firmware.location == FIRMWARE_FROM_FILE) firmware.image = file_name;
    uint8_t* image = nullptr;
    if (firmware.location == FIRMWARE_FROM_MEMORY && file_name != nullptr) {
        const int failure = CLI_load_file_to_memory(file_name, &image, &firmware.size, session);
        if (failure != 0) return failure;
        firmware.image = image;
    }
    const int code = add_olt(session, olt_id, mac, firmware);
    free(image);
    return code;
}

static constinit cmd_element olt_add_flash_cmd =
    command("olt OLT_INDEX AA-BB-CC-DD-EE-FF image flash", olt_add,
            "Enter the context of one OLT, or add, recover or remove one\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "MAC address of the OLT to be added\n"
            "Where the firmware of the OLT comes from\n"
            "The OLT starts the firmware that its own flash memory holds\n");

static constinit cmd_element olt_add_cmd =
    command("olt OLT_INDEX AA-BB-CC-DD-EE-FF image (file|memory) FILE_NAME", olt_add,
            "Enter the context of one OLT, or add, recover or remove one\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "MAC address of the OLT to be added\n"
            "Where the firmware of the OLT comes from\n"
            "file: the SDK reads the image from the named file; memory: the host reads the file and hands its "
            "contents over\n"
            "Path of the firmware image on the host; NULL: no image\n");

namespace epon {

void install_olt_add()
{
    install({{&olt_add_flash_cmd, in(CONFIG_NODE)}, {&olt_add_cmd, in(CONFIG_NODE)}});
}

} // namespace epon
