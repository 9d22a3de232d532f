/* SPDX-License-Identifier: Apache-2.0 */
/* Grants set by hand, in place of a bandwidth allocation (IEEE 802.3 clauses 64.3.5 and 77.3.5). */
#ifndef EPON_SDK_GRANTS_H
#define EPON_SDK_GRANTS_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum { GRANT_TABLE_SIZE = 256 }; /* grants of a cycle */

typedef struct OLT_grant {
    int16_t llid;
    uint16_t length; /* time quanta of 16 ns, 1..65535 */
} OLT_grant;

/* Repeats these grants in this order in cycles of cycle_size time quanta of 16 ns, until a bandwidth allocation starts.
 * While one runs: -1009. No grant, more than GRANT_TABLE_SIZE, an empty grant, or more of them than the cycle holds:
 * -4. A link that is not registered: -1007. */
int16_t NEP_set_grants(int16_t olt_id, const OLT_grant* grants, uint32_t count, uint32_t cycle_size);

#ifdef __cplusplus
}
#endif

#endif
