// SPDX-License-Identifier: Apache-2.0
#include "REMOTE_MANAGEMENT_CLI/onu_report.h"

namespace epon {

int report_remote(vty* session, int16_t code)
{
    report(session, code, remote_management_error_string_lookup);
    return 0;
}

int show_remote_record(vty* session, int16_t code, const void* record, std::span<const Field> fields)
{
    if (code != 0) return report_remote(session, code);
    print_fields(session, record, fields);
    return 0;
}

} // namespace epon
