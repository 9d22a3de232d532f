// SPDX-License-Identifier: Apache-2.0
// The console as the tests see it: the activated library on our engine and the simulated SDK, with sessions whose
// output is kept. Handlers run on the test's own thread.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include <epon/cli.h>

#include "host/engine/engine_host.h"
#include "host/sdk_sim/sdk_sim.h"

using Calls = std::vector<std::string>;

// One ONU of a laboratory: its keys are the further lines of its table in a scenario.
struct LabOnu {
    int id;
    std::string keys = "";
};

// The scenario of a laboratory, in which time passes only when a test moves it: OLT 0 with these ONUs, whose MAC
// addresses end in their ids, and OLT 1, which is known but absent. Further tables stand before those of the OLTs.
std::string laboratory(const std::vector<LabOnu>& onus, const std::string& tables = "");

class Console : public ::testing::Test {
  protected:
    // A network of two OLTs: 0 is present, 1 is known but absent.
    static constexpr std::string_view NETWORK = R"(
name = "LAB"

[[olt]]
id = 0
mac = "00-0a-c4-00-00-01"

[[olt]]
id = 1
mac = "00-0a-c4-00-00-02"
present = false
)";

    Console();
    ~Console() override;

    // Runs a line and returns what it printed. result keeps what the handler returned.
    std::string type(std::string_view line);
    // Runs a handler with these words, as if a command without a grammar had matched them.
    std::string call(cmd_handler* handler, std::vector<std::string> words = {});
    // Brings the session into a node as the node-entry commands would leave it.
    void enter(int node, int16_t olt_id = 0);
    // Brings the session into the context of an ONU, as "onu" by index would.
    void enter_onu(int16_t onu_id, int node = ONU_NODE, int16_t olt_id = 0);
    // Puts a scenario's network in the place of the one that is there.
    void load(const std::string& scenario);
    // SDK operations called since the last look, without the questions that the tests' own set-up asked.
    Calls journal()
    {
        return sdk_sim::take_journal();
    }
    void inject(const char* operation, int16_t code, uint32_t count = 1, uint32_t skip = 0);

    vty* session;
    int result = 0;
    engine::MatchStatus status = engine::MatchStatus::Empty;
};
