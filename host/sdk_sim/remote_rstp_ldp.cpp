// SPDX-License-Identifier: Apache-2.0
// Loops on the user ports of ONUs: a loop is found by the first BPDU that comes back.
#include "host/sdk_sim/remote_rstp_ldp.h"

#include "host/sdk_sim/events.h"
#include "host/sdk_sim/link_operation.h"
#include "host/sdk_sim/remote_operation.h"

namespace sdk_sim {

namespace {

const Operation assign_application_handler("REMOTE_NEPONU_assign_application_handler_function", REMOTE_MANAGEMENT);
const Operation set_mode("REMOTE_NEPONU_rstp_ldp_set_mode", REMOTE_MANAGEMENT);
const Operation get_mode("REMOTE_NEPONU_rstp_ldp_get_mode", REMOTE_MANAGEMENT);
const Operation resolve_loop("REMOTE_NEPONU_rstp_ldp_resolve_loop", REMOTE_MANAGEMENT);

constexpr Milliseconds HELLO_TIME = 2000; // between two BPDUs

void raise_loop(const Olt& olt, const Onu& onu, std::uint8_t port, bool is_looped)
{
    raise(EVENT_REMOTE_RSTP_LOOP, olt.id, RemoteRstpLoopEvent{onu.id, port, is_looped, !is_looped});
}

void close_looped_ports(const Olt& olt, Onu& onu)
{
    RstpLdp& rstp_ldp = onu.configuration.rstp_ldp;
    if (rstp_ldp.is_enabled == 0 || !oam_is_up(onu)) return;
    for (const std::uint8_t port : onu.looped_ports)
        if (rstp_ldp.closed_ports.insert(port).second) raise_loop(olt, onu, port, true);
}

// A BPDU goes out with the next hello.
void look_for_loops(Network& network, const Olt& olt, const Onu& onu)
{
    if (onu.configuration.rstp_ldp.is_enabled == 0) return;
    after_on_link(network, olt, onu.id, HELLO_TIME,
                  [](Network&, const Olt& of_loop, Onu& looped) { close_looped_ports(of_loop, looped); });
}

Onu* find_onu(Network& network, std::int16_t olt_id, std::int16_t onu_id, Olt** olt)
{
    if (olt_id < 0 || olt_id >= OLT_INDEX_LIMIT) return nullptr;
    *olt = &network.olts[olt_id];
    const auto row = (*olt)->onus.find(onu_id);
    return row == (*olt)->onus.end() ? nullptr : &row->second;
}

} // namespace

bool make_loop(std::int16_t olt_id, std::int16_t onu_id, std::uint8_t port)
{
    const ModelLock model;
    Olt* olt;
    Onu* onu = find_onu(*model, olt_id, onu_id, &olt);
    if (onu == nullptr || !onu->looped_ports.insert(port).second) return false;
    if (olt->is_present) look_for_loops(*model, *olt, *onu);
    return true;
}

bool remove_loop(std::int16_t olt_id, std::int16_t onu_id, std::uint8_t port)
{
    const ModelLock model;
    Olt* olt;
    Onu* onu = find_onu(*model, olt_id, onu_id, &olt);
    return onu != nullptr && onu->looped_ports.erase(port) == 1;
}

} // namespace sdk_sim

using namespace sdk_sim;

int16_t REMOTE_NEPONU_assign_application_handler_function(int32_t event, EventHandler handler)
{
    return without_model(assign_application_handler, in(event), out(), [&] {
        if (event != REMOTE_RSTP_LOOP_DETECTED || handler == nullptr) return PARAMETER_ERROR;
        return set_handler(EVENT_REMOTE_RSTP_LOOP, handler) ? SUCCESS : MEMORY_ERROR;
    });
}

int16_t REMOTE_NEPONU_rstp_ldp_set_mode(int16_t olt_id, int16_t onu_id, uint8_t enable)
{
    const auto arguments = in(olt_id, onu_id, enable);
    return set_remote(set_mode, olt_id, onu_id, arguments, [&](Network& network, Olt& olt, Onu& onu) {
        if (enable > 1) return PARAMETER_ERROR;
        RstpLdp& rstp_ldp = onu.configuration.rstp_ldp;
        if (rstp_ldp.is_enabled == enable) return SUCCESS;
        rstp_ldp = {enable, {}};
        look_for_loops(network, olt, onu);
        return SUCCESS;
    });
}

int16_t REMOTE_NEPONU_rstp_ldp_get_mode(int16_t olt_id, int16_t onu_id, uint8_t* enable)
{
    return get_remote(get_mode, olt_id, onu_id, enable,
                      [](Network&, Onu& onu) { return onu.configuration.rstp_ldp.is_enabled; });
}

int16_t REMOTE_NEPONU_rstp_ldp_resolve_loop(int16_t olt_id, int16_t onu_id, uint8_t port_number)
{
    const auto arguments = in(olt_id, onu_id, port_number);
    return ask_remote(resolve_loop, olt_id, onu_id, arguments, out(), [&](Network&, Olt& olt, Onu& onu) {
        RstpLdp& rstp_ldp = onu.configuration.rstp_ldp;
        if (rstp_ldp.is_enabled == 0) return BAD_CONFIGURATION;
        if (rstp_ldp.closed_ports.erase(port_number) == 0) return MISMATCH;
        onu.looped_ports.erase(port_number);
        raise_loop(olt, onu, port_number, false);
        return SUCCESS;
    });
}
