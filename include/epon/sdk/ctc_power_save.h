/* SPDX-License-Identifier: Apache-2.0 */
/* ONUs that sleep to save power, by extended OAM. Times are in time quanta of 16 ns. An ONU that is not registered or
 * does not speak extended OAM: -17002; one that does not answer: -2; one that refuses a value or cannot do what it is
 * told: -17009. Settings and controls, but no questions, may go to the broadcast ONU. */
#ifndef EPON_SDK_CTC_POWER_SAVE_H
#define EPON_SDK_CTC_POWER_SAVE_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum CtcSleep {
    CTC_SLEEP_NONE = 0,
    CTC_SLEEP_TX = 1,  /* its transmitter alone */
    CTC_SLEEP_TRX = 2, /* its transmitter and its receiver */
    CTC_SLEEP_BOTH = 3 /* either way, as it is told; only a capability */
};

enum { CTC_SLEEP_TIME_MAX = 62500000 }; /* a second */

typedef struct CTC_power_save_capabilities {
    uint8_t sleep;        /* enum CtcSleep */
    uint8_t early_wakeup; /* 1: it can end its sleep when there is something to send; 0: it sleeps its time */
} CTC_power_save_capabilities;

typedef struct CTC_power_save_config {
    uint8_t early_wakeup; /* 1 or 0 */
    uint8_t reserved[3];
    uint32_t sleep_duration_max; /* the longest sleep that the ONU may be told, 0..CTC_SLEEP_TIME_MAX */
} CTC_power_save_config;

enum CtcSleepFlag { CTC_SLEEP_LEAVE = 0, CTC_SLEEP_ENTER = 1, CTC_SLEEP_CHANGE = 2 };

int16_t CTC_STACK_get_onu_power_save_capabilities(int16_t olt_id, int16_t onu_id,
                                                  CTC_power_save_capabilities* capabilities);
int16_t CTC_STACK_set_onu_power_save_config(int16_t olt_id, int16_t onu_id, const CTC_power_save_config* config);
int16_t CTC_STACK_get_onu_power_save_config(int16_t olt_id, int16_t onu_id, CTC_power_save_config* config);

/* Has an ONU sleep and wake by turns from a time of its MPCP clock on (flag 1), by other durations (2), or stay awake
 * (0). mode is CTC_SLEEP_NONE, _TX or _TRX. Durations are at most CTC_SLEEP_TIME_MAX. */
int16_t CTC_STACK_set_sleep_control(int16_t olt_id, int16_t onu_id, uint32_t start_time, uint32_t sleep_duration,
                                    uint32_t wake_duration, int32_t flag, int32_t mode);

#ifdef __cplusplus
}
#endif

#endif
