// SPDX-License-Identifier: Apache-2.0
// What whoever runs the host should know: one line on stderr.
#pragma once

namespace engine {

__attribute__((format(printf, 1, 2))) void log_line(const char* format, ...);

} // namespace engine
