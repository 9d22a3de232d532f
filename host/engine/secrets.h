// SPDX-License-Identifier: Apache-2.0
// What an operator types and nobody may read later: kept out of history and audit.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "host/engine/session.h"

namespace engine {

// The line, whose words are given, with its secrets replaced, in *storage; or the line itself, when it holds none.
// Words may be cut short as the session's node allows it.
std::string_view without_secrets(const Session& session, std::string_view line, std::span<const std::string_view> words,
                                 std::string* storage);

} // namespace engine
