/* SPDX-License-Identifier: Apache-2.0 */
/* Redundancy of an OLT's XAUI uplinks (IEEE 802.3 clause 47). */
#ifndef EPON_SDK_XAUI_REDUNDANCY_H
#define EPON_SDK_XAUI_REDUNDANCY_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Parameters and their values. */
enum XauiRedundancyParameter {
    XAUI_REDUNDANCY_INACTIVE_CH_MODE = 0, /* what the inactive channel sends: 0 idle, 1 nothing */
    XAUI_REDUNDANCY_TRIGGERING_MODE = 1,  /* what triggers a switch-over: 0 loss of link, 1 GPIO */
    XAUI_REDUNDANCY_GPIO_MODE = 2         /* how the GPIO triggers: 0 by level, 1 by a change */
};

/* enable: 1 on, 0 off. */
int16_t NEP_xaui_redundancy_enable(int16_t olt_id, int32_t enable);
int16_t NEP_xaui_redundancy_set_params(int16_t olt_id, int32_t parameter, int32_t value);
int16_t NEP_xaui_redundancy_get_params(int16_t olt_id, int32_t parameter, int32_t* value);
/* Makes the standby channel the active one now. */
int16_t NEP_xaui_redundancy_switch_over(int16_t olt_id);

#ifdef __cplusplus
}
#endif

#endif
