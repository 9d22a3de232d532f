// SPDX-License-Identifier: Apache-2.0
// Event lines that wait: pieces, bounds, counts.
#include "host/engine/event_buffer.h"

#include <gtest/gtest.h>

using engine::EVENT_LIMIT;
using engine::EventBuffer;

TEST(EventBuffer, HandsOutCompleteLinesOnly)
{
    EventBuffer buffer;
    buffer.add("one ");
    EXPECT_FALSE(buffer.has_lines());
    EXPECT_EQ(buffer.take_lines("\n"), "");
    buffer.add("line\ntwo\nthr");
    EXPECT_TRUE(buffer.has_lines());
    EXPECT_EQ(buffer.take_lines("\n"), "one line\ntwo\n");
    EXPECT_FALSE(buffer.has_lines());
    buffer.add("ee\n");
    EXPECT_EQ(buffer.take_lines("\n"), "three\n");
    buffer.add("rest");
    EXPECT_EQ(buffer.take_all("\n"), "rest");
    EXPECT_EQ(buffer.take_all("\n"), "");
}

TEST(EventBuffer, DropsWholeLinesAndCountsThem)
{
    EventBuffer buffer;
    const std::string line = std::string(1023, 'x') + "\n";
    for (std::size_t i = 0; i < EVENT_LIMIT / line.size() + 5; ++i)
        buffer.add(line);
    std::string text = buffer.take_lines("\r\n");
    EXPECT_EQ(text.size(), EVENT_LIMIT + std::string("[5 event lines dropped]\r\n").size());
    EXPECT_TRUE(text.ends_with("x\n[5 event lines dropped]\r\n"));
    EXPECT_FALSE(buffer.has_lines());
    buffer.add("next\n");
    EXPECT_EQ(buffer.take_lines("\r\n"), "next\n");
}

TEST(EventBuffer, NeverShowsHalfALine)
{
    EventBuffer buffer;
    buffer.add(std::string(EVENT_LIMIT - 20, 'x') + "\n");
    buffer.add("begins and ");           // fits
    buffer.add("does not fit any more"); // its first half is lost with it
    buffer.add(", nor does this");
    buffer.add(" end\nwhole\n");
    std::string text = buffer.take_lines("\n");
    EXPECT_EQ(text.substr(EVENT_LIMIT - 20), "\nwhole\n[1 event line dropped]\n");
}

TEST(EventBuffer, ForgetsAllWhenCleared)
{
    EventBuffer buffer;
    buffer.add("a\nb");
    buffer.add(std::string(EVENT_LIMIT, 'x'));
    buffer.clear();
    EXPECT_FALSE(buffer.has_lines());
    buffer.add("c\n");
    EXPECT_EQ(buffer.take_all("\n"), "c\n");
}
