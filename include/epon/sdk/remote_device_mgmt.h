/* SPDX-License-Identifier: Apache-2.0 */
/* An ONU as a device. Errors and refusals as in remote_oam_api.h. */
#ifndef EPON_SDK_REMOTE_DEVICE_MGMT_H
#define EPON_SDK_REMOTE_DEVICE_MGMT_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum RemoteLed {
    REMOTE_LED_PON_RX = 0,
    REMOTE_LED_PON_LINK = 1,
    REMOTE_LED_PON_TX = 2,
    REMOTE_LED_PON_RX_ERR = 3,
    REMOTE_LED_UNI1 = 4,
    REMOTE_LED_UNI2 = 5,
    REMOTE_LED_UNI3 = 6,
    REMOTE_LED_UNI4 = 7,
    REMOTE_LED_COUNT = 8
};

enum RemoteLedActivity {
    REMOTE_LED_HARDWARE = 0,
    REMOTE_LED_FIRMWARE = 1,
    REMOTE_LED_OFF = 2,
    REMOTE_LED_ON = 3,
    REMOTE_LED_SLOW = 4,
    REMOTE_LED_FAST = 5
};

enum RemoteResetReason {
    REMOTE_RESET_NONE = 0, /* power came back */
    REMOTE_RESET_SW = 1,
    REMOTE_RESET_SW_ERROR = 2,
    REMOTE_RESET_PERIPH_LOW = 3,
    REMOTE_RESET_PERIPH_HIGH = 4
};

enum RemoteDiagnosticTest { REMOTE_TEST_UNI_LOOPBACK = 0 };
enum RemoteDiagnosticResult { REMOTE_TEST_NOT_RUN = 0, REMOTE_TEST_PASSED = 1, REMOTE_TEST_FAILED = 2 };
enum RemoteMldState { REMOTE_MLD_STOPPED = 0, REMOTE_MLD_RUNNING = 1 };
enum RemoteFileState { REMOTE_FILE_NONE = 0, REMOTE_FILE_RUNNING = 1, REMOTE_FILE_COMPLETE = 2 };

/* What an ONU does at present. */
typedef struct REMOTE_device_status {
    int32_t reboot_cause;          /* enum RemoteResetReason: why the ONU started last */
    int32_t diagnostic_test;       /* enum RemoteDiagnosticResult: of the last test since then */
    int32_t mld_application;       /* enum RemoteMldState */
    int32_t file_transfer;         /* enum RemoteFileState: of the last file since the ONU registered */
    uint32_t events;               /* bit n: the event n of enum RemoteAlarm is sent */
    int32_t led[REMOTE_LED_COUNT]; /* enum RemoteLedActivity */
} REMOTE_device_status;

typedef struct REMOTE_device_version {
    uint16_t hw_major;
    uint16_t hw_minor;
    uint16_t fw_major;
    uint16_t fw_minor;
    uint16_t fw_build;
    uint16_t fw_maintenance;
    int32_t oam_version; /* enum RemoteOamVersion */
} REMOTE_device_version;

/* aReadWriteMACAddress of the ONU's ports (IEEE 802.3 clause 30.3.1.1.29). */
typedef struct REMOTE_mac_address {
    uint8_t pon[6];
    uint8_t uni[6];
} REMOTE_mac_address;

enum RemoteOsType { REMOTE_OS_NONE = 0, REMOTE_OS_ECOS = 1, REMOTE_OS_LINUX = 2, REMOTE_OS_THREADX = 3 };

typedef struct REMOTE_os {
    int32_t os_type; /* enum RemoteOsType */
    uint32_t major;
    uint32_t minor;
    uint32_t build;
} REMOTE_os;

enum { REMOTE_REBOOT_COUNTER_MAX = 15 };

int16_t REMOTE_NEPONU_get_device_status(int16_t olt_id, int16_t onu_id, REMOTE_device_status* status);
int16_t REMOTE_NEPONU_get_device_version(int16_t olt_id, int16_t onu_id, REMOTE_device_version* version);
/* The MPCP clock of the ONU (IEEE 802.3 clause 64.2.1): time quanta of 16 ns, 32 bits. */
int16_t REMOTE_NEPONU_get_pon_clock(int16_t olt_id, int16_t onu_id, uint32_t* clock);
int16_t REMOTE_NEPONU_get_mac_address(int16_t olt_id, int16_t onu_id, REMOTE_mac_address* mac);
/* Seconds since the ONU started. */
int16_t REMOTE_NEPONU_get_up_time(int16_t olt_id, int16_t onu_id, uint64_t* time);
int16_t REMOTE_NEPONU_get_os(int16_t olt_id, int16_t onu_id, REMOTE_os* os);

/* led is enum RemoteLed, activity enum RemoteLedActivity. */
int16_t REMOTE_NEPONU_set_led_configuration(int16_t olt_id, int16_t onu_id, int32_t led, int32_t activity);
/* Has the ONU start anew; it leaves and registers again. reason (enum RemoteResetReason) becomes its reboot cause. */
int16_t REMOTE_NEPONU_reset_device(int16_t olt_id, int16_t onu_id, int32_t reason);
/* Runs a test (enum RemoteDiagnosticTest) in the ONU. -5: it failed. */
int16_t REMOTE_NEPONU_diagnostic_test(int16_t olt_id, int16_t onu_id, int32_t test);
/* Whether the ONU passes frames of more than 1518 octets, down and up, 1 or 0. Without it they are counted as too long.
 */
int16_t REMOTE_NEPONU_get_extend_mtu(int16_t olt_id, int16_t onu_id, uint8_t* downstream_extend,
                                     uint8_t* upstream_extend);
int16_t REMOTE_NEPONU_set_extend_mtu_size(int16_t olt_id, int16_t onu_id, uint8_t downstream_extend,
                                          uint8_t upstream_extend);
/* Starts of the ONU, 0..REMOTE_REBOOT_COUNTER_MAX; after the last value it begins at 0 again. */
int16_t REMOTE_NEPONU_get_reboot_counter(int16_t olt_id, int16_t onu_id, uint16_t* counter);
int16_t REMOTE_NEPONU_set_reboot_counter(int16_t olt_id, int16_t onu_id, uint16_t counter);

#ifdef __cplusplus
}
#endif

#endif
