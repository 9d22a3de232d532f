// SPDX-License-Identifier: Apache-2.0
// The console on a network with links of every kind.
#pragma once

#include <string>

#include "console_fixture.h"
#include "event_lines.h"

class Links : public Console {
  protected:
    static std::string links()
    {
        return laboratory({{5, "rtt = 1000"},
                           {6, "mode = 'unregistered'\nstatic = true"},
                           {7, "warned = true"},
                           {8, "mode = 'discovered'"},
                           {9, "mode = 'unauthorized'"},
                           {10, "rate = '10g'"},
                           {11, "rate = '10g/1g'"},
                           {12, "mode = 'unregistered'\nstatic = true\nwarned = true"},
                           {254}});
    }

    static constexpr const char* NO_OLT = "Command return error.\r\nOLT not exist (error code : -1003)\r\n";
    static constexpr const char* NO_ONU = "Command return error.\r\nONU not available (error code : -1007)\r\n";
    static constexpr const char* BAD_PARAMETER = "Command return error.\r\nparameter error (error code : -4)\r\n";
    static constexpr const char* WRONG_STATE = "Command return error.\r\nexit error (error code : -1)\r\n";
    static constexpr const char* NO_OAM = "Command return error.\r\nOAM link not established (error code : -1006)\r\n";
    static constexpr const char* HARDWARE = "Command return error.\r\nhardware error (error code : -5)\r\n";

    Links()
    {
        load(links());
    }

    // Brings the session into the context of one link, as "llid" would.
    void enter_llid(int16_t llid, int16_t olt_id = 0)
    {
        enter(LLID_NODE, olt_id);
        session->llid = llid;
        session->onu_by_index = 1;
    }

    // A command of a link whose operation fails, whose link is down, and whose OLT is absent.
    void expect_link_failures(const std::string& line, const char* operation)
    {
        enter_llid(5);
        inject(operation, -5);
        expect_failure(line, HARDWARE, -5);
        enter_llid(6);
        expect_failure(line, NO_ONU, -1007);
        enter_llid(5, 1);
        expect_failure(line, NO_OLT, -1003);
    }
    // A command of an OLT whose operation fails, and whose OLT is absent.
    void expect_olt_failures(const std::string& line, const char* operation, int node)
    {
        enter(node);
        inject(operation, -5);
        expect_failure(line, HARDWARE, -5);
        enter(node, 1);
        expect_failure(line, NO_OLT, -1003);
    }
    void expect_failure(const std::string& line, const char* text, int code)
    {
        EXPECT_EQ(type(line), text) << line;
        EXPECT_EQ(result, code) << line;
    }
};
