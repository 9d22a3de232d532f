/* SPDX-License-Identifier: Apache-2.0 */
/* Remote management of an ONU's OAM (IEEE 802.3 clause 57). Operations take the OLT and the ONU first; settings also
 * take the broadcast ONU 4095. -13013: no such OLT; -13015: the ONU is not registered or does not speak remote
 * management; -2: it does not answer; -4: a value out of range. */
#ifndef EPON_SDK_REMOTE_OAM_API_H
#define EPON_SDK_REMOTE_OAM_API_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* OAM that an ONU speaks. */
enum RemoteOamVersion { REMOTE_OAM_DRAFT = 0, REMOTE_OAM_STANDARD = 1 };

enum { REMOTE_DYING_GASP_TIMES_MAX = 10 };

/* The largest OAM frame that both ends agreed on, octets, 64..1518 (57.5.2.1, OAMPDU configuration). */
int16_t REMOTE_NEPONU_get_oam_frame_length_negotiation(int16_t olt_id, int16_t onu_id, uint16_t* length);

/* Vendor-specific information of the ONU's information OAM frames (57.5.2.1), 32 bits. */
int16_t REMOTE_NEPONU_get_oam_vendor_information(int16_t olt_id, int16_t onu_id, uint32_t* data);
int16_t REMOTE_NEPONU_set_oam_vendor_information(int16_t olt_id, int16_t onu_id, uint32_t data);

/* Whether the ONU keeps to ten frames a second of each slow protocol (annex 57A), 1 or 0. */
int16_t REMOTE_NEPONU_get_slow_protocol_limit(int16_t olt_id, int16_t onu_id, uint8_t* enable);
int16_t REMOTE_NEPONU_set_slow_protocol_limit(int16_t olt_id, int16_t onu_id, uint8_t enable);

/* version is enum RemoteOamVersion. */
int16_t REMOTE_NEPONU_get_oam_version(int16_t olt_id, int16_t onu_id, int32_t* version);

/* How often the ONU sends its dying gasp when it goes down, 0..REMOTE_DYING_GASP_TIMES_MAX; 0: never. */
int16_t REMOTE_NEPONU_get_oam_dying_gasp_times(int16_t olt_id, int16_t onu_id, uint32_t* times);
int16_t REMOTE_NEPONU_set_oam_dying_gasp_times(int16_t olt_id, int16_t onu_id, uint32_t times);

#ifdef __cplusplus
}
#endif

#endif
