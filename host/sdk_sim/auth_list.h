// SPDX-License-Identifier: Apache-2.0
// What an OLT keeps of whom it admits.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include <epon/sdk/auth_list.h>

namespace sdk_sim {

struct Network;
struct Olt;

struct AuthList {
    std::int32_t mode = AUTHENTICATION_DISABLED;
    std::int32_t active_type = AUTHENTICATION_WHITE_LIST;
    std::array<std::vector<std::array<std::uint8_t, 6>>, 2> addresses; // by enum AuthenticationListType
};

enum class Admission { Admitted, Unauthorized, NotListed, BlackListed };

// What becomes of an address.
Admission admission(const AuthList& list, const std::array<std::uint8_t, 6>& mac);

// Takes registration or authorization away from the ONUs of an OLT that are not admitted any more, or gives it to them.
void review_onus(Network& network, Olt& olt);

} // namespace sdk_sim
