// SPDX-License-Identifier: Apache-2.0
// The console on a network whose ONUs speak extended OAM in every way.
#pragma once

#include <string>

#include "managed_onus_fixture.h"

class ExtendedOam : public ManagedOnus {
  protected:
    // OLT 0: ONU 5 answers, 6 has no extended OAM, 7 is silent, 8 speaks another version, 9 gives no keys, 10 is not
    // registered, 11 is not authorized, 12 asks for an update. OLT 1 is absent.
    static constexpr std::string_view ONUS = R"(
name = "LAB"
[clock]
speed = 0
[life]
return_time = 1
[[olt]]
id = 0
mac = "00-0a-c4-00-00-01"
[[olt.onu]]
id = 5
mac = "02-00-00-00-00-05"
[[olt.onu]]
id = 6
mac = "02-00-00-00-00-06"
extended_oam = "none"
[[olt.onu]]
id = 7
mac = "02-00-00-00-00-07"
extended_oam = "silent"
[[olt.onu]]
id = 8
mac = "02-00-00-00-00-08"
ctc_versions = [[0x222222, 7], [0x111111, 1]]
[[olt.onu]]
id = 9
mac = "02-00-00-00-00-09"
ctc_gives_keys = false
[[olt.onu]]
id = 10
mac = "02-00-00-00-00-0a"
mode = "unregistered"
[[olt.onu]]
id = 11
mac = "02-00-00-00-00-0b"
mode = "unauthorized"
[[olt.onu]]
id = 12
mac = "02-00-00-00-00-0c"
ctc_update_request = "onu12.img version 7"
[[olt]]
id = 1
mac = "00-0a-c4-00-00-02"
present = false
)";

    static constexpr const char* NO_OLT = "Command return error.\r\nOLT not exist (error code : -17003)\r\n";
    static constexpr const char* NO_ONU = "Command return error.\r\nONU not available (error code : -17002)\r\n";
    static constexpr const char* TIMED_OUT = "Command return error.\r\ntime out (error code : -2)\r\n";
    static constexpr const char* BAD_PARAMETER = "Command return error.\r\nparameter error (error code : -4)\r\n";
    static constexpr const char* FAILED = "Command return error.\r\nexit error (error code : -1)\r\n";
    static constexpr const char* ONU_5 = "OLT_id: 0 \r\nONU_id: 5 \r\n";

    ExtendedOam();

    // An operation of a command fails with codes of the family and with one outside its table.
    void expect_codes(const std::string& line, const char* operation);
    // The codes for OLTs and ONUs that are not there or do not answer, of a command in the ONU node.
    void expect_absence(const std::string& line);
};
