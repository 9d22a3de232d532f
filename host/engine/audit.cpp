// SPDX-License-Identifier: Apache-2.0
#include "host/engine/audit.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <cstring>
#include <ctime>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include "host/engine/log.h"

namespace engine {
namespace {

constexpr int FACILITY = 13; // "log audit"
constexpr std::string_view SYSLOG_TARGET = "syslog";
constexpr std::string_view SYSLOG_SOCKET = "/dev/log";
constexpr const char* FIELDS_ID = "console@32473";
constexpr std::chrono::seconds FLUSH_TIME{2};

struct Writer {
    std::mutex lock;
    std::condition_variable changed, idle;
    std::deque<std::string> queue;  // under lock
    std::size_t queued = 0;         // under lock: bytes in it
    std::uint64_t lost = 0;         // under lock: since the last record that says so
    bool writing = false;           // under lock
    bool reopen = false;            // under lock
    bool started = false;           // under lock
    std::string path;               // under lock: of the file or the socket; empty: none is kept
    std::atomic<int> fd{-1};        // the writer's, but for open_audit
    std::atomic<bool> local{false}; // to the system's log
    std::atomic<std::uint64_t> dropped{0};
    std::uint64_t untold = 0; // the writer's: lost, and not yet said so in the record
    bool cut_line = false;    // the writer's: the last line written is not whole
    bool complained = false;  // the writer's
};

Writer& writer()
{
    static Writer& the = *new Writer;
    return the;
}

// The socket of the system's log that the target names; empty when it names a file.
std::string log_socket(std::string_view target)
{
    if (target == SYSLOG_TARGET) return std::string(SYSLOG_SOCKET);
    bool names_one = target.starts_with(SYSLOG_TARGET) && target.substr(SYSLOG_TARGET.size()).starts_with(":/");
    return std::string(names_one ? target.substr(SYSLOG_TARGET.size() + 1) : "");
}

int connect_log(const std::string& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) {
        errno = ENAMETOOLONG;
        return -1;
    }
    memcpy(address.sun_path, path.c_str(), path.size() + 1);
    int fd = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    if (fd >= 0 && connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) {
        int reason = errno;
        close(fd);
        errno = reason;
        fd = -1;
    }
    return fd;
}

int open_target(const std::string& path, bool local, std::string* error)
{
    int fd = local ? connect_log(path)
                   : open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOCTTY, S_IRUSR | S_IWUSR);
    if (fd < 0) *error = "audit " + path + ": " + strerror(errno);
    return fd;
}

std::string printable_word(std::string text)
{
    for (char& c : text)
        if (c <= ' ' || c > '~') c = '-';
    return text.empty() ? "-" : text;
}

const std::string& machine_name()
{
    static const std::string& name = *[] {
        char text[256] = "";
        gethostname(text, sizeof text - 1);
        return new std::string(printable_word(text));
    }();
    return name;
}

std::string header(int priority, std::string_view event, bool local)
{
    timeval now{};
    gettimeofday(&now, nullptr);
    tm parts{};
    char time[64], text[512];
    std::string program = printable_word(program_invocation_short_name);
    if (local) {
        // What a system's log expects on its own socket; it adds the machine's name.
        localtime_r(&now.tv_sec, &parts);
        strftime(time, sizeof time, "%b %e %H:%M:%S", &parts);
        snprintf(text, sizeof text, "<%d>%s %s[%d]: %.*s", priority, time, program.c_str(), getpid(),
                 static_cast<int>(event.size()), event.data());
    } else {
        gmtime_r(&now.tv_sec, &parts);
        strftime(time, sizeof time, "%Y-%m-%dT%H:%M:%S", &parts);
        snprintf(text, sizeof text, "<%d>1 %s.%06ldZ %s %s %d %.*s", priority, time, static_cast<long>(now.tv_usec),
                 machine_name().c_str(), program.c_str(), getpid(), static_cast<int>(event.size()), event.data());
    }
    return text;
}

std::string record(Severity severity, std::string_view event, std::initializer_list<AuditField> fields, bool local)
{
    std::string text = header(FACILITY * 8 + static_cast<int>(severity), event, local);
    text += " [";
    text += FIELDS_ID;
    for (const AuditField& field : fields) {
        text += ' ';
        text += field.name;
        text += "=\"" + audit_value(field.value) + '"';
    }
    text += ']';
    if (!local) text += '\n';
    return text;
}

// The writer's thread.

void complain(Writer& at, const std::string& path)
{
    if (!at.complained) log_line("audit %s: %s; records are lost", path.c_str(), strerror(errno));
    at.complained = true;
}

bool send_whole(int fd, std::string_view text)
{
    ssize_t size;
    do
        size = send(fd, text.data(), text.size(), MSG_NOSIGNAL);
    while (size < 0 && errno == EINTR);
    return size >= 0;
}

// A full disk may take a part of a line; the next one does not continue it.
bool write_whole(Writer& at, std::string_view text)
{
    std::string_view line_end = at.cut_line ? "\n" : "";
    for (std::string_view rest : {line_end, text})
        while (!rest.empty()) {
            ssize_t size = write(at.fd, rest.data(), rest.size());
            if (size < 0 && errno == EINTR) continue;
            if (size <= 0) return false;
            rest.remove_prefix(static_cast<std::size_t>(size));
            at.cut_line = !rest.empty();
        }
    return true;
}

// True when all of it was written; a system's log that was restarted is connected to once more.
bool write_record(Writer& at, const std::string& path, const std::string& text)
{
    if (!at.local) return write_whole(at, text);
    if (send_whole(at.fd, text)) return true;
    std::string ignored;
    int fd = open_target(path, true, &ignored);
    if (fd < 0) return false;
    close(at.fd.exchange(fd));
    return send_whole(fd, text);
}

void open_again(Writer& at, const std::string& path)
{
    std::string error;
    int fd = open_target(path, at.local, &error);
    if (fd < 0) {
        log_line("%s; the old one is written on", error.c_str());
        return;
    }
    int old = at.fd.exchange(fd);
    if (old >= 0) close(old);
    at.complained = at.cut_line = false;
}

// Says in the record how many are missing there. False when not even that can be written.
bool tell_loss(Writer& at, const std::string& path)
{
    if (at.untold == 0) return true;
    std::string text = record(Severity::Warning, "DROPPED", {{"records", std::to_string(at.untold)}}, at.local);
    if (!write_record(at, path, text)) return false;
    at.untold = 0;
    return true;
}

void write_all(Writer& at, const std::string& path, const std::deque<std::string>& records)
{
    for (const std::string& text : records) {
        if (tell_loss(at, path) && write_record(at, path, text)) {
            at.complained = false;
            continue;
        }
        complain(at, path);
        ++at.dropped;
        ++at.untold;
    }
}

[[noreturn]] void write_forever()
{
    Writer& at = writer();
    std::unique_lock guard(at.lock);
    for (;;) {
        at.writing = false;
        at.idle.notify_all();
        at.changed.wait(guard, [&] { return !at.queue.empty() || at.reopen; });
        at.writing = true;
        std::deque<std::string> records;
        records.swap(at.queue);
        at.queued = 0;
        std::uint64_t lost = std::exchange(at.lost, 0); // after those
        bool reopen = std::exchange(at.reopen, false);
        std::string path = at.path;
        guard.unlock();
        if (reopen) open_again(at, path);
        write_all(at, path, records);
        at.untold += lost;
        tell_loss(at, path);
        guard.lock();
    }
}

// --- Field values -------------------------------------------------------------------------------------------------

// Length of the UTF-8 character at the front of the text; 0 when there is none.
std::size_t character(std::string_view text, char32_t* code)
{
    auto first = static_cast<unsigned char>(text[0]);
    std::size_t length = first < 0x80                    ? 1
                         : first >= 0xc2 && first < 0xe0 ? 2
                         : (first & 0xf0) == 0xe0        ? 3
                         : first >= 0xf0 && first < 0xf5 ? 4
                                                         : 0;
    if (length == 0 || length > text.size()) return 0;
    char32_t value = length == 1 ? first : first & (0xffU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        auto byte = static_cast<unsigned char>(text[i]);
        if ((byte & 0xc0) != 0x80) return 0;
        value = value << 6 | (byte & 0x3fU);
    }
    constexpr char32_t SMALLEST[] = {0, 0, 0x80, 0x800, 0x10000};
    if (value < SMALLEST[length] || value > 0x10ffff || (value >= 0xd800 && value < 0xe000)) return 0;
    *code = value;
    return length;
}

// Characters that break lines or turn the direction of writing make one text look like another.
bool misleads(char32_t code)
{
    return (code >= 0x80 && code < 0xa0) || (code >= 0x200b && code <= 0x200f) || (code >= 0x2028 && code <= 0x202e) ||
           (code >= 0x2060 && code <= 0x2069) || code == 0xfeff;
}

constexpr std::string_view REPLACEMENT = "\xef\xbf\xbd";

void add_picture(unsigned char control, std::string* out)
{
    *out += "\xe2\x90";
    *out += static_cast<char>(0x80 + (control == 0x7f ? 0x21 : control));
}

} // namespace

std::string audit_value(std::string_view text)
{
    std::string value;
    while (!text.empty()) {
        char32_t code = 0;
        std::size_t length = character(text, &code);
        if (length == 0 || misleads(code)) {
            value += REPLACEMENT;
        } else if (code < 0x20 || code == 0x7f) {
            add_picture(static_cast<unsigned char>(code), &value);
        } else {
            if (code == '"' || code == '\\' || code == ']') value += '\\';
            value += text.substr(0, length);
        }
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return value;
}

bool open_audit(const std::string& target, std::string* error)
{
    Writer& at = writer();
    std::string socket_path = log_socket(target);
    bool local = !socket_path.empty();
    const std::string& path = local ? socket_path : target;
    int fd = path.empty() ? -1 : open_target(path, local, error);
    if (fd < 0 && !target.empty()) return false;
    flush_audit();
    std::lock_guard guard(at.lock);
    at.path = path;
    at.local = local;
    int old = at.fd.exchange(fd);
    if (old >= 0) close(old);
    if (!at.started && fd >= 0) {
        at.started = true;
        std::thread(write_forever).detach();
    }
    return true;
}

void reopen_audit()
{
    Writer& at = writer();
    std::lock_guard guard(at.lock);
    if (at.path.empty()) return;
    at.reopen = true;
    at.changed.notify_all();
}

void flush_audit()
{
    Writer& at = writer();
    std::unique_lock guard(at.lock);
    if (!at.started) return;
    at.idle.wait_for(guard, FLUSH_TIME, [&] { return at.queue.empty() && !at.reopen && !at.writing; });
}

bool audits()
{
    return writer().fd.load(std::memory_order_relaxed) >= 0;
}

void audit(Severity severity, std::string_view event, std::initializer_list<AuditField> fields)
{
    Writer& at = writer();
    if (!audits()) return;
    std::string text = record(severity, event, fields, at.local);
    std::lock_guard guard(at.lock);
    if (at.queued + text.size() > AUDIT_QUEUE_BYTES) {
        ++at.lost;
        ++at.dropped;
        return;
    }
    at.queued += text.size();
    at.queue.push_back(std::move(text));
    at.changed.notify_one();
}

std::uint64_t audit_dropped()
{
    return writer().dropped;
}

} // namespace engine
