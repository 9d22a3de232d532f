/* SPDX-License-Identifier: Apache-2.0 */
/* An OLT's UART, and its loopback by which it is tested. */
#ifndef EPON_SDK_UART_H
#define EPON_SDK_UART_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum { UART_READ_LIMIT = 255 }; /* octets of one reading */

/* Sends an octet, 0..255. start_loopback 1 closes the loopback first: from then on what is sent is received as well.
 * -4 outside the ranges, -11 when the receiver is full. */
int16_t NEP_write_uart(int16_t olt_id, int32_t value, int32_t start_loopback);
/* Reads what was received, at most length octets, 1..255, into data, and writes their number to *received.
 * end_loopback 1 opens the loopback afterwards and drops what is left. -4 outside the ranges, -2 when nothing was
 * received. */
int16_t NEP_read_uart(int16_t olt_id, int32_t length, int32_t end_loopback, int32_t* received, uint8_t* data);

#ifdef __cplusplus
}
#endif

#endif
