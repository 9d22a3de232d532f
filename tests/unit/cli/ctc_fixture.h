// SPDX-License-Identifier: Apache-2.0
// The console on a network whose ONUs speak the CTC extension of OAM, or do not.
#pragma once

#include <string>

#include "links_fixture.h"

class Ctc : public Links {
  protected:
    static constexpr std::string_view ONUS = R"(
name = "LAB"
[clock]
speed = 0
[[olt]]
id = 3
mac = "00-0a-c4-00-00-03"
[[olt.onu]]
id = 5
mac = "02-00-00-00-00-05"
serial_number = "VNS0A000005"
[[olt.onu]]
id = 6
mac = "02-00-00-00-00-06"
mode = "unregistered"
static = true
[[olt.onu]]
id = 7
mac = "02-00-00-00-00-07"
extended_oam = "silent"
[[olt.onu]]
id = 8
mac = "02-00-00-00-00-08"
extended_oam = "none"
[[olt.onu]]
id = 9
mac = "02-00-00-00-00-09"
mode = "unauthorized"
[[olt.onu]]
id = 10
mac = "02-00-00-00-00-0a"
rate = "10g"
[[olt.onu]]
id = 11
mac = "02-00-00-00-00-0b"
rate = "10g/1g"
[[olt]]
id = 4
mac = "00-0a-c4-00-00-04"
present = false
)";
    static constexpr int16_t OLT = 3;
    static constexpr int16_t ABSENT_OLT = 4;

    static constexpr const char* NO_OLT = "Command return error.\r\nOLT not exist (error code : -17003)\r\n";
    static constexpr const char* NO_ONU = "Command return error.\r\nONU not available (error code : -17002)\r\n";
    static constexpr const char* TIME_OUT = "Command return error.\r\ntime out (error code : -2)\r\n";
    static constexpr const char* ONU_BAD_PARAMETER =
        "Command return error.\r\nONU returned bad param (error code : -17009)\r\n";
    static constexpr const char* UNKNOWN_CODE =
        "Command return error.\r\nError code was not found!!! (error code : -17011)\r\n";

    Ctc();

    void enter_ctc_onu(int16_t onu_id, int16_t olt_id = OLT)
    {
        enter_onu(onu_id, ONU_NODE, olt_id);
    }
    // The same by the ONU's address, as "onu onu-mac-address" would.
    void enter_ctc_onu_by_mac(const char* mac);

    // Types the three forms of a show of ONU 5 in their nodes. Each must print the target and then report, with one
    // call of the operation, whose line in the journal ends with answer.
    void expect_show(const std::string& object, const std::string& operation, const std::string& report,
                     const std::string& answer);
    // Every way in which the target of a show is refused, and the codes with which its operation may fail.
    void expect_show_refusals(const std::string& object, const char* operation);
    // The ways in which a command of the ONU node is refused, and fails. The journal's lines of the operation begin
    // with its name, "(3, 5" and rest.
    void expect_setting_refusals(const std::string& line, const char* operation);
};
