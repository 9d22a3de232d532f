// SPDX-License-Identifier: Apache-2.0
// Every word of every command of the library and the engine has help that says more than the word.
#include "console_fixture.h"
#include "help_texts.h"

namespace {

class HelpTexts : public Console {};

TEST_F(HelpTexts, SayWhatIsMeantAndItsRange)
{
    for (engine::Origin origin : {engine::Origin::Library, engine::Origin::Engine})
        engine::for_each_element(origin, [](int node, const cmd_element& element) {
            EXPECT_EQ(help_texts::fault(element), "") << "in node " << node;
        });
}

TEST_F(HelpTexts, FaultsAreFound)
{
    EXPECT_NE(help_texts::fault_of_line("OLT_INDEX", "Olt index"), "");
    EXPECT_NE(help_texts::fault_of_line("OLT_INDEX", "Index of the OLT"), "");
    EXPECT_NE(help_texts::fault_of_line("<0-15>", "Index of the OLT, 0-14"), "");
    EXPECT_NE(help_texts::fault_of_line("set", ""), "");
    EXPECT_NE(help_texts::fault_of_line("set", "change a setting"), "");
    EXPECT_NE(help_texts::fault_of_line("disable", "They do not"), "");
    EXPECT_NE(help_texts::fault_of_line("(enable|disable)", "enable: frames are tagged; disable: they are not"), "");
    EXPECT_NE(help_texts::fault_of_line("(disable|enable)", "disable: it does not; enable: the ONU sends it"), "");
    EXPECT_EQ(help_texts::fault_of_line("(enable|disable)", "enable: tagged; disable: they are not tagged"), "");
    EXPECT_EQ(help_texts::fault_of_line("<0-15>", "Index of the OLT, 0-15"), "");
    EXPECT_NE(help_texts::fault_of_line("(hw|slow|fast)", "hw: as before; slow to fast: blinks"), "");
    EXPECT_NE(help_texts::fault_of_line("(on|<1-9>)", "on: again; 1-9: off for so many seconds"), "");
    EXPECT_NE(help_texts::fault_of_line("(on|off)", "on: again"), "");
    EXPECT_NE(help_texts::fault_of_line("(all|<1-9>)", "Number of the slot, 1-9; all: every slot"), "");
    EXPECT_EQ(help_texts::fault_of_line("(hw|slow|fast)", "hw: as before; slow, fast: blinks"), "");
    EXPECT_EQ(help_texts::fault_of_line("(on|<1-9>)", "on: again; <1-9>: off for so many seconds"), "");
    EXPECT_EQ(help_texts::fault_of_line("(1200 | 2400)", "Bits per second"), "");
}

} // namespace
