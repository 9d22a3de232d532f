/* SPDX-License-Identifier: Apache-2.0 */
/* Registers of the devices on an OLT's I2C buses, such as the memories of its optical modules (SFF-8472). */
#ifndef EPON_SDK_I2C_REGISTER_H
#define EPON_SDK_I2C_REGISTER_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Buses of an OLT. */
enum I2cAccessType {
    I2C_ACCESS_HW = 0, /* the device's own I2C controller */
    I2C_ACCESS_PON_PRIMARY = 1,
    I2C_ACCESS_PON_SECONDARY = 2,
    I2C_ACCESS_OTDR_PRIMARY = 3,
    I2C_ACCESS_OTDR_SECONDARY = 4,
    I2C_ACCESS_TYPE_COUNT
};

enum {
    I2C_REGISTER_LIMIT = 256, /* registers of a device: 0..255, of 8 bits each */
    I2C_MODULE_IDENTITY = 0xA0,
    I2C_MODULE_DIAGNOSTICS = 0xA2
};

/* A device is addressed by its 8-bit write address, 0x00..0xFE (even). -4 outside the ranges, -5 when no device answers
 * there or the register cannot be written. */

/* A register of a device on the device's own controller. */
int16_t NEP_read_i2c_register(int16_t olt_id, int32_t device, int32_t address, int32_t* data);
int16_t NEP_write_i2c_register(int16_t olt_id, int32_t device, int32_t address, int32_t data);

/* Registers of a device on any bus (enum I2cAccessType): size of them, 0..255, the last one not behind 255. */
int16_t NEP_read_i2c_register_extended(int16_t olt_id, int32_t access_type, int32_t device, int32_t address,
                                       int32_t size, uint8_t* data);
int16_t NEP_write_i2c_register_extended(int16_t olt_id, int32_t access_type, int32_t device, int32_t address,
                                        int32_t data);

#ifdef __cplusplus
}
#endif

#endif
