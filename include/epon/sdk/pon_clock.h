/* SPDX-License-Identifier: Apache-2.0 */
/* The clocks that OLTs stamp their MPCP frames with (IEEE 802.3 clause 64.2.1): 32 bits of time quanta of 16 ns. */
#ifndef EPON_SDK_PON_CLOCK_H
#define EPON_SDK_PON_CLOCK_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The clock's present time, offset included. -1003 for an absent OLT. */
int16_t NEP_get_olt_pon_clock(int16_t olt_id, uint32_t* clock);
/* What the clock is ahead of the time that it would have of itself, in time quanta; replaces the former offset. */
int16_t NEP_set_olt_pon_clock_offset(int16_t olt_id, uint32_t offset);
/* Sets the slave's clock to the time of the master's. -1003 when one of them is absent, -4 when they are the same. */
int16_t Sync_olts_pon_clock(int16_t master_olt_id, int16_t slave_olt_id);

#ifdef __cplusplus
}
#endif

#endif
