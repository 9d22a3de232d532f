/* SPDX-License-Identifier: Apache-2.0 */
/* Thresholds of an ONU's queue reports (IEEE 802.3 clause 64.3.6.2): what is above a queue's threshold is left out of a
 * queue set. */
#ifndef EPON_SDK_CTC_DBA_REPORT_H
#define EPON_SDK_CTC_DBA_REPORT_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum { CTC_QUEUES = 8, CTC_QUEUE_SETS_MIN = 2, CTC_QUEUE_SETS_MAX = 4 };

/* Four octets, the threshold in the upper half of a little-endian word. */
typedef struct CTC_queue_threshold {
    uint8_t state; /* 1: the queue is reported in this set, 0: it is not */
    uint8_t reserved;
    uint16_t threshold; /* time quanta of 16 ns */
} CTC_queue_threshold;

typedef struct CTC_queue_set_thresholds {
    CTC_queue_threshold queues[CTC_QUEUES]; /* by queue number */
} CTC_queue_set_thresholds;

/* The last queue set has no thresholds: queue_sets holds one row less than the number of queue sets, which is
 * CTC_QUEUE_SETS_MIN..CTC_QUEUE_SETS_MAX, else -4. A queue whose threshold is lower than in the set before: -17004.
 * The broadcast ONU 4095 sets them on all ONUs of the OLT that answer. -17003 for an absent OLT, -17002 for an ONU that
 * is not registered or has no extended OAM, -2 for one that does not answer. */
int16_t CTC_STACK_set_dba_report_thresholds(int16_t olt_id, int16_t onu_id, const uint8_t* number_of_queue_sets,
                                            const CTC_queue_set_thresholds* queue_sets);
/* queue_sets has room for CTC_QUEUE_SETS_MAX - 1 rows. */
int16_t CTC_STACK_get_dba_report_thresholds(int16_t olt_id, int16_t onu_id, uint8_t* number_of_queue_sets,
                                            CTC_queue_set_thresholds* queue_sets);

#ifdef __cplusplus
}
#endif

#endif
