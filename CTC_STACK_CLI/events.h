// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace epon {

constexpr const char* CTC_STACK_MODULE = "CTC_STACK_CLI/CTC_STACK_CLI"; // as the SDK log names it

} // namespace epon
