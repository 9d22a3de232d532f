// SPDX-License-Identifier: Apache-2.0
// Thresholds of queue reports.
#include "host/sdk_sim/ctc_dba_report.h"

#include <algorithm>
#include <span>

#include "host/sdk_sim/onu_oam.h"

namespace sdk_sim {

namespace {

const Operation set_thresholds("CTC_STACK_set_dba_report_thresholds", CTC_STACK);
const Operation get_thresholds("CTC_STACK_get_dba_report_thresholds", CTC_STACK);

constexpr std::int16_t DBA_THRESHOLD = -17004;

using QueueSets = std::span<const CTC_queue_set_thresholds>;

bool is_number(std::uint8_t number_of_queue_sets)
{
    return number_of_queue_sets >= CTC_QUEUE_SETS_MIN && number_of_queue_sets <= CTC_QUEUE_SETS_MAX;
}

// A row shows as "[100,-,-,...]": a queue that is not reported has no threshold.
struct ShownQueueSets {
    const CTC_queue_set_thresholds* queue_sets;
    const std::uint8_t* number;
};

bool is_null(const ShownQueueSets& value)
{
    return value.queue_sets == nullptr;
}

void clear_result(const ShownQueueSets&)
{
    // None are told.
}

void append_value(std::string* line, const ShownQueueSets& value)
{
    const bool is_known = value.queue_sets != nullptr && value.number != nullptr && is_number(*value.number);
    const QueueSets rows(value.queue_sets, is_known ? *value.number - 1U : 0U);
    *line += '[';
    for (const CTC_queue_set_thresholds& row : rows) {
        if (&row != rows.data()) *line += ';';
        for (const CTC_queue_threshold& queue : row.queues) {
            if (&queue != row.queues) *line += ',';
            *line += queue.state == 1 ? std::to_string(queue.threshold) : "-";
        }
    }
    *line += ']';
}

bool are_states(QueueSets rows)
{
    return std::all_of(rows.begin(), rows.end(), [](const CTC_queue_set_thresholds& row) {
        return std::all_of(std::begin(row.queues), std::end(row.queues),
                           [](const CTC_queue_threshold& queue) { return queue.state <= 1; });
    });
}

// Each set reports at least what the one before it does.
bool ascend(QueueSets rows)
{
    for (std::size_t queue = 0; queue < CTC_QUEUES; ++queue) {
        std::uint16_t last = 0;
        for (const CTC_queue_set_thresholds& row : rows) {
            if (row.queues[queue].state == 0) continue;
            if (row.queues[queue].threshold < last) return false;
            last = row.queues[queue].threshold;
        }
    }
    return true;
}

} // namespace

} // namespace sdk_sim

using namespace sdk_sim;

int16_t CTC_STACK_set_dba_report_thresholds(int16_t olt_id, int16_t onu_id, const uint8_t* number_of_queue_sets,
                                            const CTC_queue_set_thresholds* queue_sets)
{
    const auto arguments = in(olt_id, onu_id, number_of_queue_sets, ShownQueueSets{queue_sets, number_of_queue_sets});
    return on_managed_onus(set_thresholds, &Onu::extended_oam, olt_id, onu_id, arguments, out(),
                           [&](Network&, Olt&, Onu& onu) {
                               if (!is_number(*number_of_queue_sets)) return PARAMETER_ERROR;
                               const QueueSets rows(queue_sets, *number_of_queue_sets - 1U);
                               if (!are_states(rows)) return PARAMETER_ERROR;
                               if (!ascend(rows)) return DBA_THRESHOLD;
                               CtcReportThresholds& kept = onu.configuration.ctc.settings.report_thresholds;
                               kept = {};
                               kept.number_of_queue_sets = *number_of_queue_sets;
                               std::copy(rows.begin(), rows.end(), kept.queue_sets.begin());
                               return SUCCESS;
                           });
}

int16_t CTC_STACK_get_dba_report_thresholds(int16_t olt_id, int16_t onu_id, uint8_t* number_of_queue_sets,
                                            CTC_queue_set_thresholds* queue_sets)
{
    const auto results = out(number_of_queue_sets, ShownQueueSets{queue_sets, number_of_queue_sets});
    return on_managed_onu(get_thresholds, &Onu::extended_oam, olt_id, onu_id, in(olt_id, onu_id), results,
                          [&](Network&, Olt&, Onu& onu) {
                              const CtcReportThresholds& kept = onu.configuration.ctc.settings.report_thresholds;
                              *number_of_queue_sets = kept.number_of_queue_sets;
                              std::copy(kept.queue_sets.begin(), kept.queue_sets.end(), queue_sets);
                              return SUCCESS;
                          });
}
