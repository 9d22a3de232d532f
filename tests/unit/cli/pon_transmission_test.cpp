// SPDX-License-Identifier: Apache-2.0
#include "olt/pon_transmission.h"

#include "links_fixture.h"

namespace {

class PonTransmission : public Links {
  protected:
    PonTransmission()
    {
        enter(OLT_PON_NODE);
    }

    // "on" or "off" at 1G and at 10G.
    std::string shown()
    {
        std::string states;
        for (const char* rate : {"1g", "10g"}) {
            const std::string text = type(std::string("show olt-pon-transmission ") + rate);
            if (text == "OLT_id: 0 \r\nolt pon transmission: enable \r\n") states += "on ";
            if (text == "OLT_id: 0 \r\nolt pon transmission: disable \r\n") states += "off ";
        }
        return states;
    }
};

std::string left(int onu, const char* mac)
{
    return "onu-deregistered: olt 0, onu " + std::to_string(onu) + ", mac 02-00-00-00-00-" + mac +
           ", reason mpcp-timeout \r\n";
}

TEST_F(PonTransmission, EachRate)
{
    const std::vector<std::tuple<const char*, const char*, const char*>> cases = {
        {"no olt-pon-transmission pon-type 1g", "0, 0", "off on "},
        {"no olt-pon-transmission pon-type 10g", "1, 0", "off off "},
        {"set olt-pon-transmission pon-type 1g", "0, 1", "on off "},
        {"set olt-pon-transmission pon-type 10g", "1, 1", "on on "},
        {"no olt-pon-transmission pon-type 1g-10g", "2, 0", "off off "},
        {"set olt-pon-transmission pon-type 1g-10g", "2, 1", "on on "},
    };
    EXPECT_EQ(shown(), "on on ");
    EXPECT_EQ(journal(),
              (Calls{"NEP_get_olt_pon_transmission(0, 0) = 0 -> 1", "NEP_get_olt_pon_transmission(0, 1) = 0 -> 1"}));
    for (const auto& [line, arguments, states] : cases) {
        EXPECT_EQ(type(line), "") << line;
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), Calls{std::string("NEP_set_olt_pon_transmission(0, ") + arguments + ") = 0"});
        EXPECT_EQ(shown(), states) << line;
        journal();
    }
}

TEST_F(PonTransmission, OnusThatHearNothingLeaveAndComeBack)
{
    EventLines events;
    enter(CONFIG_NODE);
    EXPECT_EQ(type("set mpcp-timeout olt 0 timeout 300"), "");
    enter(OLT_PON_NODE);
    EXPECT_EQ(type("no olt-pon-transmission pon-type 10g"), "");
    EXPECT_EQ(events.after(299), "");
    EXPECT_EQ(events.after(1), left(10, "0a") + left(11, "0b"));
    EXPECT_EQ(type("no olt-pon-transmission pon-type 1g-10g"), "");
    EXPECT_EQ(events.after(300), left(5, "05") + left(7, "07") + left(9, "09") + left(254, "fe") +
                                     "pon-signal-changed: olt 0, state lost \r\n");
    EXPECT_EQ(type("set olt-pon-transmission pon-type 10g"), "");
    const std::string back = events.after(5000);
    EXPECT_EQ(back.find("pon-signal-changed: olt 0, state present \r\n"), 0u) << back; // before the first ONU
    EXPECT_NE(back.find("onu-registered: olt 0, onu 10, "), std::string::npos) << back;
    EXPECT_NE(back.find("onu-registered: olt 0, onu 11, "), std::string::npos) << back;
    EXPECT_EQ(back.find("onu 5,"), std::string::npos) << back; // still hears nothing
    EXPECT_EQ(type("set olt-pon-transmission pon-type 1g"), "");
    const std::string others = events.after(5000);
    EXPECT_EQ(others.find("pon-signal-changed"), std::string::npos) << others;
    for (const char* onu : {"onu 5,", "onu 7,", "onu 9,", "onu 254,"})
        EXPECT_NE(others.find(std::string("onu-registered: olt 0, ") + onu), std::string::npos) << onu;
}

TEST_F(PonTransmission, ATransmissionThatIsBackInTimeLosesNobody)
{
    EventLines events;
    type("no olt-pon-transmission pon-type 1g-10g");
    EXPECT_EQ(events.after(500), "");
    type("set olt-pon-transmission pon-type 1g-10g");
    EXPECT_EQ(events.after(10000), "");
}

TEST_F(PonTransmission, WordsThatAreRefused)
{
    for (cmd_handler* handler : {set_olt_pon_transmission, no_olt_pon_transmission}) {
        for (const char* word : {"", "2g", "1g-10"}) {
            EXPECT_EQ(call(handler, {word}), "Error reading pon_type parameter (of the type pon_type), aborting\r\n");
            EXPECT_EQ(result, -1);
        }
    }
    for (const char* word : {"", "1g-10g"}) {
        EXPECT_EQ(call(get_olt_pon_transmission, {word}),
                  "Error reading olt_pon_transmission parameter (of the type olt_pon_transmission), aborting\r\n");
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(call(get_olt_pon_module_exist, {"tertiary"}),
              "Error reading gpio_group_level parameter (of the type gpio_group_level), aborting\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(PonTransmission, ModulesThatArePluggedIn)
{
    load("[[olt]]\nid = 0\nmac = \"00-0a-c4-00-00-01\"\n[olt.pon_modules]\n"
         "primary = true\nsecondary = false\n");
    EXPECT_EQ(type("show olt-pon-module-exist gpio-group-level primary"),
              "OLT_id: 0 \r\nolt pon module exist: yes \r\n");
    EXPECT_EQ(type("show olt-pon-module-exist gpio-group-level secondary"),
              "OLT_id: 0 \r\nolt pon module exist: no \r\n");
    EXPECT_EQ(journal(),
              (Calls{"NEP_get_olt_pon_module_exist(0, 0) = 0 -> 1", "NEP_get_olt_pon_module_exist(0, 1) = 0 -> 0"}));
    enter(CONFIG_NODE);
    EXPECT_EQ(type("set olt-use-redundant olt 0"), HARDWARE); // there is nothing to stand by
    EXPECT_EQ(result, -5);
    EXPECT_EQ(type("no olt-use-redundant olt 0"), "");
    EXPECT_EQ(result, 0);
}

TEST_F(PonTransmission, Redundancy)
{
    enter(CONFIG_NODE, 9);
    EXPECT_EQ(type("set olt-use-redundant olt 0"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(type("no olt-use-redundant olt 0x0"), "");
    EXPECT_EQ(journal(), (Calls{"NEP_set_use_pon_redundant(0, 1) = 0", "NEP_set_use_pon_redundant(0, 0) = 0"}));
    for (const char* command : {"set olt-use-redundant olt ", "no olt-use-redundant olt "}) {
        EXPECT_EQ(type(std::string(command) + "1"), NO_OLT);
        EXPECT_EQ(result, -1003);
        inject("NEP_set_use_pon_redundant", -4);
        EXPECT_EQ(type(std::string(command) + "0"), BAD_PARAMETER);
        EXPECT_EQ(result, -4);
        EXPECT_EQ(type(std::string(command) + "0q"),
                  "Error reading OLT_id parameter for command from input, aborting\r\n");
        EXPECT_EQ(result, -1);
    }
}

TEST_F(PonTransmission, FailuresAndAbsentOlts)
{
    const std::vector<std::pair<const char*, const char*>> cases = {
        {"set olt-pon-transmission pon-type 1g", "NEP_set_olt_pon_transmission"},
        {"no olt-pon-transmission pon-type 1g", "NEP_set_olt_pon_transmission"},
        {"show olt-pon-transmission 10g", "NEP_get_olt_pon_transmission"},
        {"show olt-pon-module-exist gpio-group-level primary", "NEP_get_olt_pon_module_exist"},
    };
    for (const auto& [line, operation] : cases)
        expect_olt_failures(line, operation, OLT_PON_NODE);
}

} // namespace
