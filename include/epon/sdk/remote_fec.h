/* SPDX-License-Identifier: Apache-2.0 */
/* Remote management: forward error correction of an ONU's link (IEEE 802.3 clauses 65.2 and 76.3). Errors and refusals
 * as in remote_oam_api.h. */
#ifndef EPON_SDK_REMOTE_FEC_H
#define EPON_SDK_REMOTE_FEC_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* rx_auto: 1 the ONU finds out whether what it receives can be corrected, and rx_enable tells what it found when it is
 * read; rx_enable: what it receives is corrected; tx_enable: what it sends can be. 1 on, 0 off. A direction that runs
 * at 10G is always corrected: -13008 when it is to be off. */
int16_t REMOTE_NEPONU_set_forward_error_correction_configuration(int16_t olt_id, int16_t onu_id, uint8_t rx_auto,
                                                                 uint8_t rx_enable, uint8_t tx_enable);
int16_t REMOTE_NEPONU_get_forward_error_correction_configuration(int16_t olt_id, int16_t onu_id, uint8_t* rx_auto,
                                                                 uint8_t* rx_enable, uint8_t* tx_enable);

#ifdef __cplusplus
}
#endif

#endif
