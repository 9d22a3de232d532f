/* SPDX-License-Identifier: Apache-2.0 */
/*
 * Modes of an OLT, each a number that is set and read back.
 *
 * Every operation answers -1003 for an absent OLT; every set operation answers -4 for a value that is not listed, and
 * then changes nothing.
 */
#ifndef EPON_SDK_OLT_MODES_H
#define EPON_SDK_OLT_MODES_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* --- The device ----------------------------------------------------------------------------------------------- */

/* The clock that the OLT's XAUI and PON transceivers are fed with. */
enum OltReferenceClock {
    REF_CLOCK_125_SINGLE_ENDED = 0, /* 125 MHz */
    REF_CLOCK_161_13_DIFFERENTIAL = 1,
    REF_CLOCK_125_DIFFERENTIAL = 2,
    REF_CLOCK_161_13_SINGLE_ENDED = 3
};
int16_t NEP_set_ref_clock(int16_t olt_id, int32_t clock);
int16_t NEP_get_ref_clock(int16_t olt_id, int32_t* clock);

/* The environment development kit that the firmware's user code was built with. */
enum OltFlavorEdk { FLAVOR_EDK_TYPE_1 = 0, FLAVOR_EDK_TYPE_2 = 1, FLAVOR_EDK_TYPE_3 = 2, FLAVOR_EDK_DEFAULT_USER = 3 };
int16_t NEP_set_olt_flavor_edk_type(int16_t olt_id, int32_t flavor);
int16_t NEP_get_olt_flavor_edk_type(int16_t olt_id, int32_t* flavor);

/* Largest frame that the OLT's interfaces forward, in octets, INTERFACE_MTU_MIN..INTERFACE_MTU_MAX. */
enum { INTERFACE_MTU_MIN = 64, INTERFACE_MTU_MAX = 16383 };
int16_t NEP_set_olt_interface_mtu(int16_t olt_id, int32_t mtu);
int16_t NEP_get_olt_interface_mtu(int16_t olt_id, int32_t* mtu);

/* --- The network engine --------------------------------------------------------------------------------------- */

/* How frames are classified between the PON and the core network. */
enum OltNeMode { NE_MODE_1 = 1, NE_MODE_DEFAULT = 2, NE_MODE_CASCADING = 3, NE_MODE_4 = 4 };
int16_t NEP_set_olt_ne_mode(int16_t olt_id, int32_t mode);
int16_t NEP_get_olt_ne_mode(int16_t olt_id, int32_t* mode);

/* 1: rules of a link stay in force while the link is not registered; 0: they are taken out. */
int16_t NEP_set_enable_rules_for_dereg_llids(int16_t olt_id, int32_t enable);
int16_t NEP_get_enable_rules_for_dereg_llids(int16_t olt_id, int32_t* enable);

/* --- The PON -------------------------------------------------------------------------------------------------- */

/* 1: an ONU that is refused registration is told so with a NACK (IEEE 802.3 clause 64.3.3.5); 0: it is not answered. */
int16_t NEP_set_nack_control(int16_t olt_id, int32_t enable);
int16_t NEP_get_nack_control(int16_t olt_id, int32_t* enable);

/* How the bandwidth allocation counts the overhead of a burst. */
enum OltDbaAllocationOverhead {
    DBA_OVERHEAD_AUTO = 0,  /* as the ONU's own laser times ask for */
    DBA_OVERHEAD_LEGACY = 1 /* a fixed overhead for every ONU */
};
int16_t NEP_set_dba_allocation_overhead_mode(int16_t olt_id, int32_t mode);
int16_t NEP_get_dba_allocation_overhead_mode(int16_t olt_id, int32_t* mode);

/* --- MAC addresses -------------------------------------------------------------------------------------------- */

/* What happens when an ONU asks to register with a MAC address that is registered already. */
enum OltDuplicateMacHandling {
    DUPLICATE_MAC_STANDARD = 0,  /* the newcomer is refused */
    DUPLICATE_MAC_IGNORING = 1,  /* the newcomer is not answered */
    DUPLICATE_MAC_DEREGISTER = 2 /* the link that holds the address is deregistered */
};
int16_t NEP_set_duplicate_mac_handle_mode(int16_t olt_id, int32_t mode);
int16_t NEP_get_duplicate_mac_handle_mode(int16_t olt_id, int32_t* mode);

/* Which moves of learned addresses between links are reported as EVENT_MAC_MIGRATED. */
enum OltMacMigrationReport { MAC_MIGRATION_NONE = 0, MAC_MIGRATION_ALL = 1, MAC_MIGRATION_LIMITED = 2 };
int16_t NEP_set_mac_migration_event_report_mode(int16_t olt_id, int32_t mode);
int16_t NEP_get_mac_migration_event_report_mode(int16_t olt_id, int32_t* mode);

/* Which source addresses a protected link may use. */
enum OltAntiSpoofing { ANTI_SPOOFING_SINGLE = 0, ANTI_SPOOFING_RANGE = 1 };
int16_t NEP_set_olt_anti_spoofing_mode(int16_t olt_id, int32_t mode);
int16_t NEP_get_olt_anti_spoofing_mode(int16_t olt_id, int32_t* mode);

#ifdef __cplusplus
}
#endif

#endif
