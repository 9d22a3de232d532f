/* SPDX-License-Identifier: Apache-2.0 */
/* The PON's optics: transmission of each rate, the modules, and the redundant one. -1003 for an absent OLT. */
#ifndef EPON_SDK_PON_TRANSMISSION_H
#define EPON_SDK_PON_TRANSMISSION_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Downstream rates. */
enum OltPonType { PON_TYPE_1G = 0, PON_TYPE_10G = 1, PON_TYPE_1G_10G = 2 };

/* Turns the OLT's transmission at a rate on (1) or off (0). ONUs that hear nothing any more leave after the MPCP
 * timeout; EVENT_PON_SIGNAL_CHANGED follows when none is left. They come back by themselves. -4 for a type or a state
 * that is not listed. */
int16_t NEP_set_olt_pon_transmission(int16_t olt_id, int32_t pon_type, int32_t enable);
/* The type is PON_TYPE_1G or PON_TYPE_10G, else -4. */
int16_t NEP_get_olt_pon_transmission(int16_t olt_id, int32_t pon_type, int32_t* enable);

/* GPIO groups that the optical modules are wired to. */
enum OltPonModule { PON_MODULE_PRIMARY = 0, PON_MODULE_SECONDARY = 1 };

/* *exists is 1 when a module is plugged in, else 0. -4 for a group that is not listed. */
int16_t NEP_get_olt_pon_module_exist(int16_t olt_id, int32_t module, int32_t* exists);

/* 1: the OLT works with the secondary module as a stand-by; 0: with the primary one only. -5 when there is no secondary
 * module to use. */
int16_t NEP_set_use_pon_redundant(int16_t olt_id, int32_t enable);

#ifdef __cplusplus
}
#endif

#endif
