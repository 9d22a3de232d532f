// SPDX-License-Identifier: Apache-2.0
// ONUs and cards that are made to start anew.
#include <epon/sdk/ctc_reset.h>

#include "host/sdk_sim/ctc_operation.h"

namespace sdk_sim {

namespace {

const Operation reset_onu("CTC_STACK_reset_onu", CTC_STACK);
const Operation reset_card("CTC_STACK_reset_card", CTC_STACK);

// Slots count from 1; 0 is the board of the ONU itself.
bool has_card(const Onu& onu, std::uint8_t frame, std::uint8_t card)
{
    const std::uint8_t slots = onu.capabilities.slots;
    return slots != 0 && frame == 0 && (card <= slots || card == CTC_ALL_CARDS);
}

} // namespace

} // namespace sdk_sim

using namespace sdk_sim;

int16_t CTC_STACK_reset_onu(int16_t olt_id, int16_t onu_id)
{
    return set_ctc(reset_onu, olt_id, onu_id, in(olt_id, onu_id), [](Network& network, Olt& olt, Onu& onu) {
        restart_onu(network, olt, onu, REMOTE_RESET_SW);
        return SUCCESS;
    });
}

int16_t CTC_STACK_reset_card(int16_t olt_id, int16_t onu_id, uint8_t frame, uint8_t card)
{
    return set_ctc(reset_card, olt_id, onu_id, in(olt_id, onu_id, frame, card),
                   [&](Network&, Olt&, Onu& onu) { return has_card(onu, frame, card) ? SUCCESS : ONU_BAD_PARAMETER; });
}
