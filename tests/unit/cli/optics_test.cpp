// SPDX-License-Identifier: Apache-2.0
#include "olt/optics.h"

#include <algorithm>
#include <cstdlib>

#include "console_fixture.h"
#include "olt/fill_optics.h"
#include "optics_settings.h"

namespace {

using Calls = std::vector<std::string>;
using Words = std::vector<std::string>;

constexpr const char* NOT_EXIST = "Command return error.\r\nOLT not exist (error code : -1003)\r\n";
constexpr const char* PARAMETER = "Command return error.\r\nparameter error (error code : -4)\r\n";
constexpr const char* NOT_SUPPORTED =
    "Command return error.\r\nnot supported in current HW version (error code : -1005)\r\n";

Words split(const std::string& text, char separator)
{
    Words parts;
    size_t begin = 0;
    for (size_t end = 0; end != std::string::npos; begin = end + 1) {
        end = text.find(separator, begin);
        parts.push_back(text.substr(begin, end - begin));
    }
    return parts;
}

// The true and false words have the codes 1 and 0, all others that of their position.
int code_of(const OpticsSetting& setting, size_t word)
{
    return std::string(setting.words) == "true|false" ? 1 - static_cast<int>(word) : static_cast<int>(word);
}

struct Filling {
    Words typed, shown; // shown: lines of the listing
    Calls fields;       // of the journal, sorted
};

// The last word of each alternative, and a number of its own for each number: what is mixed up shows.
Filling distinct_values(const OpticsForm& form)
{
    Filling filling;
    int number = 0;
    for (const OpticsSetting& setting : form.settings) {
        std::string text;
        int code;
        if (setting.words != nullptr) {
            const Words words = split(setting.words, '|');
            text = words.back();
            code = code_of(setting, words.size() - 1);
        } else {
            code = std::min(setting.max, 100 + ++number);
            text = std::to_string(code);
        }
        filling.typed.push_back(text);
        filling.shown.push_back(std::string(setting.label) + ": " + text + " \r\n");
        filling.fields.push_back(std::string(setting.field) + "=" + std::to_string(code));
    }
    std::sort(filling.fields.begin(), filling.fields.end());
    return filling;
}

// One value after the other, as the field's smallest.
Words lowest_values(const OpticsForm& form)
{
    Words typed;
    for (const OpticsSetting& setting : form.settings)
        typed.push_back(setting.words == nullptr ? "0" : split(setting.words, '|').front());
    return typed;
}

std::string fill_line(const OpticsForm& form, const Words& typed)
{
    std::string line = std::string("fill optics ") + form.name;
    for (size_t i = 0; i < typed.size(); ++i)
        line += std::string(" ") + form.settings[i].keyword + " " + typed[i];
    return line;
}

class Optics : public Console {
  protected:
    // What the line with these words applies, as fields of the journal.
    Calls applied(const OpticsForm& form, const Words& typed)
    {
        EXPECT_EQ(type(fill_line(form, typed)), "") << form.name;
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), Calls{}); // nothing reaches an OLT yet
        EXPECT_EQ(type(std::string("set olt 0 optics ") + rate_words[form.rate]), "");
        EXPECT_EQ(result, 0);
        const Calls calls = journal();
        const std::string head = "NEP_set_olt_device_optics(0, " + std::to_string(form.rate) + ", {";
        const std::string tail = "}) = 0";
        const std::string& call = calls.back();
        EXPECT_EQ(call.substr(0, head.size()), head);
        EXPECT_EQ(call.substr(call.size() - tail.size()), tail);
        const bool is_dual = form.settings.size() == 19;
        EXPECT_EQ(Calls(calls.begin(), calls.end() - 1),
                  is_dual ? (Calls{"Olt_exists(0) = 1", "Is_olt_support_dual(0) = 1"}) : Calls{});
        Calls fields = split(call.substr(head.size(), call.size() - head.size() - tail.size()), ',');
        std::sort(fields.begin(), fields.end());
        return fields;
    }
    std::string shown(int rate)
    {
        const std::string text = type(std::string("show olt 0 optics ") + rate_words[rate]);
        EXPECT_EQ(result, 0);
        return text;
    }
    std::string fill_and_set(const OpticsForm& form, const Words& typed)
    {
        EXPECT_EQ(type(fill_line(form, typed)), "");
        return type(std::string("set olt 0 optics ") + rate_words[form.rate]);
    }
};

constexpr const char* SINGLE_PARAMETERS = "optics rx term mode: pon-rx-termination-dc-coupling-cml \r\n"
                                          "optics predate xcvr reset: 0 \r\n"
                                          "optics start hunt on cdr lock: disable \r\n";

#ifdef EPON_EMULATED
constexpr bool IS_EMULATED = true;
#else
constexpr bool IS_EMULATED = false;
#endif

// --- Filling and applying ----------------------------------------------------------------------------------------

// In a process of its own: nothing has been filled there.
TEST_F(Optics, WhatIsNotFilledIsNotApplied)
{
    // Under an emulator a program cannot start itself anew; there this test has a run of its own.
    GTEST_FLAG_SET(death_test_style, IS_EMULATED ? "fast" : "threadsafe");
    for (const char* rate : rate_words) {
        const std::string line = std::string("set olt 0 optics ") + rate;
        const std::string refusal =
            std::string("The ") + rate + " optics are not filled. Fill them with \"fill optics\" first.\r\n";
        EXPECT_EXIT(
            {
                const bool is_refused = type(line) == refusal && result == -4 && journal().empty();
                _Exit(is_refused ? 0 : 1);
            },
            ::testing::ExitedWithCode(0), "");
    }
}

TEST_F(Optics, EachFormFillsAndIsApplied)
{
    for (const int node : {CONFIG_NODE, OLT_NODE}) {
        for (const OpticsForm& form : forms) {
            enter(node);
            const Filling filling = distinct_values(form);
            EXPECT_EQ(type(fill_line(form, filling.typed)), "");
            EXPECT_EQ(result, 0);
            enter(CONFIG_NODE);
            EXPECT_EQ(applied(form, filling.typed), filling.fields) << form.name;

            std::string listing = "OLT_id: 0 \r\n";
            for (const std::string& line : filling.shown)
                listing += line;
            const std::string text = shown(form.rate);
            if (form.settings.size() == 19) { // those of mixed rates follow
                EXPECT_EQ(text.substr(0, listing.size()), listing);
            } else {
                EXPECT_EQ(text, listing + SINGLE_PARAMETERS);
            }
            enter(OLT_NODE);
            EXPECT_EQ(type(std::string("show olt optics ") + rate_words[form.rate]), text);
            journal();
        }
    }
}

TEST_F(Optics, EveryWordAndBoundary)
{
    for (const OpticsForm& form : forms) {
        const Words lowest = lowest_values(form);
        for (size_t i = 0; i < form.settings.size(); ++i) {
            const OpticsSetting& setting = form.settings[i];
            const auto expect = [&](const std::string& text, int code) {
                Words typed = lowest;
                typed[i] = text;
                const Calls fields = applied(form, typed);
                const std::string field = std::string(setting.field) + "=" + std::to_string(code);
                EXPECT_NE(std::find(fields.begin(), fields.end(), field), fields.end()) << field;
            };
            if (setting.words != nullptr) {
                const Words words = split(setting.words, '|');
                for (size_t word = 0; word < words.size(); ++word)
                    expect(words[word], code_of(setting, word));
            } else {
                expect("0", 0);
                expect(std::to_string(setting.max), setting.max);
                expect("0x1", 1);
            }
        }
    }
}

TEST_F(Optics, TheOltRefusesNumbersOutOfRange)
{
    for (const OpticsForm& form : forms) {
        const Words lowest = lowest_values(form);
        for (size_t i = 0; i < form.settings.size(); ++i) {
            const OpticsSetting& setting = form.settings[i];
            if (setting.words != nullptr) continue;
            const std::string before = shown(form.rate);
            Words typed = lowest;
            typed[i] = std::to_string(setting.max + 1);
            EXPECT_EQ(fill_and_set(form, typed), PARAMETER) << setting.keyword;
            EXPECT_EQ(result, -4);
            EXPECT_EQ(shown(form.rate), before); // all settings or none
        }
    }
}

TEST_F(Optics, RefusedWordsKeepWhatWasFilled)
{
    for (const OpticsForm& form : forms) {
        const Filling filling = distinct_values(form);
        applied(form, filling.typed);
        for (size_t i = 0; i < form.settings.size(); ++i) {
            const OpticsSetting& setting = form.settings[i];
            const std::string name = setting.parameter;
            const auto expect = [&](const char* text, const std::string& message) {
                Words typed = lowest_values(form);
                typed[i] = text;
                EXPECT_EQ(call(fill_olt_optics, typed), message);
                EXPECT_EQ(result, -1);
            };
            if (setting.words == nullptr) {
                expect("x", "Error reading " + name + " parameter for command from input, aborting\r\n");
                expect("", "Error reading " + name + " parameter for command from input, aborting\r\n");
                expect("-1", "Error reading negative value of " + name + " parameter from input, aborting\r\n");
                expect("65536",
                       "Error in range of " + name + " parameter for command from input min:0 max:65535, aborting\r\n");
            } else if (std::string(setting.words) == "true|false") {
                expect("maybe", "Error reading " + name + " parameter (of the type true_false), aborting\r\n");
                expect("0123456789",
                       "Error reading " + name + " parameter, internal buffer is too short, aborting!\r\n");
            } else {
                expect("neither", "Error reading " + name + " parameter (of the type " + name + "), aborting\r\n");
            }
        }
        journal();
        EXPECT_EQ(type(std::string("set olt 0 optics ") + rate_words[form.rate]), "");
        const std::string call = journal().back();
        for (const std::string& field : filling.fields)
            EXPECT_NE(call.find(field), std::string::npos) << field;
    }
}

TEST_F(Optics, AShortSpellingMeansTheLongOne)
{
    const OpticsForm& form = forms[0];
    Words typed = lowest_values(form);
    typed[7] = "h"; // xcvr-reset-polarity
    applied(form, typed);
    EXPECT_NE(shown(OPTICS_1G).find("xcvr reset polarity: high \r\n"), std::string::npos);
}

TEST_F(Optics, RatesAreFilledAndAppliedApart)
{
    const std::string before = shown(OPTICS_10G);
    journal();
    applied(forms[1], distinct_values(forms[1]).typed);
    EXPECT_EQ(shown(OPTICS_10G), before);
    journal();
    applied(forms[2], distinct_values(forms[2]).typed);
    const std::string text = shown(OPTICS_1G);
    journal();
    applied(forms[2], lowest_values(forms[2]));
    EXPECT_EQ(shown(OPTICS_1G), text);
}

// The words of a filling are kept for any OLT.
TEST_F(Optics, TheShortFormTakesTheOltOfTheSession)
{
    type(fill_line(forms[1], lowest_values(forms[1])));
    enter(OLT_NODE);
    EXPECT_EQ(type("set olt optics 1g"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal().back().substr(0, 36), "NEP_set_olt_device_optics(0, 0, {dis");
    enter(OLT_NODE, 1);
    EXPECT_EQ(type("set olt optics 1g"), NOT_EXIST);
    EXPECT_EQ(result, -1003);
    EXPECT_EQ(type("show olt optics 10g"), NOT_EXIST);
    EXPECT_EQ(result, -1003);
}

TEST_F(Optics, DualSettingsNeedAnOltThatSupportsThem)
{
    type(fill_line(forms[0], lowest_values(forms[0])));
    const std::string refusal =
        "OLT id (0) doesn't support dual 1g optics. Fill them with \"fill optics mixed-1g\".\r\n";
    const std::vector<std::pair<const char*, bool>> cases = {{"dual-1g", true},         {"seperated-1g-10g", true},
                                                             {"unified-rx", false},     {"asymetric", false},
                                                             {"gen-con-type-1", false}, {"gen-con-type-2", false}};
    for (const auto& [connectivity, is_supported] : cases) {
        type(std::string("set olt 0 optics by-module-and-connectivity connectivity-type ") + connectivity +
             " module-type auto");
        journal();
        EXPECT_EQ(type("set olt 0 optics 1g"), is_supported ? "" : refusal) << connectivity;
        EXPECT_EQ(result, is_supported ? 0 : -4);
        EXPECT_EQ(journal().size(), is_supported ? 3u : 2u);
    }
    // The settings of mixed rates are never in question, nor are those of 10G.
    EXPECT_EQ(fill_and_set(forms[1], lowest_values(forms[1])), "");
    EXPECT_EQ(fill_and_set(forms[2], lowest_values(forms[2])), "");
    // That an OLT is not there is the SDK's to say.
    type(fill_line(forms[0], lowest_values(forms[0])));
    journal();
    EXPECT_EQ(type("set olt 1 optics 1g"), NOT_EXIST);
    EXPECT_EQ(result, -1003);
    EXPECT_EQ(journal().size(), 2u); // without the question what it supports
}

// --- By module ---------------------------------------------------------------------------------------------------

TEST_F(Optics, ByModuleAndConnectivity)
{
    const char* const connectivities[] = {"dual-1g",   "seperated-1g-10g", "unified-rx",
                                          "asymetric", "gen-con-type-1",   "gen-con-type-2"};
    const char* const modules[] = {"auto", "ltx5302", "ltx5302a", "ltx5302b", "fiberxon", "superxon"};
    for (int connectivity = 0; connectivity < OPTICS_CONNECTIVITY_COUNT; ++connectivity) {
        for (int module = 0; module < OPTICS_MODULE_COUNT; ++module) {
            const std::string words = std::string("optics by-module-and-connectivity connectivity-type ") +
                                      connectivities[connectivity] + " module-type " + modules[module];
            const std::string call = "NEP_set_olt_device_optics_by_module_and_connectivity(0, " +
                                     std::to_string(connectivity) + ", " + std::to_string(module) + ") = 0";
            enter(CONFIG_NODE);
            EXPECT_EQ(type("set olt 0 " + words), "");
            EXPECT_EQ(result, 0);
            enter(OLT_NODE);
            EXPECT_EQ(type("set olt " + words), "");
            EXPECT_EQ(result, 0);
            EXPECT_EQ(journal(), (Calls{call, call}));
        }
    }
}

TEST_F(Optics, AModuleBringsItsSettings)
{
    applied(forms[1], lowest_values(forms[1]));
    EXPECT_EQ(type("set olt 0 optics by-module-and-connectivity connectivity-type unified-rx module-type ltx5302b"),
              "");
    const std::string text = shown(OPTICS_1G);
    EXPECT_NE(text.find("normal mode sync time: 38 \r\n"), std::string::npos);
    EXPECT_NE(text.find("xcvr reset duration: 2 \r\n"), std::string::npos);
    EXPECT_NE(text.find("optics dead zone: 12 \r\n"), std::string::npos);
    EXPECT_NE(shown(OPTICS_10G).find("normal mode sync time: 38 \r\n"), std::string::npos);
}

TEST_F(Optics, ADual1gOltHasNo10gOptics)
{
    EXPECT_EQ(fill_and_set(forms[2], lowest_values(forms[2])), "");
    type("set olt 0 optics by-module-and-connectivity connectivity-type dual-1g module-type auto");
    for (const char* line :
         {"set olt 0 optics 10g", "show olt 0 optics 10g", "set olt 0 optics 10g optics-predate-xcvr-reset 1"}) {
        EXPECT_EQ(type(line), NOT_SUPPORTED) << line;
        EXPECT_EQ(result, -1005);
    }
    shown(OPTICS_1G);
}

// --- Single parameters -------------------------------------------------------------------------------------------

TEST_F(Optics, SingleParameters)
{
    struct Case {
        const char* words;
        const char* arguments;
        const char* shown;
    };
    const Case cases[] = {
        {"optics-rx-term-mode pon-rx-termination-dc-coupling-cml", "0, 0",
         "optics rx term mode: pon-rx-termination-dc-coupling-cml \r\n"},
        {"optics-rx-term-mode pon-rx-termination-ac-coupling", "0, 1",
         "optics rx term mode: pon-rx-termination-ac-coupling \r\n"},
        {"optics-rx-term-mode pon-rx-termination-dc-coupling-lvpecl", "0, 2",
         "optics rx term mode: pon-rx-termination-dc-coupling-lvpecl \r\n"},
        {"optics-rx-term-mode pon-rx-termination-not-relevant-coupling", "0, 3",
         "optics rx term mode: pon-rx-termination-not-relevant-coupling \r\n"},
        {"optics-predate-xcvr-reset 0", "1, 0", "optics predate xcvr reset: 0 \r\n"},
        {"optics-predate-xcvr-reset 256", "1, 256", "optics predate xcvr reset: 256 \r\n"},
        {"optics-start-hunt-on-CDR-lock enable", "2, 1", "optics start hunt on cdr lock: enable \r\n"},
        {"optics-start-hunt-on-CDR-lock disable", "2, 0", "optics start hunt on cdr lock: disable \r\n"},
    };
    for (int rate = 0; rate < OPTICS_RATE_COUNT; ++rate) {
        for (const Case& c : cases) {
            const std::string words = std::string("optics ") + rate_words[rate] + " " + c.words;
            const std::string call =
                "NEP_set_optics_single_param(0, " + std::to_string(rate) + ", " + c.arguments + ") = 0";
            journal();
            enter(OLT_NODE);
            EXPECT_EQ(type("set " + words), "");
            EXPECT_EQ(result, 0);
            enter(CONFIG_NODE);
            EXPECT_EQ(type("set olt 0 " + words), "");
            EXPECT_EQ(result, 0);
            EXPECT_EQ(journal(), (Calls{call, call}));
            EXPECT_NE(shown(rate).find(c.shown), std::string::npos) << c.shown;
        }
    }
    type("set olt 0 optics 1g optics-predate-xcvr-reset 257");
    EXPECT_EQ(status, engine::MatchStatus::Unknown);
}

// --- Refusals and failures ---------------------------------------------------------------------------------------

TEST_F(Optics, Refusals)
{
    struct Case {
        cmd_handler* handler;
        Words words;
        const char* line;
        const char* message;
    };
    constexpr const char* read_error = "Error reading OLT_id parameter for command from input, aborting\r\n";
    constexpr const char* rate_error = "Error reading optics parameter (of the type optics), aborting\r\n";
    const std::vector<Case> cases = {
        {set_olt_optics, {"x", "1g"}, "", read_error},
        {set_olt_optics, {"0", "2g"}, "", rate_error},
        {set_olt_optics, {"2g"}, "", rate_error},
        {show_olt_optics, {"x", "1g"}, "", read_error},
        {show_olt_optics, {""}, "", rate_error},
        {set_olt_optics_by_module_and_connectivity, {"x", "dual-1g", "auto"}, "", read_error},
        {set_olt_optics_by_module_and_connectivity,
         {"separated-1g-10g", "auto"},
         "",
         "Error reading connectivity_type parameter (of the type connectivity_type), aborting\r\n"},
        {set_olt_optics_by_module_and_connectivity,
         {"dual-1g", "ltx5302c"},
         "",
         "Error reading module_type parameter (of the type module_type), aborting\r\n"},
        {set_olt_optics_single_param, {"x", "1g", "0"}, "optics-predate-xcvr-reset", read_error},
        {set_olt_optics_single_param, {"1", "0"}, "optics-predate-xcvr-reset", rate_error},
        {set_olt_optics_single_param,
         {"1g", "x"},
         "optics-predate-xcvr-reset",
         "Error reading optics_predate_xcvr_reset parameter for command from input, aborting\r\n"},
        {set_olt_optics_single_param,
         {"1g", "257"},
         "optics-predate-xcvr-reset",
         "Error in range of optics_predate_xcvr_reset parameter for command from input min:0 max:256, aborting\r\n"},
        {set_olt_optics_single_param,
         {"1g", "-1"},
         "optics-predate-xcvr-reset",
         "Error reading negative value of optics_predate_xcvr_reset parameter from input, aborting\r\n"},
        {set_olt_optics_single_param,
         {"1g", "dc"},
         "optics-rx-term-mode",
         "Error reading optics_rx_term_mode parameter (of the type optics_rx_term_mode), aborting\r\n"},
        {set_olt_optics_single_param,
         {"1g", "on"},
         "optics-start-hunt-on-CDR-lock",
         "Error reading optics_start_hunt_on_CDR_lock parameter (of the type enable_disable), aborting\r\n"},
        {set_olt_optics_single_param,
         {"1g", "enableable"},
         "optics-start-hunt-on-CDR-lock",
         "Error reading optics_start_hunt_on_CDR_lock parameter, internal buffer is too short, aborting!\r\n"},
        {set_olt_optics_single_param, {"1g", "1"}, "a line without a parameter", ""},
    };
    for (const Case& c : cases) {
        session->buf = c.line;
        EXPECT_EQ(call(c.handler, c.words), c.message) << c.line;
        EXPECT_EQ(result, -1);
    }
    session->buf = nullptr;
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(Optics, FailuresAreReported)
{
    type(fill_line(forms[1], lowest_values(forms[1])));
    const std::vector<std::pair<std::string, const char*>> cases = {
        {" optics 1g", "NEP_set_olt_device_optics"},
        {" optics by-module-and-connectivity connectivity-type dual-1g module-type auto",
         "NEP_set_olt_device_optics_by_module_and_connectivity"},
        {" optics 1g optics-rx-term-mode pon-rx-termination-ac-coupling", "NEP_set_optics_single_param"},
    };
    for (const auto& [words, operation] : cases) {
        inject(operation, -5);
        EXPECT_EQ(type("set olt 0" + words), "Command return error.\r\nhardware error (error code : -5)\r\n");
        EXPECT_EQ(result, -5);
        EXPECT_EQ(type("set olt 1" + words), NOT_EXIST);
        EXPECT_EQ(result, -1003);
    }
    inject("NEP_get_olt_device_optics", -2);
    EXPECT_EQ(type("show olt 0 optics 1g"), "Command return error.\r\ntime out (error code : -2)\r\n");
    EXPECT_EQ(result, -2);
    EXPECT_EQ(type("show olt 1 optics 10g"), NOT_EXIST);
    enter(OLT_NODE, 1);
    EXPECT_EQ(type("set optics 1g optics-predate-xcvr-reset 1"), NOT_EXIST);
    EXPECT_EQ(result, -1003);
}

} // namespace
