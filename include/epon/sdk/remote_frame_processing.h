/* SPDX-License-Identifier: Apache-2.0 */
/* Remote management: how an ONU spreads frames over an aggregated link, and how it reports what waits in its queues.
 * Errors and refusals as in remote_oam_api.h. */
#ifndef EPON_SDK_REMOTE_FRAME_PROCESSING_H
#define EPON_SDK_REMOTE_FRAME_PROCESSING_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum { REMOTE_REPORTED_QUEUES = 8 };

/* Thresholds of the first queue set of the ONU's REPORT messages (IEEE 802.3 clause 64.3.6.2): of each queue, the
 * frames that wait before this limit. */
typedef struct REMOTE_threshold_reporter_configuration {
    uint8_t enabled;                            /* 1: reports have the queue set with thresholds, 0: they do not */
    uint8_t queue_sets;                         /* queue sets in a REPORT, 1..4 */
    uint16_t threshold[REMOTE_REPORTED_QUEUES]; /* of queues 0..7, time quanta of 16 ns */
} REMOTE_threshold_reporter_configuration;

int16_t REMOTE_NEPONU_get_threshold_reporter_configuration(int16_t olt_id, int16_t onu_id,
                                                           REMOTE_threshold_reporter_configuration* configuration);

/* What of a frame chooses the physical link that carries it (link aggregation, IEEE 802.1AX): 1 it counts, 0 it does
 * not. -13008 when nothing is left to choose by. */
int16_t REMOTE_NEPONU_ne_set_lag_hash_key(int16_t olt_id, int16_t onu_id, uint32_t vlan_id, uint32_t vlan_priority,
                                          uint32_t mac_sa, uint32_t mac_da);
int16_t REMOTE_NEPONU_ne_get_lag_hash_key(int16_t olt_id, int16_t onu_id, uint32_t* vlan_id, uint32_t* vlan_priority,
                                          uint32_t* mac_sa, uint32_t* mac_da);

#ifdef __cplusplus
}
#endif

#endif
