// SPDX-License-Identifier: Apache-2.0
// The console on ONUs whose devices the tests know: ONU 5 receives 1000 frames a second and loses two of them, ONU 6
// speaks no remote management, ONU 7 leaves its requests unanswered, ONU 9 is not authorized, ONU 253 tells codes
// without a word, ONU 254 has everything as it is delivered.
#pragma once

#include "managed_onus_fixture.h"

class OnuDevices : public ManagedOnus {
  protected:
    static std::string devices()
    {
        return laboratory({{5, R"(rtt = 1000
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
)"},
                           {6, "remote_management = 'none'\n[olt.onu.device]\nframes_per_second = 1000"},
                           {7, "remote_management = 'silent'"},
                           {9, "mode = 'unauthorized'"},
                           {253, "[olt.onu.device]\noam_version = 2\nos_type = 255"},
                           {254}});
    }

    OnuDevices()
    {
        load(devices());
        enter_onu(5);
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
};
