// SPDX-License-Identifier: Apache-2.0
#include "ctc_fixture.h"

Ctc::Ctc()
{
    load(laboratory({{5, "serial_number = 'VNS0A000005'"},
                     {6, "extended_oam = 'none'"},
                     {7, "extended_oam = 'silent'"},
                     {9, "mode = 'unauthorized'"},
                     {10, "rate = '10g'"},
                     {11, "rate = '10g/1g'"}}));
}

void Ctc::load_onu(const std::string& keys)
{
    load(laboratory({{5, keys}}));
}

void Ctc::expect_report(const std::string& object, const std::string& operation, const std::string& report,
                        const std::string& answer)
{
    expect_show(ctc_show(object), "OLT_id: 0 \r\nONU_id: 5 \r\n" + report, operation + "(0, 5) = 0 -> " + answer);
}

void Ctc::expect_show_refusals(const std::string& object, const char* operation)
{
    struct Case {
        const char* target;
        const char* text;
        int result;
        size_t calls;
    };
    const Case cases[] = {
        {"x 5", "Error reading OLT_id parameter for command from input, aborting\r\n", -1, 0},
        {"32768 5", "Error in range of OLT_id parameter for command from input min:-32767 max:32767, aborting\r\n", -1,
         0},
        {"16 5", "Error, OLT id (16) is out of bounds. OLT range: 0 - 15\n", -4, 0},
        {"-1 5", "Error, OLT id (-1) is out of bounds. OLT range: 0 - 15\n", -4, 0},
        {"0 5x", "Error reading onu_index parameter for command from input, aborting\r\n", -1, 0},
        {"0 onu-mac-address 02-00-00-00-00",
         "Error reading MAC address parameter from the MAC address string, aborting\r\n", 0, 0},
        {"0 onu-mac-address 002-00-00-00-00-05", "Error reading mac_address has wrong length, aborting\r\n", -1, 0},
        {"0 onu-mac-address 02-00-00-00-00-77", "There is no 02-00-00-00-00-77 mac address in the system\r\n", 0, 1},
        {"1 5", NO_OLT, -17003, 1},
        {"0 4095", NO_ONU, -17002, 1},
        {"0 onu-mac-address ff-ff-ff-ff-ff-ff", NO_ONU, -17002, 1}, // not looked up
    };
    for (const Case& test : cases) {
        enter(ENABLE_NODE);
        EXPECT_EQ(type("show ctc onu " + object + " " + test.target), test.text) << test.target;
        EXPECT_EQ(result, test.result) << test.target;
        EXPECT_EQ(journal().size(), test.calls) << test.target;
    }
    expect_ctc_failures("show ctc " + object, operation);
}
