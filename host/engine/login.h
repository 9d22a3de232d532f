// SPDX-License-Identifier: Apache-2.0
// The console's password.
#pragma once

#include <string>

namespace engine {

constexpr int LOGIN_TRIES = 3;

// Reads the crypt(3) hash from a file's first line. False with one clear line in *error.
bool load_password(const std::string& path, std::string* hash, std::string* error);
// Whether the password is the one behind the hash. Slow on purpose: tens of milliseconds and more.
bool password_matches(const std::string& hash, const std::string& password);

} // namespace engine
