// SPDX-License-Identifier: Apache-2.0
// Passwords are kept as crypt(3) hashes only.
#pragma once

#include <string>

namespace engine {

// Longest password, in bytes; crypt(3) takes no longer one.
constexpr std::size_t PASSWORD_LIMIT = 511;

// Whether the text is a whole hash of a method that is known here and is not outdated.
bool is_password_hash(const std::string& text);
// Whether the password is the one behind the hash. Slow on purpose: tens of milliseconds and more.
bool password_matches(const std::string& hash, const std::string& password);
// Overwrites the text, so that it cannot be found in memory later.
void wipe(std::string* text);

} // namespace engine
