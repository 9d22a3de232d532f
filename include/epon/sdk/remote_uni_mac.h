/* SPDX-License-Identifier: Apache-2.0 */
/* Remote management: the first user port of an ONU (IEEE 802.3 clauses 22, 28, 35 and 40; managed objects of clause
 * 30.5 and 30.6). Errors and refusals as in remote_oam_api.h. */
#ifndef EPON_SDK_REMOTE_UNI_MAC_H
#define EPON_SDK_REMOTE_UNI_MAC_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* cpu: 1 frames for the ONU itself are taken from the port, 0 they are not; datapath: 1 users' frames pass, 0 they do
 * not. */
int16_t REMOTE_NEPONU_uni_set_port(int16_t olt_id, int16_t onu_id, uint8_t cpu, uint8_t datapath);
int16_t REMOTE_NEPONU_uni_get_port(int16_t olt_id, int16_t onu_id, uint8_t* cpu, uint8_t* datapath);

enum RemoteUniMacType { REMOTE_UNI_MII = 0, REMOTE_UNI_GMII = 1, REMOTE_UNI_TBI = 2 };
enum RemoteUniMiiRate { REMOTE_UNI_10M = 0, REMOTE_UNI_100M = 1 };
enum RemoteUniDuplex { REMOTE_UNI_HALF_DUPLEX = 0, REMOTE_UNI_FULL_DUPLEX = 1 };
enum RemoteUniPortType { REMOTE_UNI_SINGLE_PORT = 0, REMOTE_UNI_MULTI_PORT = 1 };

/* What the port is to do. Flags: 1 yes, 0 no. */
typedef struct REMOTE_uni_port_configuration {
    uint8_t mac_type;         /* enum RemoteUniMacType */
    uint8_t mii_rate;         /* enum RemoteUniMiiRate: of an MII port that does not negotiate */
    uint8_t duplex;           /* enum RemoteUniDuplex: of a port that does not negotiate */
    uint8_t gmii_master_mode; /* 1 the MAC gives the clock of a GMII, 0 the PHY does */
    uint8_t auto_negotiate;
    uint8_t mode;      /* clock of a 1000 Mbit/s link: 1 this end's (master), 0 the other end's (slave) */
    uint8_t advertise; /* the partner is told the capabilities that follow; otherwise all that the port has */
    uint8_t adv_10_half;
    uint8_t adv_10_full;
    uint8_t adv_100_half;
    uint8_t adv_100_full;
    uint8_t adv_100_t4;
    uint8_t adv_pause;
    uint8_t adv_asym_pause;
    uint8_t adv_1000_half;
    uint8_t adv_1000_full;
    uint8_t adv_port_type; /* enum RemoteUniPortType */
    uint8_t reserved;      /* 0 */
    uint16_t phy_address;  /* on the management interface, 0..255 */
} REMOTE_uni_port_configuration;

/* -13008 when the port could never have a link: it advertises nothing, an MII port advertises 1000 Mbit/s alone, or a
 * TBI port is to run in half duplex. */
int16_t REMOTE_NEPONU_uni_set_port_configuration(int16_t olt_id, int16_t onu_id,
                                                 const REMOTE_uni_port_configuration* configuration);
int16_t REMOTE_NEPONU_uni_get_port_configuration(int16_t olt_id, int16_t onu_id,
                                                 REMOTE_uni_port_configuration* configuration);

/* What the port does. While the link is down, as it is configured. */
typedef struct REMOTE_uni_port_status {
    uint8_t link;           /* 1 up, 0 down */
    uint8_t mac_type;       /* enum RemoteUniMacType */
    uint8_t mii_rate;       /* enum RemoteUniMiiRate */
    uint8_t duplex;         /* enum RemoteUniDuplex */
    uint8_t auto_negotiate; /* 1: this is what was negotiated */
    uint8_t mode;           /* 1 master, 0 slave */
    uint8_t pause_tx;       /* 1: PAUSE frames are sent (IEEE 802.3 annex 28B.3) */
    uint8_t pause_rx;       /* 1: PAUSE frames are obeyed */
    uint8_t port_type;      /* enum RemoteUniPortType: of the partner */
} REMOTE_uni_port_status;

int16_t REMOTE_NEPONU_uni_get_port_status(int16_t olt_id, int16_t onu_id, REMOTE_uni_port_status* status);

/* Items of the extended configuration with their values. */
enum RemoteUniExtended {
    REMOTE_UNI_LOOPBACK = 0,   /* 0 none, 1 in the MAC, 2 in the PHY, 3 of the partner's frames, 4 by a plug */
    REMOTE_UNI_POWER_DOWN = 1, /* 1 the PHY is off, 0 it is not */
    REMOTE_UNI_MII_MODE = 2,   /* 0 MII, 1 RMII, 2 GMII, 3 RGMII, 4 SGMII */
    REMOTE_UNI_POWER_SAVE = 3  /* 1 the PHY saves power while nothing is plugged in, 0 it does not */
};
/* -13008 for a loopback of a PHY that is off. */
int16_t REMOTE_NEPONU_uni_set_extended_configuration(int16_t olt_id, int16_t onu_id, int32_t item, uint32_t value);
int16_t REMOTE_NEPONU_uni_get_extended_configuration(int16_t olt_id, int16_t onu_id, int32_t item, uint32_t* value);

#ifdef __cplusplus
}
#endif

#endif
