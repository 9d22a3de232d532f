/* SPDX-License-Identifier: Apache-2.0 */
/* ONUs, and cards of ONUs, that are made to start anew by extended OAM. An ONU that is not registered or does not speak
 * extended OAM: -17002; one that does not answer: -2. Both may go to the broadcast ONU. */
#ifndef EPON_SDK_CTC_RESET_H
#define EPON_SDK_CTC_RESET_H

#include <stdint.h>

#include <epon/sdk/ctc_management_object.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Has the ONU start anew: it leaves (EVENT_ONU_DEREGISTERED) and registers again (EVENT_ONU_REGISTERED). */
int16_t CTC_STACK_reset_onu(int16_t olt_id, int16_t onu_id);
/* Has a card, or with CTC_ALL_CARDS every card of a frame, start anew; the ONU itself stays. A frame or a card that the
 * ONU does not have: -17009. */
int16_t CTC_STACK_reset_card(int16_t olt_id, int16_t onu_id, uint8_t frame, uint8_t card);

#ifdef __cplusplus
}
#endif

#endif
