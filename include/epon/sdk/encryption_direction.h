/* SPDX-License-Identifier: Apache-2.0 */
/* Which directions of a link are encrypted with numbered packets (IEEE 802.1AE), and how far the numbers have come. */
#ifndef EPON_SDK_ENCRYPTION_DIRECTION_H
#define EPON_SDK_ENCRYPTION_DIRECTION_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum OltEncryptionDirection {
    ENCRYPTION_DIRECTION_NONE = 0,
    ENCRYPTION_DIRECTION_DOWNLINK = 1,
    ENCRYPTION_DIRECTION_UPLINK_DOWNLINK = 2
};

/* EVENT_ENCRYPTION_CHANGED follows a change. -1003 for an absent OLT, -1007 for a link that is not registered, -4 for a
 * direction that is not listed. */
int16_t NEP_set_encryption_direction(int16_t olt_id, int16_t llid, int32_t direction);
int16_t NEP_get_encryption_direction(int16_t olt_id, int16_t llid, int32_t* direction);

enum { ENCRYPTION_PN_DB_LIMIT = 255 };

/* One encrypted link: the numbers of the last packets; 0 in a direction that is not encrypted. */
typedef struct OLT_encryption_pn {
    int16_t llid;
    uint64_t downlink;
    uint64_t uplink;
} OLT_encryption_pn;

typedef struct OLT_encryption_pn_db {
    uint16_t count; /* entries in use */
    OLT_encryption_pn entries[ENCRYPTION_PN_DB_LIMIT];
} OLT_encryption_pn_db;

/* The encrypted links of an OLT, by index. -1003 for an absent OLT. */
int16_t NEP_get_encryption_pn_db(int16_t olt_id, OLT_encryption_pn_db* db);

#ifdef __cplusplus
}
#endif

#endif
