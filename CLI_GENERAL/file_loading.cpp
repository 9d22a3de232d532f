// SPDX-License-Identifier: Apache-2.0
// Files named on the command line, read into memory for the SDK.
#include <cstdio>
#include <cstdlib>
#include <sys/stat.h>

#include <epon/cli.h>

namespace {

struct Reason {
    const char* argument;
    const char* text;
};

constexpr Reason CANNOT_OPEN = {"file_path", "Error opening the file"};
constexpr Reason CANNOT_SEEK = {"file_path", "Error seeking the beginning of the file"};
constexpr Reason TOO_LARGE = {"data_buffer", "Cannot load file to memory - memory limitation"};
constexpr Reason CANNOT_READ = {"file_path", "Error reading the file"};

// A pipe or a device could block the console; only regular files are opened.
bool is_loadable(const char* path)
{
    struct stat status;
    return stat(path, &status) != 0 || S_ISREG(status.st_mode);
}

const Reason* load(FILE* file, uint8_t** data_buffer, uint32_t* size)
{
    if (fseeko(file, 0, SEEK_END) != 0) return &CANNOT_SEEK;
    const off_t length = ftello(file); // longer than a long on a 32-bit board
    if (length < 0 || fseeko(file, 0, SEEK_SET) != 0) return &CANNOT_SEEK;
    if (length > INT32_MAX) return &TOO_LARGE;
    // One byte for an empty file: the SDK is handed a buffer whatever the size.
    auto* buffer = static_cast<uint8_t*>(malloc(length == 0 ? 1 : static_cast<size_t>(length)));
    if (buffer == nullptr) return &TOO_LARGE;
    if (fread(buffer, 1, static_cast<size_t>(length), file) != static_cast<size_t>(length)) {
        free(buffer);
        return &CANNOT_READ;
    }
    *data_buffer = buffer;
    *size = static_cast<uint32_t>(length);
    return nullptr;
}

} // namespace

int CLI_load_file_to_memory(const char* path, uint8_t** data_buffer, uint32_t* size, vty* session)
{
    const Reason* reason = &CANNOT_OPEN;
    FILE* file = is_loadable(path) ? fopen(path, "rb") : nullptr;
    if (file != nullptr) {
        reason = load(file, data_buffer, size);
        fclose(file);
    }
    if (reason == nullptr) return 0;
    RBX_vty_out(session, "%s: %s %s", reason->argument, reason->text, VTY_NEWLINE(session));
    return -1;
}
