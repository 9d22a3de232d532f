// SPDX-License-Identifier: Apache-2.0
// The console with links, and files in a folder of their own.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "links_fixture.h"

class Files : public Links {
  protected:
    static constexpr const char* CANNOT_OPEN = "file_path: Error opening the file \r\n";

    Files()
    {
        char name[] = "/tmp/epon-files-XXXXXX";
        folder = mkdtemp(name);
    }
    ~Files() override
    {
        std::filesystem::remove_all(folder);
    }

    std::string write(const char* name, const std::string& text)
    {
        const std::string path = folder / name;
        std::ofstream(path, std::ios::binary) << text;
        return path;
    }

    std::filesystem::path folder;
};
