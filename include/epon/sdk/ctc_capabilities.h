/* SPDX-License-Identifier: Apache-2.0 */
/* What an ONU is able to do, as it tells by extended OAM in three steps. The broadcast ONU tells nothing, nor does one
 * that is not registered or does not speak extended OAM: -17002. One that does not answer: -2. */
#ifndef EPON_SDK_CTC_CAPABILITIES_H
#define EPON_SDK_CTC_CAPABILITIES_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Services and ports. Flags are 1 or 0; a bitmap has a bit for each port, the first port in the lowest bit. */
typedef struct CTC_onu_capabilities {
    uint8_t ge_service; /* Gigabit Ethernet */
    uint8_t fe_service; /* Fast Ethernet */
    uint8_t voip_service;
    uint8_t tdm_ces_service; /* circuit emulation */
    uint8_t ge_ports;
    uint8_t fe_ports;
    uint8_t pots_ports;
    uint8_t e1_ports;
    uint64_t ge_ports_bitmap;
    uint64_t fe_ports_bitmap;
    uint8_t uplink_queues;
    uint8_t uplink_queues_per_port; /* at most */
    uint8_t downlink_queues;
    uint8_t downlink_queues_per_port; /* at most */
    uint8_t battery_backup;
    uint8_t fec; /* forward error correction */
    uint8_t reserved[2];
} CTC_onu_capabilities;

enum CtcOnuType {
    CTC_ONU_SFU = 0,             /* single family unit */
    CTC_ONU_HGU = 1,             /* home gateway unit */
    CTC_ONU_SBU = 2,             /* single business unit */
    CTC_ONU_MDU_BOX = 3,         /* multi dwelling unit */
    CTC_ONU_MDU_SMALL_CARD = 4,  /* the same with small cards */
    CTC_ONU_MDU_MEDIUM_CARD = 5, /* the same with cards of medium size */
    CTC_ONU_MTU = 6              /* multi tenant unit */
};

enum CtcProtectionType {
    CTC_PROTECTION_NONE = 0,
    CTC_PROTECTION_TYPE_C = 1, /* two PON ports of one OLT */
    CTC_PROTECTION_TYPE_D = 2  /* PON ports of two OLTs */
};

enum CtcInterfaceType {
    CTC_INTERFACE_GE = 0,
    CTC_INTERFACE_FE = 1,
    CTC_INTERFACE_VOIP = 2,
    CTC_INTERFACE_TDM = 3,
    CTC_INTERFACE_ADSL2_PLUS = 4,
    CTC_INTERFACE_VDSL2 = 5,
    CTC_INTERFACE_WLAN = 6,
    CTC_INTERFACE_USB = 7,
    CTC_INTERFACE_CATV = 8
};

enum { CTC_INTERFACE_TYPES_MAX = 9 };

typedef struct CTC_interface_capability {
    uint32_t type; /* enum CtcInterfaceType */
    uint16_t ports;
    uint16_t reserved;
} CTC_interface_capability;

typedef struct CTC_onu_capabilities_2 {
    uint16_t onu_type;       /* enum CtcOnuType */
    uint8_t multi_llid;      /* links that it can have, 2..8; 0: one alone */
    uint8_t protection_type; /* enum CtcProtectionType */
    uint8_t pon_interfaces;
    uint8_t slots;           /* for cards; 0: it is one box */
    uint8_t interface_types; /* entries of interfaces */
    uint8_t reserved;
    CTC_interface_capability interfaces[CTC_INTERFACE_TYPES_MAX]; /* the first interface_types of them */
    uint8_t battery_backup;                                       /* 1 or 0 */
    uint8_t reserved_2[3];
} CTC_onu_capabilities_2;

enum CtcPowerSupplyControl {
    CTC_POWER_SUPPLY_CONTROL_NONE = 0,
    CTC_POWER_SUPPLY_CONTROL_TX = 1,   /* of its transmitters */
    CTC_POWER_SUPPLY_CONTROL_TX_RX = 2 /* of its transmitters and receivers */
};

typedef struct CTC_onu_capabilities_3 {
    uint8_t ipv6;                 /* 1 or 0 */
    uint8_t power_supply_control; /* enum CtcPowerSupplyControl */
    uint8_t service_sla;          /* services that can have an agreement on their bandwidth; 0: none */
    uint8_t reserved;
} CTC_onu_capabilities_3;

int16_t CTC_STACK_get_onu_capabilities(int16_t olt_id, int16_t onu_id, CTC_onu_capabilities* capabilities);
int16_t CTC_STACK_get_onu_capabilities_2(int16_t olt_id, int16_t onu_id, CTC_onu_capabilities_2* capabilities);
int16_t CTC_STACK_get_onu_capabilities_3(int16_t olt_id, int16_t onu_id, CTC_onu_capabilities_3* capabilities);

#ifdef __cplusplus
}
#endif

#endif
