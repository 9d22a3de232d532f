// SPDX-License-Identifier: Apache-2.0
// The gate that every operation of the SDK passes: it applies injected faults, takes the model's lock, refuses what is
// not there, and journals the call.
//
// A new operation:
//
//     static const Operation set_mpcp_timeout("NEP_set_mpcp_timeout", GENERAL);
//     static const Operation get_mpcp_timeout("NEP_get_mpcp_timeout", GENERAL);
//
//     int16_t NEP_set_mpcp_timeout(int16_t olt_id, int32_t timeout)
//     {
//         return on_olt(set_mpcp_timeout, olt_id, in(olt_id, timeout), out(), [&](Olt& olt) {
//             if (timeout < 1 || timeout > 65535) return PARAMETER_ERROR;
//             olt.configuration.timeouts.mpcp = timeout;
//             return SUCCESS;
//         });
//     }
//
//     int16_t NEP_get_mpcp_timeout(int16_t olt_id, int32_t* timeout)
//     {
//         return on_olt(get_mpcp_timeout, olt_id, in(olt_id), out(timeout), [&](Olt& olt) {
//             *timeout = olt.configuration.timeouts.mpcp;
//             return SUCCESS;
//         });
//     }
//
// A new family is one file of such operations and one header with its record (xaui_redundancy.h is a small example).
// The record becomes a member of OltConfiguration or OnuConfiguration in model.h, so that a reset takes it back to what
// the scenario says; reading it from a scenario is a function beside the record. A record that crosses the gate is
// described once with record_fields (values.h), so that the journal can show it.
//
// in(...) lists the arguments as the call has them; out(...) the pointers that results are written through. The journal
// shows results behind the code, when the call succeeded: "NEP_get_mpcp_timeout(0) = 0 -> 300". A null pointer in
// either list is a parameter error. as_mac(...), as_text(...) and as_octets(...) say what a byte pointer is.
//
// A body runs with the model's lock held and must not call an SDK operation. It may raise events (events.h) and start
// timers (model.h): neither calls back.
#pragma once

#include <string>
#include <tuple>

#include "host/sdk_sim/model.h"
#include "host/sdk_sim/sdk_sim.h"
#include "host/sdk_sim/values.h"

namespace sdk_sim {

// Codes that every family shares.
inline constexpr std::int16_t SUCCESS = 0;
inline constexpr std::int16_t EXIT_ERROR = -1;
inline constexpr std::int16_t TIME_OUT = -2;
inline constexpr std::int16_t NOT_IMPLEMENTED = -3;
inline constexpr std::int16_t PARAMETER_ERROR = -4;
inline constexpr std::int16_t HARDWARE_ERROR = -5;
inline constexpr std::int16_t MEMORY_ERROR = -6;
inline constexpr std::int16_t NO_RESOURCES = -11;

// The codes that a family of operations has of its own for the same refusals.
struct Family {
    std::int16_t no_olt; // "OLT not exist"
    std::int16_t no_onu; // "ONU not available"
};
inline constexpr Family GENERAL{-1003, -1007};
inline constexpr Family CTC_STACK{-17003, -17002};
inline constexpr Family REMOTE_MANAGEMENT{-13013, -13015};

// One operation of the SDK. A static object beside the operation: its constructor makes the name known to inject().
class Operation {
  public:
    Operation(const char* operation_name, const Family& operation_family);
    Operation(const Operation&) = delete;
    Operation& operator=(const Operation&) = delete;

    const char* const name;
    const Family& family;
    const Operation* const next; // list of all operations
};

// --- Argument and result lists -----------------------------------------------------------------------------------

template <class... Values>
std::tuple<Values...> in(const Values&... values)
{
    return {values...};
}
template <class... Values>
std::tuple<Values...> out(const Values&... values)
{
    return {values...};
}
inline MacValue as_mac(const std::uint8_t* address)
{
    return {address};
}
inline MacResult as_mac(std::uint8_t* address)
{
    return {address};
}
inline TextValue as_text(const char* characters)
{
    return {characters};
}
inline TextResult as_text(char* buffer, std::size_t size)
{
    return {buffer, size};
}
inline OctetsValue as_octets(const std::uint8_t* data, std::size_t count)
{
    return {data, count};
}
inline OctetsResult as_octets(std::uint8_t* data, std::size_t count)
{
    return {data, count};
}

// --- The gate ----------------------------------------------------------------------------------------------------

struct Verdict {
    bool faulty = false;   // the call returns `code`
    bool runs = true;      // the call is carried out
    std::int16_t code = 0; // of the fault
};
// Takes the fault that waits for the operation, if any, and sleeps its delay.
Verdict meet_faults(const Operation& operation);

bool journal_wanted();
void journal(std::string line);

template <class... Values>
void append_values(std::string* line, const std::tuple<Values...>& values)
{
    std::apply(
        [line](const auto&... value) {
            [[maybe_unused]] const char* separator = "";
            ((*line += separator, append_value(line, value), separator = ", "), ...);
        },
        values);
}

template <class... Values>
bool has_null(const std::tuple<Values...>& values)
{
    return std::apply([](const auto&... value) { return (is_null(value) || ...); }, values);
}

// "NEP_get_mpcp_timeout(0) = 0 -> 300"
template <class In, class Out>
std::string journal_line(const Operation& operation, const In& arguments, std::int32_t result, bool succeeded,
                         const Out& results)
{
    std::string line = operation.name;
    line += '(';
    append_values(&line, arguments);
    line += ") = ";
    line += std::to_string(result);
    if (succeeded && std::tuple_size_v<Out> != 0) {
        line += " -> ";
        append_values(&line, results);
    }
    return line;
}

// An operation whose body needs no model, and holds no lock. body() returns a code.
template <class In, class Out, class Body>
std::int16_t without_model(const Operation& operation, const In& arguments, const Out& results, Body&& body)
{
    const Verdict verdict = meet_faults(operation);
    std::int16_t code = PARAMETER_ERROR;
    if (!verdict.runs)
        std::apply([](const auto&... result) { (clear_result(result), ...); }, results);
    else if (!has_null(arguments) && !has_null(results))
        code = body();
    if (verdict.faulty) code = verdict.code;
    if (journal_wanted()) journal(journal_line(operation, arguments, code, code == SUCCESS, results));
    return code;
}

// An operation on the network as a whole. body(Network&) returns a code.
template <class In, class Out, class Body>
std::int16_t on_network(const Operation& operation, const In& arguments, const Out& results, Body&& body)
{
    return without_model(operation, arguments, results, [&]() -> std::int16_t {
        const ModelLock model;
        if (&operation.family == &CTC_STACK && model->ctc_stack.has_ended) return EXIT_ERROR;
        return body(*model);
    });
}

// An operation on a present OLT. body(Olt&) returns a code.
template <class In, class Out, class Body>
std::int16_t on_olt(const Operation& operation, std::int16_t olt_id, const In& arguments, const Out& results,
                    Body&& body)
{
    return on_network(operation, arguments, results, [&](Network& network) -> std::int16_t {
        Olt* olt = present_olt(network, olt_id);
        return olt == nullptr ? operation.family.no_olt : body(*olt);
    });
}

// An operation on a registered ONU, or a link, of a present OLT. body(Olt&, Onu&) returns a code.
template <class In, class Out, class Body>
std::int16_t on_onu(const Operation& operation, std::int16_t olt_id, std::int16_t onu_id, const In& arguments,
                    const Out& results, Body&& body)
{
    return on_olt(operation, olt_id, arguments, results, [&](Olt& olt) -> std::int16_t {
        Onu* onu = registered_onu(olt, onu_id);
        return onu == nullptr ? operation.family.no_onu : body(olt, *onu);
    });
}

// The same for an operation that also takes the broadcast index 4095: the body runs for each registered ONU in turn,
// and the first code that is not 0 ends it.
template <class In, class Out, class Body>
std::int16_t on_onus(const Operation& operation, std::int16_t olt_id, std::int16_t onu_id, const In& arguments,
                     const Out& results, Body&& body)
{
    if (onu_id != BROADCAST_ONU) return on_onu(operation, olt_id, onu_id, arguments, results, body);
    return on_olt(operation, olt_id, arguments, results, [&](Olt& olt) -> std::int16_t {
        for (auto& [id, onu] : olt.onus) {
            if (!counts_as_registered(onu)) continue;
            if (const std::int16_t code = body(olt, onu); code != SUCCESS) return code;
        }
        return SUCCESS;
    });
}

// A question: its answer is no code. body(Network&) returns the answer, or 0. Results are shown unless it is 0.
template <class In, class Out, class Body>
std::int32_t ask(const Operation& operation, const In& arguments, const Out& results, Body&& body)
{
    const Verdict verdict = meet_faults(operation);
    std::int32_t answer = 0;
    if (!verdict.runs) {
        std::apply([](const auto&... result) { (clear_result(result), ...); }, results);
    } else {
        const ModelLock model;
        answer = body(*model);
    }
    if (verdict.faulty) answer = verdict.code;
    if (journal_wanted()) journal(journal_line(operation, arguments, answer, answer != 0, results));
    return answer;
}

} // namespace sdk_sim
