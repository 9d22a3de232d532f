// SPDX-License-Identifier: Apache-2.0
// Heap that installed commands take, in bytes for each: those of commands.h in one node, in three, and in libcli; and
// those of the command library, for each command of each node.
#include <cstdio>
#include <cstdlib>

#include <epon/cli.h>
#include <libcli.h>
#include <malloc.h>

#include "bench/consoles.h"
#include "bench/library_console.h"
#include "host/engine/engine_host.h"

namespace {

constexpr std::size_t COUNT = 1000;

std::size_t heap_in_use()
{
    struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

double per_command(std::size_t before)
{
    return static_cast<double>(heap_in_use() - before) / COUNT;
}

double ours(bench::Elements& elements, std::size_t node_count)
{
    std::size_t before = heap_in_use();
    auto* nodes = new engine::CommandTree[node_count];
    std::string error;
    for (std::size_t node = 0; node < node_count; node++)
        for (cmd_element& element : elements.all)
            if (!nodes[node].install(&element, engine::Origin::Host, &error)) abort();
    return per_command(before);
}

double library()
{
    bench::prepare_library_host();
    // What the simulated network and the sessions take is not the commands'.
    RBX_cmd_init();
    RBX_vty_init(nullptr);
    std::size_t before = heap_in_use();
    CLI_activate();
    init_packages();
    std::size_t taken = heap_in_use() - before;
    std::size_t count = 0;
    engine::for_each_element(engine::Origin::Library, [&count](int, const cmd_element&) { count++; });
    engine::stop();
    return static_cast<double>(taken) / static_cast<double>(count);
}

} // namespace

int main()
{
    const std::vector<bench::Command> commands = bench::commands(COUNT);
    bench::Elements once(commands);
    bench::Elements thrice(commands);
    printf("ours_one_node %.0f\n", ours(once, 1));
    printf("ours_three_nodes %.0f\n", ours(thrice, 3));
    cli_def* cli = cli_init();
    std::size_t before = heap_in_use();
    bench::add_to_libcli(cli, commands);
    printf("libcli %.0f\n", per_command(before));
    printf("library %.0f\n", library());
    return 0;
}
