/* SPDX-License-Identifier: Apache-2.0 */
/* General purpose lines of an OLT. */
#ifndef EPON_SDK_GPIO_H
#define EPON_SDK_GPIO_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum { GPIO_LINE_LIMIT = 67 }; /* lines of an OLT: 0..66 */

enum GpioDirection { GPIO_DIRECTION_NOT_CHANGED = 0, GPIO_DIRECTION_OUTPUT = 1, GPIO_DIRECTION_INPUT = 2 };
enum GpioValue { GPIO_VALUE_NOT_CHANGED = 0, GPIO_VALUE_OFF = 1, GPIO_VALUE_ON = 2 };

/* Sets direction (enum GpioDirection) and value (enum GpioValue) of a line, the direction first. -4 outside the
 * ranges, -1 for a value of a line that is an input. */
int16_t NEP_gpio_access(int16_t olt_id, int32_t line, int32_t direction, int32_t value);

#ifdef __cplusplus
}
#endif

#endif
