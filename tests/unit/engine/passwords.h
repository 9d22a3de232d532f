// SPDX-License-Identifier: Apache-2.0
// Hashes that are quick to check, and files as private as passwords need them.
#pragma once

#include <string>

#include <crypt.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

inline std::string hash_of(const std::string& password)
{
    crypt_data data{};
    return crypt_r(password.c_str(), "$5$rounds=1000$saltsalt", &data);
}

class PrivateFile {
  public:
    explicit PrivateFile(const std::string& text, mode_t mode = 0600)
    {
        int fd = mkstemp(name);
        write(fd, text);
        fchmod(fd, mode);
        close(fd);
    }
    ~PrivateFile()
    {
        unlink(name);
    }
    PrivateFile(const PrivateFile&) = delete;
    PrivateFile& operator=(const PrivateFile&) = delete;

    std::string path() const
    {
        return name;
    }

  private:
    static void write(int fd, const std::string& text)
    {
        for (std::size_t at = 0; at < text.size();) {
            ssize_t size = ::write(fd, text.data() + at, text.size() - at);
            if (size <= 0) abort();
            at += static_cast<std::size_t>(size);
        }
    }

    char name[32] = "/tmp/epon-private-XXXXXX";
};
