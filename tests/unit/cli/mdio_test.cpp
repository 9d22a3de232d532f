// SPDX-License-Identifier: Apache-2.0
#include "olt/mdio.h"

#include "console_fixture.h"
#include "olt/post_mortem.h"

namespace {

using Calls = std::vector<std::string>;

class Mdio : public Console {
  protected:
    Mdio()
    {
        enter(OLT_NODE);
    }
};

TEST_F(Mdio, WritesEachBoundary)
{
    const std::vector<std::pair<const char*, const char*>> cases = {
        {"mdio phy 0 register 0 value 0", "NEP_write_mdio_register(0, 0, 0, 0) = 0"},
        {"mdio phy 31 register 31 value 65535", "NEP_write_mdio_register(0, 31, 31, 65535) = 0"},
        {"mdio phy 7 register 4 value 0x1e1", "NEP_write_mdio_register(0, 7, 4, 481) = 0"},
        {"mdio45 port 0 device 0 register 0 value 0", "NEP_write_mdio45_register(0, 0, 0, 0, 0) = 0"},
        {"mdio45 port 31 device 31 register 65535 value 0xffff",
         "NEP_write_mdio45_register(0, 31, 31, 65535, 65535) = 0"},
    };
    for (const auto& [line, call] : cases) {
        EXPECT_EQ(type(line), "") << line;
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), Calls{call});
    }
}

TEST_F(Mdio, TheGrammarBoundsAddresses)
{
    for (const char* line :
         {"mdio phy 32 register 0 value 0", "mdio phy -1 register 0 value 0", "mdio phy 0 register 32 value 0",
          "mdio45 port 32 device 0 register 0 value 0", "mdio45 port 0 device 32 register 0 value 0",
          "mdio45 port 0 device 0 register 65536 value 0"}) {
        type(line);
        EXPECT_EQ(status, engine::MatchStatus::Unknown) << line;
    }
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(Mdio, Refusals)
{
    struct Case {
        cmd_handler* handler;
        std::vector<std::string> words;
        std::string message;
    };
    const std::string read = "Error reading ";
    const std::string from_input = " parameter for command from input, aborting\r\n";
    const std::vector<Case> cases = {
        {mdio_reg, {"x", "0", "0"}, read + "phy" + from_input},
        {mdio_reg,
         {"32", "0", "0"},
         "Error in range of phy parameter for command from input min:0 max:31, aborting\r\n"},
        {mdio_reg, {"-1", "0", "0"}, "Error reading negative value of phy parameter from input, aborting\r\n"},
        {mdio_reg, {"0", "1x", "0"}, read + "register" + from_input},
        {mdio_reg,
         {"0", "0x20", "0"},
         "Error in range of register parameter for command from input min:0 max:31, aborting\r\n"},
        {mdio_reg, {"0", "0", "x"}, read + "REG_VALUE" + from_input},
        {mdio_reg, {"0", "0", ""}, read + "REG_VALUE" + from_input},
        {mdio_reg,
         {"0", "0", "65536"},
         "Error in range of REG_VALUE parameter for command from input min:0 max:65535, aborting\r\n"},
        {mdio_reg, {"0", "0", "-1"}, "Error reading negative value of REG_VALUE parameter from input, aborting\r\n"},
        {mdio45_reg, {"x", "0", "0", "0"}, read + "port" + from_input},
        {mdio45_reg,
         {"0", "32", "0", "0"},
         "Error in range of device parameter for command from input min:0 max:31, aborting\r\n"},
        {mdio45_reg,
         {"0", "0", "65536", "0"},
         "Error in range of register parameter for command from input min:0 max:65535, aborting\r\n"},
        {mdio45_reg, {"0", "0", "0", "0x-1"}, read + "REG_VALUE" + from_input},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(call(c.handler, c.words), c.message);
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
}

// What was written shows in the firmware's report.
TEST_F(Mdio, RegistersKeepWhatWasWritten)
{
    type("mdio phy 1 register 4 value 0x1e1");
    type("mdio phy 2 register 4 value 0x21");
    type("mdio45 port 1 device 3 register 0x20 value 1");
    EXPECT_EQ(status, engine::MatchStatus::Unknown); // ranges are decimal
    type("mdio45 port 1 device 3 register 32 value 0x1001");
    EXPECT_NE(type("show post-mortem").find("mdio 1 4: 0x1e1\r\nmdio 2 4: 0x21\r\nmdio45 1 3 32: 0x1001\r\n"),
              std::string::npos);
    type("mdio phy 1 register 0 value 0x9140"); // a reset, which clears its own bit
    type("mdio45 port 1 device 3 register 0 value 0x8000");
    EXPECT_NE(type("show post-mortem").find("mdio 1 0: 0x1140\r\nmdio 2 4: 0x21\r\nmdio45 1 3 0: 0x0\r\n"),
              std::string::npos);
}

TEST_F(Mdio, FailuresAreReported)
{
    inject("NEP_write_mdio_register", -5);
    EXPECT_EQ(type("mdio phy 1 register 1 value 1"), "Command return error.\r\nhardware error (error code : -5)\r\n");
    EXPECT_EQ(result, -5);
    inject("NEP_write_mdio45_register", -2);
    EXPECT_EQ(type("mdio45 port 1 device 1 register 1 value 1"),
              "Command return error.\r\ntime out (error code : -2)\r\n");
    EXPECT_EQ(result, -2);
    enter(OLT_NODE, 1);
    for (const char* line : {"mdio phy 1 register 1 value 1", "mdio45 port 1 device 1 register 1 value 1"}) {
        EXPECT_EQ(type(line), "Command return error.\r\nOLT not exist (error code : -1003)\r\n");
        EXPECT_EQ(result, -1003);
    }
}

} // namespace
