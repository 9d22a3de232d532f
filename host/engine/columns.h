// SPDX-License-Identifier: Apache-2.0
// How much of a row a text takes on a terminal.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace engine {

// Columns of UTF-8 text: two for a Chinese, Japanese or Korean character and the like, none for a mark that combines
// with the character before it, one for all others.
std::size_t columns_of(std::string_view text);

// The column behind a text that begins in the given one, on rows of that width (0: endless). A character of two columns
// is not divided: where one column of the row is left, it begins the next row.
std::size_t column_behind(std::size_t column, std::string_view text, std::size_t row);

} // namespace engine
