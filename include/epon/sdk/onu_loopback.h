/* SPDX-License-Identifier: Apache-2.0 */
/* Loopbacks of ONUs: OAM remote loopback (IEEE 802.3 clause 57.2.11), and those of the PON port for tests. At most one
 * of an ONU is closed at a time; a second one is refused with -1. EVENT_LOOPBACK_CHANGED tells of each change. */
#ifndef EPON_SDK_ONU_LOOPBACK_H
#define EPON_SDK_ONU_LOOPBACK_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* state: 1 closed, 0 open. -1006 while the OAM discovery of the ONU has not come to its end. */
int16_t NEP_set_standard_onu_loopback(int16_t olt_id, int16_t onu_id, int32_t state);
int16_t NEP_get_standard_onu_loopback(int16_t olt_id, int16_t onu_id, int32_t* state);

enum OnuTestLoopback { ONU_TEST_LOOPBACK_PON_MAC = 0, ONU_TEST_LOOPBACK_PON_PHY = 1 };
/* Speed of a PHY loopback in Mbit/s: 10, 100, 1000, or what the PHY's MDIO registers say. */
enum { ONU_TEST_SPEED_MDIO = 0 };

/* Closes (state 1) or opens (0) a loopback at the ONU's PON port; loopback is enum OnuTestLoopback. A closed PHY
 * loopback opens by itself after timeout seconds (1..65535) and runs at speed_limit; both are 0 in any other call. */
int16_t NEP_TESTING_set_onu_test_mode(int16_t olt_id, int16_t onu_id, int32_t loopback, int32_t state, int32_t timeout,
                                      int32_t speed_limit);

#ifdef __cplusplus
}
#endif

#endif
