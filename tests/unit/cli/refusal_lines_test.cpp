// SPDX-License-Identifier: Apache-2.0
// Every way in which the library refuses with a good return value is known as a refusal.
#include "host/refusal_lines.h"

#include "console_fixture.h"

namespace {

class RefusalLines : public Console {
  protected:
    bool refused(std::string_view line)
    {
        std::string text = type(line);
        EXPECT_EQ(text.find("\r\n"), text.size() - 2) << text;
        return is_refusal_line(std::string_view(text).substr(0, text.size() - 2));
    }
};

} // namespace

TEST_F(RefusalLines, OfNodesThatCannotBeEntered)
{
    enter(CONFIG_NODE);
    EXPECT_TRUE(refused("olt 9"));
    EXPECT_TRUE(refused("olt 9x"));
    enter(OLT_NODE);
    EXPECT_TRUE(refused("llid 7"));
    EXPECT_TRUE(refused("llid 300"));
    EXPECT_TRUE(refused("onu 7"));
}

TEST_F(RefusalLines, OfArguments)
{
    enter(CONFIG_NODE);
    EXPECT_TRUE(refused("no olt 3x"));
    EXPECT_TRUE(refused("show llid mode 0 llid-mac-address 1-2"));
    EXPECT_TRUE(refused("show llid mode 0 llid-mac-address 02-00-00-00-00-77"));
}

TEST_F(RefusalLines, OfTheSdk)
{
    enter(CONFIG_NODE);
    const std::string text = type("no olt 9");
    EXPECT_TRUE(is_refusal_line(std::string_view(text).substr(0, text.find("\r\n"))));
}

TEST_F(RefusalLines, OrdinaryAnswersAreNone)
{
    for (const char* line : {"", "Max rtt: 12500 ", "Error", "Errors: 0", "name: aborting", "ONU name: , aborting"})
        EXPECT_FALSE(is_refusal_line(line)) << line;
}
