// SPDX-License-Identifier: Apache-2.0
// The bandwidth allocation that an OLT runs.
#include "host/sdk_sim/dba_control.h"

#include "host/sdk_sim/events.h"
#include "host/sdk_sim/gate.h"
#include "host/sdk_sim/scenario_reader.h"

namespace sdk_sim {

namespace {

const Operation set_report_format("NEP_set_dba_report_format", GENERAL);
const Operation stop_algorithm("NEP_stop_dba_algorithm", GENERAL);
const Operation stop_external_algorithm("NEP_stop_external_dba_algorithm", GENERAL);

constexpr int16_t DBA_NOT_RUNNING = -1010;

constexpr ScenarioWord algorithm_words[] = {{"none", DBA_NONE}, {"internal", DBA_INTERNAL},
                                            {"vireo", 2},       {"vireo2", 3},
                                            {"meridian", 4},    {"aldebaran", DBA_ALDEBARAN}};

int16_t stop(Olt& olt, int32_t first_algorithm)
{
    int32_t& running = olt.configuration.dba_control.algorithm;
    if (running < first_algorithm) return DBA_NOT_RUNNING;
    raise(EVENT_DBA_STATE_CHANGED, olt.id, DbaStateChangedEvent{running, 0});
    running = DBA_NONE;
    return SUCCESS;
}

} // namespace

void read_dba_control(ScenarioReader& reader, DbaControl* dba)
{
    reader.word("algorithm", algorithm_words, &dba->algorithm);
}

} // namespace sdk_sim

using namespace sdk_sim;

int16_t NEP_set_dba_report_format(int16_t olt_id, int32_t format)
{
    return on_olt(set_report_format, olt_id, in(olt_id, format), out(), [&](Olt& olt) {
        if (format != DBA_REPORT_STANDARD && format != DBA_REPORT_THRESHOLD) return PARAMETER_ERROR;
        olt.configuration.dba_control.report_format = format;
        return SUCCESS;
    });
}

int16_t NEP_stop_dba_algorithm(int16_t olt_id)
{
    return on_olt(stop_algorithm, olt_id, in(olt_id), out(), [&](Olt& olt) { return stop(olt, DBA_INTERNAL); });
}

int16_t NEP_stop_external_dba_algorithm(int16_t olt_id)
{
    return on_olt(stop_external_algorithm, olt_id, in(olt_id), out(),
                  [&](Olt& olt) { return stop(olt, DBA_INTERNAL + 1); });
}
