/* SPDX-License-Identifier: Apache-2.0 */
/* What an ONU is, as it tells by extended OAM: serial number, firmware and chipset. Texts are octets of the device: not
 * terminated when they fill their room, and not checked. The broadcast ONU has none: -17002. An ONU that is not
 * registered or does not speak extended OAM: -17002; one that does not answer: -2. */
#ifndef EPON_SDK_CTC_IDENTITY_H
#define EPON_SDK_CTC_IDENTITY_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum {
    CTC_VENDOR_ID_SIZE = 4,
    CTC_HARDWARE_VERSION_SIZE = 8,
    CTC_SOFTWARE_VERSION_SIZE = 16,
    CTC_FIRMWARE_VERSION_SIZE = 32,
    CTC_CHIPSET_VENDOR_SIZE = 2
};

typedef struct CTC_serial_number {
    char vendor_id[CTC_VENDOR_ID_SIZE];
    uint32_t onu_model; /* four octets, the first one in the most significant place; often characters */
    uint8_t onu_id[6];  /* its MAC address */
    char hardware_version[CTC_HARDWARE_VERSION_SIZE];
    char software_version[CTC_SOFTWARE_VERSION_SIZE];
} CTC_serial_number;

/* Of the PON chip. */
typedef struct CTC_firmware_version {
    char version[CTC_FIRMWARE_VERSION_SIZE];
} CTC_firmware_version;

typedef struct CTC_chipset_id {
    char vendor_id[CTC_CHIPSET_VENDOR_SIZE];
    uint16_t chip_model;
    uint8_t revision;
    uint8_t year; /* of its design, 0..99; month and day count from 1 */
    uint8_t month;
    uint8_t day;
} CTC_chipset_id;

int16_t CTC_STACK_get_onu_serial_number(int16_t olt_id, int16_t onu_id, CTC_serial_number* serial_number);
int16_t CTC_STACK_get_firmware_version_extended(int16_t olt_id, int16_t onu_id, CTC_firmware_version* version);
int16_t CTC_STACK_get_chipset_id(int16_t olt_id, int16_t onu_id, CTC_chipset_id* chipset);

#ifdef __cplusplus
}
#endif

#endif
