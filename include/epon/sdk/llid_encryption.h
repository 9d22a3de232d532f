/* SPDX-License-Identifier: Apache-2.0 */
/* Encryption of single links with AES-128. Every operation takes the OLT and the link first. */
#ifndef EPON_SDK_LLID_ENCRYPTION_H
#define EPON_SDK_LLID_ENCRYPTION_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum LlidEncryption { LLID_ENCRYPTION_OFF = 0, LLID_ENCRYPTION_DOWNLINK = 1, LLID_ENCRYPTION_UPLINK_DOWNLINK = 2 };
enum { LLID_ENCRYPTION_KEY_SIZE = 16 };

/* Encrypts a registered link; direction is enum LlidEncryption, other than off. A link that was not encrypted begins
 * with a key of the OLT's making. EVENT_ENCRYPTION_CHANGED follows, and EVENT_ENCRYPTION_KEY_UPDATED for a new key. */
int16_t NEP_start_encryption(int16_t olt_id, int16_t llid, int32_t direction);
/* The next key of an encrypted link; -1 when it is not encrypted. EVENT_ENCRYPTION_KEY_UPDATED follows. */
int16_t NEP_update_encryption_key(int16_t olt_id, int16_t llid, const uint8_t key[LLID_ENCRYPTION_KEY_SIZE]);
/* -1 when the link is not encrypted. */
int16_t NEP_stop_encryption(int16_t olt_id, int16_t llid);
/* The key in use; -1 when the link is not encrypted. */
int16_t NEP_get_encryption_key(int16_t olt_id, int16_t llid, uint8_t key[LLID_ENCRYPTION_KEY_SIZE]);

#ifdef __cplusplus
}
#endif

#endif
