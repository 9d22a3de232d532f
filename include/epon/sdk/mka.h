/* SPDX-License-Identifier: Apache-2.0 */
/* Key agreement of an OLT with its links (IEEE 802.1X clause 9). */
#ifndef EPON_SDK_MKA_H
#define EPON_SDK_MKA_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Parameters of an OLT, which its links share. */
enum MkaGlobalParameter {
    MKA_KEEP_ALIVE_INTERVAL = 0, /* between two messages to a link, ms, 100..60000, at most MKA_KEEP_ALIVE_TIMEOUT */
    MKA_KEEP_ALIVE_TIMEOUT = 1,  /* without a message of the link until its keys are lost, ms, 100..60000 */
    MKA_RETRANSMIT_INTERVAL = 2, /* between two attempts of a key exchange, ms, 100..60000 */
    MKA_RETRANSMIT_NUM = 3,      /* attempts of a key exchange, 1..10 */
    MKA_CONFIDENTIAL_OFFSET = 4, /* octets behind the security tag that stay in the clear: 0, 30 or 50 */
    MKA_PN_THR = 5               /* packet number at which a new key is due, 1..4294967295 */
};

/* Parameters of one link, and what they are in an MKA_value. Those that are read only are refused with -4. */
enum MkaLlidParameter {
    MKA_ENABLE = 0,       /* number, 1 on, 0 off */
    MKA_ACTOR_MEM_ID = 1, /* 12 octets: the OLT's member identifier */
    MKA_CAK_NAME = 2,     /* 1..32 octets: name of the connectivity association key */
    MKA_CAK = 3,          /* 16 or 32 octets: the connectivity association key */
    MKA_KEK = 4,          /* octets as the CAK, read only: key encrypting key; none before the CAK is set */
    MKA_ICK = 5,          /* the same: integrity check value key */
    MKA_SCI = 6,          /* number: secure channel identifier, MAC address and port */
    MKA_KEY_SEED = 7,     /* 16 octets, read only: what secure association keys grow from; none before an exchange */
    MKA_SAK = 8,          /* octets as the CAK, read only: secure association key in use; none before an exchange */
    MKA_MN = 9            /* number, read only: message number, 0..4294967295 */
};

enum { MKA_OCTETS_MAX = 32 };

typedef struct MKA_value {
    uint64_t number; /* of a parameter that is a number, else 0 */
    uint32_t length; /* of octets; 0 for a parameter that is a number, or not there */
    uint8_t octets[MKA_OCTETS_MAX];
} MKA_value;

/* Agrees on a new secure association key with a link. Returns at once; EVENT_MKA_STATE_CHANGED tells of the exchange
 * and EVENT_MKA_KEY_INSTALLED of its key. Key agreement not enabled, no CAK or no CAK name: -1016. A link that is not
 * registered: -1007, as for all operations on a link. */
int16_t NEP_mka_start_exchange_key(int16_t olt_id, int16_t llid);
/* A new CAK or CAK name, or turning key agreement off, ends an exchange that is under way. A value or length out of
 * range: -4. */
int16_t NEP_mka_set_llid_parameter(int16_t olt_id, int16_t llid, int32_t parameter, const MKA_value* value);
int16_t NEP_mka_get_llid_parameter(int16_t olt_id, int16_t llid, int32_t parameter, MKA_value* value);
int16_t NEP_mka_set_global_parameter(int16_t olt_id, int32_t parameter, uint32_t value);
int16_t NEP_mka_get_global_parameter(int16_t olt_id, int32_t parameter, uint32_t* value);

#ifdef __cplusplus
}
#endif

#endif
