// SPDX-License-Identifier: Apache-2.0
// epon-console: a terminal, or a script, on the console's local socket.
#include <cstdio>
#include <string>
#include <vector>

#include <unistd.h>

#include <CLI/CLI.hpp>

#include "password_prompt.h"
#include "script.h"
#include "session.h"
#include "signals.h"

namespace {

// Where a host that was started by hand, and the installed service, serve the console.
constexpr const char* USUAL_SOCKETS[] = {"/var/run/zebra.vty", "/run/epon-host/console"};

std::string usual_socket()
{
    for (const char* path : USUAL_SOCKETS)
        if (access(path, F_OK) == 0) return path;
    return USUAL_SOCKETS[0];
}

struct Wanted {
    std::string socket;
    std::vector<std::string> commands;
    std::string file;
    std::string node;
    console::Script script;
    long wait = 0;
    long limit = 0;
    bool hash_password = false;
};

void add_options(CLI::App& options, Wanted& wanted)
{
    constexpr long LONGEST = 30L * 24 * 3600;
    options.set_version_flag("--version", "epon-console 2.0");
    options
        .add_option("--socket", wanted.socket,
                    "Local socket of the console; default: /var/run/zebra.vty, or that of the installed service")
        ->type_name("SOCKET")
        ->envname("EPON_SOCKET");
    options.add_option("--node", wanted.node, "First go there: \"enable; configure terminal; olt 0\"")
        ->type_name("COMMANDS");
    CLI::Option* command =
        options.add_option("-c,--command", wanted.commands, "Carry out this command; may be given several times")
            ->type_name("COMMAND")
            ->allow_extra_args(false);
    options.add_option("-f,--file", wanted.file, "Carry out the commands of this file, one a line; -: standard input")
        ->type_name("FILE")
        ->excludes(command);
    options.add_flag("--json", wanted.script.json, "Print one JSON object for each command, one a line");
    options.add_flag("--echo", wanted.script.echo, "Print prompt and command before each answer");
    options.add_flag("--keep-going", wanted.script.keep_going, "Go on behind a command that fails");
    options.add_option("--wait", wanted.wait, "Seconds to print events for, behind the last command")
        ->check(CLI::Range(0L, LONGEST));
    options.add_option("--timeout", wanted.limit, "Seconds that an answer may take; 0: any time")
        ->check(CLI::Range(0L, LONGEST))
        ->capture_default_str();
    options.add_flag("--hash-password", wanted.hash_password,
                     "Ask for a password, or read one from a pipe, and print its hash for the host's users file");
}

int refuse(const std::string& reason)
{
    std::fprintf(stderr, "epon-console: %s\n", reason.c_str());
    return console::EXIT_NOTHING;
}

int run_interactive(int connection, const std::vector<std::string>& way)
{
    int signal_number = 0;
    switch (console::run_session(connection, way, &signal_number)) {
    case console::Ending::ByConsole:
    case console::Ending::ByOperator:
        return 0;
    case console::Ending::Broken:
        std::fprintf(stderr, "epon-console: standard input cannot be read\n");
        return console::EXIT_FAILED;
    case console::Ending::Lost:
        std::fprintf(stderr, "epon-console: the connection to the console was lost; the host may have stopped\n");
        return console::EXIT_FAILED;
    case console::Ending::BySignal:
        break;
    }
    console::end_by_signal(signal_number); // the terminal is back to normal
}

} // namespace

int main(int argc, char** argv)
{
    CLI::App options("Opens the console of a running epon-host over its local socket; Ctrl-] leaves.\n"
                     "With -c or -f it carries out commands instead: exit code 0 when all succeeded, 1 when one\n"
                     "failed, 2 when nothing could be done.",
                     "epon-console");
    Wanted wanted;
    add_options(options, wanted);
    try {
        options.parse(argc, argv);
    } catch (const CLI::Success& request) {
        return options.exit(request); // --help, --version
    } catch (const CLI::ParseError& fault) {
        return refuse(fault.what());
    }
    if (wanted.hash_password) return console::hash_password();

    console::Script& script = wanted.script;
    std::string error;
    for (const std::string& command : wanted.commands)
        console::add_lines(command, "", &script.lines);
    if (!wanted.file.empty() && !console::read_script(wanted.file, &script.lines, &error)) return refuse(error);
    script.way = console::split_way(wanted.node);
    script.wait = std::chrono::seconds(wanted.wait);
    script.limit = std::chrono::seconds(wanted.limit);

    bool interactive = wanted.commands.empty() && wanted.file.empty();
    if (interactive && (script.json || script.echo || script.keep_going || wanted.wait > 0 || wanted.limit > 0))
        return refuse("--json, --echo, --keep-going, --wait and --timeout go with -c or -f");
    if (wanted.socket.empty()) wanted.socket = usual_socket();
    int connection = console::connect_local(wanted.socket, &error);
    if (connection < 0) return refuse(error);
    if (interactive) return run_interactive(connection, script.way);
    return console::run_script(connection, script);
}
