// SPDX-License-Identifier: Apache-2.0
// What stands behind "|" in a line: filters that the command's answer passes, line by line, on its way to the operator.
//
//     show olt parameters 0 | exclude vendor | count
//
// Only a "|" between blanks begins a filter; inside a word it is part of the word.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/engine/answer_lines.h"
#include "host/engine/command_tree.h"

namespace engine {

// Filters in one line.
constexpr std::size_t FILTER_LIMIT = 8;
// Bytes of an answer that a filter keeps which must see all of it; further lines are left out and counted.
constexpr std::size_t FILTER_HOLD = 1024 * 1024;

// A typed line and the filters behind it, each without its "|".
struct FilteredLine {
    std::string_view command;
    std::vector<std::string_view> filters;
};
FilteredLine split_filters(std::string_view line);

struct AnswerLine {
    std::string_view text; // without its line end
    bool failure;
};

// One filter at work. It hands lines on to the next one.
class Filter {
  public:
    virtual ~Filter() = default;
    virtual void take(const AnswerLine& line) = 0;
    // The answer is complete; result is what the command returned.
    virtual void end(int result)
    {
        next->end(result);
    }
    Filter* next = nullptr;
};

struct SaveRequest {
    std::string name;
    std::string text; // lines ended by "\n"
    std::size_t lines = 0;
};

// What the filters of a line want beside the lines themselves.
struct FilterWishes {
    bool no_more = false;            // do not page
    bool takes_errors = false;       // the engine's own errors are part of the answer
    std::optional<SaveRequest> save; // when the answer is complete
};

// All filters of one line.
class FilterChain {
  public:
    using Output = std::function<void(std::string_view line)>;

    // Null with *fault at the word in question and one clear text in *error.
    static std::unique_ptr<FilterChain> make(const std::vector<std::string_view>& filters, Output output,
                                             std::string_view* fault, std::string* error);
    // Any piece of the answer.
    void write(std::string_view text);
    void end(int result);
    FilterWishes wishes;

  private:
    FilterChain() = default;
    void line(std::string_view text);

    std::vector<std::unique_ptr<Filter>> filters; // the last one is the output
    AnswerLines lines;
};

// What can stand where `partial` stands in a filter, after the complete words before it.
std::vector<Candidate> filter_candidates(const std::vector<std::string_view>& words, std::string_view partial);

} // namespace engine
