// SPDX-License-Identifier: Apache-2.0
// Saved answers: new files in one directory of the host, written by a thread of their own, so that a slow disk keeps
// nobody waiting but the operator who saves.
#pragma once

#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

#include "host/engine/filter.h"

namespace engine {

// Files in the directory; with that many there is no saving until somebody clears up.
constexpr std::size_t SAVED_FILES = 1000;
constexpr std::size_t SAVED_NAME_LIMIT = 64;

// The directory; an empty path: no saving. False with a clear line in *error. Before the console is served.
bool set_save_directory(const std::string& path, std::string* error);
bool saving_is_possible();
// Letters, digits, ".", "_" and "-", beginning with a letter or a digit: no way out of the directory.
bool is_file_name(std::string_view name);

class SaveJob {
  public:
    // done is called on the saving thread.
    SaveJob(SaveRequest request, std::function<void()> done);
    bool is_done();
    void wait();
    // One line for the operator, once it is done.
    const std::string& report() const
    {
        return text;
    }

  private:
    friend struct SaveThread;
    void run();

    SaveRequest what;
    std::function<void()> when_done;
    std::string text;
    std::mutex lock;
    std::condition_variable changed;
    bool done = false; // under lock
};

std::shared_ptr<SaveJob> start_saving(SaveRequest request, std::function<void()> done);

} // namespace engine
