// SPDX-License-Identifier: Apache-2.0
// How answers name the OAM that an ONU speaks.
#pragma once

#include "CLI_GENERAL/arguments.h"

namespace epon {

inline constexpr Word oam_version_words[] = {{"draft", REMOTE_OAM_DRAFT}, {"standard", REMOTE_OAM_STANDARD}};
inline constexpr WordTable oam_versions = {"oam_version", oam_version_words};

} // namespace epon
