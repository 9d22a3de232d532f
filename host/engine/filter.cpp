// SPDX-License-Identifier: Apache-2.0
#include "host/engine/filter.h"

#include <algorithm>

#include "host/engine/dispatch.h"
#include "host/engine/failure_lines.h"
#include "host/engine/filter_kinds.h"
#include "host/engine/save_file.h"

namespace engine {
namespace {

struct FilterKind {
    std::string_view name;
    std::string_view help;
    std::string_view argument; // empty: it takes none
    std::string_view argument_help;
    MakeFilter* make;
    bool (*offered)() = nullptr; // null: always
};

constexpr std::string_view RE = "RE";
constexpr std::string_view RE_HELP = "Regular expression (POSIX extended) up to the end of the filter, blanks "
                                     "included; Ctrl-V types a \"?\"";

constexpr FilterKind kinds[] = {
    {"begin", "From the first line that matches on", RE, RE_HELP, make_begin},
    {"count", "The number of lines instead of the lines", "", "", make_count},
    {"exclude", "Lines that do not match", RE, RE_HELP, make_exclude},
    {"include", "Lines that match", RE, RE_HELP, make_include},
    {"json", "The answer as one JSON document: records of its \"name: value\" lines, and other lines", "", "",
     make_json},
    {"no-more", "Without stopping at each page", "", "", make_no_more},
    {"save", "Into a new file of the host's directory for saved answers, not to the screen", "FILE",
     "Name of the file: letters, digits, \".\", \"_\" and \"-\"", make_save, saving_is_possible},
    {"section", "Lines that match with the more indented lines below them, or whole records", RE, RE_HELP,
     make_section},
};

bool is_offered(const FilterKind& kind)
{
    return kind.offered == nullptr || kind.offered();
}

std::string_view trimmed(std::string_view text)
{
    std::size_t from = text.find_first_not_of(" \t");
    if (from == std::string_view::npos) return text.substr(text.size());
    return text.substr(from, text.find_last_not_of(" \t") + 1 - from);
}

// The kinds that a typed name could mean: the one that is spelt in full, or all that it begins.
std::vector<const FilterKind*> kinds_named(std::string_view name)
{
    std::vector<const FilterKind*> found;
    for (const FilterKind& kind : kinds) {
        if (!kind.name.starts_with(name)) continue;
        if (kind.name == name) return {&kind};
        if (is_offered(kind)) found.push_back(&kind);
    }
    return found;
}

const FilterKind* find_kind(std::string_view name, std::string* error)
{
    std::vector<const FilterKind*> found = kinds_named(name);
    if (name.empty() || found.size() != 1) {
        *error = name.empty() || found.empty() ? "Filter expected: one of " : "Ambiguous filter: one of ";
        std::string names;
        for (const FilterKind& kind : kinds)
            if (is_offered(kind) && (found.empty() || kind.name.starts_with(name)))
                names.append(names.empty() ? "" : ", ").append(kind.name);
        *error += names;
        return nullptr;
    }
    return found[0];
}

// The end of every chain.
class OutputEnd : public Filter {
  public:
    explicit OutputEnd(FilterChain::Output to) : output(std::move(to)) {}
    void take(const AnswerLine& line) override
    {
        output(line.text);
    }
    void end(int) override {}

  private:
    FilterChain::Output output;
};

} // namespace

FilteredLine split_filters(std::string_view line)
{
    FilteredLine split;
    std::string_view* part = &split.command;
    std::size_t from = 0;
    for (std::string_view word : split_words(line)) {
        if (word != "|") continue;
        auto at = static_cast<std::size_t>(word.data() - line.data());
        *part = line.substr(from, at - from);
        part = &split.filters.emplace_back();
        from = at + 1;
    }
    *part = line.substr(from);
    return split;
}

std::unique_ptr<FilterChain> FilterChain::make(const std::vector<std::string_view>& filters, Output output,
                                               std::string_view* fault, std::string* error)
{
    auto chain = std::unique_ptr<FilterChain>(new FilterChain);
    for (std::string_view text : filters) {
        std::vector<std::string_view> words = split_words(text);
        *fault = words.empty() ? trimmed(text) : words[0];
        if (chain->filters.size() == FILTER_LIMIT) {
            *error = "More than " + std::to_string(FILTER_LIMIT) + " filters";
            return nullptr;
        }
        if (chain->wishes.save) {
            *error = "Nothing can follow save";
            return nullptr;
        }
        const FilterKind* kind = find_kind(*fault, error);
        if (kind == nullptr) return nullptr;
        std::string_view argument = trimmed(text.substr(static_cast<std::size_t>(fault->end() - text.data())));
        if (!argument.empty()) *fault = argument;
        if (argument.empty() != kind->argument.empty()) {
            *error = std::string(kind->name) + (argument.empty() ? " needs a" : " takes no argument");
            if (argument.empty()) *error += kind->argument == RE ? " regular expression" : " file name";
            return nullptr;
        }
        std::unique_ptr<Filter> filter = kind->make(argument, chain->wishes, error);
        if (!filter) return nullptr;
        chain->filters.push_back(std::move(filter));
    }
    chain->filters.push_back(std::make_unique<OutputEnd>(std::move(output)));
    for (std::size_t i = 0; i + 1 < chain->filters.size(); ++i)
        chain->filters[i]->next = chain->filters[i + 1].get();
    return chain;
}

void FilterChain::line(std::string_view text)
{
    filters[0]->take({text, is_failure_line(text)});
}

void FilterChain::write(std::string_view text)
{
    lines.write(text, [this](std::string_view one) { line(one); });
}

void FilterChain::end(int result)
{
    lines.end([this](std::string_view one) { line(one); });
    filters[0]->end(result);
}

std::vector<Candidate> filter_candidates(const std::vector<std::string_view>& words, std::string_view partial)
{
    std::vector<Candidate> found;
    if (words.empty()) {
        for (const FilterKind& kind : kinds)
            if (is_offered(kind) && kind.name.starts_with(partial)) found.push_back({kind.name, kind.help, true});
        return found;
    }
    std::string unused;
    const FilterKind* kind = find_kind(words[0], &unused);
    if (kind == nullptr) return found;
    bool complete = kind->argument.empty() ? partial.empty() && words.size() == 1 : words.size() > 1 && partial.empty();
    if (!kind->argument.empty()) found.push_back({kind->argument, kind->argument_help, false});
    if (complete) found.push_back({END_OF_LINE, "Run the command", false});
    return found;
}

} // namespace engine
