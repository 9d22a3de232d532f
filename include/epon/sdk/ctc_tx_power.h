/* SPDX-License-Identifier: Apache-2.0 */
/* Power supply of the optical transmitters of ONUs, by extended OAM. It silences an ONU that transmits when it should
 * not, which cannot be told so by its link alone. */
#ifndef EPON_SDK_CTC_TX_POWER_H
#define EPON_SDK_CTC_TX_POWER_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum CtcOptical { CTC_OPTICAL_ACTIVE = 0, CTC_OPTICAL_STANDBY = 1, CTC_OPTICAL_BOTH = 2 };

/* Actions; all others switch the transmitter off for so many seconds. */
enum { CTC_TX_REENABLE = 0, CTC_TX_SHUTDOWN_PERMANENT = 0xFFFF };

/* serial_number is the MAC address of the ONU that is to obey; optical is enum CtcOptical. An ONU whose active
 * transmitter is off is lost (EVENT_ONU_DEREGISTERED); it registers again when the time is over, or when it is
 * reenabled.
 *
 * With broadcast 0 the ONU onu_id is asked: -17002 when it is not registered or does not speak extended OAM, -2 when it
 * does not answer, -17009 when the serial number is another one's or it has no such transmitter to switch. With
 * broadcast 1, or onu_id 4095, every ONU of the OLT hears it, registered or not, and the one that is meant obeys;
 * nobody answers. */
int16_t CTC_STACK_onu_tx_power_supply_control(int16_t olt_id, int16_t onu_id, const uint8_t serial_number[6],
                                              int32_t optical, uint16_t action, int32_t broadcast);

#ifdef __cplusplus
}
#endif

#endif
