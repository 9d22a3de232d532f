/* SPDX-License-Identifier: Apache-2.0 */
/*
 * Events of the SDK. Each kind has a record and a handler type; the SDK calls the registered handler on a thread of
 * its own. The record and what it points to belong to the SDK and are valid during the call.
 */
#ifndef EPON_SDK_EVENTS_H
#define EPON_SDK_EVENTS_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum { EVENT_KIND_LIMIT = 55 }; /* slots of a table indexed by event kind */

/* Kinds that are not listed are reserved. */
enum EventKind {
    EVENT_ETHERNET_FRAME_RECEIVED = 1,
    EVENT_ONU_REGISTERED = 2,
    EVENT_ONU_DEREGISTERED = 3,
    EVENT_ONU_REGISTRATION_REFUSED = 4,
    EVENT_ALARM = 5,
    EVENT_LINK_TEST_COMPLETED = 6,
    EVENT_LOOPBACK_CHANGED = 7,
    EVENT_SELF_TEST_COMPLETED = 8,
    EVENT_ONU_AUTHORIZATION_CHANGED = 9,
    EVENT_OAM_FRAME_RECEIVED = 12,
    EVENT_OAM_LINK_CHANGED = 13,
    EVENT_OAM_ERRORS_REPORTED = 14,
    EVENT_ENCRYPTION_CHANGED = 15,
    EVENT_ENCRYPTION_KEY_UPDATED = 16,
    EVENT_OLT_STATE_CHANGED = 19,
    EVENT_DBA_STATE_CHANGED = 22,
    EVENT_DBA_SLA_REFUSED = 25,
    EVENT_CNI_LINK_CHANGED = 26,
    EVENT_PON_SIGNAL_CHANGED = 28,
    EVENT_OPTICAL_MODULE_CHANGED = 29,
    EVENT_DUPLICATE_MAC_ADDRESS = 30,
    EVENT_MAC_MIGRATED = 31,
    EVENT_ADDRESS_TABLE_FULL = 34,
    EVENT_MULTICAST_GROUP_CHANGED = 35,
    EVENT_PROTECTION_SWITCHED = 36,
    EVENT_XAUI_SWITCHED_OVER = 37,
    EVENT_REFERENCE_CLOCK_CHANGED = 38,
    EVENT_TIME_OF_DAY_CHANGED = 39,
    EVENT_FIRMWARE_DOWNLOAD_PROGRESS = 40,
    EVENT_ROGUE_ONU_DETECTED = 43,
    EVENT_MKA_STATE_CHANGED = 44,
    EVENT_MKA_KEY_INSTALLED = 45,
    EVENT_PACKET_NUMBER_THRESHOLD = 46,
    EVENT_GPIO_CHANGED = 47,
    EVENT_UART_DATA_RECEIVED = 48,
    EVENT_OTDR_MEASURED = 49,
    EVENT_FLOOD_DETECTED = 50,
    EVENT_RECEIVED_POWER_MEASURED = 51
};

/* A frame for the host arrived (IEEE 802.3 clause 3). */
typedef struct EthernetFrameReceivedEvent {
    int16_t llid;         /* -1 when it did not come from a link */
    uint16_t port;        /* 0 PON, 1 system port */
    uint32_t length;      /* octets, 14..2000 */
    const uint8_t* frame; /* length octets, valid during the call */
} EthernetFrameReceivedEvent;
typedef void EthernetFrameReceivedEventHandler(int16_t olt_id, const EthernetFrameReceivedEvent* event);

/* An ONU completed MPCP registration (IEEE 802.3 clauses 64, 77). */
typedef struct OnuRegisteredEvent {
    int16_t onu_id;
    uint8_t mac[6];
    int32_t rate; /* 0 1G/1G, 1 10G/1G, 2 10G/10G (downstream/upstream) */
    uint32_t rtt; /* round-trip time, time quanta of 16 ns */
} OnuRegisteredEvent;
typedef void OnuRegisteredEventHandler(int16_t olt_id, const OnuRegisteredEvent* event);

/* An ONU left. */
typedef struct OnuDeregisteredEvent {
    int16_t onu_id;
    uint8_t mac[6];
    int32_t reason; /* 0 by command, 1 MPCP timeout, 2 OAM timeout, 3 by the ONU, 4 refused, 5 OLT reset */
} OnuDeregisteredEvent;
typedef void OnuDeregisteredEventHandler(int16_t olt_id, const OnuDeregisteredEvent* event);

/* An ONU asked to register and was not admitted. */
typedef struct OnuRegistrationRefusedEvent {
    uint8_t mac[6];
    int32_t reason; /* 0 not authorized, 1 black-listed, 2 no free link, 3 duplicate MAC address */
} OnuRegistrationRefusedEvent;
typedef void OnuRegistrationRefusedEventHandler(int16_t olt_id, const OnuRegistrationRefusedEvent* event);

/* An alarm was raised or cleared. */
typedef struct AlarmEvent {
    int16_t onu_id; /* -1 when it concerns the OLT */
    int32_t alarm;  /* index in CLI_alarm_s */
    uint8_t raised; /* 1 raised, 0 cleared */
    uint32_t value; /* what was measured, in the unit of the alarm */
} AlarmEvent;
typedef void AlarmEventHandler(int16_t olt_id, const AlarmEvent* event);

/* A link test ended. */
typedef struct LinkTestCompletedEvent {
    int16_t llid;
    uint32_t frames_sent;
    uint32_t frames_received;
    uint32_t frame_errors;
    uint32_t min_delay;     /* time quanta of 16 ns */
    uint32_t max_delay;     /* time quanta of 16 ns */
    uint32_t average_delay; /* time quanta of 16 ns */
} LinkTestCompletedEvent;
typedef void LinkTestCompletedEventHandler(int16_t olt_id, const LinkTestCompletedEvent* event);

/* A loopback was closed or opened (IEEE 802.3 clause 57.2.11). */
typedef struct LoopbackChangedEvent {
    int16_t onu_id; /* -1 for a loopback of the OLT */
    int32_t state;  /* 0 open, 1 closed */
} LoopbackChangedEvent;
typedef void LoopbackChangedEventHandler(int16_t olt_id, const LoopbackChangedEvent* event);

/* The OLT finished its self-test. */
typedef struct SelfTestCompletedEvent {
    uint32_t tests_run;
    uint32_t tests_failed;
} SelfTestCompletedEvent;
typedef void SelfTestCompletedEventHandler(int16_t olt_id, const SelfTestCompletedEvent* event);

/* A link was authorized, or lost its authorization. */
typedef struct OnuAuthorizationChangedEvent {
    int16_t llid;
    uint8_t mac[6];
    uint8_t authorized; /* 1 or 0 */
} OnuAuthorizationChangedEvent;
typedef void OnuAuthorizationChangedEventHandler(int16_t olt_id, const OnuAuthorizationChangedEvent* event);

/* An OAM frame for the host arrived (IEEE 802.3 clause 57). */
typedef struct OamFrameReceivedEvent {
    int16_t llid;
    uint32_t length;      /* octets */
    const uint8_t* frame; /* length octets, valid during the call */
} OamFrameReceivedEvent;
typedef void OamFrameReceivedEventHandler(int16_t olt_id, const OamFrameReceivedEvent* event);

/* OAM discovery reached or lost its goal (IEEE 802.3 clause 57.3.2). */
typedef struct OamLinkChangedEvent {
    int16_t llid;
    int32_t state; /* 0 down, 1 up */
} OamLinkChangedEvent;
typedef void OamLinkChangedEventHandler(int16_t olt_id, const OamLinkChangedEvent* event);

/* An ONU sent an OAM link event (IEEE 802.3 clause 57.5.3). */
typedef struct OamErrorsReportedEvent {
    int16_t llid;
    int32_t type;    /* 1 errored symbol period, 2 errored frame, 3 errored frame period, 4 errored frame seconds */
    uint32_t window; /* in the unit of the type */
    uint32_t threshold;
    uint32_t errors;
} OamErrorsReportedEvent;
typedef void OamErrorsReportedEventHandler(int16_t olt_id, const OamErrorsReportedEvent* event);

/* Encryption of a link started or stopped. */
typedef struct EncryptionChangedEvent {
    int16_t llid;
    int32_t direction; /* 0 off, 1 downlink, 2 uplink and downlink */
} EncryptionChangedEvent;
typedef void EncryptionChangedEventHandler(int16_t olt_id, const EncryptionChangedEvent* event);

/* A link changed to another encryption key. */
typedef struct EncryptionKeyUpdatedEvent {
    int16_t llid;
    uint8_t key_index;
} EncryptionKeyUpdatedEvent;
typedef void EncryptionKeyUpdatedEventHandler(int16_t olt_id, const EncryptionKeyUpdatedEvent* event);

/* An OLT came or went. */
typedef struct OltStateChangedEvent {
    int32_t state; /* 0 absent, 1 starting, 2 operational, 3 failed */
} OltStateChangedEvent;
typedef void OltStateChangedEventHandler(int16_t olt_id, const OltStateChangedEvent* event);

/* The bandwidth allocation of an OLT was started or stopped. */
typedef struct DbaStateChangedEvent {
    int32_t dba;     /* index in CLI_dba_s */
    uint8_t running; /* 1 or 0 */
} DbaStateChangedEvent;
typedef void DbaStateChangedEventHandler(int16_t olt_id, const DbaStateChangedEvent* event);

/* The bandwidth allocation refused a service-level agreement. */
typedef struct DbaSlaRefusedEvent {
    int16_t llid;
    int32_t result; /* code of the DBA result table */
} DbaSlaRefusedEvent;
typedef void DbaSlaRefusedEventHandler(int16_t olt_id, const DbaSlaRefusedEvent* event);

/* A core network interface changed state. */
typedef struct CniLinkChangedEvent {
    uint16_t port;
    int32_t state; /* 0 down, 1 up */
} CniLinkChangedEvent;
typedef void CniLinkChangedEventHandler(int16_t olt_id, const CniLinkChangedEvent* event);

/* The optical signal of the PON was lost or came back. */
typedef struct PonSignalChangedEvent {
    int32_t state; /* 0 lost, 1 present */
} PonSignalChangedEvent;
typedef void PonSignalChangedEventHandler(int16_t olt_id, const PonSignalChangedEvent* event);

/* A PON optical module was inserted or removed. */
typedef struct OpticalModuleChangedEvent {
    int32_t module;  /* 0 primary, 1 secondary */
    uint8_t present; /* 1 or 0 */
} OpticalModuleChangedEvent;
typedef void OpticalModuleChangedEventHandler(int16_t olt_id, const OpticalModuleChangedEvent* event);

/* A second ONU used a MAC address that is registered already. */
typedef struct DuplicateMacAddressEvent {
    int16_t llid; /* the link that holds the address */
    uint8_t mac[6];
} DuplicateMacAddressEvent;
typedef void DuplicateMacAddressEventHandler(int16_t olt_id, const DuplicateMacAddressEvent* event);

/* A learned address moved to another link. */
typedef struct MacMigratedEvent {
    uint8_t mac[6];
    int16_t from_llid;
    int16_t to_llid;
    uint16_t vlan; /* 0..4095 */
} MacMigratedEvent;
typedef void MacMigratedEventHandler(int16_t olt_id, const MacMigratedEvent* event);

/* The address table, or a link's share of it, is full. */
typedef struct AddressTableFullEvent {
    int16_t llid; /* -1 for the whole table */
    uint32_t entries;
} AddressTableFullEvent;
typedef void AddressTableFullEventHandler(int16_t olt_id, const AddressTableFullEvent* event);

/* A link joined or left a multicast group. */
typedef struct MulticastGroupChangedEvent {
    int16_t llid;
    uint8_t group[6]; /* group MAC address */
    uint16_t vlan;    /* 0..4095 */
    uint8_t joined;   /* 1 or 0 */
} MulticastGroupChangedEvent;
typedef void MulticastGroupChangedEventHandler(int16_t olt_id, const MulticastGroupChangedEvent* event);

/* PON protection switched over. */
typedef struct ProtectionSwitchedEvent {
    int16_t active_olt;
    int32_t cause; /* 0 by command, 1 loss of signal, 2 OLT failure */
} ProtectionSwitchedEvent;
typedef void ProtectionSwitchedEventHandler(int16_t olt_id, const ProtectionSwitchedEvent* event);

/* The redundant XAUI uplink switched over. */
typedef struct XauiSwitchedOverEvent {
    int32_t channel; /* 0 primary, 1 secondary */
    int32_t cause;   /* 0 by command, 1 loss of link, 2 GPIO */
} XauiSwitchedOverEvent;
typedef void XauiSwitchedOverEventHandler(int16_t olt_id, const XauiSwitchedOverEvent* event);

/* The synchronous Ethernet reference was lost or found. */
typedef struct ReferenceClockChangedEvent {
    int32_t source; /* number of the clock input */
    uint8_t locked; /* 1 or 0 */
} ReferenceClockChangedEvent;
typedef void ReferenceClockChangedEventHandler(int16_t olt_id, const ReferenceClockChangedEvent* event);

/* The time of day was set (IEEE 802.1AS clause 13). */
typedef struct TimeOfDayChangedEvent {
    uint32_t seconds; /* since 1970-01-01 TAI */
    uint32_t nanoseconds;
} TimeOfDayChangedEvent;
typedef void TimeOfDayChangedEventHandler(int16_t olt_id, const TimeOfDayChangedEvent* event);

/* A firmware download made progress. */
typedef struct FirmwareDownloadProgressEvent {
    int16_t onu_id; /* -1 when the OLT itself loads */
    uint32_t bytes_done;
    uint32_t bytes_total;
} FirmwareDownloadProgressEvent;
typedef void FirmwareDownloadProgressEventHandler(int16_t olt_id, const FirmwareDownloadProgressEvent* event);

/* An ONU transmits outside its grants. */
typedef struct RogueOnuDetectedEvent {
    int16_t onu_id;
    uint8_t mac[6];
    uint32_t violations;
} RogueOnuDetectedEvent;
typedef void RogueOnuDetectedEventHandler(int16_t olt_id, const RogueOnuDetectedEvent* event);

/* Key agreement of a link changed state (IEEE 802.1X clause 9). */
typedef struct MkaStateChangedEvent {
    int16_t llid;
    int32_t state; /* 0 off, 1 negotiating, 2 secured, 3 failed */
} MkaStateChangedEvent;
typedef void MkaStateChangedEventHandler(int16_t olt_id, const MkaStateChangedEvent* event);

/* Key agreement installed a secure association key. */
typedef struct MkaKeyInstalledEvent {
    int16_t llid;
    uint8_t association; /* association number 0..3 */
    uint32_t key_number;
} MkaKeyInstalledEvent;
typedef void MkaKeyInstalledEventHandler(int16_t olt_id, const MkaKeyInstalledEvent* event);

/* A link's packet number passed the threshold; its key is due. */
typedef struct PacketNumberThresholdEvent {
    int16_t llid;
    uint64_t packet_number;
} PacketNumberThresholdEvent;
typedef void PacketNumberThresholdEventHandler(int16_t olt_id, const PacketNumberThresholdEvent* event);

/* A GPIO input changed. */
typedef struct GpioChangedEvent {
    uint16_t line; /* 0..66 */
    int32_t level; /* 0 off, 1 on */
} GpioChangedEvent;
typedef void GpioChangedEventHandler(int16_t olt_id, const GpioChangedEvent* event);

/* The OLT's UART received data. */
typedef struct UartDataReceivedEvent {
    uint32_t length;     /* octets */
    const uint8_t* data; /* length octets, valid during the call */
} UartDataReceivedEvent;
typedef void UartDataReceivedEventHandler(int16_t olt_id, const UartDataReceivedEvent* event);

/* A reflectometer measurement ended. */
typedef struct OtdrMeasuredEvent {
    uint32_t distance; /* to the strongest reflection, metres */
    uint32_t loss;     /* hundredths of a dB */
} OtdrMeasuredEvent;
typedef void OtdrMeasuredEventHandler(int16_t olt_id, const OtdrMeasuredEvent* event);

/* A link floods the host with protocol frames. */
typedef struct FloodDetectedEvent {
    int16_t llid;
    int32_t protocol; /* 0 ARP, 1 DHCP, 2 IGMP, 3 MLD, 4 OAM, 5 other */
    uint32_t rate;    /* frames per second */
} FloodDetectedEvent;
typedef void FloodDetectedEventHandler(int16_t olt_id, const FloodDetectedEvent* event);

/* The received optical power of a burst was measured. */
typedef struct ReceivedPowerMeasuredEvent {
    int16_t llid;
    int32_t power; /* hundredths of a dBm */
} ReceivedPowerMeasuredEvent;
typedef void ReceivedPowerMeasuredEventHandler(int16_t olt_id, const ReceivedPowerMeasuredEvent* event);

/* Any event handler; the SDK calls it as the handler type of its kind. */
typedef void (*EventHandler)(void);

/* Registers the handler of one event kind (enum EventKind); *id names the registration and is never 0. A second
 * handler for the same kind is called as well. */
int16_t NEP_assign_handler_function(int32_t event_kind, EventHandler handler, uint16_t* id);
/* Removes a registration. The handler is not called any more once this returns; an id that names no registration is
 * ignored, with success. */
int16_t NEP_delete_handler_function(uint16_t id);

#ifdef __cplusplus
}
#endif

#endif
