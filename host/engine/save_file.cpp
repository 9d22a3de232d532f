// SPDX-License-Identifier: Apache-2.0
#include "host/engine/save_file.h"

#include <algorithm>
#include <atomic>
#include <cctype>
#include <cerrno>
#include <cstring>
#include <deque>
#include <thread>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "host/engine/filter_kinds.h"
#include "host/engine/large_text.h"

namespace engine {
namespace {

std::atomic<int> directory{-1};

std::size_t files_in(int folder)
{
    int own = openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    DIR* stream = own < 0 ? nullptr : fdopendir(own);
    if (stream == nullptr) {
        if (own >= 0) close(own);
        return 0;
    }
    std::size_t count = 0;
    while (const dirent* entry = readdir(stream))
        if (entry->d_name[0] != '.') ++count;
    closedir(stream);
    return count;
}

// 0, or the error's number.
int write_all(int fd, std::string_view text)
{
    while (!text.empty()) {
        ssize_t written = write(fd, text.data(), text.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return errno;
        text.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

// Empty, or why it was not written.
std::string write_file(const SaveRequest& request)
{
    if (files_in(directory) >= SAVED_FILES)
        return "the directory holds " + std::to_string(SAVED_FILES) + " files already";
    // A file or a symbolic link of that name is never followed or overwritten.
    int fd = openat(directory, request.name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (fd < 0) return errno == EEXIST ? "there is a file of that name" : strerror(errno);
    int fault = write_all(fd, request.text);
    if (close(fd) != 0 && fault == 0) fault = errno;
    if (fault == 0) return "";
    unlinkat(directory, request.name.c_str(), 0);
    return strerror(fault);
}

class Saving : public Filter {
  public:
    explicit Saving(std::optional<SaveRequest>& request) : wish(request) {}
    void take(const AnswerLine& line) override
    {
        if (line.failure) next->take(line); // the operator sees it as well
        if (wish->text.size() + line.text.size() >= FILTER_HOLD) {
            ++left_out;
            return;
        }
        make_room_for(line.text.size() + 1, &wish->text);
        wish->text.append(line.text).append("\n");
        ++wish->lines;
    }
    void end(int result) override
    {
        if (left_out > 0) {
            std::string text = "% The answer is too long to be saved: " + std::to_string(left_out) +
                               (left_out == 1 ? " line was left out." : " lines were left out.");
            next->take({text, true});
        }
        next->end(result);
    }

  private:
    std::optional<SaveRequest>& wish;
    std::size_t left_out = 0;
};

} // namespace

// Jobs wait for each other; every session has one at most.
struct SaveThread {
    std::mutex lock;
    std::condition_variable changed;
    std::deque<std::shared_ptr<SaveJob>> waiting; // under lock

    void add(std::shared_ptr<SaveJob> job)
    {
        {
            std::lock_guard guard(lock);
            waiting.push_back(std::move(job));
        }
        changed.notify_one();
    }
    [[noreturn]] void run()
    {
        for (;;) {
            std::unique_lock guard(lock);
            changed.wait(guard, [this] { return !waiting.empty(); });
            std::shared_ptr<SaveJob> job = std::move(waiting.front());
            waiting.pop_front();
            guard.unlock();
            job->run();
        }
    }
};

namespace {

// Runs from the first use to the end of the process.
SaveThread& save_thread()
{
    static SaveThread& the = *[] {
        auto* made = new SaveThread;
        std::thread([made] { made->run(); }).detach();
        return made;
    }();
    return the;
}

} // namespace

bool set_save_directory(const std::string& path, std::string* error)
{
    int opened = -1;
    if (!path.empty()) {
        opened = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (opened < 0 || faccessat(opened, ".", W_OK, 0) != 0) {
            *error = "directory for saved answers " + path + ": " + strerror(errno);
            if (opened >= 0) close(opened);
            return false;
        }
    }
    if (int former = directory.exchange(opened); former >= 0) close(former);
    return true;
}

bool saving_is_possible()
{
    return directory >= 0;
}

bool is_file_name(std::string_view name)
{
    auto is_plain = [](char c) { return isalnum(static_cast<unsigned char>(c)) != 0 && (c & 0x80) == 0; };
    return !name.empty() && name.size() <= SAVED_NAME_LIMIT && is_plain(name[0]) &&
           std::all_of(name.begin(), name.end(),
                       [&](char c) { return is_plain(c) || c == '.' || c == '_' || c == '-'; });
}

SaveJob::SaveJob(SaveRequest request, std::function<void()> done_call)
    : what(std::move(request)), when_done(std::move(done_call))
{
}

void SaveJob::run()
{
    std::string fault = write_file(what);
    if (fault.empty())
        text =
            "Saved " + std::to_string(what.lines) + (what.lines == 1 ? " line" : " lines") + " in " + what.name + ".";
    else
        text = "% Not saved in " + what.name + ": " + fault + ".";
    {
        std::lock_guard guard(lock);
        done = true;
    }
    changed.notify_all();
    when_done();
}

bool SaveJob::is_done()
{
    std::lock_guard guard(lock);
    return done;
}

void SaveJob::wait()
{
    std::unique_lock guard(lock);
    changed.wait(guard, [this] { return done; });
}

std::shared_ptr<SaveJob> start_saving(SaveRequest request, std::function<void()> done)
{
    auto job = std::make_shared<SaveJob>(std::move(request), std::move(done));
    save_thread().add(job);
    return job;
}

std::unique_ptr<Filter> make_save(std::string_view argument, FilterWishes& wishes, std::string* error)
{
    if (!saving_is_possible()) {
        *error = "The host has no directory for saved answers";
        return nullptr;
    }
    if (!is_file_name(argument)) {
        *error = "Not a file name: up to " + std::to_string(SAVED_NAME_LIMIT) +
                 " letters, digits, \".\", \"_\" and \"-\", beginning with a letter or a digit";
        return nullptr;
    }
    wishes.save.emplace().name = argument;
    return std::make_unique<Saving>(wishes.save);
}

} // namespace engine
