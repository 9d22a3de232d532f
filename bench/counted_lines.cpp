// SPDX-License-Identifier: Apache-2.0
// Runs lines in one function, whose instructions a tool can count.
//
//   counted_lines ours|libcli|words4|words8|help LINES
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <libcli.h>

#include "bench/consoles.h"
#include "host/engine/dispatch.h"
#include "host/engine/engine_host.h"

namespace {

struct Run {
    vty* session = nullptr;
    cli_def* cli = nullptr;
    bool help = false;
    std::vector<std::string> lines;
};

Run prepare(std::string_view what)
{
    Run run;
    run.lines = bench::typed_lines(bench::commands(1000));
    if (what == "libcli") {
        run.cli = bench::libcli_with(1000);
    } else if (what == "words4" || what == "words8") {
        run.session = bench::session_in(bench::node_with_long_commands());
        run.lines = {what == "words4" ? bench::FOUR_WORDS : bench::EIGHT_WORDS};
    } else {
        run.session = bench::session_in(bench::node_with(1000));
        run.help = what == "help";
    }
    return run;
}

} // namespace

extern "C" __attribute__((noinline)) void counted_part(Run& run, std::size_t count)
{
    for (std::size_t i = 0; i < count; i++) {
        const std::string& line = run.lines[i % run.lines.size()];
        if (run.cli != nullptr)
            cli_run_command(run.cli, line.c_str());
        else if (run.help)
            engine::help_text(*engine::session_of(run.session), "show ");
        else
            engine::execute(run.session, line);
    }
}

int main(int argc, char** argv)
{
    if (argc != 3) return 2;
    Run run = prepare(argv[1]);
    auto count = static_cast<std::size_t>(atol(argv[2]));
    counted_part(run, count);
    return run.help || bench::handled_commands == static_cast<long>(count) ? 0 : 1;
}
