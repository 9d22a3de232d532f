// SPDX-License-Identifier: Apache-2.0
// Settings of the CTC stack, and its end.
#include "host/sdk_sim/ctc_stack.h"

#include <algorithm>
#include <span>

#include "host/sdk_sim/ctc_encryption.h"
#include "host/sdk_sim/ctc_events.h"
#include "host/sdk_sim/events.h"
#include "host/sdk_sim/gate.h"
#include "host/sdk_sim/scenario_reader.h"

namespace sdk_sim {

namespace {

const Operation terminate("CTC_STACK_terminate", CTC_STACK);
const Operation set_parameters("CTC_STACK_set_parameters", CTC_STACK);
const Operation get_parameters("CTC_STACK_get_parameters", CTC_STACK);
const Operation set_version("CTC_STACK_set_version", CTC_STACK);
const Operation get_version("CTC_STACK_get_version", CTC_STACK);
const Operation set_oui("CTC_STACK_set_oui", CTC_STACK);
const Operation get_oui("CTC_STACK_get_oui", CTC_STACK);
const Operation set_discovery_timing("CTC_STACK_set_extended_oam_discovery_timing", CTC_STACK);
const Operation get_discovery_timing("CTC_STACK_get_extended_oam_discovery_timing", CTC_STACK);
const Operation set_communication("CTC_STACK_set_communication_configuration", CTC_STACK);
const Operation get_communication("CTC_STACK_get_communication_configuration", CTC_STACK);

constexpr std::uint16_t DISCOVERY_TIMEOUT_LIMIT = 2550;
constexpr std::uint32_t OUI_LIMIT = 0xFFFFFF;

// Records show as "[111111:33,111111:32]".
struct Records {
    const CTC_oui_version* records;
    const std::uint8_t* count; // null while it is not known
    std::uint8_t limit;
};

bool is_null(const Records& value)
{
    return value.records == nullptr && value.limit != 0;
}

void clear_result(const Records&)
{
    // None are told.
}

void append_value(std::string* line, const Records& value)
{
    *line += '[';
    const std::uint8_t count = value.count == nullptr ? value.limit : std::min(*value.count, value.limit);
    for (std::uint8_t i = 0; value.records != nullptr && i < count; ++i) {
        if (i != 0) *line += ',';
        append_octets(line, value.records[i].oui, sizeof(value.records[i].oui));
        *line += ':' + std::to_string(value.records[i].version);
    }
    *line += ']';
}

// An operation that stores or tells one value of the stack.
template <class Value>
std::int16_t set_value(const Operation& operation, Value CtcStack::*member, Value value, bool is_valid = true)
{
    return on_network(operation, in(value), out(), [&](Network& network) {
        if (!is_valid) return PARAMETER_ERROR;
        network.ctc_stack.*member = value;
        return SUCCESS;
    });
}

template <class Value>
std::int16_t get_value(const Operation& operation, Value CtcStack::*member, Value* value)
{
    return on_network(operation, in(), out(value), [&](Network& network) {
        *value = network.ctc_stack.*member;
        return SUCCESS;
    });
}

} // namespace

CTC_oui_version oui_version(std::uint32_t oui, std::uint8_t version)
{
    return {{static_cast<std::uint8_t>(oui >> 16), static_cast<std::uint8_t>(oui >> 8), static_cast<std::uint8_t>(oui)},
            version};
}

void read_ctc_stack(ScenarioReader& reader, CtcStack* stack)
{
    reader.flag("automatic_mode", &stack->discovers);
    reader.flag("automatic_onu_configuration", &stack->configures);
    reader.oui_versions("records", &stack->records);
    if (stack->records.size() > CTC_OUI_RECORDS_MAX)
        reader.refuse("records", "at most " + std::to_string(CTC_OUI_RECORDS_MAX) + " of them");
    reader.number("oui", 0, OUI_LIMIT, &stack->oui);
    reader.number("version", 0, 255, &stack->version);
    reader.number("discovery_timeout", 0, DISCOVERY_TIMEOUT_LIMIT, &stack->discovery_timeout);
    reader.number("update_key_time", 0, 255, &stack->update_key_time);
    reader.number("no_reply_timeout", 0, DISCOVERY_TIMEOUT_LIMIT, &stack->no_reply_timeout);
    reader.number("start_encryption_threshold", 0, 255, &stack->start_encryption_threshold);
}

} // namespace sdk_sim

using namespace sdk_sim;

int16_t CTC_STACK_terminate()
{
    return without_model(terminate, in(), out(), [] {
        {
            const ModelLock model;
            if (model->ctc_stack.has_ended) return EXIT_ERROR;
            stop_all_ctc_encryption(*model);
            const std::uint32_t last_run = model->ctc_stack.last_run;
            model->ctc_stack = model->initial_ctc_stack;
            model->ctc_stack.last_run = last_run;
            model->ctc_stack.has_ended = true;
        }
        remove_handlers(CTC_EVENT_KINDS, LAST_CTC_EVENT_KIND);
        return SUCCESS;
    });
}

int16_t CTC_STACK_set_parameters(int32_t automatic_mode, uint8_t number_of_records, const CTC_oui_version* records,
                                 int32_t automatic_onu_configuration_mode)
{
    const auto arguments = in(automatic_mode, number_of_records, Records{records, nullptr, number_of_records},
                              automatic_onu_configuration_mode);
    return on_network(set_parameters, arguments, out(), [&](Network& network) {
        if (automatic_mode < 0 || automatic_mode > 1 || number_of_records > CTC_OUI_RECORDS_MAX ||
            automatic_onu_configuration_mode < 0 || automatic_onu_configuration_mode > 1)
            return PARAMETER_ERROR;
        CtcStack& stack = network.ctc_stack;
        stack.discovers = automatic_mode == 1;
        stack.configures = automatic_onu_configuration_mode == 1;
        const std::span<const CTC_oui_version> spoken(records, number_of_records);
        stack.records.assign(spoken.begin(), spoken.end());
        return SUCCESS;
    });
}

int16_t CTC_STACK_get_parameters(int32_t* automatic_mode, uint8_t* number_of_records, CTC_oui_version* records,
                                 int32_t* automatic_onu_configuration_mode)
{
    const auto results =
        out(automatic_mode, number_of_records, Records{records, number_of_records, CTC_OUI_RECORDS_MAX},
            automatic_onu_configuration_mode);
    return on_network(get_parameters, in(), results, [&](Network& network) {
        const CtcStack& stack = network.ctc_stack;
        *automatic_mode = stack.discovers ? 1 : 0;
        *number_of_records = static_cast<uint8_t>(stack.records.size());
        std::copy(stack.records.begin(), stack.records.end(), records);
        *automatic_onu_configuration_mode = stack.configures ? 1 : 0;
        return SUCCESS;
    });
}

int16_t CTC_STACK_set_version(uint8_t version)
{
    return set_value(set_version, &CtcStack::version, version);
}

int16_t CTC_STACK_get_version(uint8_t* version)
{
    return get_value(get_version, &CtcStack::version, version);
}

int16_t CTC_STACK_set_oui(uint32_t oui)
{
    return set_value(set_oui, &CtcStack::oui, oui, oui <= OUI_LIMIT);
}

int16_t CTC_STACK_get_oui(uint32_t* oui)
{
    return get_value(get_oui, &CtcStack::oui, oui);
}

int16_t CTC_STACK_set_extended_oam_discovery_timing(uint16_t discovery_timeout)
{
    return set_value(set_discovery_timing, &CtcStack::discovery_timeout, discovery_timeout,
                     discovery_timeout <= DISCOVERY_TIMEOUT_LIMIT);
}

int16_t CTC_STACK_get_extended_oam_discovery_timing(uint16_t* discovery_timeout)
{
    return get_value(get_discovery_timing, &CtcStack::discovery_timeout, discovery_timeout);
}

int16_t CTC_STACK_set_communication_configuration(int16_t timeout_in_100_ms, int16_t resend_limit)
{
    return on_network(set_communication, in(timeout_in_100_ms, resend_limit), out(), [&](Network& network) {
        if (timeout_in_100_ms < 1 || resend_limit < 0) return PARAMETER_ERROR;
        network.ctc_stack.timeout_in_100_ms = timeout_in_100_ms;
        network.ctc_stack.resend_limit = resend_limit;
        return SUCCESS;
    });
}

int16_t CTC_STACK_get_communication_configuration(int16_t* timeout_in_100_ms, int16_t* resend_limit)
{
    return on_network(get_communication, in(), out(timeout_in_100_ms, resend_limit), [&](Network& network) {
        *timeout_in_100_ms = network.ctc_stack.timeout_in_100_ms;
        *resend_limit = network.ctc_stack.resend_limit;
        return SUCCESS;
    });
}
