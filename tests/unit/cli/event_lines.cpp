// SPDX-License-Identifier: Apache-2.0
#include "event_lines.h"

#include <algorithm>
#include <iterator>

EventLines::EventLines() : listener(engine::open_memory_session())
{
    EXPECT_EQ(CLI_initialization(), 0);
    listener->event_notify = 1;
    sdk_sim::start();
}

EventLines::~EventLines()
{
    sdk_sim::stop();
    EXPECT_EQ(CLI_termination(), 0);
    std::fill(std::begin(cli_handler_id_array), std::end(cli_handler_id_array), uint16_t{0});
    engine::close_session(listener);
}

std::string EventLines::after(uint64_t milliseconds)
{
    sdk_sim::advance_clock(milliseconds);
    sdk_sim::drain_events();
    return engine::take_output(listener);
}
