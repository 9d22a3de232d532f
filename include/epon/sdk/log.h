/* SPDX-License-Identifier: Apache-2.0 */
/* The SDK log and the operating-system services that come with the SDK. */
#ifndef EPON_SDK_LOG_H
#define EPON_SDK_LOG_H

#include <stdarg.h>
#include <stdint.h>

#include <epon/engine.h>

#ifdef __cplusplus
extern "C" {
#endif

enum { NEPLOG_SEVERITY_INFO = 1 };
enum { NEPLOG_LEVEL_TRACE = 6 };
enum { NEPLOG_NO_INDEX = -1 }; /* the line concerns no OLT, or no ONU */

/* Writes one entry to the SDK log. module names the source ("CLI_GENERAL/CLI"), topic the area ("api-called").
 * Any thread; the text is complete when the call returns. */
void NEPLOG_print(int severity, const char* module, int level, const char* topic, int16_t olt_id, int16_t onu_id,
                  const char* format, ...) EPON_PRINTF(7, 8);

/* The same with an argument list and the names of source file, function and module, each possibly empty. */
void NEPLOG_print_args(int severity, const char* file, const char* function, const char* module, int level,
                       const char* topic, int16_t olt_id, int16_t onu_id, const char* format, va_list arguments)
    EPON_PRINTF(9, 0);

/* Starts a detached thread that runs entry(argument). name is for debuggers, at most 15 characters are kept.
 * 0, or a negative code when the system refuses a thread. */
int16_t OSSRV_create_thread(const char* name, void* (*entry)(void*), void* argument);

/* Selects what the SDK reports for one OLT. For topic 8, the OLT firmware's own console, enable 1 sends its output
 * to the host's console, 0 stops it. */
int16_t Set_logging_configuration(int32_t topic, int32_t enable, int32_t level, int16_t olt_id);
enum { LOGGING_TOPIC_FIRMWARE_CONSOLE = 8 };

#ifdef __cplusplus
}
#endif

#endif
