// SPDX-License-Identifier: Apache-2.0
#include "switching/xaui_redundancy.h"

#include "console_fixture.h"

namespace {

using Calls = std::vector<std::string>;

class XauiRedundancy : public Console {
  protected:
    XauiRedundancy()
    {
        enter(OLT_NODE);
    }
};

TEST_F(XauiRedundancy, Enable)
{
    EXPECT_EQ(type("xaui-redundancy-enable state enable"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(type("xaui-redundancy-enable state disable"), "");
    EXPECT_EQ(journal(), (Calls{"NEP_xaui_redundancy_enable(0, 1) = 0", "NEP_xaui_redundancy_enable(0, 0) = 0"}));
}

TEST_F(XauiRedundancy, EnableRefusesOtherWords)
{
    const std::vector<std::pair<const char*, const char*>> cases = {
        {"enabledisable", "Error reading state parameter, internal buffer is too short, aborting!\r\n"},
        {"0123456789", "Error reading state parameter, internal buffer is too short, aborting!\r\n"},
        {"012345678", "Error reading state parameter (of the type enable_disable), aborting\r\n"},
        {"", "Error reading state parameter for command from input, aborting\r\n"},
        {"  ", "Error reading state parameter for command from input, aborting\r\n"},
        {"on", "Error reading state parameter (of the type enable_disable), aborting\r\n"},
    };
    for (const auto& [word, message] : cases) {
        EXPECT_EQ(call(xaui_redundancy_enable, {word}), message) << word;
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(XauiRedundancy, SetParameters)
{
    const std::vector<std::pair<const char*, const char*>> cases = {
        {"inactive-ch-mode param-value send-idle", "0, 0"}, {"inactive-ch-mode param-value disable", "0, 1"},
        {"triggering-mode param-value link-loss", "1, 0"},  {"triggering-mode param-value gpio", "1, 1"},
        {"gpio-mode param-value high-low", "2, 0"},         {"gpio-mode param-value toggle", "2, 1"},
    };
    for (const auto& [words, arguments] : cases) {
        EXPECT_EQ(type(std::string("set xaui-redundancy-params param-type ") + words), "");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), Calls{std::string("NEP_xaui_redundancy_set_params(0, ") + arguments + ") = 0"});
    }
}

TEST_F(XauiRedundancy, TheGpioTriggerIsParameterOneWithValueOne)
{
    EXPECT_EQ(type("set xaui-redundancy-params param-type triggering-mode param-value gpio"), "");
    EXPECT_EQ(journal(), Calls{"NEP_xaui_redundancy_set_params(0, 1, 1) = 0"});
}

TEST_F(XauiRedundancy, AShortSpellingMeansTheLongOne)
{
    EXPECT_EQ(type("set xaui param-t trig param-v g"), "");
    EXPECT_EQ(journal(), Calls{"NEP_xaui_redundancy_set_params(0, 1, 1) = 0"});
}

TEST_F(XauiRedundancy, SetParametersRefusesOtherWords)
{
    const std::vector<std::pair<const char*, const char*>> cases = {
        {"inactive-ch-mode", "inactive_ch_mode"},
        {"triggering-mode", "triggering_mode"},
        {"gpio-mode", "gpio_mode"},
        {"gpio-mode inactive-ch-mode", "inactive_ch_mode"}, // the first of the three that is looked for
    };
    for (const auto& [line, name] : cases) {
        session->buf = line;
        // No length test here: a long word is refused like any other.
        for (const char* word : {"", "neither", "much-longer-than-ten-characters"}) {
            EXPECT_EQ(call(xaui_redundancy_params_set, {word}),
                      std::string("Error reading ") + name + " parameter (of the type " + name + "), aborting\r\n");
            EXPECT_EQ(result, -1);
        }
    }
    EXPECT_EQ(journal(), Calls{});
    session->buf = "a line without a parameter";
    EXPECT_EQ(call(xaui_redundancy_params_set, {"anything"}), "");
    EXPECT_EQ(journal(), Calls{"NEP_xaui_redundancy_set_params(0, 0, 0) = 0"});
    session->buf = nullptr;
}

TEST_F(XauiRedundancy, Show)
{
    EXPECT_EQ(type("show xaui-redundancy-params"), "Inactive channel Mode: send-idle \r\n"
                                                   "Triggering Mode: link-loss \r\n"
                                                   "GPIO Mode: high-low \r\n");
    type("set xaui-redundancy-params param-type inactive-ch-mode param-value disable");
    type("set xaui-redundancy-params param-type triggering-mode param-value gpio");
    type("set xaui-redundancy-params param-type gpio-mode param-value toggle");
    EXPECT_EQ(type("show xaui-redundancy-params"), "Inactive channel Mode: disable \r\n"
                                                   "Triggering Mode: gpio \r\n"
                                                   "GPIO Mode: toggle \r\n");
    EXPECT_EQ(result, 0);
}

TEST_F(XauiRedundancy, ValuesOutsideTheTablesAreInvalid)
{
    for (const char* value : {"2", "255"}) {
        load(std::string("[[olt]]\nid = 0\nmac = \"00-0a-c4-00-00-01\"\n[olt.xaui_redundancy]\ninactive_ch_mode = ") +
             value + "\ntriggering_mode = " + value + "\ngpio_mode = " + value);
        EXPECT_EQ(type("show xaui-redundancy-params"), "Inactive channel Mode: Invalid value \r\n"
                                                       "Triggering Mode: Invalid value \r\n"
                                                       "GPIO Mode: Invalid value \r\n");
        EXPECT_EQ(result, 0);
    }
}

TEST_F(XauiRedundancy, ShowEndsAtTheFirstFailingRead)
{
    inject("NEP_xaui_redundancy_get_params", -2, 1, 1);
    EXPECT_EQ(type("show xaui-redundancy-params"), "Inactive channel Mode: send-idle \r\n"
                                                   "Command return error.\r\n"
                                                   "time out (error code : -2)\r\n");
    EXPECT_EQ(result, -2);
    EXPECT_EQ(journal().size(), 2u);
}

TEST_F(XauiRedundancy, SwitchOver)
{
    type("xaui-redundancy-enable state enable");
    journal();
    EXPECT_EQ(type("xaui-redundancy-switch-over"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"NEP_xaui_redundancy_switch_over(0) = 0"});
}

TEST_F(XauiRedundancy, FailuresAreReported)
{
    const std::vector<std::pair<const char*, const char*>> cases = {
        {"xaui-redundancy-enable state enable", "NEP_xaui_redundancy_enable"},
        {"set xaui-redundancy-params param-type gpio-mode param-value toggle", "NEP_xaui_redundancy_set_params"},
        {"show xaui-redundancy-params", "NEP_xaui_redundancy_get_params"},
        {"xaui-redundancy-switch-over", "NEP_xaui_redundancy_switch_over"},
    };
    for (const auto& [line, operation] : cases) {
        inject(operation, -5);
        EXPECT_EQ(type(line), "Command return error.\r\nhardware error (error code : -5)\r\n") << line;
        EXPECT_EQ(result, -5);
    }
    enter(OLT_NODE, 1); // an absent OLT
    EXPECT_EQ(type("xaui-redundancy-enable state enable"),
              "Command return error.\r\nOLT not exist (error code : -1003)\r\n");
    EXPECT_EQ(result, -1003);
}

TEST_F(XauiRedundancy, LivesInTheOltNodeOnly)
{
    int found = 0;
    engine::for_each_element(engine::Origin::Library, [&](int node, const cmd_element& element) {
        if (std::string(element.string).find("xaui-redundancy") == std::string::npos) return;
        EXPECT_EQ(node, OLT_NODE) << element.string;
        ++found;
    });
    EXPECT_EQ(found, 6);
}

} // namespace
