// SPDX-License-Identifier: Apache-2.0
// How long a typed line takes from its text to its handler, "?" takes, and installing takes.
#include <cstdlib>

#include <benchmark/benchmark.h>
#include <libcli.h>

#include "bench/consoles.h"
#include "host/engine/dispatch.h"
#include "host/engine/engine_host.h"

namespace {

void run(benchmark::State& state, vty* session, const std::vector<std::string>& lines)
{
    bench::handled_commands = 0;
    std::size_t next = 0;
    for (auto _ : state) {
        engine::execute(session, lines[next]);
        if (++next == lines.size()) next = 0;
    }
    if (bench::handled_commands != static_cast<long>(state.iterations())) state.SkipWithError("a line was not run");
}

void dispatch(benchmark::State& state)
{
    auto count = static_cast<std::size_t>(state.range(0));
    vty* session = bench::session_in(bench::node_with(count));
    run(state, session, bench::typed_lines(bench::commands(count)));
    engine::close_session(session);
}
BENCHMARK(dispatch)->Arg(1000)->Arg(2000)->Arg(4000)->Arg(8000);

// The same 1000 lines, so that only the number of commands around them differs.
void dispatch_same_lines(benchmark::State& state)
{
    auto count = static_cast<std::size_t>(state.range(0));
    vty* session = bench::session_in(bench::node_with(count));
    run(state, session, bench::typed_lines(bench::commands(1000)));
    engine::close_session(session);
}
BENCHMARK(dispatch_same_lines)->Arg(1000)->Arg(8000);

void dispatch_words(benchmark::State& state)
{
    vty* session = bench::session_in(bench::node_with_long_commands());
    run(state, session, {state.range(0) == 4 ? bench::FOUR_WORDS : bench::EIGHT_WORDS});
    engine::close_session(session);
}
BENCHMARK(dispatch_words)->Arg(4)->Arg(8);

// Two commands, each of which stands in a node of its own; the session goes to and fro between them.
void dispatch_node_change(benchmark::State& state)
{
    const int nodes[] = {bench::node_with(1000), bench::node_with(8000)};
    vty* session = bench::session_in(nodes[0]);
    const std::vector<std::string> lines = bench::typed_lines(bench::commands(1000));
    std::size_t next = 0;
    for (auto _ : state) {
        session->node = nodes[next & 1];
        engine::execute(session, lines[next]);
        if (++next == lines.size()) next = 0;
    }
    engine::close_session(session);
}
BENCHMARK(dispatch_node_change);

void dispatch_libcli(benchmark::State& state)
{
    auto count = static_cast<std::size_t>(state.range(0));
    cli_def* cli = bench::libcli_with(count);
    const std::vector<std::string> lines = bench::typed_lines(bench::commands(count));
    bench::handled_commands = 0;
    std::size_t next = 0;
    for (auto _ : state) {
        cli_run_command(cli, lines[next].c_str());
        if (++next == lines.size()) next = 0;
    }
    if (bench::handled_commands != static_cast<long>(state.iterations())) state.SkipWithError("a line was not run");
    cli_done(cli);
}
BENCHMARK(dispatch_libcli)->Arg(1000);

void help(benchmark::State& state)
{
    vty* session = bench::session_in(bench::node_with(1000));
    const engine::Session& own = *engine::session_of(session);
    for (auto _ : state)
        benchmark::DoNotOptimize(engine::help_text(own, "show "));
    engine::close_session(session);
}
BENCHMARK(help);

// Fresh elements each time; what a command line engine keeps of them stays.
void install(benchmark::State& state)
{
    const std::vector<bench::Command> commands = bench::commands(1000);
    for (auto _ : state) {
        state.PauseTiming();
        auto& elements = *new bench::Elements(commands);
        auto& tree = *new engine::CommandTree;
        state.ResumeTiming();
        std::string error;
        for (cmd_element& element : elements.all)
            if (!tree.install(&element, engine::Origin::Host, &error)) abort();
    }
}
BENCHMARK(install)->Iterations(30);

void install_libcli(benchmark::State& state)
{
    const std::vector<bench::Command> commands = bench::commands(1000);
    for (auto _ : state) {
        state.PauseTiming();
        cli_def* cli = cli_init();
        state.ResumeTiming();
        bench::add_to_libcli(cli, commands);
        state.PauseTiming();
        cli_done(cli);
        state.ResumeTiming();
    }
}
BENCHMARK(install_libcli)->Iterations(10);

} // namespace

BENCHMARK_MAIN();
