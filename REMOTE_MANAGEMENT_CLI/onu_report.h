// SPDX-License-Identifier: Apache-2.0
// How the commands of remote management answer.
#pragma once

#include <cstdint>
#include <span>

#include "CLI_GENERAL/onu_target.h"
#include "CLI_GENERAL/output.h"

namespace epon {

// Reports a failed call of remote management. The handler returns 0 all the same.
int report_remote(vty* session, int16_t code);

// The answer of a command that shows a record of an ONU, or the failed call that should have read it. Returns 0.
int show_remote_record(vty* session, int16_t code, const void* record, std::span<const Field> fields);

} // namespace epon
