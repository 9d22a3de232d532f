// SPDX-License-Identifier: Apache-2.0
// Loading firmware into ONUs.
#include "host/sdk_sim/onu_firmware.h"

#include <algorithm>

#include <epon/sdk/onu_firmware.h>

#include "host/sdk_sim/events.h"
#include "host/sdk_sim/link_operation.h"

namespace sdk_sim {

namespace {

const Operation download_onu_firmware("NEP_download_onu_firmware", GENERAL);

constexpr Milliseconds STEP_TIME_MS = 200;
constexpr std::uint32_t STEPS = 10;

std::uint32_t crc32(const std::uint8_t* octets, std::uint32_t count)
{
    std::uint32_t crc = 0xFFFFFFFF;
    for (std::uint32_t i = 0; i < count; ++i) {
        crc ^= octets[i];
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ (crc % 2 != 0 ? 0xEDB88320 : 0);
    }
    return ~crc;
}

void load_step(Network& network, Olt& olt, Onu& onu);

void schedule_step(Network& network, const Olt& olt, Onu& onu)
{
    onu.configuration.download.next_at = network.now + STEP_TIME_MS;
    after_on_link(network, olt, onu.id, STEP_TIME_MS, load_step);
}

void load_step(Network& network, Olt& olt, Onu& onu)
{
    OnuDownload& download = onu.configuration.download;
    if (download.next_at != network.now) return; // the ONU left meanwhile
    const std::uint32_t size = download.image.size;
    const std::uint32_t step = (size + STEPS - 1) / STEPS;
    download.done = std::min(download.done + step, size);
    raise(EVENT_FIRMWARE_DOWNLOAD_PROGRESS, olt.id, FirmwareDownloadProgressEvent{onu.id, download.done, size});
    if (download.done < size) {
        schedule_step(network, olt, onu);
        return;
    }
    onu.image = download.image;
    download = {};
}

} // namespace

} // namespace sdk_sim

using namespace sdk_sim;

int16_t NEP_download_onu_firmware(int16_t olt_id, int16_t onu_id, const uint8_t* image, uint32_t size)
{
    const auto arguments = in(olt_id, onu_id, first_octets(image, size), size);
    return on_link(download_onu_firmware, olt_id, onu_id, arguments, out(), [&](Network& network, Olt& olt, Onu& onu) {
        if (size == 0 || size > ONU_FIRMWARE_MAX_SIZE) return PARAMETER_ERROR;
        if (!oam_is_up(onu)) return NO_OAM_LINK;
        if (onu.configuration.download.next_at != 0) return EXIT_ERROR;
        onu.configuration.download.image = {size, crc32(image, size)};
        schedule_step(network, olt, onu);
        return SUCCESS;
    });
}
