// SPDX-License-Identifier: Apache-2.0
// The DBA kind that each OLT works with.
#include <epon/cli.h>

namespace {

constinit int olts_dba_mode[OLT_INDEX_LIMIT] = {}; // indices of CLI_dba_s

} // namespace

void CLI_set_all_olts_dba_mode(int dba_mode)
{
    for (int16_t olt_id = 0; olt_id < OLT_INDEX_LIMIT; ++olt_id)
        CLI_set_olt_dba_mode(olt_id, dba_mode);
}

void CLI_set_olt_dba_mode(int16_t olt_id, int dba_mode)
{
    if (olt_id >= 0 && olt_id < OLT_INDEX_LIMIT) olts_dba_mode[olt_id] = dba_mode;
}
