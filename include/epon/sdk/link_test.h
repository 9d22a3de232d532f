/* SPDX-License-Identifier: Apache-2.0 */
/* Test of a link with frames that its ONU sends back. */
#ifndef EPON_SDK_LINK_TEST_H
#define EPON_SDK_LINK_TEST_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum { LINK_TEST_STOP = 0, LINK_TEST_CONTINUOUS = 32767 };

/*
 * Sends number_of_frames test frames (1..32766) of size octets (56..1514) over a registered link.
 * LINK_TEST_CONTINUOUS sends frames of 60..1514 octets until LINK_TEST_STOP, which takes no size. A test that ends
 * raises EVENT_LINK_TEST_COMPLETED, with delays when delay_measurement is 1 in the call that determines its end. With
 * vlan 1 the frames carry a tag with vlan_priority (0..7) and vlan_tag (0..4094); with 0 both are 0.
 * -1 for a test on a link that is being tested, and for a stop when none runs.
 */
int16_t NEP_link_test(int16_t olt_id, int16_t llid, int32_t number_of_frames, int32_t size, int32_t delay_measurement,
                      int32_t vlan, int32_t vlan_priority, int32_t vlan_tag);

#ifdef __cplusplus
}
#endif

#endif
