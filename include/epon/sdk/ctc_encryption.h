/* SPDX-License-Identifier: Apache-2.0 */
/*
 * Encryption of the downlink that the CTC stack drives: it asks the ONU for a key, uses it, and asks for the next one
 * in time. A value out of range is refused with -4. Operations that set something take the broadcast ONU 4095 for all
 * ONUs of an OLT that answer. -17003 for an absent OLT, -17002 for an ONU that is not registered or has no extended
 * OAM, -2 for one that does not answer.
 */
#ifndef EPON_SDK_CTC_ENCRYPTION_H
#define EPON_SDK_CTC_ENCRYPTION_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* For every ONU without a timing of its own: the life of a key in seconds, 0..255, 0 for a key that is never changed;
 * and how long the stack waits for a key, milliseconds, 0..2550. */
int16_t CTC_STACK_set_encryption_timing(uint8_t update_key_time, uint16_t no_reply_timeout);
int16_t CTC_STACK_get_encryption_timing(uint8_t* update_key_time, uint16_t* no_reply_timeout);

/* How many requests for a key may go unanswered, one after the other, until the encryption of the ONU counts as failed,
 * 0..255; 0 is as 1. */
int16_t CTC_STACK_set_encryption_timing_threshold(uint8_t start_encryption_threshold);
int16_t CTC_STACK_get_encryption_timing_threshold(uint8_t* start_encryption_threshold);

enum { CTC_ENCRYPTION_TIMEOUT_MAX = 255000 };

/* The timing of one ONU: the life of a key, and how long the stack waits until it asks again, both in milliseconds,
 * 0..CTC_ENCRYPTION_TIMEOUT_MAX. Counts from the next key on. */
int16_t CTC_STACK_set_encryption_update_time(int16_t olt_id, int16_t onu_id, uint32_t update_key_timeout,
                                             uint32_t re_transmit_timeout);
int16_t CTC_STACK_get_encryption_update_time(int16_t olt_id, int16_t onu_id, uint32_t* update_key_timeout,
                                             uint32_t* re_transmit_timeout);

/* Returns at once; CTC_EVENT_UPDATE_ENCRYPTION tells of the result, and of each later key. Nothing changes on an ONU
 * whose encryption runs or begins already. */
int16_t CTC_STACK_start_encryption(int16_t olt_id, int16_t onu_id);
/* The downlink is sent in the clear. */
int16_t CTC_STACK_stop_encryption(int16_t olt_id, int16_t onu_id);

#ifdef __cplusplus
}
#endif

#endif
