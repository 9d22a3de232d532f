/* SPDX-License-Identifier: Apache-2.0 */
/*
 * How long a silent ONU is kept, and how its OAM is watched and limited.
 *
 * An absent OLT is answered with -1003, a link that is not registered with -1007, a value out of range with -4.
 */
#ifndef EPON_SDK_TIMEOUTS_H
#define EPON_SDK_TIMEOUTS_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Time without a REPORT after which an ONU is deregistered (IEEE 802.3 clause 64.3.3.6), in milliseconds. */
enum { MPCP_TIMEOUT_MIN = 50, MPCP_TIMEOUT_MAX = 60000 };
int16_t NEP_set_mpcp_timeout(int16_t olt_id, int32_t timeout);
int16_t NEP_get_mpcp_timeout(int16_t olt_id, int32_t* timeout);

/* Time without an OAMPDU after which the OAM link counts as lost (IEEE 802.3 clause 57.3.1.5), in milliseconds. */
enum { OAM_TIMEOUT_MIN = 1000, OAM_TIMEOUT_MAX = 60000 };
int16_t NEP_set_standard_oam_timeout(int16_t olt_id, int32_t timeout);
int16_t NEP_get_standard_oam_timeout(int16_t olt_id, int32_t* timeout);

/* 1: a link whose OAM link is lost is deregistered; 0: it is kept. */
int16_t NEP_set_standard_oam_keepalive_state(int16_t olt_id, int16_t llid, int32_t enable);
int16_t NEP_get_standard_oam_keepalive_state(int16_t olt_id, int16_t llid, int32_t* enable);

/* 1: at most ten OAMPDUs a second are sent to an ONU (IEEE 802.3 clause 57.1.4); 0: as many as there are. */
int16_t NEP_set_oam_configuration(int16_t olt_id, int32_t rate_limited);

#ifdef __cplusplus
}
#endif

#endif
