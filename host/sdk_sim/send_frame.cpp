// SPDX-License-Identifier: Apache-2.0
// Frames that the host sends: counted, and returned by a looped port.
#include "host/sdk_sim/send_frame.h"

#include <cstring>
#include <iterator>
#include <string>

#include "host/sdk_sim/events.h"
#include "host/sdk_sim/link_operation.h"

namespace sdk_sim {

namespace {

const Operation send_frame("NEP_send_frame", GENERAL);
const Operation send_frame_ext("NEP_send_frame_ext", GENERAL);

constexpr uint32_t OLT_MEMORY_SIZE = 64 << 20;

enum Port : uint8_t { PON = 1, SYSTEM = 2, SNIFF = 4 };

// By enum FrameDestinationPort. What the OLT chooses itself goes wherever it may.
constexpr uint8_t ports_of_destination[] = {
    PON, SYSTEM, SNIFF, PON | SYSTEM, SYSTEM | SNIFF, PON | SYSTEM | SNIFF, PON | SYSTEM, PON | SYSTEM, SYSTEM, PON};
// By enum OltLoopbackMode.
constexpr uint8_t looped_ports[] = {0, PON, PON, SYSTEM, SYSTEM, SNIFF};

// The frame shows as its octets, or as where the OLT has it.
struct FrameValue {
    const OLT_frame* frame;
};

bool is_null(const FrameValue& value)
{
    return value.frame == nullptr;
}

void append_value(std::string* line, const FrameValue& value)
{
    const OLT_frame* frame = value.frame;
    if (frame == nullptr) {
        *line += "null";
        return;
    }
    if (frame->octets == nullptr) {
        *line += "{address=" + std::to_string(frame->address);
    } else {
        *line += "{octets=";
        append_value(line, first_octets(frame->octets, frame->size));
    }
    *line += ",size=" + std::to_string(frame->size) + '}';
}

bool is_frame(const OLT_frame& frame)
{
    if (frame.size < FRAME_SIZE_MIN || frame.size > FRAME_SIZE_MAX) return false;
    return frame.octets != nullptr || frame.address <= OLT_MEMORY_SIZE - frame.size;
}

// The OLT's memory reads as the low octets of its addresses.
std::string octets_of(const OLT_frame& frame)
{
    if (frame.octets != nullptr) return {reinterpret_cast<const char*>(frame.octets), frame.size};
    std::string octets;
    for (uint32_t i = 0; i < frame.size; ++i)
        octets += static_cast<char>(frame.address + i);
    return octets;
}

void receive(const Olt& olt, int16_t llid, uint16_t port, const OLT_frame& frame)
{
    QueuedEvent queued;
    queued.kind = EVENT_ETHERNET_FRAME_RECEIVED;
    queued.olt_id = olt.id;
    queued.octets = octets_of(frame);
    const EthernetFrameReceivedEvent event{llid, port, frame.size, nullptr};
    std::memcpy(queued.record, &event, sizeof event);
    queue_event(std::move(queued));
}

int16_t send(Olt& olt, int16_t llid, int32_t destination, int32_t llid_class, const OLT_frame& frame, int32_t encrypt)
{
    if (destination < 0 || destination >= static_cast<int32_t>(std::size(ports_of_destination)) || !is_frame(frame))
        return PARAMETER_ERROR;
    if (llid_class < FRAME_LLID_CLASS_NONE || llid_class > FRAME_LLID_CLASS_ANTI || (encrypt != 0 && encrypt != 1))
        return PARAMETER_ERROR;
    const uint8_t ports = ports_of_destination[destination];
    // Only the PON has links.
    if (llid_class != FRAME_LLID_CLASS_NONE && (ports & PON) == 0) return PARAMETER_ERROR;
    if (llid != FRAME_LLID_NOT_RELEVANT && llid != BROADCAST_ONU && registered_onu(olt, llid) == nullptr)
        return GENERAL.no_onu;
    ++olt.configuration.sent_frames.frames;
    olt.configuration.sent_frames.octets += frame.size;
    const uint8_t returning = ports & looped_ports[olt.configuration.loopback];
    if ((returning & PON) != 0) receive(olt, llid, 0, frame);
    if ((returning & SYSTEM) != 0) receive(olt, FRAME_LLID_NOT_RELEVANT, 1, frame);
    return SUCCESS;
}

} // namespace

} // namespace sdk_sim

using namespace sdk_sim;

int16_t NEP_send_frame(int16_t olt_id, int32_t destination_port, int16_t llid, const OLT_frame* frame)
{
    return on_olt(send_frame, olt_id, in(olt_id, destination_port, llid, FrameValue{frame}), out(),
                  [&](Olt& olt) { return send(olt, llid, destination_port, FRAME_LLID_CLASS_NONE, *frame, 0); });
}

int16_t NEP_send_frame_ext(int16_t olt_id, int32_t destination_port, int16_t llid, int32_t llid_class,
                           const OLT_frame* frame, int32_t encrypt)
{
    const auto arguments = in(olt_id, destination_port, llid, llid_class, FrameValue{frame}, encrypt);
    return on_olt(send_frame_ext, olt_id, arguments, out(),
                  [&](Olt& olt) { return send(olt, llid, destination_port, llid_class, *frame, encrypt); });
}
