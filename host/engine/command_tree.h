// SPDX-License-Identifier: Apache-2.0
// The commands of one node as a prefix tree of grammar words: matching, help and completion walk the same structure.
// Used by the console thread only.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <epon/engine.h>

#include "host/engine/grammar.h"

namespace engine {

enum class MatchStatus { Matched, Empty, Unknown, Incomplete, Ambiguous };

// The outcome of matching one line. Reuse one object: its buffers keep their capacity. A copy's argv still points into
// the original.
struct Match {
    MatchStatus status = MatchStatus::Empty;
    cmd_element* element = nullptr;      // Matched
    std::vector<char*> argv;             // Matched: the arguments, in grammar order; they point into storage
    std::string line;                    // Matched: the words with keywords and alternatives in full, one blank between
    std::size_t error_word = 0;          // Unknown: index of the first word that no command takes
    std::string reason;                  // Unknown: why, when it can be told ("not in the range 0-65534"), else empty
    std::vector<std::string> candidates; // Ambiguous: the words or commands that the line could mean
    std::string storage;                 // line once more, for argv: NUL-terminated texts that the handler may modify
};

// The candidate that stands for the end of a line.
constexpr std::string_view END_OF_LINE = "<cr>";

// One thing that can be typed at a position. The texts are parts of the installed elements and live as long as they do.
struct Candidate {
    std::string_view word; // as the operator types or reads it: "max-rtt", "<0-255>", "OLT_INDEX"; "<cr>": end of line
    std::string_view help; // its help line, without newline
    bool literal = false;  // a keyword or alternative that completion may insert
    // Of a value: the grammar's words that the words before it were taken for.
    std::vector<std::string_view> before = {};
};

class CommandTree {
  public:
    CommandTree();
    ~CommandTree();
    CommandTree(CommandTree&&) noexcept;
    CommandTree& operator=(CommandTree&&) noexcept;

    // Parses the element's grammar (once per element: cmdsize and strvec are filled on the first installation) and adds
    // it. False with a text when the grammar is malformed, its help lines do not match its words, or another element
    // has the very same words. A second installation of the same element is ignored.
    bool install(cmd_element* element, Origin origin, std::string* error);

    // Finds the command that the words of one line mean.
    void match(std::span<const std::string_view> words, Match& out) const;

    // What can stand where `partial` stands, after the complete words before it; sorted keywords first, "<cr>" last.
    // Words that occur in several commands are listed once. A word that is or begins a keyword stands for the keyword:
    // what could follow if it were a value is listed only when nothing else is.
    std::vector<Candidate> candidates(std::span<const std::string_view> words, std::string_view partial) const;

    // Whether commands begin with the keyword.
    bool has_first_keyword(std::string_view word) const;

    // Calls visit for every installed element in order of installation.
    void for_each(const std::function<void(const cmd_element&, Origin)>& visit) const;

  private:
    struct Impl;
    std::unique_ptr<Impl> impl;
};

} // namespace engine
