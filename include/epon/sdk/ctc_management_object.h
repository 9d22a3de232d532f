/* SPDX-License-Identifier: Apache-2.0 */
/* How the CTC stack names a part of an ONU: a shelf, a card in it, a port on the card. */
#ifndef EPON_SDK_CTC_MANAGEMENT_OBJECT_H
#define EPON_SDK_CTC_MANAGEMENT_OBJECT_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum CtcPortType {
    CTC_PORT_IRRELEVANT = 0,
    CTC_PORT_ETHERNET = 1,
    CTC_PORT_VOIP = 2,
    CTC_PORT_ADSL2_PLUS = 3,
    CTC_PORT_VDSL2 = 4,
    CTC_PORT_E1 = 5
};

enum { CTC_ALL_CARDS = 63, CTC_ALL_PORTS = 0xFFFF };

/* A number that does not matter is 0. */
typedef struct CTC_management_object_index {
    uint8_t frame_number; /* shelf */
    uint8_t slot_number;  /* card; CTC_ALL_CARDS for all */
    uint16_t port_number; /* CTC_ALL_PORTS for all */
    int32_t port_type;    /* enum CtcPortType */
} CTC_management_object_index;

#ifdef __cplusplus
}
#endif

#endif
