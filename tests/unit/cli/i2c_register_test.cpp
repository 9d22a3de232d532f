// SPDX-License-Identifier: Apache-2.0
#include "olt/i2c_register.h"

#include <algorithm>

#include "console_fixture.h"

namespace {

using Calls = std::vector<std::string>;

constexpr const char* NO_ANSWER = "Command return error.\r\nhardware error (error code : -5)\r\n";
constexpr const char* PARAMETER = "Command return error.\r\nparameter error (error code : -4)\r\n";

class I2cRegister : public Console {
  protected:
    std::string read(const char* access_type, const char* device, const char* address)
    {
        return type(std::string("show i2c-register-extended olt 0 access-type ") + access_type + " device-address " +
                    device + " register-address " + address);
    }
    std::string dump(const char* access_type, const char* device, const char* address, const char* size)
    {
        return type(std::string("show i2c-register-extended-bytes olt 0 access-type ") + access_type +
                    " device-address " + device + " register-address " + address + " size " + size);
    }
    std::string write(const char* access_type, const char* device, const char* address, const char* data)
    {
        return type(std::string("set i2c-register-extended olt 0 access-type ") + access_type + " device-address " +
                    device + " register-address " + address + " data " + data);
    }
};

TEST_F(I2cRegister, OwnController)
{
    enter(OLT_NODE);
    EXPECT_EQ(type("show i2c-register device-address 0xA0 register-address 128"), "OLT_id: 0 \r\ni2c register: 0 \r\n");
    EXPECT_EQ(journal(), Calls{"NEP_read_i2c_register(0, 160, 128) = 0 -> 0"});
    EXPECT_EQ(type("set i2c-register device-address 160 register-address 0x80 data 0xff"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"NEP_write_i2c_register(0, 160, 128, 255) = 0"});
    EXPECT_EQ(type("show i2c-register device-address 160 register-address 128"),
              "OLT_id: 0 \r\ni2c register: 255 \r\n");
    EXPECT_EQ(result, 0);
    enter(CONFIG_NODE);
    EXPECT_EQ(read("hw", "160", "128"), "OLT_id: 0 \r\ni2c register extended: 255 \r\n"); // the same bus
    EXPECT_EQ(read("pon-prim", "160", "128"), "OLT_id: 0 \r\ni2c register extended: 0 \r\n");
}

TEST_F(I2cRegister, EachBus)
{
    const char* const words[] = {"hw", "pon-prim", "pon-sec", "otdr-prim"};
    for (int bus = 0; bus < 4; ++bus) {
        const std::string code = std::to_string(bus);
        journal();
        EXPECT_EQ(write(words[bus], "0xa2", "255", std::to_string(10 + bus).c_str()), "");
        EXPECT_EQ(journal(), Calls{"NEP_write_i2c_register_extended(0, " + code + ", 162, 255, " +
                                   std::to_string(10 + bus) + ") = 0"});
    }
    for (int bus = 0; bus < 4; ++bus) {
        const std::string value = std::to_string(10 + bus);
        EXPECT_EQ(read(words[bus], "0xa2", "0xff"), "OLT_id: 0 \r\ni2c register extended: " + value + " \r\n");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), Calls{"NEP_read_i2c_register_extended(0, " + std::to_string(bus) +
                                   ", 162, 255, 1) = 0 -> 0" + "abcd"[bus]});
    }
    // The slot of the secondary OTDR module is empty.
    EXPECT_EQ(read("otdr-sec", "0xa0", "0"), NO_ANSWER);
    EXPECT_EQ(result, -5);
    EXPECT_EQ(write("otdr-sec", "0xa0", "200", "1"), NO_ANSWER);
    EXPECT_EQ(dump("otdr-sec", "0xa0", "0", "16"), NO_ANSWER);
    EXPECT_EQ(journal(), (Calls{"NEP_read_i2c_register_extended(0, 4, 160, 0, 1) = -5",
                                "NEP_write_i2c_register_extended(0, 4, 160, 200, 1) = -5",
                                "NEP_read_i2c_register_extended(0, 4, 160, 0, 16) = -5"}));
}

TEST_F(I2cRegister, Dumps)
{
    // Manufacturer and what follows, up to the part's name.
    EXPECT_EQ(dump("pon-prim", "0xa0", "20", "36"), "OLT_id: 0 \r\n"
                                                    "0014: 56 4e 53 20 4f 50 54 49 43 53 20 20 20 20 20 20\r\n"
                                                    "0024: 00 02 4e 50 4f 4c 54 2d 50 58 32 30 2b 20 20 20\r\n"
                                                    "0034: 20 20 20 20\r\n");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"NEP_read_i2c_register_extended(0, 1, 160, 20, 36) = 0 -> "
                               "564e53204f5054494353202020202020"
                               "00024e504f4c542d505832302b202020"
                               "20202020"});
    EXPECT_EQ(dump("pon-prim", "0xa0", "0", "0"), "OLT_id: 0 \r\n");
    EXPECT_EQ(dump("pon-prim", "0xa0", "0", "1"), "OLT_id: 0 \r\n0000: 03\r\n");
    EXPECT_EQ(dump("pon-prim", "0xa0", "40", "16"),
              "OLT_id: 0 \r\n0028: 4f 4c 54 2d 50 58 32 30 2b 20 20 20 20 20 20 20\r\n");
    EXPECT_EQ(dump("pon-prim", "0xa0", "255", "1"), "OLT_id: 0 \r\n00ff: 00\r\n");
    const std::string longest = dump("pon-prim", "0xa0", "1", "255");
    EXPECT_EQ(std::count(longest.begin(), longest.end(), '\n'), 17);
    EXPECT_NE(longest.find("\r\n00f1: "), std::string::npos);
    EXPECT_EQ(dump("pon-prim", "0xa0", "2", "255"), PARAMETER); // beyond the last register
    EXPECT_EQ(result, -4);
}

TEST_F(I2cRegister, TheModuleMeasuresItsTemperature)
{
    const std::string warm =
        std::string(NETWORK).insert(NETWORK.find("[[olt]]\nid = 1"), "[olt.firmware]\ntemperature = -12.5\n\n");
    load(warm);
    EXPECT_EQ(dump("pon-sec", "0xa2", "96", "4"), "OLT_id: 0 \r\n0060: f3 80 80 e8\r\n");
}

TEST_F(I2cRegister, WhatTheManufacturerWroteIsProtected)
{
    for (const char* address : {"0", "20", "127"})
        EXPECT_EQ(write("pon-prim", "0xa0", address, "1"), NO_ANSWER) << address;
    for (const char* address : {"96", "105"})
        EXPECT_EQ(write("pon-prim", "0xa2", address, "1"), NO_ANSWER) << address;
    EXPECT_EQ(write("pon-prim", "0xa2", "106", "1"), "");
    EXPECT_EQ(write("pon-prim", "0xa2", "95", "1"), "");
    EXPECT_EQ(dump("pon-prim", "0xa0", "20", "3"), "OLT_id: 0 \r\n0014: 56 4e 53\r\n");
}

TEST_F(I2cRegister, WhatTheDeviceRefuses)
{
    EXPECT_EQ(read("hw", "0x50", "0"), NO_ANSWER); // nobody there
    for (const char* device : {"0xa1", "256", "65535"})
        EXPECT_EQ(read("hw", device, "0"), PARAMETER) << device;
    for (const char* address : {"256", "65535"})
        EXPECT_EQ(read("hw", "0xa0", address), PARAMETER) << address;
    EXPECT_EQ(write("hw", "0xa0", "256", "1"), PARAMETER);
    EXPECT_EQ(write("hw", "0xa0", "200", "256"), PARAMETER);
    EXPECT_EQ(result, -4);
    enter(OLT_NODE);
    EXPECT_EQ(type("show i2c-register device-address 0x50 register-address 0"), NO_ANSWER);
    EXPECT_EQ(type("set i2c-register device-address 0xa0 register-address 200 data 256"), PARAMETER);
}

TEST_F(I2cRegister, Refusals)
{
    struct Case {
        cmd_handler* handler;
        std::vector<std::string> words;
        const char* message;
    };
    const std::vector<Case> cases = {
        {get_i2c_register, {"x", "0"}, "Error reading DEVICE parameter for command from input, aborting\r\n"},
        {get_i2c_register,
         {"0", "-1"},
         "Error reading negative value of REGISTER_ADDRESS parameter from input, aborting\r\n"},
        {set_i2c_register,
         {"65536", "0", "0"},
         "Error in range of DEVICE parameter for command from input min:0 max:65535, aborting\r\n"},
        {set_i2c_register, {"0", "0", "x"}, "Error reading DATA parameter for command from input, aborting\r\n"},
        {set_i2c_register,
         {"0", "0", "65536"},
         "Error in range of DATA parameter for command from input min:0 max:65535, aborting\r\n"},
        {read_i2c_register_extended,
         {"x", "hw", "0", "0"},
         "Error reading OLT_id parameter for command from input, aborting\r\n"},
        {read_i2c_register_extended,
         {"0", "sw", "0", "0"},
         "Error reading access_type parameter (of the type access_type), aborting\r\n"},
        {read_i2c_register_extended,
         {"0", "hw", "x", "0"},
         "Error reading DEVICE_ADDRESS parameter for command from input, aborting\r\n"},
        {read_i2c_register_extended,
         {"0", "hw", "0", "0x10000"},
         "Error in range of REGISTER_ADDRESS parameter for command from input min:0 max:65535, aborting\r\n"},
        {read_i2c_register_extended,
         {"0", "hw", "0", "0", "x"},
         "Error reading size parameter for command from input, aborting\r\n"},
        {read_i2c_register_extended,
         {"0", "hw", "0", "0", "256"},
         "Error in range of size parameter for command from input min:0 max:255, aborting\r\n"},
        {write_i2c_register_extended,
         {"32768", "hw", "0", "0", "0"},
         "Error in range of OLT_id parameter for command from input min:-32767 max:32767, aborting\r\n"},
        {write_i2c_register_extended,
         {"0", "hw", "0", "0", "-2"},
         "Error reading negative value of DATA parameter from input, aborting\r\n"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(call(c.handler, c.words), c.message);
        EXPECT_EQ(result, -1);
    }
    type("show i2c-register-extended-bytes olt 0 access-type hw device-address 0 register-address 0 size 256");
    EXPECT_EQ(status, engine::MatchStatus::Unknown);
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(I2cRegister, FailuresAreReported)
{
    enter(OLT_NODE);
    inject("NEP_read_i2c_register", -2);
    EXPECT_EQ(type("show i2c-register device-address 160 register-address 0"),
              "Command return error.\r\ntime out (error code : -2)\r\n");
    EXPECT_EQ(result, -2);
    inject("NEP_write_i2c_register", -2);
    type("set i2c-register device-address 160 register-address 200 data 0");
    EXPECT_EQ(result, -2);
    enter(CONFIG_NODE);
    inject("NEP_read_i2c_register_extended", -2);
    read("hw", "160", "0");
    EXPECT_EQ(result, -2);
    inject("NEP_write_i2c_register_extended", -2);
    write("hw", "160", "200", "0");
    EXPECT_EQ(result, -2);

    const std::string absent = "Command return error.\r\nOLT not exist (error code : -1003)\r\n";
    for (const char* line :
         {"show i2c-register-extended olt 1 access-type hw device-address 160 register-address 0",
          "show i2c-register-extended-bytes olt 16 access-type hw device-address 160 register-address 0 size 255",
          "set i2c-register-extended olt -1 access-type hw device-address 160 register-address 200 data 0"}) {
        EXPECT_EQ(type(line), absent);
        EXPECT_EQ(result, -1003);
    }
    enter(OLT_NODE, 1);
    EXPECT_EQ(type("show i2c-register device-address 160 register-address 0"), absent);
    EXPECT_EQ(type("set i2c-register device-address 160 register-address 0 data 0"), absent);
}

} // namespace
