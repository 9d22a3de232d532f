// SPDX-License-Identifier: Apache-2.0
// OAM frames of single links: how many there may be, and sending one.
#include "host/sdk_sim/oam_frames.h"

#include "host/sdk_sim/link_operation.h"

namespace sdk_sim {

namespace {

const Operation set_oam_frame_rate("NEP_set_oam_frame_rate", GENERAL);
const Operation get_oam_frame_rate("NEP_get_oam_frame_rate", GENERAL);
const Operation send_oam("NEP_send_oam", GENERAL);

constexpr std::int32_t RATE_STEP = 10;
constexpr std::int32_t RATE_LIMIT = 200;

} // namespace

} // namespace sdk_sim

using namespace sdk_sim;

int16_t NEP_set_oam_frame_rate(int16_t olt_id, int16_t llid, int32_t frames)
{
    return on_onu(set_oam_frame_rate, olt_id, llid, in(olt_id, llid, frames), out(), [&](Olt&, Onu& onu) {
        if (frames < 0 || frames > RATE_LIMIT || frames % RATE_STEP != 0) return PARAMETER_ERROR;
        onu.configuration.oam_frames.rate = frames;
        return SUCCESS;
    });
}

int16_t NEP_get_oam_frame_rate(int16_t olt_id, int16_t llid, int32_t* frames)
{
    return on_onu(get_oam_frame_rate, olt_id, llid, in(olt_id, llid), out(frames), [&](Olt&, Onu& onu) {
        *frames = onu.configuration.oam_frames.rate;
        return SUCCESS;
    });
}

int16_t NEP_send_oam(int16_t olt_id, int16_t llid, const uint8_t* frame, uint32_t size)
{
    const auto arguments = in(olt_id, llid, first_octets(frame, size), size);
    return on_onu(send_oam, olt_id, llid, arguments, out(), [&](Olt&, Onu& onu) {
        if (size < OAM_FRAME_MIN_SIZE || size > OAM_FRAME_MAX_SIZE) return PARAMETER_ERROR;
        if (!oam_is_up(onu)) return NO_OAM_LINK;
        ++onu.configuration.oam_frames.sent;
        return SUCCESS;
    });
}
