// SPDX-License-Identifier: Apache-2.0
// What the words of the commands' grammars stand for in the network.
#include "host/network_values.h"

#include <charconv>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <epon/engine.h>

#include "host/engine/engine_host.h"
#include "host/sdk_sim/sdk_sim.h"

namespace {

using engine::LiveValue;
using engine::ValueQuestion;

enum class Kind { None, Olt, Link, Address };

struct Form {
    std::string_view form;
    Kind kind;
};
constexpr Form forms[] = {
    {"OLT_INDEX", Kind::Olt},  {"OLT_ID", Kind::Olt},  {"OLT_DEVICE_INDEX", Kind::Olt},     {"LLID_INDEX", Kind::Link},
    {"ONU_INDEX", Kind::Link}, {"ONU_ID", Kind::Link}, {"AA-BB-CC-DD-EE-FF", Kind::Address}};

Kind kind_of(std::string_view form)
{
    for (const Form& row : forms)
        if (row.form == form) return row.kind;
    return Kind::None;
}

// As the commands convert an index: base 16 behind "0x", else base 10.
std::optional<std::int16_t> index_in(std::string_view word)
{
    const int base = word.substr(0, 2) == "0x" ? 16 : 10;
    if (base == 16) word.remove_prefix(2);
    std::int16_t index = 0;
    const auto [end, fault] = std::from_chars(word.data(), word.data() + word.size(), index, base);
    if (fault != std::errc() || end != word.data() + word.size()) return std::nullopt;
    return index;
}

// The OLT that a line is about: the one that was typed, or the one whose context the session is in.
std::optional<std::int16_t> olt_of(const ValueQuestion& question)
{
    for (std::size_t i = question.before.size(); i-- > 0;)
        if (kind_of(question.before[i].form) == Kind::Olt) return index_in(question.before[i].typed);
    if (question.session.node >= OLT_NODE) return question.session.olt_id;
    return std::nullopt;
}

// Behind an OLT's index stands the address of an OLT that is yet to be added, and behind "destination-..." any
// station's.
bool is_address_of_a_link(const ValueQuestion& question)
{
    if (question.before.empty()) return false;
    const std::string_view last = question.before.back().form;
    return last == "llid-mac-address" || last == "onu-mac-address" || last == "mac-address";
}

void tell_olts(std::vector<LiveValue>* values)
{
    for (const sdk_sim::OltDescription& olt : sdk_sim::olts())
        values->push_back({std::to_string(olt.id), olt.mac + ", " + std::to_string(olt.registered) + " of " +
                                                       std::to_string(olt.links) + " links registered"});
}

void tell_links(std::int16_t olt_id, Kind kind, std::vector<LiveValue>* values)
{
    for (const sdk_sim::LinkDescription& link : sdk_sim::links()) {
        if (link.olt_id != olt_id) continue;
        const std::string index = std::to_string(link.id);
        const std::string state = ", " + link.mode + ", " + link.rate;
        if (kind == Kind::Link)
            values->push_back({index, link.mac + state});
        else
            values->push_back({link.mac, std::string("link ").append(index).append(state)});
    }
}

void tell_values(const ValueQuestion& question, std::vector<LiveValue>* values)
{
    const Kind kind = kind_of(question.form);
    if (kind == Kind::None || (kind == Kind::Address && !is_address_of_a_link(question))) return;
    if (kind == Kind::Olt) {
        tell_olts(values);
        return;
    }
    if (const std::optional<std::int16_t> olt_id = olt_of(question)) tell_links(*olt_id, kind, values);
}

} // namespace

void install_network_values()
{
    engine::set_value_source(tell_values);
}
