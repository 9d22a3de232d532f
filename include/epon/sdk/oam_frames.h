/* SPDX-License-Identifier: Apache-2.0 */
/* OAM frames of single links (IEEE 802.3 clause 57). */
#ifndef EPON_SDK_OAM_FRAMES_H
#define EPON_SDK_OAM_FRAMES_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum { OAM_FRAME_RATE_UNLIMITED = 0 };
enum { OAM_FRAME_MIN_SIZE = 64, OAM_FRAME_MAX_SIZE = 1518 };

/* OAM frames that a registered link may carry in a second: 10, 20 .. 200, or OAM_FRAME_RATE_UNLIMITED. */
int16_t NEP_set_oam_frame_rate(int16_t olt_id, int16_t llid, int32_t frames);
int16_t NEP_get_oam_frame_rate(int16_t olt_id, int16_t llid, int32_t* frames);

/* Sends a whole OAM frame, from destination address to check sequence, of OAM_FRAME_MIN_SIZE to OAM_FRAME_MAX_SIZE
 * octets. -1006 while the link's OAM discovery has not come to its end. */
int16_t NEP_send_oam(int16_t olt_id, int16_t llid, const uint8_t* frame, uint32_t size);

#ifdef __cplusplus
}
#endif

#endif
