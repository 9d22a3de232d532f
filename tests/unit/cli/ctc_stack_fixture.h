// SPDX-License-Identifier: Apache-2.0
// The console on a network whose ONUs speak extended OAM in every way.
#pragma once

#include <string>

#include "managed_onus_fixture.h"

// ONU 5 answers, 6 has no extended OAM, 7 is silent, 8 speaks another version, 9 gives no keys, 10 is not registered,
// 11 is not authorized, 12 asks for an update.
class ExtendedOam : public ManagedOnus {
  protected:
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
