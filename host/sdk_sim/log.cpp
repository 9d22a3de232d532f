// SPDX-License-Identifier: Apache-2.0
// The SDK log: entries of NEPLOG_print and the journal of calls, recorded for tests and written to a file.
#include "host/sdk_sim/log.h"

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <mutex>
#include <unistd.h>
#include <utility>

#include <epon/sdk/log.h>

#include "host/sdk_sim/gate.h"
#include "host/sdk_sim/sdk_sim.h"

namespace sdk_sim {

namespace {

struct Log {
    std::mutex mutex;
    std::atomic<bool> wanted = false; // recording, or written to a file
    bool recording = false;
    int file = -1;
    std::vector<std::string> journal;
    std::vector<std::string> entries;
};

Log& sdk_log()
{
    static Log& instance = *new Log; // never destroyed: detached threads may outlive main
    return instance;
}

void close_file(Log& log)
{
    if (log.file > STDERR_FILENO) close(log.file);
    log.file = -1;
}

// One line of the file: time of day, "call" or "log", and the entry without its line end and control bytes.
void write_line(const Log& log, const char* kind, std::string_view entry)
{
    if (entry.ends_with('\n')) entry.remove_suffix(1);
    if (entry.ends_with('\r')) entry.remove_suffix(1);
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    tm local{};
    localtime_r(&now.tv_sec, &local);
    char when[40];
    const std::size_t length = std::strftime(when, sizeof(when), "%Y-%m-%d %H:%M:%S", &local);
    std::snprintf(when + length, sizeof(when) - length, ".%03d", static_cast<int>(now.tv_nsec / 1000000));
    std::string line = std::string(when) + ' ' + kind + ' ';
    for (const char character : entry)
        line += static_cast<unsigned char>(character) < 0x20 || character == 0x7F ? '.' : character;
    line += '\n';
    // One write a line, so that lines stay whole. A full disk must not stop the SDK.
    [[maybe_unused]] const ssize_t written = write(log.file, line.data(), line.size());
}

void keep(std::vector<std::string> Log::*list, const char* kind, std::string entry)
{
    Log& log = sdk_log();
    const std::lock_guard lock(log.mutex);
    if (log.file >= 0) write_line(log, kind, entry);
    if (log.recording) (log.*list).push_back(std::move(entry));
}

std::vector<std::string> take(std::vector<std::string> Log::*list)
{
    Log& log = sdk_log();
    const std::lock_guard lock(log.mutex);
    return std::exchange(log.*list, {});
}

std::string format_text(const char* format, va_list arguments) EPON_PRINTF(1, 0);
std::string format_text(const char* format, va_list arguments)
{
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, arguments);
    std::string text(length > 0 ? static_cast<std::size_t>(length) : 0, '\0');
    if (length > 0) std::vsnprintf(text.data(), text.size() + 1, format, again);
    va_end(again);
    return text;
}

} // namespace

bool set_log(const std::string& path, std::string* error)
{
    int file = -1;
    if (path == "-") {
        file = STDERR_FILENO;
    } else if (!path.empty()) {
        file = open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
        if (file < 0) {
            *error = path + ": " + std::strerror(errno);
            return false;
        }
    }
    Log& log = sdk_log();
    const std::lock_guard lock(log.mutex);
    close_file(log);
    log.file = file;
    log.wanted.store(log.recording || file >= 0);
    return true;
}

void record_journal(bool on)
{
    Log& log = sdk_log();
    const std::lock_guard lock(log.mutex);
    log.recording = on;
    log.wanted.store(on || log.file >= 0);
}

std::vector<std::string> take_journal()
{
    return take(&Log::journal);
}

std::vector<std::string> take_log()
{
    return take(&Log::entries);
}

bool journal_wanted()
{
    return sdk_log().wanted.load(std::memory_order_relaxed);
}

void journal(std::string line)
{
    keep(&Log::journal, "call", std::move(line));
}

void reset_log()
{
    std::string error;
    set_log("", &error);
    record_journal(false);
    take_journal();
    take_log();
}

} // namespace sdk_sim

using namespace sdk_sim;

void NEPLOG_print(int severity, const char* module, int level, const char* topic, int16_t olt_id, int16_t onu_id,
                  const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    NEPLOG_print_args(severity, "", "", module, level, topic, olt_id, onu_id, format, arguments);
    va_end(arguments);
}

// Severity and level are not told apart: the simulated log keeps everything.
void NEPLOG_print_args(int /*severity*/, const char* /*file*/, const char* /*function*/, const char* module,
                       int /*level*/, const char* topic, int16_t olt_id, int16_t onu_id, const char* format,
                       va_list arguments)
{
    if (!journal_wanted() || format == nullptr) return;
    std::string entry = topic == nullptr ? "" : topic;
    entry += '|';
    entry += module == nullptr ? "" : module;
    entry += '|' + std::to_string(olt_id) + '|' + std::to_string(onu_id) + '|';
    entry += format_text(format, arguments);
    keep(&Log::entries, "log", std::move(entry));
}
