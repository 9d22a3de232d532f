// SPDX-License-Identifier: Apache-2.0
// Who may use the console, and the files that say so.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/engine/engine_host.h"

namespace engine {

enum class Role {
    Monitor,  // the view node only
    Operator, // everything; "enable" asks for the enable password, if there is one
    Admin,    // everything; "enable" asks nothing
};

const char* role_name(Role role);

struct User {
    std::string name;
    Role role;
    std::string hash;
};

// Everything that passwords are checked against. Read at start and on request, replaced as a whole.
struct Credentials {
    std::vector<User> users;   // empty: no names are asked for
    std::string password_hash; // of the single password; empty: none is asked for
    std::string enable_hash;   // of the enable password; empty: none is asked for
    std::string nobody_hash;   // takes as long to check as a user's; nothing matches it

    const User* find(const std::string& name) const;
    bool asks_at_login() const
    {
        return !users.empty() || !password_hash.empty();
    }
};

// Reads the files that the options name. Null with one clear line in *error.
std::shared_ptr<const Credentials> load_credentials(const Options& options, std::string* error);

} // namespace engine
