// SPDX-License-Identifier: Apache-2.0
// Runs lines in one function, whose instructions a tool can count.
//
//   counted_lines ours|libcli|words4|words8|library|whole|help LINES
//
// "library" takes lines of the command library, up to a handler that only counts; "whole" runs them as the host does,
// down to the simulated network.
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <epon/cli.h>
#include <libcli.h>

#include "bench/consoles.h"
#include "bench/library_console.h"
#include "host/engine/dispatch.h"
#include "host/engine/engine_host.h"
#include "host/secret_words.h"

namespace {

struct Run {
    vty* session = nullptr;
    cli_def* cli = nullptr;
    bool help = false;
    bool whole = false;
    std::vector<std::string> lines;
};

const char* const LIBRARY_LINES[] = {
    "set mpcp-timeout olt 0 timeout 300",
    "set mng-vlan olt 0 host-to-olt-vlan-id vlan 100",
    "set oam-keepalive-state olt 0 llid 1 enable",
    "show mpcp-timeout olt 0",
};

vty* session_of_library(bool whole)
{
    bench::prepare_library_host();
    install_secret_words();
    CLI_activate();
    init_packages();
    if (!whole) {
        // The library's elements are records that it can write to itself.
        engine::for_each_element(engine::Origin::Library, [](int, const cmd_element& element) {
            const_cast<cmd_element&>(element).func = bench::count_command;
        });
    }
    return bench::session_in(CONFIG_NODE);
}

Run prepare(std::string_view what)
{
    Run run;
    run.lines = bench::typed_lines(bench::commands(1000));
    if (what == "libcli") {
        run.cli = bench::libcli_with(1000);
    } else if (what == "words4" || what == "words8") {
        run.session = bench::session_in(bench::node_with_long_commands());
        run.lines = {what == "words4" ? bench::FOUR_WORDS : bench::EIGHT_WORDS};
    } else if (what == "library" || what == "whole") {
        run.session = session_of_library(what == "whole");
        run.whole = what == "whole";
        run.lines.assign(std::begin(LIBRARY_LINES), std::end(LIBRARY_LINES));
        for (const std::string& line : run.lines) { // what is made when it is first used is there
            if (engine::execute(run.session, line).status != engine::MatchStatus::Matched) abort();
        }
        bench::handled_commands = 0;
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
        if (run.whole) engine::take_output(run.session);
    }
}

int main(int argc, char** argv)
{
    if (argc != 3) return 2;
    Run run = prepare(argv[1]);
    auto count = static_cast<std::size_t>(atol(argv[2]));
    counted_part(run, count);
    return run.help || run.whole || bench::handled_commands == static_cast<long>(count) ? 0 : 1;
}
