/* SPDX-License-Identifier: Apache-2.0 */
/* What an OLT's firmware tells about its state for an analysis after a failure. */
#ifndef EPON_SDK_POST_MORTEM_H
#define EPON_SDK_POST_MORTEM_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum { POST_MORTEM_TEXT_SIZE = 4096 };

/* Writes the firmware's report: lines that end with "\n", and a terminator. What they hold is the firmware's own: any
 * octets. A report that is too long is cut. */
int16_t NEP_get_post_mortem(int16_t olt_id, char text[POST_MORTEM_TEXT_SIZE]);

#ifdef __cplusplus
}
#endif

#endif
