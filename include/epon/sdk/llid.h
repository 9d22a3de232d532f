/* SPDX-License-Identifier: Apache-2.0 */
/* Logical links: mode, authorization, forward error correction. Every operation takes the OLT and the link first. */
#ifndef EPON_SDK_LLID_H
#define EPON_SDK_LLID_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Forward error correction of a link. It is a choice on 1G links (IEEE 802.3 clause 65.2) and always on where a
 * direction runs at 10G (clause 76). */
enum LlidFecMode { LLID_FEC_OFF = 0, LLID_FEC_DOWNLINK = 1, LLID_FEC_UPLINK_DOWNLINK = 2 };

/* A registered link as a whole. */
typedef struct LLID_parameters {
    int32_t mode;       /* enum OnuMode */
    int32_t rate;       /* 0 1G/1G, 1 10G/1G, 2 10G/10G (downstream/upstream) */
    int32_t authorized; /* 1 or 0 */
    int32_t encryption; /* enum LlidEncryption */
    int32_t fec;        /* enum LlidFecMode */
    uint32_t rtt;       /* round-trip time, time quanta of 16 ns */
    uint8_t mac[6];     /* of the ONU */
} LLID_parameters;

/* The link's mode code (enum OnuMode), registered or not. */
int16_t NEP_get_onu_mode(int16_t olt_id, int16_t llid, int32_t* mode);
int16_t NEP_get_llid_parameters(int16_t olt_id, int16_t llid, LLID_parameters* parameters);

/* mode is enum LlidFecMode; -1005 where the rate of the link leaves no choice. The broadcast link (4095) can be read:
 * it is corrected when every link of the OLT is. */
int16_t NEP_set_llid_fec_mode(int16_t olt_id, int16_t llid, int32_t mode);
int16_t NEP_get_llid_fec_mode(int16_t olt_id, int16_t llid, int32_t* mode);

/* Lets a registered link carry traffic (1), or none but MPCP's (0). EVENT_ONU_AUTHORIZATION_CHANGED and
 * EVENT_OAM_LINK_CHANGED tell of a change. */
int16_t NEP_authorize_onu(int16_t olt_id, int16_t llid, int32_t authorized);
/* Takes the authorization of a link away and has the ONU prove itself anew; -1 when the link is not authorized. */
int16_t NEP_reauthenticate_onu(int16_t olt_id, int16_t llid);

#ifdef __cplusplus
}
#endif

#endif
