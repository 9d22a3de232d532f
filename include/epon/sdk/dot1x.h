/* SPDX-License-Identifier: Apache-2.0 */
/* Port access control of an OLT's ONUs (IEEE 802.1X clause 8). */
#ifndef EPON_SDK_DOT1X_H
#define EPON_SDK_DOT1X_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum { DOT1X_KEY_SIZE = 32 }; /* of a shared secret, terminator included */

typedef struct OLT_802_1x_configuration {
    uint8_t enabled;                    /* 0: the other fields are 0, too */
    char shared_secret[DOT1X_KEY_SIZE]; /* shared with the authentication server, 1..31 characters */
    uint16_t quiet_period;              /* after a failed authentication, s, 0..65535 */
    uint16_t tx_period;                 /* between two requests for an identity, s, 1..65535 */
    uint16_t supplicant_timeout;        /* s, 1..65535 */
    uint16_t server_timeout;            /* s, 1..65535 */
    uint16_t max_reauthentications;     /* attempts before the link counts as unauthorized, 1..65535 */
    uint16_t max_requests;              /* repetitions of an unanswered request, 1..10 */
} OLT_802_1x_configuration;

/* Starts port access control, or with enabled 0 stops it. A value out of range: -4. */
int16_t NEP_set_802_1x_configuration(int16_t olt_id, const OLT_802_1x_configuration* configuration);

#ifdef __cplusplus
}
#endif

#endif
