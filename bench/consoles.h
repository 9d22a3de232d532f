// SPDX-License-Identifier: Apache-2.0
// The two consoles that are compared: ours, and libcli as Debian ships it, both with the commands of commands.h.
#pragma once

#include <string>
#include <vector>

#include <epon/engine.h>

#include "bench/commands.h"

struct cli_def;

namespace bench {

// A node of ours that holds so many commands, installed when it is asked for first: 1000, 2000, 4000 or 8000.
int node_with(std::size_t count);
// Another one, with commands of three to eight words.
int node_with_long_commands();
extern const char* const FOUR_WORDS;
extern const char* const EIGHT_WORDS;

// A session of ours without a connection, in that node.
vty* session_in(int node);

// A console of libcli with so many commands; what it prints is thrown away.
cli_def* libcli_with(std::size_t count);
void add_to_libcli(cli_def* cli, const std::vector<Command>& commands);

} // namespace bench
