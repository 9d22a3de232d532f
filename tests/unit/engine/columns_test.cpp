// SPDX-License-Identifier: Apache-2.0
// How much of a row a text takes.
#include "host/engine/columns.h"

#include <gtest/gtest.h>

TEST(Columns, CountsWhatATerminalShows)
{
    struct {
        const char* text;
        std::size_t columns;
    } const rows[] = {
        {"", 0},
        {"abc", 3},
        {"\xc3\xa4", 1},         // a umlaut
        {"\xe2\x82\xac", 1},     // euro sign
        {"e\xcc\x81", 1},        // e with a combining acute
        {"\xe6\x97\xa5x", 3},    // sun, an ideograph
        {"\xef\xbc\xa1", 2},     // full-width A
        {"\xf0\x9f\x98\x80", 2}, // a face
        {"\xf0\x90\x80\x80", 1}, // Linear B
        {"\xea\xb0\x80", 2},     // the first syllable of Hangul
        {"\x97\xa5x", 1},        // the rest of a character
    };
    for (const auto& row : rows)
        EXPECT_EQ(engine::columns_of(row.text), row.columns) << row.text;
}

TEST(Columns, NoCharacterIsDividedBetweenRows)
{
    const char* sun = "\xe6\x97\xa5";
    EXPECT_EQ(engine::column_behind(8, sun, 10), 10U);
    EXPECT_EQ(engine::column_behind(9, sun, 10), 12U);
    EXPECT_EQ(engine::column_behind(19, sun, 10), 22U);
    EXPECT_EQ(engine::column_behind(9, sun, 0), 11U);
    EXPECT_EQ(engine::column_behind(9, "a", 10), 10U);
    EXPECT_EQ(engine::column_behind(9, "\xcc\x81", 10), 9U);
}
