// SPDX-License-Identifier: Apache-2.0
// Registers of the devices on an OLT's I2C buses, such as the memories of its optical modules.
#include "olt/i2c_register.h"

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"
#include "olt/byte_dump.h"

using namespace epon;

namespace {

constexpr Word access_type_words[] = {{"hw", I2C_ACCESS_HW},
                                      {"pon-prim", I2C_ACCESS_PON_PRIMARY},
                                      {"pon-sec", I2C_ACCESS_PON_SECONDARY},
                                      {"otdr-prim", I2C_ACCESS_OTDR_PRIMARY},
                                      {"otdr-sec", I2C_ACCESS_OTDR_SECONDARY}};
constexpr WordTable i2c_access_type = {"access_type", access_type_words};

constexpr NumberRule read_size = unsigned_range("size", 0, 255);

// A register on one of the buses: the words that the extended commands begin with.
struct ExtendedRegister {
    int16_t olt_id;
    int32_t access_type;
    int32_t device;
    int32_t address;
};

bool read_extended_register(vty* session, char** argv, ExtendedRegister* target)
{
    return read_olt_id(session, argv[0], &target->olt_id) &&
           read_word(session, argv[1], "access_type", i2c_access_type, &target->access_type) &&
           read_number(session, argv[2], unsigned_16("DEVICE_ADDRESS"), &target->device) &&
           read_number(session, argv[3], unsigned_16("REGISTER_ADDRESS"), &target->address);
}

// A register on the OLT's own controller.
bool read_own_register(vty* session, char** argv, int32_t* device, int32_t* address)
{
    return read_number(session, argv[0], unsigned_16("DEVICE"), device) &&
           read_number(session, argv[1], unsigned_16("REGISTER_ADDRESS"), address);
}

void print_register(vty* session, int16_t olt_id, const char* label, int32_t data)
{
    print_olt_id(session, olt_id);
    RBX_vty_out(session, "%s: %d %s", label, static_cast<int>(data), VTY_NEWLINE(session));
}

} // namespace

int get_i2c_register(cmd_element*, vty* session, int, char** argv)
{
    int32_t device;
    int32_t address;
    int32_t data;
    if (!read_own_register(session, argv, &device, &address)) return -1;
    const int16_t code = NEP_read_i2c_register(session->olt_id, device, address, &data);
    if (code != 0) return report(session, code);
    print_register(session, session->olt_id, "i2c register", data);
    return 0;
}

int set_i2c_register(cmd_element*, vty* session, int, char** argv)
{
    int32_t device;
    int32_t address;
    int32_t data;
    if (!read_own_register(session, argv, &device, &address)) return -1;
    if (!read_number(session, argv[2], unsigned_16("DATA"), &data)) return -1;
    return report(session, NEP_write_i2c_register(session->olt_id, device, address, data));
}

int write_i2c_register_extended(cmd_element*, vty* session, int, char** argv)
{
    ExtendedRegister target;
    int32_t data;
    if (!read_extended_register(session, argv, &target)) return -1;
    if (!read_number(session, argv[4], unsigned_16("DATA"), &data)) return -1;
    return report(session, NEP_write_i2c_register_extended(target.olt_id, target.access_type, target.device,
                                                           target.address, data));
}

// One register as a number, or with a size a dump of several.
int read_i2c_register_extended(cmd_element*, vty* session, int argc, char** argv)
{
    const bool is_dump = argc == 5;
    ExtendedRegister target;
    int32_t size = 1;
    if (!read_extended_register(session, argv, &target)) return -1;
    if (is_dump && !read_number(session, argv[4], read_size, &size)) return -1;
    uint8_t data[I2C_REGISTER_LIMIT];
    const int16_t code =
        NEP_read_i2c_register_extended(target.olt_id, target.access_type, target.device, target.address, size, data);
    if (code != 0) return report(session, code);
    if (!is_dump) {
        print_register(session, target.olt_id, "i2c register extended", data[0]);
        return 0;
    }
    print_olt_id(session, target.olt_id);
    print_bytes(session, static_cast<uint32_t>(target.address), data, static_cast<uint32_t>(size));
    return 0;
}

static constinit cmd_element get_i2c_register_cmd =
    command("show i2c-register device-address DEVICE register-address REGISTER_ADDRESS", get_i2c_register,
            "Show settings and state\n"
            "Register of a device on the I2C bus of this OLT's own controller\n"
            "Which device\n"
            "Write address of the device, 0-254, even, decimal or with 0x hexadecimal; optical modules: 0xa0, 0xa2\n"
            "Which register\n"
            "Address of the register, 0-255, decimal or with 0x hexadecimal\n");

static constinit cmd_element set_i2c_register_cmd =
    command("set i2c-register device-address DEVICE register-address REGISTER_ADDRESS data DATA", set_i2c_register,
            "Change a setting\n"
            "Register of a device on the I2C bus of this OLT's own controller\n"
            "Which device\n"
            "Write address of the device, 0-254, even, decimal or with 0x hexadecimal; optical modules: 0xa0, 0xa2\n"
            "Which register\n"
            "Address of the register, 0-255, decimal or with 0x hexadecimal\n"
            "What is written\n"
            "Value of the register, 0-255, decimal or with 0x hexadecimal\n");

static constinit cmd_element write_i2c_register_extended_cmd =
    command("set i2c-register-extended olt OLT_INDEX access-type (hw|pon-prim|pon-sec|otdr-prim|otdr-sec) \t  "
            "device-address DEVICE_ADDRESS register-address REGISTER_ADDRESS data DATA",
            write_i2c_register_extended,
            "Change a setting\n"
            "Register of a device on any I2C bus of an OLT\n"
            "Which OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "Which bus\n"
            "hw: the OLT's own controller; pon-prim: primary PON module; pon-sec: secondary PON module; "
            "otdr-prim: primary OTDR module; otdr-sec: secondary OTDR module\n"
            "Which device\n"
            "Write address of the device, 0-254, even, decimal or with 0x hexadecimal; optical modules: 0xa0, 0xa2\n"
            "Which register\n"
            "Address of the register, 0-255, decimal or with 0x hexadecimal\n"
            "What is written\n"
            "Value of the register, 0-255, decimal or with 0x hexadecimal\n");

static constinit cmd_element read_i2c_register_extended_cmd =
    command("show i2c-register-extended olt OLT_INDEX access-type (hw|pon-prim|pon-sec|otdr-prim|otdr-sec) \t  "
            "device-address DEVICE_ADDRESS register-address REGISTER_ADDRESS",
            read_i2c_register_extended,
            "Show settings and state\n"
            "Register of a device on any I2C bus of an OLT\n"
            "Which OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "Which bus\n"
            "hw: the OLT's own controller; pon-prim: primary PON module; pon-sec: secondary PON module; "
            "otdr-prim: primary OTDR module; otdr-sec: secondary OTDR module\n"
            "Which device\n"
            "Write address of the device, 0-254, even, decimal or with 0x hexadecimal; optical modules: 0xa0, 0xa2\n"
            "Which register\n"
            "Address of the register, 0-255, decimal or with 0x hexadecimal\n");

static constinit cmd_element read_i2c_register_extended_bytes_cmd =
    command("show i2c-register-extended-bytes olt OLT_INDEX access-type (hw|pon-prim|pon-sec|otdr-prim|otdr-sec) \t  "
            "device-address DEVICE_ADDRESS register-address REGISTER_ADDRESS size <0-255>",
            read_i2c_register_extended,
            "Show settings and state\n"
            "Registers of a device on any I2C bus of an OLT, as a dump\n"
            "Which OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "Which bus\n"
            "hw: the OLT's own controller; pon-prim: primary PON module; pon-sec: secondary PON module; "
            "otdr-prim: primary OTDR module; otdr-sec: secondary OTDR module\n"
            "Which device\n"
            "Write address of the device, 0-254, even, decimal or with 0x hexadecimal; optical modules: 0xa0, 0xa2\n"
            "The first register\n"
            "Address of the register, 0-255, decimal or with 0x hexadecimal\n"
            "How many registers\n"
            "Number of registers, 0-255; the last one is not behind 255\n");

namespace epon {

void install_i2c_register()
{
    install({{&get_i2c_register_cmd, in(OLT_NODE)},
             {&set_i2c_register_cmd, in(OLT_NODE)},
             {&write_i2c_register_extended_cmd, in(CONFIG_NODE)},
             {&read_i2c_register_extended_cmd, in(CONFIG_NODE)},
             {&read_i2c_register_extended_bytes_cmd, in(CONFIG_NODE)}});
}

} // namespace epon
