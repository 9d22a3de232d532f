/* SPDX-License-Identifier: Apache-2.0 */
/* ONUs with several logical links, by extended OAM. */
#ifndef EPON_SDK_CTC_MULTI_LLID_H
#define EPON_SDK_CTC_MULTI_LLID_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum { CTC_MULTI_LLID_MAX = 8 };

/* How many links an ONU has, 1..CTC_MULTI_LLID_MAX; 0: its first alone, as after its registration. More than it can
 * have: -17010. An ONU that is not registered or does not speak extended OAM: -17002; one that does not answer: -2. It
 * may go to the broadcast ONU. */
int16_t CTC_STACK_set_multi_llid_admin_control(int16_t olt_id, int16_t onu_id, uint8_t activated);

#ifdef __cplusplus
}
#endif

#endif
