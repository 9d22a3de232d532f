// SPDX-License-Identifier: Apache-2.0
#include "olt/gpio.h"

#include "console_fixture.h"

namespace {

using Calls = std::vector<std::string>;

class Gpio : public Console {
  protected:
    Gpio()
    {
        enter(OLT_NODE);
    }
};

TEST_F(Gpio, EachWordAndBoundary)
{
    const std::vector<std::pair<const char*, const char*>> cases = {
        {"0 direction output value on", "0, 1, 2"},
        {"66 direction output value off", "66, 1, 1"},
        {"0 direction not-changed value off", "0, 0, 1"},
        {"0 direction input value not-changed", "0, 2, 0"},
        {"5 direction not-changed value not-changed", "5, 0, 0"},
    };
    for (const auto& [words, arguments] : cases) {
        EXPECT_EQ(type(std::string("set gpio line-number ") + words), "");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), Calls{std::string("NEP_gpio_access(0, ") + arguments + ") = 0"});
    }
}

TEST_F(Gpio, Refusals)
{
    const std::vector<std::pair<std::vector<std::string>, const char*>> cases = {
        {{"x", "output", "on"}, "Error reading line_number parameter for command from input, aborting\r\n"},
        {{"67", "output", "on"},
         "Error in range of line_number parameter for command from input min:0 max:66, aborting\r\n"},
        {{"-1", "output", "on"}, "Error reading negative value of line_number parameter from input, aborting\r\n"},
        {{"0", "both", "on"}, "Error reading direction parameter (of the type direction), aborting\r\n"},
        {{"0", "output", "high"}, "Error reading value parameter (of the type gpio_value), aborting\r\n"},
    };
    for (const auto& [words, message] : cases) {
        EXPECT_EQ(call(gpio_access, words), message);
        EXPECT_EQ(result, -1);
    }
    type("set gpio line-number 67 direction output value on");
    EXPECT_EQ(status, engine::MatchStatus::Unknown);
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(Gpio, ALineThatIsAnInputTakesNoValue)
{
    const std::string refusal = "Command return error.\r\nexit error (error code : -1)\r\n";
    EXPECT_EQ(type("set gpio line-number 3 direction not-changed value on"), refusal);
    EXPECT_EQ(result, -1);
    EXPECT_EQ(type("set gpio line-number 3 direction output value not-changed"), "");
    EXPECT_EQ(type("set gpio line-number 3 direction not-changed value on"), "");
    EXPECT_NE(type("show post-mortem").find("gpio 3: on\r\n"), std::string::npos);
    EXPECT_EQ(type("set gpio line-number 3 direction input value off"), refusal); // and stays an output
    EXPECT_EQ(type("set gpio line-number 3 direction not-changed value off"), "");
    EXPECT_NE(type("show post-mortem").find("gpio 3: off\r\n"), std::string::npos);
    EXPECT_EQ(type("set gpio line-number 3 direction input value not-changed"), "");
    EXPECT_EQ(type("show post-mortem").find("gpio"), std::string::npos);
}

TEST_F(Gpio, FailuresAreReported)
{
    inject("NEP_gpio_access", -1005);
    EXPECT_EQ(type("set gpio line-number 3 direction output value on"),
              "Command return error.\r\nnot supported in current HW version (error code : -1005)\r\n");
    EXPECT_EQ(result, -1005);
    enter(OLT_NODE, 1);
    EXPECT_EQ(type("set gpio line-number 3 direction output value on"),
              "Command return error.\r\nOLT not exist (error code : -1003)\r\n");
    EXPECT_EQ(result, -1003);
}

} // namespace
