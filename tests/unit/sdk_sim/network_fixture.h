// SPDX-License-Identifier: Apache-2.0
// A small network with a clock that the tests move, and handlers that note the events they are called with.
#pragma once

#include <cstdint>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include <epon/sdk.h>

#include "host/sdk_sim/sdk_sim.h"

// OLT 0 is present with ONUs 0 (1G), 1 (10G, not authorized), 2 (unregistered), 3 (static, unregistered), 4 (warned),
// 5 (discovered) and 254; OLT 1 is in its slot but absent, with ONU 0; OLT 2's recovery fails; there is no OLT 3.
extern const std::string_view NETWORK;

class NetworkTest : public ::testing::Test {
  protected:
    NetworkTest();
    ~NetworkTest() override;

    // What the calls so far wrote into the journal.
    std::vector<std::string> journal()
    {
        return sdk_sim::take_journal();
    }

    // Registers handlers that note ONUs' and OLTs' coming and going, alarms and switch-overs, and starts the events.
    void watch_events();
    // "olt 0: onu 5 registered", once all events have been delivered.
    std::vector<std::string> take_events();

    void expect_load_error(std::string_view toml, const std::string& error);
};
