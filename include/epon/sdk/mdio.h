/* SPDX-License-Identifier: Apache-2.0 */
/* Registers of the PHYs behind an OLT's management interface (IEEE 802.3 clauses 22 and 45). */
#ifndef EPON_SDK_MDIO_H
#define EPON_SDK_MDIO_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum {
    MDIO_ADDRESS_LIMIT = 32,      /* PHYs, ports, devices of a port and clause 22 registers: 0..31 */
    MDIO45_REGISTER_LIMIT = 65536 /* clause 45 registers of a device: 0..65535 */
};

/* Writes a register: phy 0..31, address 0..31, value 0..65535. Bit 15 of register 0 resets the PHY and clears itself.
 * -4 outside the ranges. */
int16_t NEP_write_mdio_register(int16_t olt_id, int32_t phy, int32_t address, int32_t value);
/* Writes a register of a device of a port: port and device 0..31, address and value 0..65535. Bit 15 of register 0
 * resets the device and clears itself. -4 outside the ranges. */
int16_t NEP_write_mdio45_register(int16_t olt_id, int32_t port, int32_t device, int32_t address, int32_t value);

#ifdef __cplusplus
}
#endif

#endif
