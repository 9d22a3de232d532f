/* SPDX-License-Identifier: Apache-2.0 */
/* Remote management: how an ONU encrypts and decrypts its link. Errors and refusals as in remote_oam_api.h. */
#ifndef EPON_SDK_REMOTE_ENCRYPTION_H
#define EPON_SDK_REMOTE_ENCRYPTION_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum { REMOTE_ENCRYPTION_KEYS = 2, REMOTE_ENCRYPTION_KEY_SIZE = 16 };

/* mirror: 1 what is sent is decrypted with the key it was encrypted with, for tests, 0 it is not; bypass: 1 frames pass
 * unchanged, whatever the state, 0 they do not. */
int16_t REMOTE_NEPONU_encryption_set_configuration(int16_t olt_id, int16_t onu_id, uint8_t mirror, uint8_t bypass);
int16_t REMOTE_NEPONU_encryption_get_configuration(int16_t olt_id, int16_t onu_id, uint8_t* mirror, uint8_t* bypass);

/* AES with keys of 128 bits, or churning with three keys of 24 bits, of which the first octets of the key are made. */
enum RemoteEncryptionMode { REMOTE_ENCRYPTION_AES = 0, REMOTE_ENCRYPTION_TRIPLE_CHURNING = 1 };
/* -13008 while a direction is encrypted. */
int16_t REMOTE_NEPONU_ENCRYPTION_set_mode(int16_t olt_id, int16_t onu_id, int32_t mode);
int16_t REMOTE_NEPONU_ENCRYPTION_get_mode(int16_t olt_id, int16_t onu_id, int32_t* mode);

enum RemoteEncryptionState {
    REMOTE_ENCRYPTION_UPLINK = 0,
    REMOTE_ENCRYPTION_DOWNLINK = 1,
    REMOTE_ENCRYPTION_UPLINK_DOWNLINK = 2,
    REMOTE_ENCRYPTION_OFF = 3
};
/* The directions that are encrypted. -13008 while the active key has not been set; churning protects what comes from
 * the OLT alone, and is refused with -13008 for the other direction. */
int16_t REMOTE_NEPONU_encryption_set_state(int16_t olt_id, int16_t onu_id, int32_t state);
int16_t REMOTE_NEPONU_encryption_get_state(int16_t olt_id, int16_t onu_id, int32_t* state);

/* One of the two keys, index 0 or 1. The active key of an encrypted link stays as it is: -13008. A key that has not
 * been set reads as zeros. */
int16_t REMOTE_NEPONU_encryption_set_key(int16_t olt_id, int16_t onu_id, uint8_t index,
                                         const uint8_t key[REMOTE_ENCRYPTION_KEY_SIZE]);
int16_t REMOTE_NEPONU_encryption_get_key(int16_t olt_id, int16_t onu_id, uint8_t index,
                                         uint8_t key[REMOTE_ENCRYPTION_KEY_SIZE]);

/* The key in use. On an encrypted link, -13008 for a key that has not been set. */
int16_t REMOTE_NEPONU_encryption_set_active_key(int16_t olt_id, int16_t onu_id, uint8_t index);
int16_t REMOTE_NEPONU_encryption_get_active_key(int16_t olt_id, int16_t onu_id, uint8_t* index);

#ifdef __cplusplus
}
#endif

#endif
