/* SPDX-License-Identifier: Apache-2.0 */
/*
 * Remote management: loops on the user ports of an ONU. An ONU that looks for loops sends RSTP BPDUs (IEEE 802.1D
 * clause 17) to its users; one that comes back shows a loop, and the port is closed until the loop is resolved.
 */
#ifndef EPON_SDK_REMOTE_RSTP_LDP_H
#define EPON_SDK_REMOTE_RSTP_LDP_H

#include <stdint.h>

#include <epon/sdk/events.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Events of remote management, each with one handler at most. */
enum RemoteApplicationEvent { REMOTE_RSTP_LOOP_DETECTED = 0 };

/* A loop was detected on a port, or repaired. loop: not 0 detected, 0 repaired; link: not 0 up, 0 down. */
typedef void RemoteRstpLoopDetectedHandler(int16_t olt_id, int16_t onu_id, int32_t port, int32_t loop, int32_t link);

/* Registers the handler of an event (enum RemoteApplicationEvent), in place of the one before. It is called on a thread
 * of the SDK, as the handler type of the event. -4 for another event and without a handler. */
int16_t REMOTE_NEPONU_assign_application_handler_function(int32_t event, EventHandler handler);

/* enable: 1 the ONU looks for loops, 0 it does not. */
int16_t REMOTE_NEPONU_rstp_ldp_set_mode(int16_t olt_id, int16_t onu_id, uint8_t enable);
int16_t REMOTE_NEPONU_rstp_ldp_get_mode(int16_t olt_id, int16_t onu_id, uint8_t* enable);

/* Breaks the loop on a port and opens the port again; the handler is told that the loop is repaired. -13008 while the
 * ONU does not look for loops, -13012 when it has found none on this port. */
int16_t REMOTE_NEPONU_rstp_ldp_resolve_loop(int16_t olt_id, int16_t onu_id, uint8_t port_number);

#ifdef __cplusplus
}
#endif

#endif
