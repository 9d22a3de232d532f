/* SPDX-License-Identifier: Apache-2.0 */
/* The analogue-to-digital converter of an ONU. Errors and refusals as in remote_oam_api.h. */
#ifndef EPON_SDK_REMOTE_PERIPH_H
#define EPON_SDK_REMOTE_PERIPH_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum RemoteAdcItem {
    REMOTE_ADC_CHANNEL = 0,  /* 0 or 1: the input that is sampled */
    REMOTE_ADC_REFERENCE = 1 /* 0: 2.5 V, 1: 3.3 V */
};

enum { REMOTE_ADC_SAMPLE_MAX = 1023 };

int16_t REMOTE_NEPONU_get_ADC_config(int16_t olt_id, int16_t onu_id, int32_t item, uint32_t* value);
int16_t REMOTE_NEPONU_set_ADC_config(int16_t olt_id, int16_t onu_id, int32_t item, uint32_t value);
/* The present voltage at the channel, 0 for 0 V to REMOTE_ADC_SAMPLE_MAX for the reference. */
int16_t REMOTE_NEPONU_get_ADC_sample(int16_t olt_id, int16_t onu_id, uint32_t* sample);

#ifdef __cplusplus
}
#endif

#endif
