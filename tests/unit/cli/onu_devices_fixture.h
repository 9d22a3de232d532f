// SPDX-License-Identifier: Apache-2.0
// The console on ONUs whose devices the tests know: ONU 5 receives 1000 frames a second and loses two of them, ONU 6
// speaks no remote management, ONU 7 leaves its requests unanswered, ONU 9 is not authorized, ONU 253 tells codes
// without a word, ONU 254 has everything as it is delivered.
#pragma once

#include "managed_onus_fixture.h"

class OnuDevices : public ManagedOnus {
  protected:
    static constexpr std::string_view DEVICES = R"(
name = "LAB"
[clock]
speed = 0
[[olt]]
id = 0
mac = "00-0a-c4-00-00-01"
[[olt.onu]]
id = 5
mac = "02-00-00-00-00-05"
rtt = 1000
frame_error_rate = 2000
[olt.onu.device]
hardware_major = 0x1a2b
hardware_minor = 65535
firmware_version = "4.1.12.3"
mld_version = "1.2.65535.0"
oam_version = 0
os_type = 3
os_version = "5.8.1024.0"
oam_frame_length = 338
frames_per_second = 1000
adc_channel_0 = 1250
adc_channel_1 = 3300
reboot_counter = 14
uni_loopback_fails = true
[[olt.onu]]
id = 6
mac = "02-00-00-00-00-06"
remote_management = "none"
[olt.onu.device]
frames_per_second = 1000
[[olt.onu]]
id = 7
mac = "02-00-00-00-00-07"
remote_management = "silent"
[[olt.onu]]
id = 9
mac = "02-00-00-00-00-09"
mode = "unauthorized"
[[olt.onu]]
id = 253
mac = "02-00-00-00-00-fd"
[olt.onu.device]
oam_version = 2
os_type = 255
[[olt.onu]]
id = 254
mac = "02-00-00-00-00-fe"
[[olt]]
id = 1
mac = "00-0a-c4-00-00-02"
present = false
)";

    OnuDevices()
    {
        std::string error;
        EXPECT_TRUE(sdk_sim::load_scenario_text(DEVICES, "test", &error)) << error;
        journal();
        enter_onu(5);
    }

    // A setting that is accepted without a word.
    void expect_set(const std::string& line, const std::string& call)
    {
        EXPECT_EQ(type(line), "") << line;
        EXPECT_EQ(result, 0);
        EXPECT_EQ(journal(), Calls{call});
    }

    // Words that a handler refuses before it calls the SDK.
    struct RefusedWords {
        cmd_handler* handler;
        std::vector<std::string> words;
        std::string message;
    };
    void expect_refusals(const std::vector<RefusedWords>& cases)
    {
        for (const RefusedWords& test : cases) {
            EXPECT_EQ(call(test.handler, test.words), test.message) << test.words.back();
            EXPECT_EQ(result, -1);
        }
        EXPECT_EQ(journal(), Calls{});
    }

    // The three ways in which a word of a type is refused.
    void expect_word_refusals(cmd_handler* handler, std::vector<std::string> words, size_t which,
                              const std::string& name, const std::string& type_name, size_t room)
    {
        const std::string reading = "Error reading " + name + " parameter";
        words[which] = "";
        expect_refusals({{handler, words, reading + " for command from input, aborting\r\n"}});
        words[which] = std::string(room - 1, 'x');
        expect_refusals({{handler, words, reading + " (of the type " + type_name + "), aborting\r\n"}});
        words[which] = std::string(room, 'x');
        expect_refusals({{handler, words, reading + ", internal buffer is too short, aborting!\r\n"}});
    }
};
