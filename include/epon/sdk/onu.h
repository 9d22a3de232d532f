/* SPDX-License-Identifier: Apache-2.0 */
/* ONUs and their logical links (IEEE 802.3 clauses 64 and 77). Every operation takes the OLT index first. */
#ifndef EPON_SDK_ONU_H
#define EPON_SDK_ONU_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum { ONU_INDEX_LIMIT = 255 }; /* links of an OLT: 0..254 */

/* Mode codes of a link. A link counts as registered in the two registered modes only. */
enum OnuMode {
    ONU_MODE_UNREGISTERED = 200,
    ONU_MODE_REGISTERED = 201,
    ONU_MODE_DISCOVERED = 202,
    ONU_MODE_REGISTERED_UNAUTHORIZED = 203
};

/* Non-zero when the ONU record is kept statically, whether or not the ONU is registered. */
int32_t Get_onu_record_static_mode(int16_t olt_id, int16_t onu_id);

/* The link's mode code (enum OnuMode). *warned becomes 1 when the link is warned for a mode change. An index out of
 * range and an absent OLT read as unregistered. */
int32_t NEP_get_onu_mode_extended(int16_t olt_id, int16_t onu_id, uint8_t* warned);

/* Non-zero when the MAC address belongs to a link of the OLT; then *onu_id is its index. */
int32_t Mac_address_exist(int16_t olt_id, const uint8_t mac[6], int16_t* onu_id);

#ifdef __cplusplus
}
#endif

#endif
