// SPDX-License-Identifier: Apache-2.0
// Values that exist at the moment of typing, as the host tells them: indices and addresses of what is there.
#pragma once

#include <string_view>
#include <vector>

#include "host/engine/session.h"

namespace engine {

// Values that are looked at for one word; a host that tells more is not listened to any further.
constexpr std::size_t LIVE_VALUES = 8192;

// The live values of a candidate that begin with what was typed of it; letters of both cases are equal.
std::vector<LiveValue> live_values(const Session& session, const Candidate& candidate,
                                   const std::vector<std::string_view>& words, std::string_view partial);

} // namespace engine
