// SPDX-License-Identifier: Apache-2.0
// From a typed line to a command, and what the operator is told when there is none.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/engine/session.h"

namespace engine {

// What an operator reads when a line is not executed: always one line, "% " at column 0. Those that begin with
// "Unknown" stand below a caret under the word, unless the line reaches beyond the screen.
constexpr const char* UNKNOWN_COMMAND = "%% Unknown command.%s";
constexpr const char* UNKNOWN_HERE = "%% Unknown command here: it belongs to %s.%s"; // the title of its node
constexpr const char* UNKNOWN_WORD = "%% Unknown word here.%s";   // behind words that commands begin with
constexpr const char* WRONG_WORD = "%% Unknown word here: %s.%s"; // why, as the grammar can tell
constexpr const char* INCOMPLETE_COMMAND = "%% Incomplete command.%s";
constexpr const char* AMBIGUOUS_COMMAND = "%% Ambiguous command: %s.%s"; // what it could mean
constexpr const char* WRONG_FILTER = "%% %s.%s";                         // below a caret, too
constexpr const char* LINE_TOO_LONG = "%% Line too long (more than %zu characters).%s";
constexpr const char* LINE_REFUSED = "%% Line refused: it holds bytes that are not printable text.%s";
constexpr const char* NO_HELP = "% No command continues like this."; // for "?"

// Executes one line in the session's node, or prints why not.
// A remark ("! ..." or "# ...") is no command. Where a filter saves the answer, session.saving is set.
Outcome run_line(Session& session, std::string_view line);
// Tells the operator how saving went, once it is done.
void finish_saving(Session& session);

// "exit" and "end" as commands: where they lead, with the node's leave hook. "end" leads out of the contexts to the
// configuration node, and from there to the enable node.
void leave_node(Session& session);
void leave_contexts(Session& session);

// Words of a line, split at blanks and tabs.
std::vector<std::string_view> split_words(std::string_view line);
void split_words(std::string_view line, std::vector<std::string_view>* words);

// What "?" shows behind the given text: complete lines.
std::string help_text(const Session& session, std::string_view before_cursor);

struct Completion {
    std::string insert;  // what to add at the cursor
    std::string listing; // complete lines to show instead
};
Completion complete(const Session& session, std::string_view before_cursor);

} // namespace engine
