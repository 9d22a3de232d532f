// SPDX-License-Identifier: Apache-2.0
// How much of a load test is left to a program that a sanitizer or an emulator makes slow: counts are divided by
// LOAD_SCALE.
#pragma once

#if defined(EPON_EMULATED) || defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr int LOAD_SCALE = 10;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
constexpr int LOAD_SCALE = 10;
#else
constexpr int LOAD_SCALE = 1;
#endif
#else
constexpr int LOAD_SCALE = 1;
#endif
