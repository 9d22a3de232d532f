// SPDX-License-Identifier: Apache-2.0
// Questions to the operator at the terminal, even while standard input is a file.
#pragma once

#include <string>

namespace console {

// Asks on the controlling terminal; what is typed is shown unless it is secret. Ctrl-C and Ctrl-D give up. False with
// one clear line in *error. A signal that ends the program does so once the terminal is as it was.
bool ask_operator(const std::string& prompt, bool secret, std::string* answer, std::string* error);

// --hash-password: asks twice for a password, or reads one line where standard input is no terminal, and prints its
// yescrypt hash. The exit code.
int hash_password();

} // namespace console
