/* SPDX-License-Identifier: Apache-2.0 */
/* Remote management: how an ONU speaks MPCP (IEEE 802.3 clauses 64 and 77). Errors and refusals as in remote_oam_api.h.
 */
#ifndef EPON_SDK_REMOTE_MPCP_H
#define EPON_SDK_REMOTE_MPCP_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* REPORT with one queue set, or with the queue sets and thresholds of the CTC extension. */
enum RemoteReportFormat { REMOTE_REPORT_NORMAL = 0, REMOTE_REPORT_CTC = 1 };
/* -13008 for the CTC format on an ONU that does not speak the CTC extension. */
int16_t REMOTE_NEPONU_MPCP_set_report_format(int16_t olt_id, int16_t onu_id, int32_t format);
int16_t REMOTE_NEPONU_MPCP_get_report_format(int16_t olt_id, int16_t onu_id, int32_t* format);

/* Messages as they were before the standard, or as it has them. */
enum RemoteMpcpMode { REMOTE_MPCP_LEGACY = 0, REMOTE_MPCP_STANDARD = 1 };
/* -13008 for the legacy mode on a link with a direction that runs at 10G. */
int16_t REMOTE_NEPONU_MPCP_set_standard_mode(int16_t olt_id, int16_t onu_id, int32_t mode);
int16_t REMOTE_NEPONU_MPCP_get_standard_mode(int16_t olt_id, int16_t onu_id, int32_t* mode);

#ifdef __cplusplus
}
#endif

#endif
