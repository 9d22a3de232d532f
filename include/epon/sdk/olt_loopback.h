/* SPDX-License-Identifier: Apache-2.0 */
/* Loopbacks of an OLT's own ports, for tests. */
#ifndef EPON_SDK_OLT_LOOPBACK_H
#define EPON_SDK_OLT_LOOPBACK_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum OltLoopbackMode {
    OLT_LOOPBACK_NONE = 0,
    OLT_LOOPBACK_PON_MAC = 1,
    OLT_LOOPBACK_PON_PHY = 2,
    OLT_LOOPBACK_SYSTEM_PHY = 3,
    OLT_LOOPBACK_SYSTEM_MAC = 4,
    OLT_LOOPBACK_SNIFF = 5
};

/* Closes one loopback, which opens the one that was closed before, or opens it (OLT_LOOPBACK_NONE). A change is told by
 * EVENT_LOOPBACK_CHANGED without an ONU. Frames that the host sends to a looped PON or system port come back as
 * EVENT_ETHERNET_FRAME_RECEIVED. */
int16_t NEP_set_loopback_mode(int16_t olt_id, int32_t mode);

#ifdef __cplusplus
}
#endif

#endif
