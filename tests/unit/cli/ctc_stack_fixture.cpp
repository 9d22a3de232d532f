// SPDX-License-Identifier: Apache-2.0
#include "ctc_stack_fixture.h"

ExtendedOam::ExtendedOam()
{
    load(laboratory({{5},
                     {6, "extended_oam = 'none'"},
                     {7, "extended_oam = 'silent'"},
                     {8, "ctc_versions = [[0x222222, 7], [0x111111, 1]]"},
                     {9, "ctc_gives_keys = false"},
                     {10, "mode = 'unregistered'"},
                     {11, "mode = 'unauthorized'"},
                     {12, "ctc_update_request = 'onu12.img version 7'"}},
                    "[life]\nreturn_time = 1\n"));
}

void ExtendedOam::expect_codes(const std::string& line, const char* operation)
{
    struct Told {
        int16_t code;
        const char* text;
    };
    const Told refusals[] = {{-1, "exit error"},
                             {-2, "time out"},
                             {-5, "hardware error"},
                             {-17001, "query failed"},
                             {-17003, "OLT not exist"},
                             {-17009, "ONU returned bad param"},
                             {-17011, "Error code was not found!!!"}};
    for (const Told& told : refusals) {
        inject(operation, told.code);
        EXPECT_EQ(type(line), std::string("Command return error.\r\n") + told.text +
                                  " (error code : " + std::to_string(told.code) + ")\r\n")
            << line;
        EXPECT_EQ(result, told.code) << line;
    }
    journal();
}

void ExtendedOam::expect_absence(const std::string& line)
{
    enter_onu(5, ONU_NODE, 1);
    EXPECT_EQ(type(line), NO_OLT) << line;
    EXPECT_EQ(result, -17003);
    for (const int16_t onu : {6, 8, 10, 13, 255}) {
        enter_onu(onu);
        EXPECT_EQ(type(line), NO_ONU) << line << " on " << onu;
        EXPECT_EQ(result, -17002);
    }
    for (const int16_t onu : {7, 11}) {
        enter_onu(onu);
        EXPECT_EQ(type(line), TIMED_OUT) << line << " on " << onu;
        EXPECT_EQ(result, -2);
    }
    journal();
    enter_onu(5);
}
