// SPDX-License-Identifier: Apache-2.0
#include "host/engine/password_hash.h"

#include <cstring>
#include <memory>
#include <string_view>

#include <crypt.h>

namespace engine {
namespace {

// The methods that are strong enough for a console, and the length of what follows the last '$' of their hashes.
struct Method {
    std::string_view prefix;
    std::size_t length;
};
constexpr Method methods[] = {{"$y$", 43}, {"$gy$", 43}, {"$7$", 43}, {"$6$", 86}, {"$5$", 43}, {"$2b$", 53}};
constexpr const char* HASH_LETTERS = "./0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";

struct WipedData : crypt_data {
    ~WipedData()
    {
        explicit_bzero(static_cast<crypt_data*>(this), sizeof(crypt_data));
    }
};

// The hash of a password with the salt and method of a setting; empty when the method is not known here.
std::string hash_with(const std::string& setting, const std::string& password)
{
    if (password.size() > PASSWORD_LIMIT) return {};
    auto data = std::make_unique<WipedData>();
    const char* result = crypt_r(password.c_str(), setting.c_str(), data.get());
    return result == nullptr || result[0] == '*' ? "" : result;
}

} // namespace

bool is_password_hash(const std::string& text)
{
    for (const Method& method : methods) {
        if (!text.starts_with(method.prefix)) continue;
        std::string tail = text.substr(text.rfind('$') + 1);
        int verdict = crypt_checksalt(text.c_str());
        return tail.size() == method.length && tail.find_first_not_of(HASH_LETTERS) == std::string::npos &&
               (verdict == CRYPT_SALT_OK || verdict == CRYPT_SALT_METHOD_LEGACY);
    }
    return false;
}

bool password_matches(const std::string& hash, const std::string& password)
{
    std::string typed = hash_with(hash, password);
    if (typed.empty() || typed.size() != hash.size()) return false;
    unsigned difference = 0; // every byte is looked at, so that the time taken tells nothing
    for (std::size_t i = 0; i < hash.size(); ++i)
        difference |= static_cast<unsigned char>(hash[i]) ^ static_cast<unsigned char>(typed[i]);
    return difference == 0;
}

void wipe(std::string* text)
{
    explicit_bzero(text->data(), text->size());
    text->clear();
}

} // namespace engine
