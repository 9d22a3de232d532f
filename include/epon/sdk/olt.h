/* SPDX-License-Identifier: Apache-2.0 */
/* OLTs: presence, parameters, versions, reset and recovery. */
#ifndef EPON_SDK_OLT_H
#define EPON_SDK_OLT_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum { OLT_INDEX_LIMIT = 16 }; /* OLTs of a host: 0..15 */

enum OltLlidAssignment { LLID_ASSIGNMENT_ALL = 0, LLID_ASSIGNMENT_ODD = 1, LLID_ASSIGNMENT_EVEN = 2 };
enum OltI2cSpeed { I2C_SPEED_FAST = 0x15, I2C_SPEED_STANDARD = 0x5E };

/*
 * Settings of one OLT. In NEP_update_olt_parameters a field with all bits set is left as it is; fields 4 and 7 are
 * reserved and always passed so.
 */
typedef struct OLT_update_parameters {
    int32_t min_rtt;          /* 1: minimum round-trip time, time quanta of 16 ns, 0..32767 */
    int32_t max_rtt;          /* 2: maximum round-trip time, time quanta of 16 ns, 0..65534 */
    uint16_t grant_filtering; /* 3: 1 on, 0 off */
    uint16_t reserved_4;
    int32_t vendor_specific_1g;  /* 5: vendor specific value reported to 1G ONUs */
    int32_t vendor_specific_10g; /* 6: the same for 10G ONUs */
    int32_t reserved_7;
    int32_t oui_1g;          /* 8: organizationally unique identifier for 1G ONUs, 24 bits */
    int32_t oui_10g;         /* 9: the same for 10G ONUs */
    int32_t uart_baud_rate;  /* 10: code 0 (1200 baud) .. 11 (460800 baud) */
    int32_t llid_assignment; /* 11: enum OltLlidAssignment */
    uint16_t sled_strobe;    /* 12: strobe of the serial LED chain, 1 on, 0 off */
    uint16_t sled_mute;      /* 13: serial LED chain dark, 1 on, 0 off */
    int32_t i2c_speed;       /* 14: enum OltI2cSpeed */
} OLT_update_parameters;

/* The settings as read back, with the OLT's own MAC address. */
typedef struct OLT_parameters {
    OLT_update_parameters settings;
    uint8_t mac[6];
} OLT_parameters;

/* Where a firmware image comes from when an OLT is added. */
enum OltFirmwareLocation { FIRMWARE_FROM_FLASH = 0, FIRMWARE_FROM_FILE = 1, FIRMWARE_FROM_MEMORY = 2 };

typedef struct OLT_firmware_source {
    int32_t location;  /* enum OltFirmwareLocation */
    const void* image; /* file name (FILE), image bytes (MEMORY), or null; owned by the caller */
    uint32_t size;     /* image bytes (MEMORY), else 0 */
} OLT_firmware_source;

typedef struct OLT_device_versions {
    char device_name[32];
    uint8_t hardware_major;
    uint8_t hardware_minor;
    uint16_t llids_supported;
    int32_t system_port_mac_type; /* text: Get_pon_mac_name */
} OLT_device_versions;

/* A version of four numbers, most significant first. */
typedef struct OLT_version {
    uint16_t number[4];
} OLT_version;

enum OltRecoveryState { RECOVERY_NOT_STARTED = 0, RECOVERY_RUNNING = 1, RECOVERY_DONE = 2, RECOVERY_FAILED = 3 };
enum { OLT_RECOVERY_BUFFER_SIZE = 2048 };

/* Non-zero when the OLT has been added and not been reset since. */
int32_t Olt_exists(int16_t olt_id);

/* Brings an OLT into the present state and starts its firmware. */
int16_t NEP_add_olt(int16_t olt_id, const uint8_t mac[6], const OLT_firmware_source* firmware);
/* Resets the OLT and marks it absent; its ONUs are lost. */
int16_t NEP_reset_olt(int16_t olt_id);
/* Rebuilds the host's view of an OLT that kept running. *state is an enum OltRecoveryState, *elapsed the time taken in
 * milliseconds, *onus and *llids what was found; report receives a text of at most OLT_RECOVERY_BUFFER_SIZE bytes with
 * its terminator. */
int16_t NEP_olt_host_recovery(int16_t olt_id, int32_t* state, uint32_t* elapsed, uint16_t* onus, uint16_t* llids,
                              uint8_t report[OLT_RECOVERY_BUFFER_SIZE]);

int16_t NEP_update_olt_parameters(int16_t olt_id, const OLT_update_parameters* parameters);
int16_t NEP_get_olt_parameters(int16_t olt_id, OLT_parameters* parameters);

int16_t NEP_get_olt_versions(int16_t olt_id, OLT_device_versions* device, OLT_version* firmware, OLT_version* host);
/* Name of a system port's MAC type, "unknown" for a code outside the SDK's table. Static text. */
const char* Get_pon_mac_name(int32_t type);

/* Sends text to the OLT firmware's own command line; echo 1 asks the firmware to send its answer to the host's console
 * (see Set_logging_configuration). The answer arrives later, on an SDK thread. */
int16_t NEP_send_cli_command(int16_t olt_id, int32_t echo, const char* text);

#ifdef __cplusplus
}
#endif

#endif
