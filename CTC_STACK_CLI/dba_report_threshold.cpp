// SPDX-License-Identifier: Apache-2.0
// Thresholds of an ONU's queue reports, by which the bandwidth allocation cuts grants at frame boundaries.
#include "CTC_STACK_CLI/dba_report_threshold.h"

#include <cstddef>

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/onu_show.h"
#include "CTC_STACK_CLI/onu_report.h"
#include "CTC_STACK_CLI/token_list.h"

using namespace epon;

// The record is the same on every board.
static_assert(sizeof(CTC_queue_threshold) == 4 && offsetof(CTC_queue_threshold, state) == 0 &&
              offsetof(CTC_queue_threshold, threshold) == 2);
static_assert(sizeof(CTC_queue_set_thresholds) == CTC_QUEUES * sizeof(CTC_queue_threshold));

namespace {

constexpr int16_t PARAMETER_ERROR = -4;
constexpr uint32_t QUEUE_SETS_ROOM = 255;

struct Thresholds {
    uint8_t number_of_queue_sets;
    CTC_queue_set_thresholds queue_sets[QUEUE_SETS_ROOM];
};

// The last queue set carries no thresholds.
uint32_t configured_sets(const Thresholds& thresholds)
{
    return thresholds.number_of_queue_sets == 0 ? 0 : thresholds.number_of_queue_sets - 1U;
}

// The next of the list's tokens. Null with its lines when there is none.
char* next_token(vty* session, TokenList& tokens, const char* what, int* result)
{
    char* token = tokens.next();
    *result = -1;
    if (token != nullptr) return token;
    RBX_vty_out(session, " error reading %s in records string%s", what, VTY_NEWLINE(session));
    *result = report_ctc(session, PARAMETER_ERROR);
    return nullptr;
}

// On false the refusal is printed, and *result is what the handler returns.
bool read_queue(vty* session, TokenList& tokens, CTC_queue_threshold* queue, int* result)
{
    int32_t state;
    char* token = next_token(session, tokens, "queue state", result);
    if (token == nullptr || !read_word(session, token, "state", true_false, &state)) return false;
    token = next_token(session, tokens, "threshold state", result); // its threshold, in spite of the name
    if (token == nullptr) return false;
    queue->state = static_cast<uint8_t>(state);
    queue->reserved = 0;
    return read_number(session, token, unsigned_16("threshold"), &queue->threshold);
}

// Reports have a blank before the line end; what a setting answers has none.
void print_queues(vty* session, const Thresholds& thresholds, const char* blank)
{
    for (uint32_t set = 0; set < configured_sets(thresholds); ++set) {
        for (int queue = 0; queue < CTC_QUEUES; ++queue) {
            const CTC_queue_threshold& entry = thresholds.queue_sets[set].queues[queue];
            RBX_vty_out(session, "queue %d: state: %s threshold: 0x%x%s%s", queue, entry.state != 0 ? "TRUE" : "FALSE",
                        entry.threshold, blank, VTY_NEWLINE(session));
        }
    }
}

} // namespace

int dba_report_thresholds(cmd_element*, vty* session, int, char** argv)
{
    OnuTarget onu;
    Thresholds thresholds;
    TokenList tokens;
    int result;
    if (!read_onu_target(session, 0, nullptr, &onu, &result)) return result;
    if (!read_number(session, argv[0], unsigned_range("number_of_queue_sets", 0, 255),
                     &thresholds.number_of_queue_sets) ||
        !tokens.read(session, argv[1], "queue_str"))
        return -1;
    for (uint32_t set = 0; set < configured_sets(thresholds); ++set) {
        for (CTC_queue_threshold& queue : thresholds.queue_sets[set].queues) {
            if (!read_queue(session, tokens, &queue, &result)) return result;
        }
    }
    const int16_t code = CTC_STACK_set_dba_report_thresholds(onu.olt_id, onu.onu_id, &thresholds.number_of_queue_sets,
                                                             thresholds.queue_sets);
    if (code != 0) return report_ctc(session, code);
    print_queues(session, thresholds, "");
    return 0;
}

int show_dba_report_thresholds(cmd_element*, vty* session, int argc, char** argv)
{
    OnuTarget onu;
    Thresholds thresholds{};
    int result;
    if (!read_onu_target(session, argc, argv, &onu, &result)) return result;
    const int16_t code = CTC_STACK_get_dba_report_thresholds(onu.olt_id, onu.onu_id, &thresholds.number_of_queue_sets,
                                                             thresholds.queue_sets);
    if (code != 0) return report_ctc(session, code);
    print_onu(session, onu);
    RBX_vty_out(session, "%s: %u %s", "number_of_queue_sets", thresholds.number_of_queue_sets, VTY_NEWLINE(session));
    print_queues(session, thresholds, " ");
    return 0;
}

static constinit cmd_element dba_report_thresholds_cmd = command(
    "ctc dba-report-threshold queue-sets-number <2-4> queue-sets-list QUEUE_SETS_LIST", dba_report_thresholds,
    "Management of ONUs by the CTC extension of OAM\n"
    "Up to where this ONU's queues are reported, queue set by queue set\n"
    "How many queue sets a report has\n"
    "Number of queue sets, 2-4\n"
    "Thresholds of all queue sets but the last, which has none\n"
    "STATE;THRESHOLD for queues 0-7 of each set without blanks: true when the queue is reported in the set, else "
    "false; time quanta of 16 ns, 0-65535, decimal or with 0x hexadecimal\n");

static constinit OnuShow show_dba_report_thresholds_cmd =
    ctc_show<"dba-reports-threshold", "Up to where the ONU's queues are reported, queue set by queue set\n">(
        show_dba_report_thresholds);

namespace epon {

void install_dba_report_threshold()
{
    install({{&dba_report_thresholds_cmd, in(ONU_NODE)}});
    install({&show_dba_report_thresholds_cmd});
}

} // namespace epon
