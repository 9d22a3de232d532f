// SPDX-License-Identifier: Apache-2.0
#include "olt/simple_operation.h"

#include "links_fixture.h"

namespace {

constexpr const char* RULES = "show simple-operation olt 0 op-type get-enable-rule-for-dereg-llids";
constexpr const char* INTERFACE = "show simple-operation olt 0 op-type get-cni-interface";

class SimpleOperation : public Links {};

TEST_F(SimpleOperation, RulesForLinksThatAreNotRegistered)
{
    const std::vector<std::pair<const char*, const char*>> cases = {{"enable", "1"}, {"disable", "0"}};
    for (const auto& [word, number] : cases) {
        const std::string value = number;
        EXPECT_EQ(
            type(std::string("set simple-operation olt 0 op-type set-enable-rule-for-dereg-llids op-val ") + word), "");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(type(RULES), std::string("OLT_id: 0 \r\nenable rule for dereg llids: ") + word + " \r\n");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), (Calls{"NEP_simple_operation(0, 0, " + value + ") = 0 -> " + value,
                                    "NEP_simple_operation(0, 1, 0) = 0 -> " + value}));
        // The same setting as the command of that name has.
        EXPECT_EQ(type("show enable-rules-for-dereg-llids olt 0"),
                  std::string("OLT_id: 0 \r\nenable rules for dereg llids: ") + word + " \r\n");
        journal();
    }
}

TEST_F(SimpleOperation, CniInterface)
{
    EXPECT_EQ(type(INTERFACE), "OLT_id: 0 \r\ncni interface: mode-xaui \r\n");
    journal();
    const std::vector<std::pair<const char*, const char*>> cases = {
        {"mode-rxaui", "1"}, {"mode-sgmii", "2"}, {"mode-xaui", "0"}};
    for (const auto& [word, number] : cases) {
        const std::string value = number;
        EXPECT_EQ(type(std::string("set simple-operation olt 0x0 op-type set-cni-interface op-val ") + word), "");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(type(INTERFACE), std::string("OLT_id: 0 \r\ncni interface: ") + word + " \r\n");
        EXPECT_EQ(journal(), (Calls{"NEP_simple_operation(0, 2, " + value + ") = 0 -> " + value,
                                    "NEP_simple_operation(0, 3, 0) = 0 -> " + value}));
    }
}

TEST_F(SimpleOperation, OperationsOfTheFirmware)
{
    const std::vector<std::pair<const char*, const char*>> cases = {
        {"1000 op-val 0", "1000, 0) = 0 -> 0"},
        {"1000 op-val 2147483647", "1000, 2147483647) = 0 -> 0"},
        {"1000 op-val 0xffffffff", "1000, 4294967295) = 0 -> 2147483647"}, // answers what it had
        {"2000 op-val 0x10", "2000, 16) = 0 -> 0"},
    };
    for (const auto& [words, journaled] : cases) {
        EXPECT_EQ(type(std::string("set simple-operation olt 0 op-type ") + words), "") << words;
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), Calls{std::string("NEP_simple_operation(0, ") + journaled});
    }
}

TEST_F(SimpleOperation, RefusedWords)
{
    const std::string misread_type = "Error reading op_type parameter for command from input, aborting\r\n";
    const std::string type_range =
        "Error in range of op_type parameter for command from input min:1000 max:2000, aborting\r\n";
    const std::string misread_value = "Error reading VALUE parameter for command from input, aborting\r\n";
    const std::vector<std::tuple<const char*, const char*, std::string>> cases = {
        {"999", "1", type_range},
        {"2001", "1", type_range},
        {"get-cni-interface", "1", misread_type},
        {"1000", "2147483648", misread_value},
        {"1000", "0x100000000", misread_value},
        {"1000", "enable", misread_value},
        {"1000", "get-cni-interface", misread_value}, // only the operation's own place names it
        {"1000", "-1", "Error reading negative value of VALUE parameter from input, aborting\r\n"},
        {"set-enable-rule-for-dereg-llids", "1",
         "Error reading op_val parameter (of the type enable_disable), aborting\r\n"},
        {"set-enable-rule-for-dereg-llids", "0123456789",
         "Error reading op_val parameter, internal buffer is too short, aborting!\r\n"},
        {"set-enable-rule-for-dereg-llids", "", "Error reading op_val parameter for command from input, aborting\r\n"},
        {"set-cni-interface", "xaui", "Error reading op_val parameter (of the type op_val), aborting\r\n"},
    };
    for (const auto& [operation, value, message] : cases) {
        EXPECT_EQ(call(set_simple_operation, {"0", operation, value}), message) << operation << " " << value;
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(call(set_simple_operation, {"0", "set-cni-interface"}),
              "Error reading op_type parameter (of the type op_type), aborting\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(type("set simple-operation olt 0 op-type 1500 op-val 1z"), misread_value);
    EXPECT_EQ(result, -1);
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(SimpleOperation, FailuresAndAbsentOlts)
{
    for (const char* words : {"set simple-operation olt # op-type set-enable-rule-for-dereg-llids op-val enable",
                              "show simple-operation olt # op-type get-enable-rule-for-dereg-llids",
                              "set simple-operation olt # op-type set-cni-interface op-val mode-sgmii",
                              "show simple-operation olt # op-type get-cni-interface",
                              "set simple-operation olt # op-type 1000 op-val 1"}) {
        const auto with_olt = [words](const char* olt) {
            std::string line = words;
            return line.replace(line.find('#'), 1, olt);
        };
        inject("NEP_simple_operation", -5);
        EXPECT_EQ(type(with_olt("0")), HARDWARE) << words;
        EXPECT_EQ(result, -5);
        EXPECT_EQ(type(with_olt("1")), NO_OLT) << words;
        EXPECT_EQ(result, -1003);
        journal();
        EXPECT_EQ(type(with_olt("0q")), "Error reading OLT_id parameter for command from input, aborting\r\n");
        EXPECT_EQ(result, -1);
        EXPECT_EQ(journal(), Calls{});
    }
}

// --- Before an OLT starts ----------------------------------------------------------------------------------------

TEST_F(SimpleOperation, WaitingOperationsAreCarriedOutAtEachStart)
{
    EXPECT_EQ(type("set pre-init-simple-operation olt 1 op-type 0 op-val 1"), ""); // it need not be present
    EXPECT_EQ(type("set pre-init-simple-operation olt 1 op-type 2 op-val 1"), "");
    EXPECT_EQ(type("set pre-init-simple-operation olt 1 op-type 0x2 op-val 0x2"), ""); // the last one counts
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(),
              (Calls{"NEP_pre_init_simple_operation_add(1, 0, 1) = 0", "NEP_pre_init_simple_operation_add(1, 2, 1) = 0",
                     "NEP_pre_init_simple_operation_add(1, 2, 2) = 0"}));
    for (int start = 0; start < 2; ++start) {
        EXPECT_EQ(type("olt 1 00-0a-c4-00-00-02 image flash"), "");
        EXPECT_EQ(type("show simple-operation olt 1 op-type get-cni-interface"),
                  "OLT_id: 1 \r\ncni interface: mode-sgmii \r\n");
        EXPECT_EQ(type("show enable-rules-for-dereg-llids olt 1"),
                  "OLT_id: 1 \r\nenable rules for dereg llids: enable \r\n");
        EXPECT_EQ(type("no olt 1"), "");
    }
    journal();
    EXPECT_EQ(type("no pre-init-simple-operation olt 1"), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"NEP_pre_init_simple_operation_reset(1) = 0"});
    EXPECT_EQ(type("olt 1 00-0a-c4-00-00-02 image flash"), "");
    EXPECT_EQ(type("show simple-operation olt 1 op-type get-cni-interface"),
              "OLT_id: 1 \r\ncni interface: mode-xaui \r\n");
}

TEST_F(SimpleOperation, WhatCannotWait)
{
    for (const char* words : {"1 op-val 0", "3 op-val 0", "4 op-val 0", "999 op-val 0", "2001 op-val 0", "0 op-val 2",
                              "2 op-val 3", "65535 op-val 0"}) {
        EXPECT_EQ(type(std::string("set pre-init-simple-operation olt 0 op-type ") + words), BAD_PARAMETER) << words;
        EXPECT_EQ(result, -4);
    }
    for (int i = 0; i < PRE_INIT_OPERATION_LIMIT; ++i) {
        EXPECT_EQ(type("set pre-init-simple-operation olt 0 op-type 1000 op-val " + std::to_string(i)), "");
    }
    EXPECT_EQ(type("set pre-init-simple-operation olt 0 op-type 1000 op-val 99"),
              "Command return error.\r\nno resources (error code : -11)\r\n");
    EXPECT_EQ(result, -11);
    EXPECT_EQ(type("no pre-init-simple-operation olt 0"), "");
    EXPECT_EQ(type("set pre-init-simple-operation olt 0 op-type 2000 op-val 99"), "");
}

TEST_F(SimpleOperation, WaitingOperationsThatAreRefused)
{
    const std::string misread_type = "Error reading TYPE parameter for command from input, aborting\r\n";
    const std::string misread_value = "Error reading VALUE parameter for command from input, aborting\r\n";
    const std::vector<std::pair<const char*, std::string>> cases = {
        {"0 op-type 1z op-val 1", misread_type},
        {"0 op-type 65536 op-val 1",
         "Error in range of TYPE parameter for command from input min:0 max:65535, aborting\r\n"},
        {"0 op-type -1 op-val 1", "Error reading negative value of TYPE parameter from input, aborting\r\n"},
        {"0 op-type 1000 op-val 1z", misread_value},
        {"0 op-type 1000 op-val 2147483648", misread_value},
        {"0 op-type 1000 op-val -1", "Error reading negative value of VALUE parameter from input, aborting\r\n"},
        {"0z op-type 1000 op-val 1", "Error reading OLT_id parameter for command from input, aborting\r\n"},
    };
    for (const auto& [words, message] : cases) {
        EXPECT_EQ(type(std::string("set pre-init-simple-operation olt ") + words), message) << words;
        EXPECT_EQ(result, -1);
    }
    EXPECT_EQ(type("no pre-init-simple-operation olt 0z"),
              "Error reading OLT_id parameter for command from input, aborting\r\n");
    EXPECT_EQ(journal(), Calls{});
    for (const char* line :
         {"set pre-init-simple-operation olt 16 op-type 1000 op-val 1", "no pre-init-simple-operation olt 16",
          "set pre-init-simple-operation olt -1 op-type 1000 op-val 1", "no pre-init-simple-operation olt -1"}) {
        EXPECT_EQ(type(line), NO_OLT) << line;
        EXPECT_EQ(result, -1003);
    }
    inject("NEP_pre_init_simple_operation_add", -5);
    EXPECT_EQ(type("set pre-init-simple-operation olt 0 op-type 1000 op-val 1"), HARDWARE);
    EXPECT_EQ(result, -5);
    inject("NEP_pre_init_simple_operation_reset", -5);
    EXPECT_EQ(type("no pre-init-simple-operation olt 0"), HARDWARE);
    EXPECT_EQ(result, -5);
}

} // namespace
