// SPDX-License-Identifier: Apache-2.0
#include "CTC_STACK_CLI/onu_report.h"

namespace epon {

void print_onu(vty* session, const OnuTarget& onu)
{
    print_olt_id(session, onu.olt_id);
    RBX_vty_out(session, "%s: %hd %s", "ONU_id", onu.onu_id, VTY_NEWLINE(session));
}

int show_onu_record(vty* session, const OnuTarget& onu, int16_t code, const void* record, std::span<const Field> fields)
{
    if (code != 0) return report_ctc(session, code);
    print_onu(session, onu);
    print_fields(session, record, fields);
    return 0;
}

} // namespace epon
