// SPDX-License-Identifier: Apache-2.0
// Passwords are kept as crypt(3) hashes only.
#include "host/engine/login.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <memory>

#include <crypt.h>

namespace engine {
namespace {

// The hash of a password with the salt and method of another hash; empty when the method is not known here.
std::string hash_like(const std::string& hash, const std::string& password)
{
    auto data = std::make_unique<crypt_data>();
    const char* result = crypt_r(password.c_str(), hash.c_str(), data.get());
    std::string text = result == nullptr || result[0] == '*' ? "" : result;
    explicit_bzero(data.get(), sizeof *data);
    return text;
}

} // namespace

bool load_password(const std::string& path, std::string* hash, std::string* error)
{
    std::ifstream file(path);
    std::string line;
    if (!file) {
        *error = "password file " + path + ": " + strerror(errno);
        return false;
    }
    getline(file, line);
    while (!line.empty() && (line.back() == '\r' || line.back() == ' ' || line.back() == '\t'))
        line.pop_back();
    // Hashing anything shows whether the method is known and the hash is whole.
    if (line.empty() || hash_like(line, "").size() != line.size()) {
        *error = "password file " + path + ": its first line is no crypt(3) hash (make one with mkpasswd)";
        return false;
    }
    *hash = line;
    return true;
}

bool password_matches(const std::string& hash, const std::string& password)
{
    std::string typed = hash_like(hash, password);
    if (typed.empty() || typed.size() != hash.size()) return false;
    unsigned difference = 0; // every byte is looked at, so that the time taken tells nothing
    for (std::size_t i = 0; i < hash.size(); ++i)
        difference |= static_cast<unsigned char>(hash[i]) ^ static_cast<unsigned char>(typed[i]);
    return difference == 0;
}

} // namespace engine
