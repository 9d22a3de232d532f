// SPDX-License-Identifier: Apache-2.0
// The console on a network whose ONUs are asked by the CTC stack.
#pragma once

#include <string>

#include "managed_onus_fixture.h"

// As ManagedOnus, with ONU 5 at 1G, and ONUs 10 (10G) and 11 (10G/1G) beside it.
class Ctc : public ManagedOnus {
  protected:
    static constexpr const char* BAD_PARAMETER = "Command return error.\r\nparameter error (error code : -4)\r\n";
    static constexpr const char* NO_OLT = "Command return error.\r\nOLT not exist (error code : -17003)\r\n";
    static constexpr const char* NO_ONU = "Command return error.\r\nONU not available (error code : -17002)\r\n";
    static constexpr const char* ONU_BAD_PARAMETER =
        "Command return error.\r\nONU returned bad param (error code : -17009)\r\n";

    Ctc();

    // Puts a laboratory with ONU 5 alone in the place of this one. keys are further ones of the ONU.
    void load_onu(const std::string& keys);

    // A show of ONU 5, in all its forms and nodes: the target, this report, and one call of the operation, whose line
    // in the journal ends with answer.
    void expect_report(const std::string& object, const std::string& operation, const std::string& report,
                       const std::string& answer);
    // Every way in which the target of a show is refused, and the codes with which its operation fails.
    void expect_show_refusals(const std::string& object, const char* operation);
};
