/* SPDX-License-Identifier: Apache-2.0 */
/* Firmware of ONUs. */
#ifndef EPON_SDK_ONU_FIRMWARE_H
#define EPON_SDK_ONU_FIRMWARE_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum { ONU_FIRMWARE_MAX_SIZE = 16 * 1024 * 1024 };

/* Begins to load an image of 1..ONU_FIRMWARE_MAX_SIZE octets into an ONU, and returns; the image is copied.
 * EVENT_FIRMWARE_DOWNLOAD_PROGRESS tells how far it is; an ONU that leaves ends it. -1 while another download to the
 * ONU runs; -1006 while its OAM discovery has not come to its end. */
int16_t NEP_download_onu_firmware(int16_t olt_id, int16_t onu_id, const uint8_t* image, uint32_t size);

#ifdef __cplusplus
}
#endif

#endif
