// SPDX-License-Identifier: Apache-2.0
// The filters that pick lines.
#include "host/engine/filter_kinds.h"

#include <vector>

#include "host/engine/name_value.h"
#include "host/engine/pattern.h"

namespace engine {
namespace {

// Lines that match, or those that do not.
class Picking : public Filter {
  public:
    Picking(Pattern matched, bool picks) : pattern(std::move(matched)), wanted(picks) {}
    void take(const AnswerLine& line) override
    {
        if (line.failure || pattern.found_in(line.text) == wanted) next->take(line);
    }

  private:
    Pattern pattern;
    bool wanted;
};

class Beginning : public Filter {
  public:
    explicit Beginning(Pattern matched) : pattern(std::move(matched)) {}
    void take(const AnswerLine& line) override
    {
        begun = begun || pattern.found_in(line.text);
        if (begun || line.failure) next->take(line);
    }

  private:
    Pattern pattern;
    bool begun = false;
};

class Counting : public Filter {
  public:
    void take(const AnswerLine& line) override
    {
        if (line.failure)
            next->take(line);
        else
            ++count;
    }
    void end(int result) override
    {
        std::string text = std::to_string(count) + (count == 1 ? " line" : " lines");
        next->take({text, false});
        next->end(result);
    }

  private:
    std::size_t count = 0;
};

class Passing : public Filter {
  public:
    void take(const AnswerLine& line) override
    {
        next->take(line);
    }
};

// Whether an answer consists of records is known only at its end, so that all of it is kept until then.
class Sectioning : public Filter {
  public:
    explicit Sectioning(Pattern matched) : pattern(std::move(matched)) {}
    void take(const AnswerLine& line) override
    {
        if (held + line.text.size() + sizeof(Held) > FILTER_HOLD) {
            ++left_out;
            return;
        }
        held += line.text.size() + sizeof(Held);
        lines.push_back({std::string(line.text), line.failure});
    }
    void end(int result) override
    {
        std::size_t records = 0;
        std::string_view first = first_name();
        for (const Held& line : lines)
            if (starts_record(line, first)) ++records;
        if (records > 1)
            pass_records(first);
        else
            pass_indented();
        if (left_out > 0) {
            std::string text = "% The answer is too long for this filter: " + std::to_string(left_out) +
                               (left_out == 1 ? " line was left out." : " lines were left out.");
            next->take({text, true});
        }
        next->end(result);
    }

  private:
    struct Held {
        std::string text;
        bool failure;
    };

    // The name of a "name: value" line that stands at the left; empty for other lines. Indented ones belong to another.
    static std::string_view name_at_left(const Held& line)
    {
        if (line.failure || indent_of(line) != 0) return {};
        auto pair = name_and_value(line.text);
        return pair ? pair->name : std::string_view{};
    }
    std::string_view first_name() const
    {
        for (const Held& line : lines)
            if (std::string_view name = name_at_left(line); !name.empty()) return name;
        return {};
    }
    static bool starts_record(const Held& line, std::string_view first)
    {
        return !first.empty() && name_at_left(line) == first;
    }
    static std::size_t indent_of(const Held& line)
    {
        std::size_t indent = line.text.find_first_not_of(" \t");
        return indent == std::string::npos ? line.text.size() : indent;
    }
    void pass(std::size_t from, std::size_t to, bool all)
    {
        for (; from < to; ++from)
            if (all || lines[from].failure) next->take({lines[from].text, lines[from].failure});
    }
    void pass_records(std::string_view first)
    {
        for (std::size_t from = 0; from < lines.size();) {
            std::size_t to = from;
            bool matches = false;
            do
                matches = pattern.found_in(lines[to++].text) || matches;
            while (to < lines.size() && !starts_record(lines[to], first));
            pass(from, to, matches);
            from = to;
        }
    }
    void pass_indented()
    {
        for (std::size_t from = 0; from < lines.size();) {
            std::size_t to = from + 1;
            bool matches = pattern.found_in(lines[from].text);
            std::size_t indent = indent_of(lines[from]);
            while (matches && to < lines.size() && indent_of(lines[to]) > indent)
                ++to;
            pass(from, to, matches);
            from = to;
        }
    }

    Pattern pattern;
    std::vector<Held> lines;
    std::size_t held = 0;
    std::size_t left_out = 0;
};

bool compile(std::string_view argument, Pattern* pattern, std::string* error)
{
    std::string reason;
    if (pattern->compile(argument, &reason)) return true;
    *error = "Wrong regular expression: " + reason;
    return false;
}

template <class Kind, class... Further>
std::unique_ptr<Filter> make_matching(std::string_view argument, std::string* error, Further... further)
{
    Pattern pattern;
    if (!compile(argument, &pattern, error)) return nullptr;
    return std::make_unique<Kind>(std::move(pattern), further...);
}

} // namespace

std::unique_ptr<Filter> make_include(std::string_view argument, FilterWishes&, std::string* error)
{
    return make_matching<Picking>(argument, error, true);
}

std::unique_ptr<Filter> make_exclude(std::string_view argument, FilterWishes&, std::string* error)
{
    return make_matching<Picking>(argument, error, false);
}

std::unique_ptr<Filter> make_begin(std::string_view argument, FilterWishes&, std::string* error)
{
    return make_matching<Beginning>(argument, error);
}

std::unique_ptr<Filter> make_section(std::string_view argument, FilterWishes&, std::string* error)
{
    return make_matching<Sectioning>(argument, error);
}

std::unique_ptr<Filter> make_count(std::string_view, FilterWishes&, std::string*)
{
    return std::make_unique<Counting>();
}

std::unique_ptr<Filter> make_no_more(std::string_view, FilterWishes& wishes, std::string*)
{
    wishes.no_more = true;
    return std::make_unique<Passing>();
}

} // namespace engine
