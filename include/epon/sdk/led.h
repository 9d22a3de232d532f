/* SPDX-License-Identifier: Apache-2.0 */
/* LEDs of an OLT. */
#ifndef EPON_SDK_LED_H
#define EPON_SDK_LED_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* LEDs are numbered in blocks of four. A block of an interface is link-up, rx-err, rx-pkt and tx-pkt. */
enum LedType {
    LED_CNI_DP0 = 0,
    LED_CNI_DP1 = 4,
    LED_CNI_SNIF = 8,
    LED_PON0 = 12,
    LED_PON1 = 16,
    LED_HMII = 20,
    LED_CNI_DP0_ERRORS = 24, /* rx-crc-err-good-len, rx-crc-err-usize, rx-frm-jabber-err, rx-frm-align-err */
    LED_CNI_DP0_FRAMES = 28, /* undersize-err, rx-frm-toolong-err, rx-pause-ok, tx-pause-ok */
    LED_CNI_DP1_ERRORS = 32, /* as of CNI data port 0 */
    LED_CNI_DP1_FRAMES = 36,
    LED_COUNT = 40
};

enum LedMode { LED_MODE_HW = 0, LED_MODE_BLINK = 1, LED_MODE_ON = 2, LED_MODE_OFF = 3, LED_MODE_COUNT };

/* What drives a LED: the hardware or the host. -4 outside the ranges. */
int16_t NEP_set_led_mode(int16_t olt_id, int32_t led, int32_t mode);
int16_t NEP_get_led_mode(int16_t olt_id, int32_t led, int32_t* mode);
/* Switches the LEDs 0..31 that the host drives on (1) or off (0), LED n by bit n. LEDs that the hardware drives stay as
 * they are; -1015 when it drives them all. */
int16_t NEP_set_led_by_value(int16_t olt_id, uint32_t value);

#ifdef __cplusplus
}
#endif

#endif
