/* SPDX-License-Identifier: Apache-2.0 */
/* Lists of MAC addresses that admit ONUs to an OLT or keep them out. */
#ifndef EPON_SDK_AUTH_LIST_H
#define EPON_SDK_AUTH_LIST_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum AuthenticationMode {
    AUTHENTICATION_DISABLED = 0, /* every ONU is admitted */
    AUTHENTICATION_MAC_LIST = 1, /* the active list decides alone: ONUs that it keeps out cannot register */
    AUTHENTICATION_HYBRID = 2    /* ONUs that it keeps out register unauthorized and wait for NEP_authorize_onu */
};

/* An OLT has a list of each type and follows the active one. */
enum AuthenticationListType {
    AUTHENTICATION_WHITE_LIST = 0, /* admits the ONUs in it, and no others */
    AUTHENTICATION_BLACK_LIST = 1  /* keeps the ONUs in it out, and no others */
};

enum { AUTHENTICATION_LIST_SIZE = 256 }; /* addresses of a list */

typedef struct OLT_mac_address_list {
    uint32_t count;
    uint8_t addresses[AUTHENTICATION_LIST_SIZE][6]; /* the first count of them, in the order in which they were added */
} OLT_mac_address_list;

/* Changes take effect at once: ONUs that are kept out lose their registration (EVENT_ONU_DEREGISTERED, and
 * EVENT_ONU_REGISTRATION_REFUSED whenever they try again) or, in hybrid mode, their authorization
 * (EVENT_ONU_AUTHORIZATION_CHANGED). */
int16_t NEP_set_authentication_mode(int16_t olt_id, int32_t mode);
int16_t NEP_get_authentication_mode(int16_t olt_id, int32_t* mode);
int16_t NEP_set_active_authentication_list_type(int16_t olt_id, int32_t type);
int16_t NEP_get_active_authentication_list_type(int16_t olt_id, int32_t* type);
/* Adds an address to the active list (listed 1; once more changes nothing) or takes it away (listed 0). A full list:
 * -1013. An address that is no single device's, or to be taken away and not in the list: -4. */
int16_t NEP_set_mac_address_authentication(int16_t olt_id, const uint8_t mac[6], int32_t listed);
/* The active list. */
int16_t NEP_get_mac_address_authentication(int16_t olt_id, OLT_mac_address_list* list);
/* Empties the active list. */
int16_t NEP_clear_mac_address_authentication_table(int16_t olt_id);

#ifdef __cplusplus
}
#endif

#endif
