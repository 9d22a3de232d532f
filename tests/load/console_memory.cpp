// SPDX-License-Identifier: Apache-2.0
// What a console takes of a board's memory: heap, and the writable data of the library and the engine, with every
// command installed and one session. Prints it in bytes; on a 32-bit machine it must stay below the limit.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include <link.h>
#include <malloc.h>

#include <epon/cli.h>

#include "host/engine/engine_host.h"
#include "host/node_rules.h"

namespace {

constexpr std::size_t LIMIT = 600 * 1000;

std::size_t heap_in_use()
{
    struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

// Adds what the library and the engine have of their own in writable memory.
int add_writable(dl_phdr_info* object, std::size_t, void* sum)
{
    if (strstr(object->dlpi_name, "libepon_cli") == nullptr && strstr(object->dlpi_name, "libepon_engine") == nullptr)
        return 0;
    for (int i = 0; i < object->dlpi_phnum; i++) {
        const ElfW(Phdr)& part = object->dlpi_phdr[i];
        if (part.p_type == PT_LOAD && (part.p_flags & PF_W) != 0) *static_cast<std::size_t*>(sum) += part.p_memsz;
    }
    return 0;
}

} // namespace

int main()
{
    std::size_t before = heap_in_use();
    engine::Options options;
    options.serve = false;
    std::string error;
    if (!engine::prepare(options, &error)) abort();
    install_node_rules();
    init_epon_driver();
    CLI_activate();
    init_packages();
    vty* session = engine::open_memory_session();
    if (session == nullptr) abort();
    for (const char* line : {"enable", "show history", "configure terminal"})
        engine::execute(session, line);
    engine::take_output(session);

    std::size_t heap = heap_in_use() - before;
    std::size_t data = 0;
    dl_iterate_phdr(add_writable, &data);
    engine::stop();
    printf("heap %zu, data %zu, together %zu bytes\n", heap, data, heap + data);
    if (sizeof(void*) > 4 || heap + data <= LIMIT) return 0;
    printf("more than %zu\n", LIMIT);
    return 1;
}
