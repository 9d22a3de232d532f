/* SPDX-License-Identifier: Apache-2.0 */
/* Files for ONUs. Errors and refusals as in remote_oam_api.h. */
#ifndef EPON_SDK_REMOTE_SEND_FILE_H
#define EPON_SDK_REMOTE_SEND_FILE_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum { REMOTE_FILE_NAME_MAX = 31, REMOTE_FILE_MAX_SIZE = 1024 * 1024 };

/* Reads the file at path, on the host, and begins to send it to an ONU under a name of 1..REMOTE_FILE_NAME_MAX
 * printable characters without blanks and "/". Returns when the ONU has agreed; EVENT_FIRMWARE_DOWNLOAD_PROGRESS tells
 * how far it is, and an ONU that leaves ends it. A name that is no name, or a file that cannot be read: -4. An empty
 * file, or one of more than REMOTE_FILE_MAX_SIZE octets: -13001. Another file on its way: -13006. No room left in the
 * ONU: -6. */
int16_t REMOTE_NEPONU_send_file_to_onu(int16_t olt_id, int16_t onu_id, const char* file_name, const char* file_path);

#ifdef __cplusplus
}
#endif

#endif
