/* SPDX-License-Identifier: Apache-2.0 */
/* Counters of an ONU. Errors and refusals as in remote_oam_api.h. */
#ifndef EPON_SDK_REMOTE_OAM_STATISTICS_H
#define EPON_SDK_REMOTE_OAM_STATISTICS_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Counters of an ONU's PON port and of its OAM since they were cleared; each as the attribute of IEEE 802.3 that is
 * named beside it counts. */
typedef struct REMOTE_oam_statistics {
    uint64_t frames_transmitted_ok;             /* aFramesTransmittedOK, 30.3.1.1.2 */
    uint64_t frames_received_ok;                /* aFramesReceivedOK, 30.3.1.1.5 */
    uint64_t frame_check_sequence_errors;       /* aFrameCheckSequenceErrors, 30.3.1.1.6 */
    uint64_t octets_transmitted_ok;             /* aOctetsTransmittedOK, 30.3.1.1.8 */
    uint64_t octets_received_ok;                /* aOctetsReceivedOK, 30.3.1.1.14 */
    uint64_t multicast_frames_transmitted_ok;   /* aMulticastFramesXmittedOK, 30.3.1.1.18 */
    uint64_t broadcast_frames_transmitted_ok;   /* aBroadcastFramesXmittedOK, 30.3.1.1.19 */
    uint64_t multicast_frames_received_ok;      /* aMulticastFramesReceivedOK, 30.3.1.1.21 */
    uint64_t broadcast_frames_received_ok;      /* aBroadcastFramesReceivedOK, 30.3.1.1.22 */
    uint64_t frame_too_long_errors;             /* aFrameTooLongErrors, 30.3.1.1.25 */
    uint64_t information_transmitted;           /* aOAMInformationTx, 30.3.6.1.20 */
    uint64_t information_received;              /* aOAMInformationRx, 30.3.6.1.21 */
    uint64_t event_notification_transmitted;    /* aOAMUniqueEventNotificationTx, 30.3.6.1.22 */
    uint64_t loopback_control_received;         /* aOAMLoopbackControlRx, 30.3.6.1.27 */
    uint64_t variable_request_received;         /* aOAMVariableRequestRx, 30.3.6.1.29 */
    uint64_t variable_response_transmitted;     /* aOAMVariableResponseTx, 30.3.6.1.30 */
    uint64_t organization_specific_transmitted; /* aOAMOrganizationSpecificTx, 30.3.6.1.32 */
    uint64_t organization_specific_received;    /* aOAMOrganizationSpecificRx, 30.3.6.1.33 */
} REMOTE_oam_statistics;

/* Attributes have branch 7 (IEEE 802.3 clause 57.6.1); their leaves are those of annex 30A. */
enum { OAM_BRANCH_ATTRIBUTE = 7 };
enum OamLeaf {
    OAM_LEAF_FRAMES_TRANSMITTED_OK = 2,
    OAM_LEAF_FRAMES_RECEIVED_OK = 5,
    OAM_LEAF_FRAME_CHECK_SEQUENCE_ERRORS = 6,
    OAM_LEAF_OCTETS_TRANSMITTED_OK = 8,
    OAM_LEAF_OCTETS_RECEIVED_OK = 14,
    OAM_LEAF_MULTICAST_FRAMES_XMITTED_OK = 18,
    OAM_LEAF_BROADCAST_FRAMES_XMITTED_OK = 19,
    OAM_LEAF_MULTICAST_FRAMES_RECEIVED_OK = 21,
    OAM_LEAF_BROADCAST_FRAMES_RECEIVED_OK = 22,
    OAM_LEAF_FRAME_TOO_LONG_ERRORS = 25
};

int16_t REMOTE_NEPONU_get_all_stats(int16_t olt_id, int16_t onu_id, REMOTE_oam_statistics* statistics);
/* One counter. The first asks by remote management, and its answer is since the counters were cleared; the second by a
 * variable request of standard OAM, which every ONU with OAM answers, remote management or not, and whose counters
 * cannot be cleared. -13014: the ONU has no such counter. */
int16_t REMOTE_NEPONU_get_stat_by_leaf(int16_t olt_id, int16_t onu_id, uint8_t branch, uint16_t leaf, uint64_t* value);
int16_t REMOTE_NEPONU_get_stat_by_leaf_standard(int16_t olt_id, int16_t onu_id, uint8_t branch, uint16_t leaf,
                                                uint64_t* value);
int16_t REMOTE_NEPONU_clear_all_statistics(int16_t olt_id, int16_t onu_id);

#ifdef __cplusplus
}
#endif

#endif
