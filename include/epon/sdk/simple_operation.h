/* SPDX-License-Identifier: Apache-2.0 */
/* Operations of the OLT's firmware that take one number and answer one number. */
#ifndef EPON_SDK_SIMPLE_OPERATION_H
#define EPON_SDK_SIMPLE_OPERATION_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum OltSimpleOperation {
    OPERATION_SET_ENABLE_RULE_FOR_DEREG_LLIDS = 0, /* 1 or 0, as NEP_set_enable_rules_for_dereg_llids */
    OPERATION_GET_ENABLE_RULE_FOR_DEREG_LLIDS = 1,
    OPERATION_SET_CNI_INTERFACE = 2, /* enum OltCniInterface */
    OPERATION_GET_CNI_INTERFACE = 3,
    OPERATION_OF_FIRMWARE_MIN = 1000, /* known to the firmware only: any number */
    OPERATION_OF_FIRMWARE_MAX = 2000
};

enum OltCniInterface { CNI_INTERFACE_XAUI = 0, CNI_INTERFACE_RXAUI = 1, CNI_INTERFACE_SGMII = 2 };

/* *answer is what a reading operation reads, what a setting one has set, and for one of the firmware's what it had
 * before. -4 for an unknown operation and for a value that it does not take; -1003 for an absent OLT. */
int16_t NEP_simple_operation(int16_t olt_id, int32_t operation, uint32_t value, uint32_t* answer);

/* Operations that an OLT carries out, in this order, each time it starts; the OLT need not be present. -4 for one that
 * sets nothing, -11 when PRE_INIT_OPERATION_LIMIT wait already, -1003 for an index that no OLT has. */
enum { PRE_INIT_OPERATION_LIMIT = 32 };
int16_t NEP_pre_init_simple_operation_add(int16_t olt_id, int32_t operation, uint32_t value);
/* Forgets them all. */
int16_t NEP_pre_init_simple_operation_reset(int16_t olt_id);

#ifdef __cplusplus
}
#endif

#endif
