// SPDX-License-Identifier: Apache-2.0
#include "CLI_GENERAL/output.h"

#include <cstdio>
#include <cstring>

namespace epon {

void trace_api_call(const char* module, const char* function)
{
    NEPLOG_print(NEPLOG_SEVERITY_INFO, module, NEPLOG_LEVEL_TRACE, "api-called", NEPLOG_NO_INDEX, NEPLOG_NO_INDEX,
                 "%s API Called.\n", function);
}

void print_sdk_failure(vty* session, int16_t code, ReturnCodeLookup* lookup)
{
    const char* newline = VTY_NEWLINE(session);
    RBX_vty_out(session, "Command return error.%s%s (error code : %d)%s", newline, lookup(code), code, newline);
}

int report(vty* session, int16_t code, ReturnCodeLookup* lookup)
{
    if (code != 0) print_sdk_failure(session, code, lookup);
    return code;
}

void print_olt_id(vty* session, int16_t olt_id)
{
    RBX_vty_out(session, "%s: %hd %s", "OLT_id", olt_id, VTY_NEWLINE(session));
}

void print_fields(vty* session, const void* record, std::span<const Field> fields)
{
    char text[FIELD_TEXT_SIZE];
    for (const Field& field : fields) {
        format_field(field, record, text);
        RBX_vty_out(session, "%s: %s %s", field.label, text, VTY_NEWLINE(session));
    }
}

void clean_device_text(char* text, size_t size, const char* source, size_t length)
{
    size_t i = 0;
    for (; i < length && i + 1 < size && source[i] != '\0'; ++i)
        text[i] = source[i] >= ' ' && source[i] <= '~' ? source[i] : '?';
    text[i] = '\0';
}

} // namespace epon

int RBX_vty_out(vty* session, const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    int result = 0;
    if (session != nullptr) {
        result = RBX_vty_out_internal(session, format, arguments);
    } else {
        NEPLOG_print_args(0, "", "", "", NEPLOG_LEVEL_TRACE, "sys-dump", NEPLOG_NO_INDEX, NEPLOG_NO_INDEX, format,
                          arguments);
    }
    va_end(arguments);
    return result;
}
