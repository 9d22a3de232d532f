/* SPDX-License-Identifier: Apache-2.0 */
/* The bandwidth allocation that an OLT runs (IEEE 802.3 clauses 64.3.5 and 77.3.5). */
#ifndef EPON_SDK_DBA_CONTROL_H
#define EPON_SDK_DBA_CONTROL_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* How ONUs report their queues: the whole length of each, or the frames below thresholds. */
enum DbaReportFormat { DBA_REPORT_STANDARD = 0, DBA_REPORT_THRESHOLD = 1 };

int16_t NEP_set_dba_report_format(int16_t olt_id, int32_t format);
/* Stops the allocation that runs in the OLT or beside it; the OLT then gives no grants of its own. None runs: -1010.
 * EVENT_DBA_STATE_CHANGED follows. */
int16_t NEP_stop_dba_algorithm(int16_t olt_id);
/* The same for one that runs beside the OLT; the OLT's own: -1010. */
int16_t NEP_stop_external_dba_algorithm(int16_t olt_id);

#ifdef __cplusplus
}
#endif

#endif
