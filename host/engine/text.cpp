// SPDX-License-Identifier: Apache-2.0
// Strings that cross the border between the command library and the engine.
#include <cstdlib>
#include <cstring>

#include <epon/engine.h>

char* RBX_argv_concat(char** argv, int argc, int shift)
{
    if (argv == nullptr || shift < 0 || shift >= argc) return nullptr;
    std::size_t size = 0;
    for (int i = shift; i < argc; ++i)
        size += strlen(argv[i]) + 1;
    auto* text = static_cast<char*>(malloc(size));
    if (text == nullptr) return nullptr;
    char* end = text;
    for (int i = shift; i < argc; ++i) {
        std::size_t length = strlen(argv[i]);
        memcpy(end, argv[i], length);
        end += length;
        *end++ = i + 1 < argc ? ' ' : '\0';
    }
    return text;
}

char* RBX_zstrdup(const char* text)
{
    return text == nullptr ? nullptr : strdup(text);
}

void RBX_zfree(void* text)
{
    free(text);
}
