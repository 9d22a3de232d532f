// SPDX-License-Identifier: Apache-2.0
// The console on a network with links of every kind.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "console_fixture.h"

using Calls = std::vector<std::string>;

class Links : public Console {
  protected:
    static constexpr std::string_view LINKS = R"(
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
[[olt.onu]]
id = 6
mac = "02-00-00-00-00-06"
mode = "unregistered"
static = true
[[olt.onu]]
id = 7
mac = "02-00-00-00-00-07"
warned = true
[[olt.onu]]
id = 8
mac = "02-00-00-00-00-08"
mode = "discovered"
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
[[olt.onu]]
id = 12
mac = "02-00-00-00-00-0c"
mode = "unregistered"
static = true
warned = true
[[olt.onu]]
id = 254
mac = "02-00-00-00-00-fe"
[[olt]]
id = 1
mac = "00-0a-c4-00-00-02"
present = false
)";

    static constexpr const char* NO_OLT = "Command return error.\r\nOLT not exist (error code : -1003)\r\n";
    static constexpr const char* NO_ONU = "Command return error.\r\nONU not available (error code : -1007)\r\n";
    static constexpr const char* BAD_PARAMETER = "Command return error.\r\nparameter error (error code : -4)\r\n";
    static constexpr const char* WRONG_STATE = "Command return error.\r\nexit error (error code : -1)\r\n";
    static constexpr const char* NO_OAM = "Command return error.\r\nOAM link not established (error code : -1006)\r\n";
    static constexpr const char* HARDWARE = "Command return error.\r\nhardware error (error code : -5)\r\n";

    Links()
    {
        std::string error;
        EXPECT_TRUE(sdk_sim::load_scenario_text(LINKS, "test", &error)) << error;
        journal();
    }

    // Brings the session into the context of one link, as "llid" would.
    void enter_llid(int16_t llid, int16_t olt_id = 0)
    {
        enter(LLID_NODE, olt_id);
        session->llid = llid;
        session->onu_by_index = 1;
    }

    // Brings the session into a context of one ONU, as "onu" would.
    void enter_onu(int16_t onu_id, int node = ONU_NODE, int16_t olt_id = 0)
    {
        enter(node, olt_id);
        session->onu_id = onu_id;
        session->onu_by_index = 1;
    }
};

// The lines that events print on a session of their own, with an event thread that runs while this lives.
class EventLines {
  public:
    EventLines();
    ~EventLines();
    EventLines(const EventLines&) = delete;
    EventLines& operator=(const EventLines&) = delete;

    // What was printed since the last look, virtual time having moved on.
    std::string after(uint64_t milliseconds = 0);

  private:
    vty* listener;
};
