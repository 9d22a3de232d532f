// SPDX-License-Identifier: Apache-2.0
// How OLTs and ONUs come and go, with the events that tell of it. The caller holds the model's lock.
#pragma once

#include "host/sdk_sim/model.h"

namespace sdk_sim {

// Why an ONU left: OnuDeregisteredEvent.reason.
enum class DeregistrationReason { Command = 0, MpcpTimeout = 1, OamTimeout = 2, ByOnu = 3, Refused = 4, OltReset = 5 };

// Makes an OLT present. After a while it is operational, and its ONUs register one after the other.
void start_olt(Network& network, Olt& olt);
// Makes an OLT absent; its ONUs are lost.
void end_olt(Olt& olt);
// Lets the ONUs of an OLT register one after the other; those that are registered stay so.
void register_onus(Network& network, const Olt& olt);

// Registers an ONU that asks for it, if its OLT hears and admits it.
void register_onu(Network& network, Olt& olt, Onu& onu);
void deregister_onu(Olt& olt, Onu& onu, DeregistrationReason reason);
// Makes an ONU that was sent away ask for registration again, if the ONUs of this network do.
void return_onu(Network& network, const Olt& olt, std::int16_t onu_id);

// Begins what the network does by itself.
void begin_life(Network& network);

} // namespace sdk_sim
