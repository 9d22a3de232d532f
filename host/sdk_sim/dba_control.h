// SPDX-License-Identifier: Apache-2.0
// What an OLT keeps of the bandwidth allocation that it runs.
#pragma once

#include <cstdint>

#include <epon/sdk/dba_control.h>

namespace sdk_sim {

class ScenarioReader;

enum DbaAlgorithm { DBA_NONE = 0, DBA_INTERNAL = 1, DBA_ALDEBARAN = 5 }; // all above internal run beside the OLT

struct DbaControl {
    std::int32_t algorithm = DBA_INTERNAL; // the one that runs, an index of the console's names
    std::int32_t report_format = DBA_REPORT_STANDARD;
};

// The table "dba" of an OLT.
void read_dba_control(ScenarioReader& reader, DbaControl* dba);

} // namespace sdk_sim
