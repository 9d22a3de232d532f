// SPDX-License-Identifier: Apache-2.0
// Runs a fuzzer's known inputs without a fuzzing engine: replay FOLDER... gives every file of the folders to it.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv)
{
    std::vector<std::string> paths;
    for (int i = 1; i < argc; ++i)
        for (const auto& entry : std::filesystem::directory_iterator(argv[i]))
            paths.push_back(std::filesystem::absolute(entry.path()));
    std::sort(paths.begin(), paths.end());
    for (const std::string& path : paths) {
        std::ifstream file(path, std::ios::binary);
        std::vector<char> text{std::istreambuf_iterator<char>(file), {}};
        std::fprintf(stderr, "%s\n", path.c_str()); // the last one is the one that broke something
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
    }
    std::printf("%zu inputs\n", paths.size());
    return paths.empty() ? 1 : 0;
}
