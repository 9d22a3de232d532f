/* SPDX-License-Identifier: Apache-2.0 */
/* Authentication of ONUs by the logical identifier (LOID) and the password that their subscribers were given, as
 * extended OAM carries them. Codes are those of the CTC stack. */
#ifndef EPON_SDK_CTC_LOID_H
#define EPON_SDK_CTC_LOID_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum CtcAuthMode {
    CTC_AUTH_MAC = 0,                /* the OLT's lists of MAC addresses decide; LOIDs are not asked for */
    CTC_AUTH_LOID = 1,               /* an ONU that the lists do not keep out must have a LOID of the table */
    CTC_AUTH_HYBRID = 2,             /* an address in an active white list or a LOID of the table is enough */
    CTC_AUTH_LOID_ANY_PASSWORD = 3,  /* as 1, whatever the password */
    CTC_AUTH_HYBRID_ANY_PASSWORD = 4 /* as 2, whatever the password */
};

enum {
    CTC_LOID_SIZE = 25,          /* of a LOID, terminator included */
    CTC_LOID_PASSWORD_SIZE = 13, /* of a password, terminator included */
    CTC_LOID_TABLE_SIZE = 256    /* LOIDs of an OLT */
};

typedef struct CTC_loid_data {
    char loid[CTC_LOID_SIZE];              /* 1..24 printable characters */
    char password[CTC_LOID_PASSWORD_SIZE]; /* 0..12 printable characters; empty: any password will do */
} CTC_loid_data;

typedef struct CTC_loid_table {
    uint32_t count;
    CTC_loid_data entries[CTC_LOID_TABLE_SIZE]; /* the first count of them, in the order in which they were added */
} CTC_loid_table;

/* Changes take effect at once: ONUs that are not admitted any more lose their registration (EVENT_ONU_DEREGISTERED, and
 * EVENT_ONU_REGISTRATION_REFUSED whenever they try again). An ONU that does not speak extended OAM has no LOID, and a
 * LOID admits one ONU at a time. */

/* Adds a LOID with its password to the OLT's table. In the table already: -17007. A full table: -17008. A text that is
 * too long, or an empty LOID: -4. */
int16_t CTC_STACK_add_auth_loid_data(int16_t olt_id, const char* loid, const char* password);
/* Takes a LOID and its link away; -4 when it is not in the table. */
int16_t CTC_STACK_remove_auth_loid_data(int16_t olt_id, const char* loid);
int16_t CTC_STACK_get_auth_loid_data_table(int16_t olt_id, CTC_loid_table* table);

/* mode is enum CtcAuthMode. */
int16_t CTC_STACK_set_auth_mode(int16_t olt_id, int32_t mode);
int16_t CTC_STACK_get_auth_mode(int16_t olt_id, int32_t* mode);

/* Keeps a link for the ONU with a LOID of the table: it registers nowhere else, and no other ONU there. An empty LOID
 * sets the link free. A link or a LOID that is bound otherwise: -17007. A LOID that is not in the table, or a link
 * outside 0..254: -4. A free link that is to be set free, or is asked for its LOID: -17001. */
int16_t CTC_STACK_set_loid_db_llid(int16_t olt_id, const char* loid, int16_t llid);
int16_t CTC_STACK_get_loid_id_by_llid(int16_t olt_id, char loid[CTC_LOID_SIZE], int16_t llid);

#ifdef __cplusplus
}
#endif

#endif
