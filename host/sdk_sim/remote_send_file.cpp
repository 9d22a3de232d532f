// SPDX-License-Identifier: Apache-2.0
// Files for ONUs: they go in OAM frames, as many a second as the ONU takes.
#include "host/sdk_sim/remote_send_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <string_view>

#include "host/sdk_sim/events.h"
#include "host/sdk_sim/link_operation.h"
#include "host/sdk_sim/remote_operation.h"

namespace sdk_sim {

namespace {

const Operation send_file_to_onu("REMOTE_NEPONU_send_file_to_onu", REMOTE_MANAGEMENT);

constexpr std::uint32_t ONU_FLASH_SIZE = 4 * 1024 * 1024;
constexpr std::uint32_t FRAME_OVERHEAD = 38;  // octets of an OAM frame that carry nothing of a file
constexpr std::uint32_t LIMITED_RATE = 10;    // frames a second, within the limit of slow protocols
constexpr std::uint32_t UNLIMITED_RATE = 100; // and without
constexpr Milliseconds PROGRESS_TIME_MS = 1000;

bool is_name(std::string_view name)
{
    return !name.empty() && name.size() <= REMOTE_FILE_NAME_MAX && name != "." && name != ".." &&
           std::all_of(name.begin(), name.end(), [](char c) { return c > ' ' && c <= '~' && c != '/'; });
}

// The size of a file that can be read from its beginning to its end, or the code of what is wrong with it.
std::int16_t measure_file(const char* path, std::uint32_t* size)
{
    const int file = open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK); // a pipe is refused, not waited for
    if (file < 0) return PARAMETER_ERROR;
    struct stat status {};
    std::int16_t code = PARAMETER_ERROR;
    if (fstat(file, &status) == 0 && S_ISREG(status.st_mode)) {
        code = status.st_size == 0 || status.st_size > REMOTE_FILE_MAX_SIZE ? ILLEGAL_SIZE : SUCCESS;
        char octets[4096];
        std::uint64_t total = 0;
        ssize_t count = 0;
        while (code == SUCCESS && (count = read(file, octets, sizeof octets)) > 0)
            total += static_cast<std::uint64_t>(count);
        if (code == SUCCESS && (count < 0 || total != static_cast<std::uint64_t>(status.st_size)))
            code = PARAMETER_ERROR;
        *size = static_cast<std::uint32_t>(total);
    }
    close(file);
    return code;
}

bool has_room(const Onu& onu, const std::string& name, std::uint32_t size)
{
    std::uint64_t used = size;
    for (const auto& [stored, its_size] : onu.device.files)
        if (stored != name) used += its_size;
    return used <= ONU_FLASH_SIZE;
}

// Octets that reach the ONU between one report of progress and the next.
std::uint32_t step_size(const Onu& onu)
{
    const std::uint32_t rate = onu.configuration.remote_oam.slow_protocol_limit != 0 ? LIMITED_RATE : UNLIMITED_RATE;
    return rate * (onu.device.oam_frame_length - FRAME_OVERHEAD);
}

void send_step(Network& network, Olt& olt, Onu& onu);

void schedule_step(Network& network, const Olt& olt, Onu& onu)
{
    onu.configuration.file_transfer.next_at = network.now + PROGRESS_TIME_MS;
    after_on_link(network, olt, onu.id, PROGRESS_TIME_MS, send_step);
}

void send_step(Network& network, Olt& olt, Onu& onu)
{
    FileTransfer& transfer = onu.configuration.file_transfer;
    if (transfer.next_at != network.now || transfer.state != REMOTE_FILE_RUNNING) return; // the ONU left meanwhile
    transfer.done = std::min(transfer.done + step_size(onu), transfer.size);
    if (tells_of(onu, REMOTE_ALARM_IMAGE_BURN))
        raise(EVENT_FIRMWARE_DOWNLOAD_PROGRESS, olt.id,
              FirmwareDownloadProgressEvent{onu.id, transfer.done, transfer.size});
    if (transfer.done < transfer.size) {
        schedule_step(network, olt, onu);
        return;
    }
    onu.device.files[transfer.name] = transfer.size;
    transfer.state = REMOTE_FILE_COMPLETE;
}

std::int16_t begin_transfer(Network& network, const Olt& olt, Onu& onu, const char* name, std::uint32_t size)
{
    FileTransfer& transfer = onu.configuration.file_transfer;
    if (transfer.state == REMOTE_FILE_RUNNING) return NO_ONU_RESOURCES;
    if (!has_room(onu, name, size)) return MEMORY_ERROR;
    transfer = {REMOTE_FILE_RUNNING, name, size, 0, 0};
    schedule_step(network, olt, onu);
    return SUCCESS;
}

} // namespace

} // namespace sdk_sim

using namespace sdk_sim;

int16_t REMOTE_NEPONU_send_file_to_onu(int16_t olt_id, int16_t onu_id, const char* file_name, const char* file_path)
{
    // The file is read before the model is locked: a slow disk holds up nobody else.
    std::uint32_t size = 0;
    const std::int16_t file_code = file_path == nullptr ? PARAMETER_ERROR : measure_file(file_path, &size);
    const auto arguments = in(olt_id, onu_id, as_text(file_name), as_text(file_path));
    return set_remote(send_file_to_onu, olt_id, onu_id, arguments, [&](Network& network, const Olt& olt, Onu& onu) {
        if (!is_name(file_name)) return PARAMETER_ERROR;
        if (file_code != SUCCESS) return file_code;
        return begin_transfer(network, olt, onu, file_name, size);
    });
}
