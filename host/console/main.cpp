// SPDX-License-Identifier: Apache-2.0
// epon-console: a terminal on the console's local socket.
#include <csignal>
#include <cstdio>
#include <string>

#include <CLI/CLI.hpp>

#include "session.h"

int main(int argc, char** argv)
{
    CLI::App options("Opens the console of a running epon-host over its local socket.\n"
                     "Ctrl-] leaves. Lines piped in are carried out one after the other.");
    std::string path = "/var/run/zebra.vty";
    options.add_option("--socket", path, "local socket of the console")->capture_default_str();
    try {
        options.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return options.exit(error) == 0 ? 0 : 1;
    }

    std::string error;
    int connection = console::connect_local(path, &error);
    if (connection < 0) {
        std::fprintf(stderr, "epon-console: %s\n", error.c_str());
        return 1;
    }
    int signal_number = 0;
    switch (console::run_session(connection, &signal_number)) {
    case console::Ending::ByConsole:
    case console::Ending::ByOperator:
        return 0;
    case console::Ending::Broken:
        std::fprintf(stderr, "epon-console: standard input cannot be read\n");
        return 1;
    case console::Ending::BySignal:
        break;
    }
    // The terminal is back to normal; the caller sees the signal as the reason.
    std::signal(signal_number, SIG_DFL);
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, signal_number);
    sigprocmask(SIG_UNBLOCK, &set, nullptr);
    std::raise(signal_number);
    return 1;
}
