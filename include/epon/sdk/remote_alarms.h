/* SPDX-License-Identifier: Apache-2.0 */
/* Events of an ONU: which of them it reports, and from how many errors on. Errors and refusals as in remote_oam_api.h.
 */
#ifndef EPON_SDK_REMOTE_ALARMS_H
#define EPON_SDK_REMOTE_ALARMS_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum RemoteAlarm {
    REMOTE_ALARM_ERRORED_SYMBOLS_PERIOD = 0,
    REMOTE_ALARM_ERRORED_FRAME = 1,
    REMOTE_ALARM_ERRORED_FRAME_PERIOD = 2,
    REMOTE_ALARM_SECOND_SUMMARY = 3,
    REMOTE_ALARM_DYING_GASP = 4,
    REMOTE_ALARM_LINK_FAULT = 5,
    REMOTE_ALARM_CRITICAL_EVENT = 6,
    REMOTE_ALARM_IGMP_JOIN = 7,
    REMOTE_ALARM_IGMP_LEAVE = 8,
    REMOTE_ALARM_ENCRYPTION_KEY = 9,
    REMOTE_ALARM_ENCRYPTION_STATE = 10,
    REMOTE_ALARM_FEC_RX_MODE = 11,
    REMOTE_ALARM_ADDRESS_TBL_FULL = 12,
    REMOTE_ALARM_CONNECTION_STATE = 13,
    REMOTE_ALARM_UNI_LINK = 14,
    REMOTE_ALARM_PON_LOOPBACK = 15,
    REMOTE_ALARM_AUTHORIZATION = 16,
    REMOTE_ALARM_PRE_RESET = 17,
    REMOTE_ALARM_IMAGE_BURN = 18,
    REMOTE_ALARM_EAPOL = 19,
    REMOTE_ALARM_RESERVED1 = 20,
    REMOTE_ALARM_RESERVED2 = 21,
    REMOTE_ALARM_MPCP_NACK = 22,
    REMOTE_ALARM_MLD_JOIN = 23,
    REMOTE_ALARM_MLD_DONE = 24,
    REMOTE_ALARM_HOST_TIMEOUT = 25,
    REMOTE_ALARM_OAM_RECEIVE = 26,
    REMOTE_ALARM_GPIO_IRQ = 27,
    REMOTE_ALARM_COUNT = 28
};

/* How an event comes to the host. enable_hook is 1 when the host is told of it. The first four events count errors in
 * windows that follow each other (IEEE 802.3 clause 57.5.3) and are told of with EVENT_OAM_ERRORS_REPORTED when a
 * window had at least threshold of them:
 *
 *   ERRORED_SYMBOLS_PERIOD  window in symbols, threshold in symbols
 *   ERRORED_FRAME           window in 100 ms, 10..600, threshold in frames, at most 4294967295
 *   ERRORED_FRAME_PERIOD    window in received frames, at most 4294967295, threshold in frames, the same
 *   SECOND_SUMMARY          window in 100 ms, 100..9000, threshold in seconds with errors, at most 65535
 *
 * For the other events window and threshold mean nothing. alarm is enum RemoteAlarm. -13008: a window of 0, or one that
 * its event cannot have. */
int16_t REMOTE_NEPONU_get_alarm_configuration(int16_t olt_id, int16_t onu_id, int32_t alarm, uint8_t* enable_hook,
                                              uint64_t* window, uint64_t* threshold);
int16_t REMOTE_NEPONU_set_alarm_configuration(int16_t olt_id, int16_t onu_id, int32_t alarm, uint8_t enable_hook,
                                              uint64_t window, uint64_t threshold);

/* Whether the ONU sends an event at all (1) or not (0). What the ONU does not send, no hook tells of. */
int16_t REMOTE_NEPONU_set_event_configuration(int16_t olt_id, int16_t onu_id, int32_t alarm, uint8_t enable);

#ifdef __cplusplus
}
#endif

#endif
