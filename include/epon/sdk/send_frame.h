/* SPDX-License-Identifier: Apache-2.0 */
/* Frames that the host sends through an OLT (IEEE 802.3 clause 3). */
#ifndef EPON_SDK_SEND_FRAME_H
#define EPON_SDK_SEND_FRAME_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Where a frame leaves the OLT. "Auto" ports let the OLT choose by the frame's addresses. */
enum FrameDestinationPort {
    FRAME_TO_PON = 0,
    FRAME_TO_SYSTEM = 1,
    FRAME_TO_SNIFF = 2,
    FRAME_TO_SYSTEM_AND_PON = 3,
    FRAME_TO_SYSTEM_AND_SNIFF = 4,
    FRAME_TO_SYSTEM_PON_AND_SNIFF = 5,
    FRAME_TO_AUTO = 6,
    FRAME_TO_AUTO_WITHOUT_ALL = 7, /* never to all ports at once */
    FRAME_TO_AUTO_WITHOUT_PON = 8,
    FRAME_TO_AUTO_WITHOUT_SYSTEM = 9
};

/* Which links a frame to the PON carries, beside or instead of its own LLID. */
enum FrameLlidClass {
    FRAME_LLID_CLASS_NONE = 0,    /* its own LLID only */
    FRAME_LLID_CLASS_ALL_1G = 1,  /* all links with a 1G downstream */
    FRAME_LLID_CLASS_ALL_10G = 2, /* all links with a 10G downstream */
    FRAME_LLID_CLASS_ANTI = 3     /* all links but its own LLID */
};

enum { FRAME_LLID_NOT_RELEVANT = -1 };
enum { FRAME_SIZE_MIN = 14, FRAME_SIZE_MAX = 2000 }; /* octets, without frame check sequence */

/* A frame from its destination address on, without preamble and frame check sequence. */
typedef struct OLT_frame {
    const uint8_t* octets; /* owned by the caller; null: the frame stands in the OLT's own memory */
    uint32_t address;      /* where it stands there; else 0 */
    uint32_t size;         /* octets, FRAME_SIZE_MIN..FRAME_SIZE_MAX */
} OLT_frame;

/* Sends a frame. llid is FRAME_LLID_NOT_RELEVANT or a link; a link that is not registered: -1007. A size or an address
 * out of range: -4. */
int16_t NEP_send_frame(int16_t olt_id, int32_t destination_port, int16_t llid, const OLT_frame* frame);
/* The same for a class of links (enum FrameLlidClass) and, with encrypt 1, encrypted with the link's key. */
int16_t NEP_send_frame_ext(int16_t olt_id, int32_t destination_port, int16_t llid, int32_t llid_class,
                           const OLT_frame* frame, int32_t encrypt);

#ifdef __cplusplus
}
#endif

#endif
