// SPDX-License-Identifier: Apache-2.0
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>

#include "console_fixture.h"

namespace {

class FileLoading : public Console {
  protected:
    FileLoading()
    {
        char name[] = "/tmp/epon-loading-XXXXXX";
        folder = mkdtemp(name);
    }
    ~FileLoading() override
    {
        std::filesystem::remove_all(folder);
    }

    std::string write(const char* name, const std::string& text)
    {
        const std::string path = folder / name;
        std::ofstream(path, std::ios::binary) << text;
        return path;
    }

    std::string load(const std::string& path)
    {
        buffer = nullptr;
        size = 0;
        outcome = CLI_load_file_to_memory(path.c_str(), &buffer, &size, session);
        contents.assign(reinterpret_cast<char*>(buffer), buffer == nullptr ? 0 : size);
        free(buffer);
        return engine::take_output(session);
    }

    std::filesystem::path folder;
    uint8_t* buffer = nullptr;
    uint32_t size = 0;
    int outcome = 0;
    std::string contents;
};

constexpr const char* CANNOT_OPEN = "file_path: Error opening the file \r\n";

TEST_F(FileLoading, WholeFiles)
{
    const std::string bytes("a\0b\r\n\xff", 6);
    for (const std::string& text : {bytes, std::string(100000, 'x'), std::string()}) {
        EXPECT_EQ(load(write("image", text)), "");
        EXPECT_EQ(outcome, 0);
        EXPECT_EQ(size, text.size());
        EXPECT_EQ(contents, text);
        EXPECT_NE(buffer, nullptr); // an empty file has a buffer, too
    }
}

TEST_F(FileLoading, FilesThatCannotBeOpened)
{
    const std::string pipe = folder / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const std::string& path : {std::string(folder / "absent"), std::string(folder), pipe, std::string("/dev/zero"),
                                    std::string(), std::string(5000, 'x')}) {
        EXPECT_EQ(load(path), CANNOT_OPEN) << path;
        EXPECT_EQ(outcome, -1);
        EXPECT_EQ(buffer, nullptr);
    }
}

TEST_F(FileLoading, FilesTooLargeForTheBoard)
{
    const std::string path = write("image", "");
    std::filesystem::resize_file(path, std::uintmax_t{1} << 31); // sparse
    EXPECT_EQ(load(path), "data_buffer: Cannot load file to memory - memory limitation \r\n");
    EXPECT_EQ(outcome, -1);
}

TEST_F(FileLoading, FilesThatCannotBeRead)
{
    // The kernel says one page for its own files and delivers less.
    EXPECT_EQ(load("/sys/devices/system/cpu/online"), "file_path: Error reading the file \r\n");
    EXPECT_EQ(outcome, -1);
    EXPECT_EQ(buffer, nullptr);
}

} // namespace
