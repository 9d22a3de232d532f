/* SPDX-License-Identifier: Apache-2.0 */
/* VLAN tags of the management traffic between the host and an OLT (IEEE 802.1Q). */
#ifndef EPON_SDK_MNG_VLAN_H
#define EPON_SDK_MNG_VLAN_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* What is set, item by item. */
enum OltManagementVlanItem {
    MNG_VLAN_HOST_TO_OLT = 0,               /* frames to the OLT are tagged: 1 or 0 */
    MNG_VLAN_OLT_TO_HOST = 1,               /* frames to the host are tagged: 1 or 0 */
    MNG_VLAN_HOST_TO_OLT_ID = 2,            /* their VLAN, 0..4095 */
    MNG_VLAN_OLT_TO_HOST_ID = 3,            /* the same */
    MNG_VLAN_HOST_TO_OLT_PRIO = 4,          /* priority of frames to the OLT, 0..7 */
    MNG_VLAN_OLT_TO_HOST_MNG_PRIO = 5,      /* priority of management frames to the host, 0..7 */
    MNG_VLAN_OLT_TO_HOST_OAM_PRIO = 6,      /* of OAM frames */
    MNG_VLAN_OLT_TO_HOST_IGMP_PRIO = 7,     /* of IGMP and MLD frames; follows the protocol frames' */
    MNG_VLAN_OLT_TO_HOST_PROTOCOL_PRIO = 8, /* of frames of all other protocols */
    MNG_VLAN_ITEM_LIMIT = 9
};

/* -4 for an unknown item and for a value out of the item's range; -1003 for an absent OLT. */
int16_t NEP_set_olt_management_vlan_configuration(int16_t olt_id, int32_t item, int32_t value);
int16_t NEP_get_olt_management_vlan_configuration(int16_t olt_id, int32_t item, int32_t* value);

#ifdef __cplusplus
}
#endif

#endif
