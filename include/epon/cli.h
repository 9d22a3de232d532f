/* SPDX-License-Identifier: Apache-2.0 */
/*
 * What libepon_cli.so exports: start and stop, the installers, output and parsing helpers, and the return-code tables.
 * Every command handler is exported as well, under its own name (see the module headers).
 *
 * Unless noted, functions belong to the thread that starts the console and, after CLI_activate, to the console server
 * thread. 0 is success and -1 failure.
 */
#ifndef EPON_CLI_H
#define EPON_CLI_H

#include <stdint.h>

#include <epon/engine.h>
#include <epon/sdk.h>

#define EPON_CLI_API __attribute__((visibility("default")))

#ifdef __cplusplus
extern "C" {
#endif

/* --- Start and stop ------------------------------------------------------------------------------------------- */

/* Start and stop of the library's part in the driver: CLI_initialization and CLI_termination, or the routines that
 * CLI_register_init_func and CLI_register_terminate_func put in their places. Always 0. */
EPON_CLI_API int init_epon_driver(void);
EPON_CLI_API int terminate_epon_driver(void);

/* Registers the printers of the SDK's events. The first refusal ends it with -1; registrations already made stay. */
EPON_CLI_API int CLI_initialization(void);
/* Removes them and sets the console port back to its default. The first refusal ends it with -1. */
EPON_CLI_API int CLI_termination(void);

enum { CLI_INFORMATION_SIZE = 64 };
/* Writes the version and the console port as two lines into buffer, which holds CLI_INFORMATION_SIZE bytes. */
EPON_CLI_API int CLI_information(char* buffer);

/* Installs all nodes and commands and starts the console server thread. */
EPON_CLI_API int CLI_activate(void);

/* Start and stop of the optional packages (CTC stack, remote management). */
EPON_CLI_API int init_packages(void);
EPON_CLI_API int terminate_packages(void);

/* Start of remote management: registers the printer of its events and installs its commands. -1, and nothing is
 * installed, when the printer is refused. */
EPON_CLI_API int16_t CLI_remote_management_init(void);
/* Part of it: installs the commands of remote SXG encryption. Always 0. */
EPON_CLI_API int16_t CLI_remote_management_sxg_init(void);
/* Installs the commands of the CTC stack and registers the handlers of its events. Sessions with event_notify set are
 * told how the registration went; always 0. */
EPON_CLI_API int CLI_ctc_init(void);
/* Removes these handlers, tells the same sessions how that went, and ends the stack: its code. */
EPON_CLI_API int CLI_ctc_terminate(void);

/* TCP port of the console; 0 is the default, 2600. Taken at the next time that the console is served. */
EPON_CLI_API void CLI_set_port(unsigned short port);
EPON_CLI_API void CLI_set_multi_tasking_mode(int mode);
EPON_CLI_API void CLI_get_multi_tasking_mode(uint8_t* mode);

/* The DBA kind that each OLT works with, an index of CLI_dba_s. An OLT outside 0..15 is ignored. */
EPON_CLI_API void CLI_set_all_olts_dba_mode(int dba_mode);
EPON_CLI_API void CLI_set_olt_dba_mode(int16_t olt_id, int dba_mode);

/* Handler of EVENT_ETHERNET_FRAME_RECEIVED; prints the event. Any thread. */
EPON_CLI_API EthernetFrameReceivedEventHandler Ethernet_extended_frame_received_handler;

/* Handlers of the CTC stack's events; each tells the sessions with event_notify set. Any thread. */
EPON_CLI_API CtcExtendedOamDiscoveryHandler Extended_oam_discovery_handler;
EPON_CLI_API CtcUpdateEncryptionHandler Update_encryption_handler;
EPON_CLI_API CtcUpdateOnuErrorHandler Update_onu_error_handler;
EPON_CLI_API CtcUpdateOnuRequestHandler Update_onu_request_handler; /* answers with the file "C:\\NAME" */
EPON_CLI_API CtcEventNotificationHandler Event_notification_handler;

EPON_CLI_API extern thread_master* zebrad; /* the event loop, once activated */
EPON_CLI_API extern thread* global_thread; /* the record through which sessions are flushed */
/* Ids of the registered event printers, by event kind. The id of kind 31 stands in slot 30. */
EPON_CLI_API extern uint16_t cli_handler_id_array[EVENT_KIND_LIMIT];

/* --- Hooks: routines of the host, null by default ------------------------------------------------------------- */

typedef int cli_runtime_handler(void);

/* Each registration replaces the earlier one; null clears it. Always 0. */
EPON_CLI_API int CLI_register_init_func(cli_runtime_handler* func);
EPON_CLI_API int CLI_register_terminate_func(cli_runtime_handler* func);
EPON_CLI_API int CLI_register_ctc_init_func(cli_runtime_handler* func);
EPON_CLI_API int CLI_register_ctc_terminate_func(cli_runtime_handler* func);
EPON_CLI_API int CLI_register_ctc_kt_init_func(cli_runtime_handler* func);
EPON_CLI_API int CLI_register_ctc_kt_terminate_func(cli_runtime_handler* func);
EPON_CLI_API int CLI_register_tk_init_func(cli_runtime_handler* func);
EPON_CLI_API int CLI_register_tk_terminate_func(cli_runtime_handler* func);
EPON_CLI_API int CLI_register_meridian_init_func(cli_runtime_handler* func);
EPON_CLI_API int CLI_register_meridian_terminate_func(cli_runtime_handler* func);
EPON_CLI_API int CLI_register_docsis_stack_init_func(cli_runtime_handler* func);
EPON_CLI_API int CLI_register_docsis_stack_terminate_func(cli_runtime_handler* func);
EPON_CLI_API int CLI_register_dpoe_oam_init_func(cli_runtime_handler* func);
EPON_CLI_API int CLI_register_dpoe_oam_terminate_func(cli_runtime_handler* func);
EPON_CLI_API int CLI_register_remote_management_init_func(cli_runtime_handler* func);
EPON_CLI_API int CLI_register_remote_management_terminate_func(cli_runtime_handler* func);
EPON_CLI_API int CLI_register_redundancy_mng_init_func(cli_runtime_handler* func);
EPON_CLI_API int CLI_register_redundancy_mng_terminate_func(cli_runtime_handler* func);
EPON_CLI_API int CLI_register_ctc_redundancy_mng_init_func(cli_runtime_handler* func);
EPON_CLI_API int CLI_register_ctc_redundancy_mng_terminate_func(cli_runtime_handler* func);
EPON_CLI_API int CLI_register_redundancy_mng_app_init_func(cli_runtime_handler* func);
EPON_CLI_API int CLI_register_redundancy_mng_app_terminate_func(cli_runtime_handler* func);
EPON_CLI_API int CLI_register_optical_switch_init_func(cli_runtime_handler* func);
EPON_CLI_API int CLI_register_optical_switch_terminate_func(cli_runtime_handler* func);
EPON_CLI_API int CLI_register_extensions_init_func(cli_runtime_handler* func);
EPON_CLI_API int CLI_register_extensions_terminate_func(cli_runtime_handler* func);
EPON_CLI_API int CLI_register_ext_tm_init_func(cli_runtime_handler* func);

EPON_CLI_API extern cli_runtime_handler* cli_runtime_init_handler_func;
EPON_CLI_API extern cli_runtime_handler* cli_runtime_terminate_handler_func;
EPON_CLI_API extern cli_runtime_handler* cli_runtime_ctc_init_handler_func;
EPON_CLI_API extern cli_runtime_handler* cli_runtime_ctc_terminate_handler_func;
EPON_CLI_API extern cli_runtime_handler* cli_runtime_ctc_kt_init_handler_func;
EPON_CLI_API extern cli_runtime_handler* cli_runtime_ctc_kt_terminate_handler_func;
EPON_CLI_API extern cli_runtime_handler* cli_runtime_tk_init_handler_func;
EPON_CLI_API extern cli_runtime_handler* cli_runtime_tk_terminate_handler_func;
EPON_CLI_API extern cli_runtime_handler* cli_runtime_meridian_init_handler_func;
EPON_CLI_API extern cli_runtime_handler* cli_runtime_meridian_terminate_handler_func;
EPON_CLI_API extern cli_runtime_handler* cli_runtime_docsis_stack_init_handler_func;
EPON_CLI_API extern cli_runtime_handler* cli_runtime_docsis_stack_terminate_handler_func;
EPON_CLI_API extern cli_runtime_handler* cli_runtime_dpoe_oam_init_handler_func;
EPON_CLI_API extern cli_runtime_handler* cli_runtime_dpoe_oam_terminate_handler_func;
EPON_CLI_API extern cli_runtime_handler* cli_runtime_remote_management_init_handler_func;
EPON_CLI_API extern cli_runtime_handler* cli_runtime_remote_management_terminate_handler_func;
EPON_CLI_API extern cli_runtime_handler* cli_runtime_redundancy_mng_init_handler_func;
EPON_CLI_API extern cli_runtime_handler* cli_runtime_redundancy_mng_terminate_handler_func;
EPON_CLI_API extern cli_runtime_handler* cli_runtime_ctc_redundancy_mng_init_handler_func;
EPON_CLI_API extern cli_runtime_handler* cli_runtime_ctc_redundancy_mng_terminate_handler_func;
EPON_CLI_API extern cli_runtime_handler* cli_runtime_redundancy_mng_app_init_handler_func;
EPON_CLI_API extern cli_runtime_handler* cli_runtime_redundancy_mng_app_terminate_handler_func;
EPON_CLI_API extern cli_runtime_handler* cli_runtime_optical_switch_init_handler_func;
EPON_CLI_API extern cli_runtime_handler* cli_runtime_optical_switch_terminate_handler_func;
EPON_CLI_API extern cli_runtime_handler* cli_runtime_extensions_init_handler_func;
EPON_CLI_API extern cli_runtime_handler* cli_runtime_extensions_terminate_handler_func;
EPON_CLI_API extern cli_runtime_handler* cli_runtime_ext_tm_init_handler_func;

/* --- Installers: nodes and commands of one module, once per process ------------------------------------------- */

EPON_CLI_API void General_cmd_init(void);
EPON_CLI_API void CLI_CNI_cmd_init(void);
EPON_CLI_API void CLI_DEBUG_cmd_init(void);
EPON_CLI_API void CLI_logging_cmd_init(void);
EPON_CLI_API void CLI_OLT_cmd_init(void);
EPON_CLI_API void CLI_mode1_cmd_init(void);
EPON_CLI_API void CLI_ONU_cmd_init(void);
EPON_CLI_API void CLI_PS_cmd_init(void);
EPON_CLI_API void CLI_statistic_cmd_init(void);
EPON_CLI_API void CLI_syncE_cmd_init(void);
EPON_CLI_API void CLI_ToD_cmd_init(void);
EPON_CLI_API void CLI_OLT_virtual_scope_cmd_init(void);
EPON_CLI_API void CLI_dos_protection_cmd_init(void);
EPON_CLI_API void CLI_mc_cmd_init(void);
EPON_CLI_API void INTERNAL_DBA_CLI_cmd_init(void);
EPON_CLI_API void VIREO_CLI_cmd_init(void);
EPON_CLI_API void OPEN_ENCRYPTION_CLI_cmd_init(void);
EPON_CLI_API void DBA_CLI_cmd_init(void);
EPON_CLI_API void XAUI_REDUNDANCY_CLI_cmd_init(void); /* repeats are left to the engine, which ignores them */
EPON_CLI_API void TM_CLI_cmd_init(void);
EPON_CLI_API void NE_CLI_cmd_init(void);
EPON_CLI_API void AT_CLI_cmd_init(void);
EPON_CLI_API void CASCADING_CLI_cmd_init(void);
EPON_CLI_API void OTDR_cli_cmd_init(void);
EPON_CLI_API void PTP_STACK_CLI_cmd_init(void);
EPON_CLI_API void CTC_STACK_CLI_cmd_init(void);
EPON_CLI_API void REMOTE_MANAGEMENT_CLI_cmd_init(void);
EPON_CLI_API void REMOTE_MANAGEMENT_CLI_sxg_cmd_init(void);

/* --- Output --------------------------------------------------------------------------------------------------- */

/* Line end of a session's output. */
static inline const char* VTY_NEWLINE(const vty* session)
{
    return !session || session->type == VTY_TYPE_TERMINAL ? "\r\n" : "\n";
}

/* Prints to a session, or to the SDK log when session is null. Bytes queued; 0 for the log. Any thread. */
EPON_CLI_API int RBX_vty_out(vty* session, const char* format, ...) EPON_PRINTF(2, 3);

/* Prints one line to every session with event_notify set and flushes it. The last flush's result. Any thread. */
EPON_CLI_API int CLI_print(const char* text);

/* --- Return codes in words ------------------------------------------------------------------------------------ */

typedef struct return_code_str {
    int32_t code; /* 16-bit signed value in a 32-bit slot */
    const char* text;
} return_code_str;

/* Tables end with a row whose text is null. */
EPON_CLI_API extern const return_code_str CLI_return_code_str[];
EPON_CLI_API extern const return_code_str CTC_STACK_CLI_return_code_str[];
EPON_CLI_API extern const return_code_str INTERNAL_DBA_CLI_return_code_str[];
EPON_CLI_API extern const return_code_str OPEN_ENCRYPTION_CLI_return_code_str[];
EPON_CLI_API extern const return_code_str VIREO4_CLI_return_code_str[];
EPON_CLI_API extern const return_code_str VIREO4_CLI_dba_return_code_str[];
EPON_CLI_API extern const return_code_str REMOTE_MANAGEMENT_CLI_return_code_str[];
EPON_CLI_API extern const return_code_str TM_NE_CLI_return_code_str[];

/* Text of a code, of which the low 16 bits count; "Error code was not found!!!" for a code outside the table. Static.
 */
EPON_CLI_API const char* error_string_lookup(short code);
EPON_CLI_API const char* ctc_stack_error_string_lookup(short code);
EPON_CLI_API const char* internal_dba_error_string_lookup(short code);
EPON_CLI_API const char* open_encryption_error_string_lookup(short code);
EPON_CLI_API const char* vireo4_error_string_lookup(short code);
EPON_CLI_API const char* vireo4_dba_error_string_lookup(short code);
EPON_CLI_API const char* remote_management_error_string_lookup(short code);
EPON_CLI_API const char* tm_ne_error_string_lookup(short code);

enum { CLI_ALARM_COUNT = 42, CLI_DBA_COUNT = 7 };
EPON_CLI_API extern const char* const CLI_alarm_s[CLI_ALARM_COUNT]; /* names of the alarms, by alarm type */
EPON_CLI_API extern const char* const CLI_dba_s[CLI_DBA_COUNT];     /* names of the DBA kinds */

/* --- Parsing -------------------------------------------------------------------------------------------------- */

/* Each returns 0 or -1. The first three and Parse_OLTs_id_array split the text in place. */

/* "AA-BB-CC-DD-EE-FF": six hexadecimal fields of which the low byte is kept; more fields are ignored. */
EPON_CLI_API int CLI_parse_mac_addr_from_string(char* text, uint8_t mac[6]);
/* Five and eight groups of hexadecimal digits between ":"; "::" is not understood. out is least significant first. */
EPON_CLI_API int CLI_parse_ipv6_short_addr_from_string(char* text, uint8_t out[10]);
EPON_CLI_API int CLI_parse_ipv6_addr_from_string(char* text, uint8_t out[16]);
/* 32 and 64 hexadecimal digits; what follows them is not looked at. */
EPON_CLI_API int CLI_convert_encryption_string_to_ascii_array(const char* text, uint8_t key[16]);
EPON_CLI_API int CLI_convert_binary_encryption_string_to_ascii_array(const char* text, uint8_t key[32]);
/* "1;2;3;4": 2 to 4 pairs of OLT numbers; further numbers are ignored. Prints what is wrong on the session. */
EPON_CLI_API int Parse_OLTs_id_array(char* text, uint16_t pairs[4][2], uint8_t* count, vty* session);

/* The part of an ONU that a command of the CTC stack acts on: numbers, decimal or with 0x hexadecimal, or the words
 * "irrelevant", "all-cards", "all-ports", and the word of a port type. The port's number keeps its low 16 bits. Prints
 * what is wrong on the session. */
EPON_CLI_API int Parse_object_management_index(vty* session, const char* frame, const char* slot, const char* port,
                                               const char* port_type, CTC_management_object_index* index);

/* Reads a whole file into a new buffer that the caller frees with free(). Prints what is wrong on the session. */
EPON_CLI_API int CLI_load_file_to_memory(const char* path, uint8_t** data_buffer, uint32_t* size, vty* session);

#ifdef __cplusplus
}
#endif

#endif
