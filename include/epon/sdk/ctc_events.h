/* SPDX-License-Identifier: Apache-2.0 */
/*
 * Events of the CTC stack, and its end. The stack calls the registered handler on a thread of its own; what it passes
 * belongs to the stack and is valid during the call.
 */
#ifndef EPON_SDK_CTC_EVENTS_H
#define EPON_SDK_CTC_EVENTS_H

#include <stdint.h>

#include <epon/sdk/ctc_management_object.h>
#include <epon/sdk/events.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Types that are not listed are reserved. */
enum CtcEventType {
    CTC_EVENT_UPDATE_ENCRYPTION = 0,
    CTC_EVENT_EXTENDED_OAM_DISCOVERY = 1,
    CTC_EVENT_UPDATE_ONU_ERROR = 2,
    CTC_EVENT_UPDATE_ONU_REQUEST = 3,
    CTC_EVENT_NOTIFICATION = 6
};

/* The encryption of a link came to a result: of its start, and of each later change of its key. */
enum CtcEncryptionState { CTC_ENCRYPTION_COMPLETE = 1, CTC_ENCRYPTION_FAILED = 2 };
typedef void CtcUpdateEncryptionHandler(int16_t olt_id, int16_t llid, int32_t state);

/* A version of extended OAM that a device speaks: the organization that defined it, and the number it gave it. */
typedef struct CTC_oui_version {
    uint8_t oui[3]; /* most significant byte first */
    uint8_t version;
} CTC_oui_version;

/* The extended OAM discovery of an ONU came to its end. records are what the ONU told that it speaks; null, and none,
 * when it told nothing. */
enum CtcDiscoveryState { CTC_DISCOVERY_FAILED = 2, CTC_DISCOVERY_COMPLETE = 3 };
typedef void CtcExtendedOamDiscoveryHandler(int16_t olt_id, int16_t llid, int32_t state, uint8_t number_of_records,
                                            const CTC_oui_version* records);

/* An update that an ONU had asked for failed. error_message is text, without a line end. */
typedef void CtcUpdateOnuErrorHandler(int16_t olt_id, int16_t onu_id, int32_t error_code, const char* error_message);

enum { CTC_FILE_NAME_SIZE = 256 };
typedef struct CTC_update_file {
    char name[CTC_FILE_NAME_SIZE];
} CTC_update_file;

/* An ONU asks for an update. information is the ONU's own text: the name of the file, a blank, and what else it tells.
 * The handler sets *handled to 1, file to the file that is to be sent and *result to 0, and returns file's name; or it
 * leaves *handled 0, and the request goes unanswered. */
typedef char* CtcUpdateOnuRequestHandler(int16_t olt_id, int16_t onu_id, const char* information, uint8_t* handled,
                                         CTC_update_file* file, int16_t* result);

/* An ONU notified of an alarm on one of its parts. */
enum CtcLeaf { CTC_LEAF_PORT = 1, CTC_LEAF_ONU = 0xFFFF }; /* what kind of part; the object says which */
enum CtcAlarm {
    CTC_ALARM_EQUIPMENT = 0x0001,
    CTC_ALARM_POWER = 0x0002,
    CTC_ALARM_RECEIVED_POWER_LOW = 0x0102,
    CTC_ALARM_ETHERNET_PORT_LOSS_OF_SIGNAL = 0x0302
};
typedef void CtcEventNotificationHandler(int16_t olt_id, int16_t onu_id, uint16_t leaf,
                                         const CTC_management_object_index* object, uint8_t raised, uint32_t value,
                                         uint16_t alarm_id);

/* Registers the handler of one event type (enum CtcEventType); *id names the registration and is never 0. -4 for a type
 * that is not listed or no handler, -17007 when the type has a handler. Starts a stack that was ended. */
int16_t CTC_STACK_assign_handler_function(int32_t event_type, EventHandler handler, uint16_t* id);
/* Removes a registration. The handler is not called any more once this returns. -4 for an id that names none. */
int16_t CTC_STACK_delete_handler_function(uint16_t id);

/* Ends the stack: encryption that it drives stops, its handlers and settings are forgotten. Every other operation of
 * the stack then returns -1, until a handler is registered. -1 when it had ended already. */
int16_t CTC_STACK_terminate(void);

#ifdef __cplusplus
}
#endif

#endif
