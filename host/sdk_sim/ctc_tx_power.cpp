// SPDX-License-Identifier: Apache-2.0
// Power supply of ONUs' transmitters: ONUs that are silenced, for a time or for good, and heard again.
#include "host/sdk_sim/ctc_tx_power.h"

#include <algorithm>

#include "host/sdk_sim/ctc_operation.h"
#include "host/sdk_sim/life.h"
#include "host/sdk_sim/pon_transmission.h"

namespace sdk_sim {

namespace {

const Operation tx_power_supply_control("CTC_STACK_onu_tx_power_supply_control", CTC_STACK);

struct Order {
    Mac serial_number;
    std::int32_t optical;
    std::uint16_t action;
};

bool is_order(const Order& order, std::int32_t broadcast)
{
    return order.optical >= CTC_OPTICAL_ACTIVE && order.optical <= CTC_OPTICAL_BOTH &&
           (broadcast == 0 || broadcast == 1);
}

bool concerns(const Order& order, const Onu& onu, std::int32_t transmitter)
{
    if (transmitter >= onu.capabilities.pon_interfaces) return false;
    return order.optical == CTC_OPTICAL_BOTH || order.optical == transmitter;
}

bool is_obeyed_by(const Order& order, const Onu& onu)
{
    return order.serial_number == onu.mac && onu.capabilities.power_supply_control != CTC_POWER_SUPPLY_CONTROL_NONE &&
           (concerns(order, onu, CTC_OPTICAL_ACTIVE) || concerns(order, onu, CTC_OPTICAL_STANDBY));
}

// The time goes on while the OLT is away.
void end_silence_after(Network& network, const Olt& olt, const Onu& onu, Milliseconds delay)
{
    const auto end = [olt_id = olt.id, onu_id = onu.id](Network& later) {
        Olt& of_onu = later.olts[olt_id];
        Onu& silent = of_onu.onus.at(onu_id);
        for (std::uint64_t& off_until : silent.transmitters.off_until)
            if (off_until <= later.now) off_until = 0;
        if (of_onu.is_present && transmits(silent)) register_onu(later, of_onu, silent);
    };
    after(network, delay, end);
}

void obey(Network& network, Olt& olt, Onu& onu, const Order& order)
{
    const Milliseconds time = Milliseconds{order.action} * 1000;
    std::uint64_t off_until = network.now + time;
    if (order.action == CTC_TX_REENABLE) off_until = 0;
    if (order.action == CTC_TX_SHUTDOWN_PERMANENT) off_until = OnuTransmitters::PERMANENTLY;
    for (const std::int32_t transmitter : {CTC_OPTICAL_ACTIVE, CTC_OPTICAL_STANDBY})
        if (concerns(order, onu, transmitter)) onu.transmitters.off_until[transmitter] = off_until;
    if (!transmits(onu) && counts_as_registered(onu)) deregister_onu(olt, onu, DeregistrationReason::MpcpTimeout);
    if (order.action == CTC_TX_REENABLE) end_silence_after(network, olt, onu, network.life.registration_time);
    if (order.action != CTC_TX_REENABLE && order.action != CTC_TX_SHUTDOWN_PERMANENT)
        end_silence_after(network, olt, onu, time);
}

std::int16_t send_to_all(Network& network, Olt& olt, const Order& order)
{
    for (auto& [id, onu] : olt.onus)
        if (hears_olt(olt, onu) && onu.extended_oam == OamAnswer::Answers && is_obeyed_by(order, onu))
            obey(network, olt, onu, order);
    return SUCCESS;
}

} // namespace

bool transmits(const Onu& onu)
{
    return onu.transmitters.off_until[CTC_OPTICAL_ACTIVE] == 0;
}

} // namespace sdk_sim

using namespace sdk_sim;

int16_t CTC_STACK_onu_tx_power_supply_control(int16_t olt_id, int16_t onu_id, const uint8_t serial_number[6],
                                              int32_t optical, uint16_t action, int32_t broadcast)
{
    const auto arguments = in(olt_id, onu_id, as_mac(serial_number), optical, action, broadcast);
    Order order{{}, optical, action};
    if (serial_number != nullptr)
        std::copy(serial_number, serial_number + order.serial_number.size(), order.serial_number.begin());
    if (broadcast == 1 || onu_id == BROADCAST_ONU)
        return on_network(tx_power_supply_control, arguments, out(), [&](Network& network) -> int16_t {
            Olt* olt = present_olt(network, olt_id);
            if (olt == nullptr) return CTC_STACK.no_olt;
            return is_order(order, broadcast) ? send_to_all(network, *olt, order) : PARAMETER_ERROR;
        });
    return on_managed_onu(tx_power_supply_control, &Onu::extended_oam, olt_id, onu_id, arguments, out(),
                          [&](Network& network, Olt& olt, Onu& onu) {
                              if (!is_order(order, broadcast)) return PARAMETER_ERROR;
                              if (!is_obeyed_by(order, onu)) return ONU_BAD_PARAMETER;
                              obey(network, olt, onu, order);
                              return SUCCESS;
                          });
}
