/* SPDX-License-Identifier: Apache-2.0 */
/* ONUs with protected optical lines, by extended OAM: how long they hold their registration while a line is switched,
 * which PON interface works, and when they take a line for lost. An ONU that is not registered or does not speak
 * extended OAM: -17002; one that does not answer: -2; one that refuses a value: -17009. Settings may go to the
 * broadcast ONU. */
#ifndef EPON_SDK_CTC_PROTECTION_H
#define EPON_SDK_CTC_PROTECTION_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum CtcHoldoverState { CTC_HOLDOVER_DISACTIVATED = 1, CTC_HOLDOVER_ACTIVATED = 2 };

enum { CTC_HOLDOVER_TIME_MIN = 50, CTC_HOLDOVER_TIME_MAX = 1000 };

/* state is enum CtcHoldoverState; time, in ms, is CTC_HOLDOVER_TIME_MIN..CTC_HOLDOVER_TIME_MAX, or 0 when holdover is
 * not activated. */
int16_t CTC_STACK_set_holdover_state(int16_t olt_id, int16_t onu_id, int32_t state, uint32_t time);
int16_t CTC_STACK_get_holdover_state(int16_t olt_id, int16_t onu_id, int32_t* state, uint32_t* time);

/* The PON interface that works, 0 for the first. -17009 when the ONU has no such interface, or its transmitter is off.
 */
int16_t CTC_STACK_set_active_pon_if_state(int16_t olt_id, int16_t onu_id, uint8_t active_pon_if);
int16_t CTC_STACK_get_active_pon_if_state(int16_t olt_id, int16_t onu_id, uint8_t* active_pon_if);

/* Times without light, and without frames, after which the ONU takes the line for lost, ms, 0..65535. */
int16_t CTC_STACK_set_onu_protection_parameters(int16_t olt_id, int16_t onu_id, uint16_t los_optic_time,
                                                uint16_t los_mac_time);
int16_t CTC_STACK_get_onu_protection_parameters(int16_t olt_id, int16_t onu_id, uint16_t* los_optic_time,
                                                uint16_t* los_mac_time);

#ifdef __cplusplus
}
#endif

#endif
