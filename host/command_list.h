// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <ostream>

// One line for each installed element of the command library and node: node, handler and grammar, separated by tabs;
// a tab in a grammar is written \t.
void list_commands(std::ostream& out);
