/* SPDX-License-Identifier: Apache-2.0 */
/* Settings of the CTC stack that hold for all OLTs. A value out of range is refused with -4. */
#ifndef EPON_SDK_CTC_STACK_H
#define EPON_SDK_CTC_STACK_H

#include <stdint.h>

#include <epon/sdk/ctc_events.h>

#ifdef __cplusplus
extern "C" {
#endif

enum { CTC_OUI_RECORDS_MAX = 62 };

/* automatic_mode: 1 when the stack discovers each ONU's extended OAM by itself as soon as the ONU's OAM is up, else 0.
 * records: what the stack speaks; an ONU is discovered when it speaks one of them. With no record, the one of
 * CTC_STACK_set_oui and CTC_STACK_set_version. More than CTC_OUI_RECORDS_MAX: -4.
 * automatic_onu_configuration_mode: 1 when an ONU that returns is given again what was set on it (key update timing,
 * DBA report thresholds), else 0. */
int16_t CTC_STACK_set_parameters(int32_t automatic_mode, uint8_t number_of_records, const CTC_oui_version* records,
                                 int32_t automatic_onu_configuration_mode);
/* records has room for CTC_OUI_RECORDS_MAX. */
int16_t CTC_STACK_get_parameters(int32_t* automatic_mode, uint8_t* number_of_records, CTC_oui_version* records,
                                 int32_t* automatic_onu_configuration_mode);

/* The version that the stack speaks while it has no records. */
int16_t CTC_STACK_set_version(uint8_t version);
int16_t CTC_STACK_get_version(uint8_t* version);

/* The organization that defined it, 0..0xFFFFFF. */
int16_t CTC_STACK_set_oui(uint32_t oui);
int16_t CTC_STACK_get_oui(uint32_t* oui);

/* How long the stack waits for an ONU's part in the discovery, milliseconds, 0..2550; 0: for ever. */
int16_t CTC_STACK_set_extended_oam_discovery_timing(uint16_t discovery_timeout);
int16_t CTC_STACK_get_extended_oam_discovery_timing(uint16_t* discovery_timeout);

/* How long the stack waits for the answer to a request, in units of 100 ms, 1..32767, and how many times it repeats a
 * request that was not answered, 0..32767. */
int16_t CTC_STACK_set_communication_configuration(int16_t timeout_in_100_ms, int16_t resend_limit);
int16_t CTC_STACK_get_communication_configuration(int16_t* timeout_in_100_ms, int16_t* resend_limit);

#ifdef __cplusplus
}
#endif

#endif
