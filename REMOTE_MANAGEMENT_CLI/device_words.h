// SPDX-License-Identifier: Apache-2.0
// The words for an ONU's LEDs and restarts, which are set by one family and shown by another.
#pragma once

#include "CLI_GENERAL/arguments.h"

namespace epon {

inline constexpr Word led_activity_words[] = {{"hw", REMOTE_LED_HARDWARE}, {"fw", REMOTE_LED_FIRMWARE},
                                              {"off", REMOTE_LED_OFF},     {"on", REMOTE_LED_ON},
                                              {"slow", REMOTE_LED_SLOW},   {"fast", REMOTE_LED_FAST}};
inline constexpr WordTable led_activities = {"onu_led_activity", led_activity_words, room_for(led_activity_words)};

inline constexpr Word reset_reason_words[] = {{"none", REMOTE_RESET_NONE},
                                              {"sw", REMOTE_RESET_SW},
                                              {"sw-error", REMOTE_RESET_SW_ERROR},
                                              {"periph-low", REMOTE_RESET_PERIPH_LOW},
                                              {"periph-high", REMOTE_RESET_PERIPH_HIGH}};
inline constexpr WordTable reset_reasons = {"reset_reason", reset_reason_words, room_for(reset_reason_words)};

} // namespace epon
