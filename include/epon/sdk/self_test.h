/* SPDX-License-Identifier: Apache-2.0 */
/* An OLT's test of its own hardware. */
#ifndef EPON_SDK_SELF_TEST_H
#define EPON_SDK_SELF_TEST_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Starts the self-test; EVENT_SELF_TEST_COMPLETED follows when it is done. -1 while one runs. */
int16_t NEP_olt_self_test(int16_t olt_id);

#ifdef __cplusplus
}
#endif

#endif
