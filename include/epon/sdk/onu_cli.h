/* SPDX-License-Identifier: Apache-2.0 */
/* The command line of an ONU itself. */
#ifndef EPON_SDK_ONU_CLI_H
#define EPON_SDK_ONU_CLI_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Sends text to the command line of a registered ONU; echo 1 sends its answer to the host's console, later and on an
 * SDK thread. At most 1024 characters. */
int16_t NEP_send_onu_cli_command(int16_t olt_id, int16_t onu_id, int32_t echo, const char* text);

#ifdef __cplusplus
}
#endif

#endif
