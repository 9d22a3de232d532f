// SPDX-License-Identifier: Apache-2.0
#include "olt/uart.h"

#include "console_fixture.h"

namespace {

using Calls = std::vector<std::string>;

constexpr const char* NOTHING_RECEIVED = "Command return error.\r\ntime out (error code : -2)\r\n";

class Uart : public Console {
  protected:
    std::string write(int value, const char* start_loopback)
    {
        return type("set uart olt 0 value " + std::to_string(value) + " start-loopback " + start_loopback);
    }
    std::string read(int length, const char* end_loopback)
    {
        return type("show uart olt 0 length " + std::to_string(length) + " end-loopback " + end_loopback);
    }
};

TEST_F(Uart, WhatIsSentInALoopbackIsReceived)
{
    EXPECT_EQ(write(1, "false"), ""); // not looped: out it goes
    EXPECT_EQ(journal(), Calls{"NEP_write_uart(0, 1, 0) = 0"});
    EXPECT_EQ(read(1, "false"), NOTHING_RECEIVED);
    EXPECT_EQ(result, -2);
    EXPECT_EQ(journal(), Calls{"NEP_read_uart(0, 1, 0) = -2"});

    EXPECT_EQ(write(0, "true"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(write(255, "false"), ""); // still looped
    EXPECT_EQ(write(65, "true"), "");
    EXPECT_EQ(journal(),
              (Calls{"NEP_write_uart(0, 0, 1) = 0", "NEP_write_uart(0, 255, 0) = 0", "NEP_write_uart(0, 65, 1) = 0"}));
    EXPECT_EQ(read(2, "false"), "OLT_id: 0 \r\nlength: 2 \r\n0000: 00 ff\r\n");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"NEP_read_uart(0, 2, 0) = 0 -> 2, 00ff"});
    EXPECT_EQ(read(255, "true"), "OLT_id: 0 \r\nlength: 1 \r\n0000: 41\r\n"); // fewer than asked for
    EXPECT_EQ(journal(), Calls{"NEP_read_uart(0, 255, 1) = 0 -> 1, 41"});

    EXPECT_EQ(write(1, "false"), ""); // the loopback is open again
    EXPECT_EQ(read(1, "false"), NOTHING_RECEIVED);
}

TEST_F(Uart, TheEndOfTheLoopbackDropsWhatIsLeft)
{
    write(1, "true");
    write(2, "true");
    EXPECT_EQ(read(1, "true"), "OLT_id: 0 \r\nlength: 1 \r\n0000: 01\r\n");
    write(3, "true");
    EXPECT_EQ(read(255, "false"), "OLT_id: 0 \r\nlength: 1 \r\n0000: 03\r\n");
    EXPECT_EQ(read(255, "true"), NOTHING_RECEIVED); // and ends it all the same
    write(4, "false");
    EXPECT_EQ(read(255, "true"), NOTHING_RECEIVED);
}

TEST_F(Uart, TheReceiverHoldsALimitedNumber)
{
    for (int i = 0; i < 256; ++i)
        EXPECT_EQ(write(i, "true"), "");
    EXPECT_EQ(write(0, "true"), "Command return error.\r\nno resources (error code : -11)\r\n");
    EXPECT_EQ(result, -11);
    const std::string text = read(255, "false");
    EXPECT_EQ(text.find("OLT_id: 0 \r\nlength: 255 \r\n0000: 00 01 02 03 04 05 06 07 08 09 0a 0b 0c 0d 0e 0f\r\n0010:"),
              0u);
    EXPECT_NE(text.find("\r\n00f0: f0 f1 f2 f3 f4 f5 f6 f7 f8 f9 fa fb fc fd fe\r\n"), std::string::npos);
    EXPECT_EQ(read(255, "false"), "OLT_id: 0 \r\nlength: 1 \r\n0000: ff\r\n");
}

TEST_F(Uart, Refusals)
{
    struct Case {
        cmd_handler* handler;
        std::vector<std::string> words;
        const char* message;
    };
    const std::vector<Case> cases = {
        {write_uart, {"x", "0", "true"}, "Error reading OLT_id parameter for command from input, aborting\r\n"},
        {write_uart, {"0", "x", "true"}, "Error reading VALUE parameter for command from input, aborting\r\n"},
        {write_uart, {"0", "-1", "true"}, "Error reading negative value of VALUE parameter from input, aborting\r\n"},
        {write_uart,
         {"0", "65536", "true"},
         "Error in range of VALUE parameter for command from input min:0 max:65535, aborting\r\n"},
        {write_uart, {"0", "0", "on"}, "Error reading start_loopback parameter (of the type true_false), aborting\r\n"},
        {write_uart,
         {"0", "0", "truetruetr"},
         "Error reading start_loopback parameter, internal buffer is too short, aborting!\r\n"},
        {write_uart, {"0", "0", ""}, "Error reading start_loopback parameter for command from input, aborting\r\n"},
        {read_uart, {"x", "1", "true"}, "Error reading OLT_id parameter for command from input, aborting\r\n"},
        {read_uart, {"0", "1x", "true"}, "Error reading LENGTH parameter for command from input, aborting\r\n"},
        {read_uart,
         {"0", "0", "true"},
         "Error in range of LENGTH parameter for command from input min:1 max:255, aborting\r\n"},
        {read_uart,
         {"0", "256", "true"},
         "Error in range of LENGTH parameter for command from input min:1 max:255, aborting\r\n"},
        {read_uart, {"0", "1", "no"}, "Error reading end_loopback parameter (of the type true_false), aborting\r\n"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(call(c.handler, c.words), c.message);
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
    EXPECT_EQ(write(256, "true"), "Command return error.\r\nparameter error (error code : -4)\r\n"); // no octet
    EXPECT_EQ(result, -4);
}

TEST_F(Uart, FailuresAreReported)
{
    inject("NEP_write_uart", -1000);
    EXPECT_EQ(write(1, "true"), "Command return error.\r\npc uart error (error code : -1000)\r\n");
    EXPECT_EQ(result, -1000);
    inject("NEP_read_uart", -1001);
    EXPECT_EQ(read(1, "true"), "Command return error.\r\npc crc error (error code : -1001)\r\n");
    EXPECT_EQ(result, -1001);
    for (const char* line :
         {"set uart olt 1 value 0 start-loopback true", "show uart olt 1 length 1 end-loopback true"}) {
        EXPECT_EQ(type(line), "Command return error.\r\nOLT not exist (error code : -1003)\r\n");
        EXPECT_EQ(result, -1003);
    }
}

} // namespace
