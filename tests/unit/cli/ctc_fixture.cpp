// SPDX-License-Identifier: Apache-2.0
#include "ctc_fixture.h"

#include <cstring>

Ctc::Ctc()
{
    std::string error;
    EXPECT_TRUE(sdk_sim::load_scenario_text(ONUS, "test", &error)) << error;
    journal();
}

void Ctc::enter_ctc_onu_by_mac(const char* mac)
{
    enter(ONU_NODE, OLT);
    session->onu_by_index = 0;
    strcpy(session->onu_mac, mac);
}

void Ctc::expect_show(const std::string& object, const std::string& operation, const std::string& report,
                      const std::string& answer)
{
    const std::string text = "OLT_id: 3 \r\nONU_id: 5 \r\n" + report;
    const std::string call = operation + "(3, 5) = 0 -> " + answer;
    const std::string question = "Mac_address_exist(3, 02-00-00-00-00-05) = 1 -> 5";
    const std::string global = "show ctc onu " + object + " ";
    for (const int node : {VIEW_NODE, ENABLE_NODE, CONFIG_NODE}) {
        SCOPED_TRACE(node);
        for (const char* target : {"3 5", "0x3 0x5"}) {
            enter(node);
            EXPECT_EQ(type(global + target), text);
            EXPECT_EQ(result, 0);
            EXPECT_EQ(journal(), Calls{call});
        }
        enter(node);
        EXPECT_EQ(type(global + "3 onu-mac-address 02-00-00-00-00-05"), text);
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), (Calls{question, call}));
    }
    enter_ctc_onu(5);
    EXPECT_EQ(type("show ctc " + object), text);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{call});
    enter_ctc_onu_by_mac("02-00-00-00-00-05");
    EXPECT_EQ(type("show ctc " + object), text);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), (Calls{question, call}));
}

void Ctc::expect_show_refusals(const std::string& object, const char* operation)
{
    struct Case {
        const char* target;
        const char* text;
        int result;
    };
    const Case unasked[] = {
        {"x 5", "Error reading OLT_id parameter for command from input, aborting\r\n", -1},
        {"32768 5", "Error in range of OLT_id parameter for command from input min:-32767 max:32767, aborting\r\n", -1},
        {"16 5", "Error, OLT id (16) is out of bounds. OLT range: 0 - 15\n", -4},
        {"-1 5", "Error, OLT id (-1) is out of bounds. OLT range: 0 - 15\n", -4},
        {"3 5x", "Error reading onu_index parameter for command from input, aborting\r\n", -1},
        {"3 onu-mac-address 02-00-00-00-00",
         "Error reading MAC address parameter from the MAC address string, "
         "aborting\r\n",
         0},
        {"3 onu-mac-address 002-00-00-00-00-05", "Error reading mac_address has wrong length, aborting\r\n", -1},
    };
    const Case asked[] = {
        {"4 5", NO_OLT, -17003}, {"3 4", NO_ONU, -17002},    {"3 6", NO_ONU, -17002},
        {"3 8", NO_ONU, -17002}, {"3 4095", NO_ONU, -17002}, {"3 7", TIME_OUT, -2},
        {"3 9", TIME_OUT, -2},   {"3 -1", NO_ONU, -17002},   {"3 onu-mac-address ff-ff-ff-ff-ff-ff", NO_ONU, -17002},
    };
    const std::string global = "show ctc onu " + object + " ";
    for (const Case& test : unasked) {
        enter(ENABLE_NODE);
        EXPECT_EQ(type(global + test.target), test.text) << test.target;
        EXPECT_EQ(result, test.result) << test.target;
        EXPECT_EQ(journal(), Calls{});
    }
    for (const Case& test : asked) {
        enter(ENABLE_NODE);
        EXPECT_EQ(type(global + test.target), test.text) << test.target;
        EXPECT_EQ(result, test.result) << test.target;
        EXPECT_EQ(journal().size(), 1U) << test.target; // the broadcast address is not looked up
    }
    enter(ENABLE_NODE);
    EXPECT_EQ(type(global + "3 onu-mac-address 02-00-00-00-00-77"),
              "There is no 02-00-00-00-00-77 mac address in the system\r\n");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(journal(), Calls{"Mac_address_exist(3, 02-00-00-00-00-77) = 0"});
    expect_setting_refusals("show ctc " + object, operation);
}

void Ctc::expect_setting_refusals(const std::string& line, const char* operation)
{
    enter_ctc_onu_by_mac("02-00-00-00-00-77");
    EXPECT_EQ(type(line), "There is no 02-00-00-00-00-77 mac address in the system\r\n");
    EXPECT_EQ(result, 0);
    enter_ctc_onu_by_mac("02-00");
    EXPECT_EQ(type(line), "Error reading MAC address parameter from the MAC address string, aborting\r\n");
    EXPECT_EQ(result, 0);
    struct Failure {
        int16_t olt_id, onu_id;
        const char* text;
        int16_t code;
    };
    for (const Failure& test : {Failure{ABSENT_OLT, 5, NO_OLT, -17003}, Failure{OLT, 6, NO_ONU, -17002},
                                Failure{OLT, 8, NO_ONU, -17002}, Failure{OLT, 7, TIME_OUT, -2}}) {
        enter_ctc_onu(test.onu_id, test.olt_id);
        EXPECT_EQ(type(line), test.text) << line;
        EXPECT_EQ(result, test.code);
    }
    enter_ctc_onu(5);
    inject(operation, -17009);
    EXPECT_EQ(type(line), ONU_BAD_PARAMETER);
    EXPECT_EQ(result, -17009);
    inject(operation, -17011);
    EXPECT_EQ(type(line), UNKNOWN_CODE);
    EXPECT_EQ(result, -17011);
    journal();
}
