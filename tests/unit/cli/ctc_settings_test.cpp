// SPDX-License-Identifier: Apache-2.0
// Settings of the CTC stack that hold for all OLTs.
#include "CTC_STACK_CLI/params.h"
#include "CTC_STACK_CLI/stack_settings.h"

#include "ctc_stack_fixture.h"

namespace {

using CtcSettings = ExtendedOam;

constexpr const char* NO_PARAMETER = "Error reading %s parameter for command from input, aborting\r\n";

std::string with_name(std::string text, const std::string& name)
{
    return text.replace(text.find("%s"), 2, name);
}

std::string set_line(const std::string& number, const std::string& records, const std::string& mode = "enable",
                     const std::string& configuration = "disable")
{
    return "ctc set-params automatic-mode " + mode + " number_of_records " + number + " oui-records " + records +
           " automatic-onu-configuration-mode " + configuration;
}

// --- Parameters --------------------------------------------------------------------------------------------------

TEST_F(CtcSettings, Parameters)
{
    enter(ENABLE_NODE);
    EXPECT_EQ(type("show ctc params"), "automatic_mode: enable \r\n"
                                       "number_of_oui_records: 0 \r\n"
                                       "automatic_onu_configuration: disable \r\n");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"CTC_STACK_get_parameters() = 0 -> 1, 0, [], 0"});
    EXPECT_EQ(type(set_line("2", "0x111111;33;42;0x14", "disable", "enable")), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"CTC_STACK_set_parameters(0, 2, [111111:33,00002a:20], 1) = 0"});
    EXPECT_EQ(type("show ctc params"), "automatic_mode: disable \r\n"
                                       "number_of_oui_records: 2 \r\n"
                                       "record 0: oui 0x111111 version 33 \r\n"
                                       "record 1: oui 0x00002a version 20 \r\n"
                                       "automatic_onu_configuration: enable \r\n");
}

TEST_F(CtcSettings, ARecordKeepsTheLowThreeOctetsOfItsOui)
{
    enter(ENABLE_NODE);
    EXPECT_EQ(type(set_line("3", "0xff123456;255;0xffffffff;0;2147483647;0xff")), "");
    EXPECT_EQ(journal(), Calls{"CTC_STACK_set_parameters(1, 3, [123456:255,ffffff:0,ffffff:255], 0) = 0"});
}

TEST_F(CtcSettings, TokensBeyondTheNumberOfRecordsAreNotRead)
{
    enter(ENABLE_NODE);
    EXPECT_EQ(type(set_line("1", "1;2;3;4;x")), "");
    EXPECT_EQ(journal(), Calls{"CTC_STACK_set_parameters(1, 1, [000001:2], 0) = 0"});
    EXPECT_EQ(type(set_line("0", "none")), "");
    EXPECT_EQ(journal(), Calls{"CTC_STACK_set_parameters(1, 0, [], 0) = 0"});
    EXPECT_EQ(type(set_line("2", ";;1;;2;3;4;")), ""); // empty tokens do not count
    EXPECT_EQ(journal(), Calls{"CTC_STACK_set_parameters(1, 2, [000001:2,000003:4], 0) = 0"});
}

TEST_F(CtcSettings, MissingTokens)
{
    enter(ENABLE_NODE);
    EXPECT_EQ(type(set_line("2", "1;2")), std::string(" error in reading oui in records string\r\n") + BAD_PARAMETER);
    EXPECT_EQ(result, -4);
    EXPECT_EQ(type(set_line("2", "1;2;3")),
              std::string(" error in reading version in records string\r\n") + BAD_PARAMETER);
    EXPECT_EQ(result, -4);
    EXPECT_EQ(type(set_line("1", ";")), std::string(" error in reading oui in records string\r\n") + BAD_PARAMETER);
    EXPECT_EQ(result, -4);
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(CtcSettings, WrongTokens)
{
    enter(ENABLE_NODE);
    const std::pair<const char*, const char*> cases[] = {
        {"x;1", "Error reading oui_as_number parameter for command from input, aborting\r\n"},
        {"0x1ffffffff;1", "Error reading oui_as_number parameter for command from input, aborting\r\n"},
        {"-1;1", "Error reading negative value of oui_as_number parameter from input, aborting\r\n"},
        {"1;x", "Error reading version parameter for command from input, aborting\r\n"},
        {"1;-1", "Error reading negative value of version parameter from input, aborting\r\n"},
        {"1;256", "Error in range of version parameter for command from input min:0 max:255, aborting\r\n"},
        {"1;0x100", "Error in range of version parameter for command from input min:0 max:255, aborting\r\n"},
        {"1;255;2;x", "Error reading version parameter for command from input, aborting\r\n"},
    };
    for (const auto& [records, message] : cases) {
        EXPECT_EQ(type(set_line(std::string(records).find("255") == std::string::npos ? "1" : "2", records)), message);
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(CtcSettings, TheRecordsTextHoldsThousandTwentyFourCharacters)
{
    enter(ENABLE_NODE);
    const std::string head = "1;2;";
    EXPECT_EQ(call(set_params, {"enable", "1", head + std::string(1020, '9'), "enable"}), "");
    EXPECT_EQ(result, 0);
    journal();
    EXPECT_EQ(call(set_params, {"enable", "1", head + std::string(1021, '9'), "enable"}),
              "Error reading records_str has wrong length, aborting\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(call(set_params, {"enable", "1", " \t", "enable"}), with_name(NO_PARAMETER, "records_str"));
    EXPECT_EQ(result, -1);
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(CtcSettings, TheSdkTakesSixtyTwoRecords)
{
    enter(ENABLE_NODE);
    std::string records;
    for (int i = 0; i < 255; ++i)
        records += "1;2;";
    EXPECT_EQ(type(set_line("62", records)), "");
    EXPECT_EQ(result, 0);
    const std::string shown = type("show ctc params");
    EXPECT_NE(shown.find("number_of_oui_records: 62 \r\n"), std::string::npos);
    EXPECT_NE(shown.find("record 61: oui 0x000001 version 2 \r\n"), std::string::npos);
    EXPECT_EQ(shown.find("record 62"), std::string::npos);
    EXPECT_EQ(call(set_params, {"enable", "63", records, "enable"}), BAD_PARAMETER);
    EXPECT_EQ(result, -4);
    EXPECT_EQ(call(set_params, {"enable", "255", records, "enable"}), BAD_PARAMETER);
    EXPECT_EQ(result, -4);
}

TEST_F(CtcSettings, WrongWordsAndNumbersOfParameters)
{
    struct Case {
        std::vector<std::string> words;
        const char* message;
    };
    const Case cases[] = {
        {{"0123456789", "1", "1;2", "enable"},
         "Error reading automatic_mode parameter, internal buffer is too short, aborting!\r\n"},
        {{"012345678", "1", "1;2", "enable"},
         "Error reading automatic_mode parameter (of the type enable_disable), aborting\r\n"},
        {{"", "1", "1;2", "enable"}, "Error reading automatic_mode parameter for command from input, aborting\r\n"},
        {{"enable", "x", "1;2", "enable"},
         "Error reading number_of_oui_records parameter for command from input, aborting\r\n"},
        {{"enable", "-1", "1;2", "enable"},
         "Error reading negative value of number_of_oui_records parameter from input, aborting\r\n"},
        {{"enable", "256", "1;2", "enable"},
         "Error in range of number_of_oui_records parameter for command from input min:0 max:255, aborting\r\n"},
        {{"enable", "1", "1;2", "0123456789"},
         "Error reading automatic_onu_configuration parameter, internal buffer is too short, aborting!\r\n"},
        {{"enable", "1", "1;2", "on"},
         "Error reading automatic_onu_configuration parameter (of the type enable_disable), aborting\r\n"},
        {{"enable", "1", "1;2", " "},
         "Error reading automatic_onu_configuration parameter for command from input, aborting\r\n"},
        // The words come before the tokens of the records.
        {{"enable", "1", "x", "on"},
         "Error reading automatic_onu_configuration parameter (of the type enable_disable), aborting\r\n"},
    };
    for (const Case& test : cases) {
        EXPECT_EQ(call(set_params, test.words), test.message);
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(call(set_params, {"enable", "0x1", "1;2", "enable"}), "");
    EXPECT_EQ(journal(), Calls{"CTC_STACK_set_parameters(1, 1, [000001:2], 1) = 0"});
}

TEST_F(CtcSettings, FailuresOfParameters)
{
    enter(ENABLE_NODE);
    expect_codes(set_line("1", "1;2"), "CTC_STACK_set_parameters");
    expect_codes("show ctc params", "CTC_STACK_get_parameters");
}

// --- Single values -----------------------------------------------------------------------------------------------

struct Value {
    const char* set;
    const char* show;
    const char* accepted;
    const char* shown;
    const char* called;
};

constexpr Value values[] = {
    {"ctc version version-value 0", "version", "0", "version: 0 ", "CTC_STACK_set_version(0)"},
    {"ctc version version-value 255", "version", "255", "version: 255 ", "CTC_STACK_set_version(255)"},
    {"ctc oui oui-value 0xABCDEF", "oui", "11259375", "oui: 0xabcdef ", "CTC_STACK_set_oui(11259375)"},
    {"ctc oui oui-value 1", "oui", "1", "oui: 0x000001 ", "CTC_STACK_set_oui(1)"},
    {"ctc extended-oam-discovery-timing discovery-timeout 2550", "extended-oam-discovery-timing", "2550",
     "discovery_timeout: 2550 ", "CTC_STACK_set_extended_oam_discovery_timing(2550)"},
    {"ctc extended-oam-discovery-timing discovery-timeout 0", "extended-oam-discovery-timing", "0",
     "discovery_timeout: 0 ", "CTC_STACK_set_extended_oam_discovery_timing(0)"},
    {"ctc encryption-timing-threshold start-encryption-threshold 255", "encryption-timing-threshold", "255",
     "start_encryption_threshold: 255 ", "CTC_STACK_set_encryption_timing_threshold(255)"},
    {"ctc encryption-timing-threshold start-encryption-threshold 0", "encryption-timing-threshold", "0",
     "start_encryption_threshold: 0 ", "CTC_STACK_set_encryption_timing_threshold(0)"},
    {"ctc encryption-timing update-key-time 255 no-reply-timeout 2550", "encryption-timing", "255, 2550",
     "update_key_time: 255 \r\nno_reply_timeout: 2550 ", "CTC_STACK_set_encryption_timing(255, 2550)"},
    {"ctc encryption-timing update-key-time 0 no-reply-timeout 0", "encryption-timing", "0, 0",
     "update_key_time: 0 \r\nno_reply_timeout: 0 ", "CTC_STACK_set_encryption_timing(0, 0)"},
};

TEST_F(CtcSettings, WhatIsSetIsShownEverywhere)
{
    for (const Value& value : values) {
        enter(CONFIG_NODE);
        EXPECT_EQ(type(value.set), "") << value.set;
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), Calls{std::string(value.called) + " = 0"});
        std::string get = value.called;
        get.replace(get.find("_set_"), 5, "_get_");
        get = get.substr(0, get.find('(')) + "() = 0 -> " + value.accepted;
        for (const int node : {VIEW_NODE, ENABLE_NODE, CONFIG_NODE}) {
            enter(node);
            EXPECT_EQ(type(std::string("show ctc ") + value.show), std::string(value.shown) + "\r\n");
            EXPECT_EQ(result, 0);
            EXPECT_EQ(journal(), Calls{get});
        }
    }
}

TEST_F(CtcSettings, Defaults)
{
    const std::pair<const char*, const char*> defaults[] = {
        {"version", "version: 33 \r\n"},
        {"oui", "oui: 0x111111 \r\n"},
        {"extended-oam-discovery-timing", "discovery_timeout: 1000 \r\n"},
        {"encryption-timing", "update_key_time: 10 \r\nno_reply_timeout: 300 \r\n"},
        {"encryption-timing-threshold", "start_encryption_threshold: 3 \r\n"},
    };
    for (const auto& [words, shown] : defaults)
        EXPECT_EQ(type(std::string("show ctc ") + words), shown);
    enter(OLT_NODE);
    EXPECT_EQ(type("show ctc communication-config"), "timeout_in_100_ms: 10 \r\nresend_limit: 3 \r\n");
}

TEST_F(CtcSettings, FailuresOfSingleValues)
{
    for (const Value& value : values) {
        std::string operation = value.called;
        operation = operation.substr(0, operation.find('('));
        enter(CONFIG_NODE);
        expect_codes(value.set, operation.c_str());
        operation.replace(operation.find("_set_"), 5, "_get_");
        expect_codes(std::string("show ctc ") + value.show, operation.c_str());
    }
}

TEST_F(CtcSettings, OuisOutOfRange)
{
    const std::pair<const char*, const char*> cases[] = {
        {"x", "Error reading OUI_NUMBER parameter for command from input, aborting\r\n"},
        {"-1", "Error reading negative value of OUI_NUMBER parameter from input, aborting\r\n"},
        {"0x1000000", "Error in range of OUI_NUMBER parameter for command from input min:0 max:16777215, aborting\r\n"},
        {"16777216", "Error in range of OUI_NUMBER parameter for command from input min:0 max:16777215, aborting\r\n"},
    };
    for (const auto& [oui, message] : cases) {
        EXPECT_EQ(type(std::string("ctc oui oui-value ") + oui), message);
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(type("ctc oui oui-value 0xffffff"), "");
    EXPECT_EQ(type("ctc oui oui-value 16777215"), "");
}

// Beyond what the grammar lets through, the handlers and the SDK look themselves.
TEST_F(CtcSettings, NumbersBehindTheGrammar)
{
    struct Case {
        cmd_handler* handler;
        const char* name;
        int max;
    };
    const Case cases[] = {{ctc_version, "version_value", 255},
                          {extended_oam_discovery_timing, "discovery_timeout", 65535}};
    for (const Case& test : cases) {
        const std::string name = test.name;
        EXPECT_EQ(call(test.handler, {"1x"}), with_name(NO_PARAMETER, name));
        EXPECT_EQ(result, -1);
        EXPECT_EQ(call(test.handler, {"-1"}),
                  "Error reading negative value of " + name + " parameter from input, aborting\r\n");
        EXPECT_EQ(call(test.handler, {std::to_string(test.max + 1)}),
                  "Error in range of " + name +
                      " parameter for command from input min:0 max:" + std::to_string(test.max) + ", aborting\r\n");
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
    EXPECT_EQ(call(extended_oam_discovery_timing, {"2551"}), BAD_PARAMETER);
    EXPECT_EQ(result, -4);
}

// --- Requests to ONUs --------------------------------------------------------------------------------------------

TEST_F(CtcSettings, CommunicationIsOfTheWholeStack)
{
    for (const int node : {OLT_NODE, ONU_NODE}) {
        enter(node, 1); // an absent OLT does not matter
        EXPECT_EQ(type("ctc communication-config timeout-in-100-ms 0x1f resend 7"), "");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), Calls{"CTC_STACK_set_communication_configuration(31, 7) = 0"});
        EXPECT_EQ(type("show ctc communication-config"), "timeout_in_100_ms: 31 \r\nresend_limit: 7 \r\n");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), Calls{"CTC_STACK_get_communication_configuration() = 0 -> 31, 7"});
        expect_codes("ctc communication-config timeout-in-100-ms 1 resend 1",
                     "CTC_STACK_set_communication_configuration");
        expect_codes("show ctc communication-config", "CTC_STACK_get_communication_configuration");
    }
}

TEST_F(CtcSettings, CommunicationRefusals)
{
    enter(OLT_NODE);
    const std::pair<const char*, const char*> cases[] = {
        {"timeout-in-100-ms x resend 1",
         "Error reading timeout_in_100_ms parameter for command from input, aborting\r\n"},
        {"timeout-in-100-ms 32768 resend 1",
         "Error in range of timeout_in_100_ms parameter for command from input min:-32767 max:32767, aborting\r\n"},
        {"timeout-in-100-ms -32768 resend x",
         "Error in range of timeout_in_100_ms parameter for command from input min:-32767 max:32767, aborting\r\n"},
        {"timeout-in-100-ms 1 resend 1x", "Error reading resend_limit parameter for command from input, aborting\r\n"},
        {"timeout-in-100-ms 1 resend -32768",
         "Error in range of resend_limit parameter for command from input min:-32767 max:32767, aborting\r\n"},
    };
    for (const auto& [words, message] : cases) {
        EXPECT_EQ(type(std::string("ctc communication-config ") + words), message);
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(journal(), Calls{});
    // Signed numbers pass the command; the SDK refuses what makes no sense.
    EXPECT_EQ(type("ctc communication-config timeout-in-100-ms -32767 resend -1"), BAD_PARAMETER);
    EXPECT_EQ(result, -4);
    EXPECT_EQ(journal(), Calls{"CTC_STACK_set_communication_configuration(-32767, -1) = -4"});
    EXPECT_EQ(type("ctc communication-config timeout-in-100-ms 32767 resend 32767"), "");
}

} // namespace
