/* SPDX-License-Identifier: Apache-2.0 */
/* Taking ONUs off the PON (IEEE 802.3 clauses 64.3.3 and 77.3.3). */
#ifndef EPON_SDK_ONU_DEREGISTER_H
#define EPON_SDK_ONU_DEREGISTER_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Sends an ONU its MPCP deregistration. wait 1: returns when the ONU has left; 0: at once, the ONU leaves a little
 * later. Either way EVENT_ONU_DEREGISTERED tells when it has. An ONU that is not registered: -1007. */
int16_t NEP_deregister_onu(int16_t olt_id, int16_t onu_id, int32_t wait);

#ifdef __cplusplus
}
#endif

#endif
